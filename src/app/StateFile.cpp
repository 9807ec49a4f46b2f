#include "app/StateFile.h"

#include <memory>

#include "base/Routines.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "window/UnreadState.h"

namespace pixorra {

namespace {

// Nobody but this program ends a name like this.
constexpr const char* OwnEnding = ".pixorra-new";

// Passes on the name, then the name with 2, 3 and so on after it, until that raises no FileExists. Returns the name
// that was taken; raises what else `take` raises, FileExists where 99 names have others.
template <typename Take>
std::string WithFreeName(const std::string& name, const Take& take) {
  constexpr int MostNames = 99;
  for (int number = 1;; ++number) {
    const std::string numbered = number == 1 ? name : name + std::to_string(number);
    const int failure = ErrorsIgnored([&] { take(numbered); });
    if (failure == error::None) return numbered;
    if (failure != error::FileExists || number == MostNames) throw RuntimeError(failure);
  }
}

// What a run that was killed has left under this name. A folder or a link there is somebody else's.
void RemoveLeftOver(Files& files, const std::string& path) {
  if (files.FileExists(path) && !files.IsLink(path)) ErrorsIgnored([&] { files.Delete(path); });
}

// On the disk before it is replaced.
void KeepOld(Files& files, const std::string& path, UnreadState& before) {
  if (!before.Kept) WithFreeName(path + ".old", [&](const std::string& name) { files.LinkOrCopy(path, name); });
  before.Kept = true;
  files.FlushFolder(ParentPathOf(path));
}

[[noreturn]] void RaiseNotKept(Files& files, const std::string& path, int number) {
  throw RuntimeError(number, "The settings of this run are not saved. \"" + files.ShownPath(path) +
                                 "\" could not be read at the start, and cannot be kept under another name now: " +
                                 ErrorDescription(number));
}

// Of a folder that takes no new file, or of a name that no other file may take.
bool IsRefused(int failure) {
  return failure == error::PathAccess || failure == error::PermissionDenied;
}

void WriteInPlace(Files& files, const std::string& path, const std::string& bytes) {
  // It is cut short first: nothing but the writing itself must come after that.
  const std::unique_ptr<File> file = files.Open(path, OpenMode::Replace);
  ErrorsIgnored([&] {
    file->WriteAt(0, bytes.data(), bytes.size());
    file->Flush();
  });
}

}  // namespace

void ReplaceStateFile(Files& files, const std::string& path, const std::string& bytes, UnreadState& before) {
  const bool thereIsOne = files.NameTaken(path);
  // A file that may not be written stays as it is, though its folder would let another one take its place.
  if (thereIsOne) files.Open(path, OpenMode::ReadWrite);
  const bool keepsOld = thereIsOne && before.Unread;
  std::unique_ptr<File> file;
  std::string beside;
  const int opened = ErrorsIgnored([&] {
    beside = WithFreeName(path + OwnEnding, [&](const std::string& name) {
      RemoveLeftOver(files, name);
      file = files.Open(name, OpenMode::CreateNew);
    });
  });
  if (opened != error::None) {
    if (keepsOld) RaiseNotKept(files, path, opened);
    // After any other failure, a full disk among them, the state before stays.
    if (!IsRefused(opened)) throw RuntimeError(opened);
    WriteInPlace(files, path, bytes);
    return;
  }
  bool isInPlace = false;
  const AtExit withoutLeftOver([&] {
    file.reset();
    if (!isInPlace) ErrorsIgnored([&] { files.Delete(beside); });
  });
  const int written = ErrorsIgnored([&] {
    file->WriteAt(0, bytes.data(), bytes.size());
    file->Flush();
  });
  if (written != error::None) return;
  file.reset();
  if (keepsOld) {
    const int kept = ErrorsIgnored([&] { KeepOld(files, path, before); });
    if (kept != error::None) RaiseNotKept(files, path, kept);
  }
  if (const int failure = ErrorsIgnored([&] { files.RenameOver(beside, path); }); failure != error::None) {
    if (!keepsOld && IsRefused(failure)) WriteInPlace(files, path, bytes);
    return;
  }
  isInPlace = true;
  before = {};
  ErrorsIgnored([&] { files.FlushFolder(ParentPathOf(path)); });
}

}  // namespace pixorra
