#include "drop/Duplicates.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "base/Routines.h"
#include "desktop/OpenFolderView.h"
#include "drop/DuplicateAskForm.h"
#include "platform/controls/FileListBox.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

// Most candidates differ in their first few bytes: little is read of them, and more at a time of those that agree.
constexpr std::size_t FirstBlock = 4096;
constexpr std::size_t LargestBlock = 256 * 1024;

}  // namespace

struct ContentComparison::State {
  Files& files;
  std::unique_ptr<File> file;
  std::int64_t length = 0;
  std::vector<std::uint8_t> start;  // the file's first block
  std::vector<std::uint8_t> mine;
  std::vector<std::uint8_t> theirs;
};

ContentComparison::ContentComparison(Files& files, const std::string& path)
    : state_(new State{files, files.Open(path, OpenMode::Read), 0, {}, {}, {}}) {
  state_->length = state_->file->Length();
}

ContentComparison::~ContentComparison() = default;

std::int64_t ContentComparison::Length() const {
  return state_->length;
}

bool ContentComparison::SameContent(const std::string& candidate) {
  State& state = *state_;
  const std::unique_ptr<File> other = state.files.OpenOfLength(candidate, state.length);
  if (other == nullptr) return false;
  if (state.start.empty()) {
    std::vector<std::uint8_t> start(FirstBlock);
    start.resize(state.file->ReadAt(0, start.data(), FirstBlock));
    state.start = std::move(start);  // only once it is read
    state.theirs.resize(LargestBlock);
  }
  std::size_t block = FirstBlock;
  for (std::int64_t at = 0; at < state.length;) {
    const auto wanted =
        static_cast<std::size_t>(std::min<std::int64_t>(static_cast<std::int64_t>(block), state.length - at));
    const std::size_t read = other->ReadAt(at, state.theirs.data(), wanted);
    const std::uint8_t* mine = state.start.data();
    std::size_t readOfMine = state.start.size();
    if (at > 0) {
      state.mine.resize(LargestBlock);
      readOfMine = state.file->ReadAt(at, state.mine.data(), wanted);
      mine = state.mine.data();
    }
    if (read != wanted || readOfMine < wanted) return false;  // one of them has been cut meanwhile
    const std::size_t first = at == 0 ? 1 : 0;
    if (std::memcmp(mine + first, state.theirs.data() + first, wanted - first) != 0) return false;
    at += static_cast<std::int64_t>(wanted);
    block = std::min(block * 8, LargestBlock);
  }
  return true;
}

namespace {

// The file's length, looked at where this run has not seen it yet.
std::int64_t LengthOf(Files& files, const FileListBox& list, int i, SeenLengths& seen) {
  const auto [known, isNew] = seen.Of.try_emplace(list.List(i), 0);
  if (!isNew) return known->second;
  const int failure = ErrorsIgnored([&] { known->second = files.Length(list.FullPath(i)); });
  if (failure == error::None) return known->second;
  seen.Of.erase(known);
  throw RuntimeError(failure);
}

}  // namespace

std::string FindDuplicate(Files& files, const FileListBox& list, std::string& newFile, SeenLengths* seen) {
  newFile = Trim(newFile);
  if (newFile.empty()) return {};
  if (list.ListCount() == 0) return {};
  ContentComparison comparison(files, newFile);
  SeenLengths none;
  SeenLengths& lengths = seen != nullptr ? *seen : none;
  if (lengths.Folder != list.Path()) lengths = {.Folder = list.Path(), .Of = {}};
  // Another file may have had its name before.
  const std::string newName = FileNameOf(newFile);
  lengths.Of.erase(newName);
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == newName && list.FullPath(i) == newFile) continue;
    if (LengthOf(files, list, i, lengths) != comparison.Length()) continue;
    std::string candidate = list.FullPath(i);
    if (!comparison.SameContent(candidate)) continue;
    // A link is no copy. A hard link, and another spelling on a disk that ignores case, is the new file itself.
    if (!files.IsLink(candidate) && !files.IsSameFile(candidate, newFile)) return candidate;
  }
  return {};
}

namespace {

// The file is on stable storage with its name. A file that the disk refuses must not be the only one left.
bool IsDurable(Files& files, const std::string& path) {
  return ErrorsIgnored([&] {
           files.Open(path, OpenMode::Read)->Flush();
           files.FlushFolder(ParentPathOf(path));
         }) == error::None;
}

// While a dialog was up either file may have gone, or become another.
bool AreStillEqual(Files& files, const std::string& equalFile, const std::string& newFile) {
  bool equal = false;
  ErrorsIgnored([&] {
    equal = ContentComparison(files, newFile).SameContent(equalFile) && !files.IsLink(equalFile) &&
            !files.IsSameFile(equalFile, newFile);
  });
  return equal;
}

}  // namespace

void ResolveDuplicate(MainForm& main, const std::string& equalFile, const std::string& newFile, int slot) {
  if (equalFile.empty() || newFile.empty()) return;
  const PreferencesForm& preferences = main.preferences;
  if (preferences.DuplicatesAllowOption.Value()) return;
  Files& files = main.host.files;
  std::string toDelete;
  if (preferences.DuplicatesAutoOption.Value()) toDelete = newFile;
  if (preferences.DuplicatesAskOption.Value()) {
    toDelete = DeleteDuplicate(main, equalFile, newFile);
    if (toDelete.empty() || !AreStillEqual(files, equalFile, newFile)) return;
  }
  if (toDelete.empty() || !IsDurable(files, toDelete == newFile ? equalFile : newFile)) return;
  if (slot == main.desk.OpenFolderIndex) RemoveDestPhoto(main.desk, toDelete, main.pictures.InvalidPicture);
  ErrorsIgnored([&] {
    // Deliberate: a file that is write-protected stays, also where the host would delete it.
    const std::optional<int> attributes = files.Attributes(toDelete);
    if (attributes && (*attributes & attribute::ReadOnly) != 0) return;
    files.Delete(toDelete);
  });
}

}  // namespace pixorra
