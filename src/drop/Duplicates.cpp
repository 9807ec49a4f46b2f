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

// Goes along the list, from its start to its end, with what is seen of it already: in a folder of thousands that costs
// less than to look each name up.
class LengthsInOrder {
 public:
  LengthsInOrder(Files& files, const FileListBox& list, SeenLengths& seen) : files_(files), list_(list), seen_(seen) {}

  // The file's length, looked at where this run has not seen it yet.
  std::int64_t Of(int i) {
    const std::string& name = list_.List(i);
    PassOver(name);
    if (!IsAt(name)) seen_.Of.insert(Place(), {name, files_.Length(list_.FullPath(i))});
    return Place()->Length;
  }

 private:
  std::vector<SeenLengths::File>::iterator Place() { return seen_.Of.begin() + static_cast<std::ptrdiff_t>(at_); }
  bool IsAt(const std::string& name) const { return at_ < seen_.Of.size() && seen_.Of[at_].Name == name; }
  // What the list has no more.
  void PassOver(const std::string& name) {
    while (at_ < seen_.Of.size() && !IsAt(name) && NameLess(seen_.Of[at_].Name, name)) ++at_;
  }

  Files& files_;
  const FileListBox& list_;
  SeenLengths& seen_;
  std::size_t at_ = 0;
};

void Forget(SeenLengths& seen, const std::string& name) {
  const auto before = [](const SeenLengths::File& file, const std::string& wanted) {
    return NameLess(file.Name, wanted);
  };
  const auto place = std::lower_bound(seen.Of.begin(), seen.Of.end(), name, before);
  if (place != seen.Of.end() && place->Name == name) seen.Of.erase(place);
}

}  // namespace

std::string FindDuplicate(Files& files, const FileListBox& list, std::string& newFile, SeenLengths* seen) {
  newFile = Trim(newFile);
  if (newFile.empty()) return {};
  if (list.ListCount() == 0) return {};
  ContentComparison comparison(files, newFile);
  SeenLengths none;
  SeenLengths& known = seen != nullptr ? *seen : none;
  if (known.Folder != list.Path()) known = {.Folder = list.Path(), .Of = {}};
  // Another file may have had its name before.
  const std::string newName = FileNameOf(newFile);
  Forget(known, newName);
  LengthsInOrder lengths(files, list, known);
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == newName && list.FullPath(i) == newFile) continue;
    if (lengths.Of(i) != comparison.Length()) continue;
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
