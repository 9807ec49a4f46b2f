#include "tests/support/DiskRecorder.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

namespace pixorra {

namespace {

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('\\'));
}

// Path and bytes of each file of the drive.
DiskState FilesOf(TemporaryDrive& drive) {
  DiskState files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(drive.HostRoot())) {
    if (!entry.is_regular_file()) continue;
    std::string path = "C:" + entry.path().string().substr(drive.HostRoot().size());
    std::ranges::replace(path, '/', '\\');
    std::string bytes = drive.Read(path);
    files[std::move(path)] = std::move(bytes);
  }
  return files;
}

std::size_t HashOf(const DiskState& state) {
  std::string hashes;
  for (const auto& [path, bytes] : state) hashes += path + '|' + std::to_string(std::hash<std::string>()(bytes)) + '|';
  return std::hash<std::string>()(hashes);
}

}  // namespace

class DiskRecorder::Recorded : public File {
 public:
  Recorded(DiskRecorder& disk, int node, std::unique_ptr<File> inner)
      : disk_(disk), node_(node), inner_(std::move(inner)) {}

  std::int64_t Length() override { return inner_->Length(); }
  FileStamp Stamp() override { return inner_->Stamp(); }
  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    return inner_->ReadAt(offset, into, count);
  }
  void WriteAt(std::int64_t offset, const void* from, std::size_t count) override {
    inner_->WriteAt(offset, from, count);
    disk_.steps_.push_back({.What = Kind::Write,
                            .Node = node_,
                            .Offset = static_cast<std::size_t>(offset),
                            .Bytes = std::string(static_cast<const char*>(from), count),
                            .Names = {},
                            .Folder = {}});
  }
  void Flush() override {
    inner_->Flush();
    disk_.steps_.push_back(
        {.What = Kind::FlushFile, .Node = node_, .Offset = 0, .Bytes = {}, .Names = {}, .Folder = {}});
  }
  void Empty() override {
    inner_->Empty();
    disk_.steps_.push_back({.What = Kind::Cut, .Node = node_, .Offset = 0, .Bytes = {}, .Names = {}, .Folder = {}});
  }

 private:
  DiskRecorder& disk_;
  int node_;
  std::unique_ptr<File> inner_;
};

DiskRecorder::DiskRecorder(TemporaryDrive& drive) : FaultyFiles(drive.DriveFiles()), start_(FilesOf(drive)) {
  for (const auto& [path, bytes] : start_) names_[path] = ++nodes_;
  startNames_ = names_;
}

int DiskRecorder::NodeOf(const std::string& path) {
  const auto found = names_.find(path);
  return found == names_.end() ? 0 : found->second;
}

void DiskRecorder::ChangeNames(std::map<std::string, int> names) {
  const std::string folder = FolderOf(names.begin()->first);
  for (const auto& [path, node] : names) {
    if (FolderOf(path) != folder) throw std::logic_error("a rename from folder to folder is not recorded");
    names_[path] = node;
  }
  steps_.push_back(
      {.What = Kind::Names, .Node = 0, .Offset = 0, .Bytes = {}, .Names = std::move(names), .Folder = folder});
}

std::unique_ptr<File> DiskRecorder::Open(const std::string& path, OpenMode mode) {
  std::unique_ptr<File> file = FaultyFiles::Open(path, mode);
  if (mode != OpenMode::Read && NodeOf(path) == 0) ChangeNames({{path, ++nodes_}});
  const int node = NodeOf(path);
  if (node == 0) throw std::logic_error(path + " is spelled in another way on the disk");
  if (mode == OpenMode::Replace)
    steps_.push_back({.What = Kind::Cut, .Node = node, .Offset = 0, .Bytes = {}, .Names = {}, .Folder = {}});
  return std::make_unique<Recorded>(*this, node, std::move(file));
}

void DiskRecorder::Delete(const std::string& path) {
  FaultyFiles::Delete(path);
  ChangeNames({{path, 0}});
}

void DiskRecorder::Rename(const std::string& from, const std::string& to) {
  FaultyFiles::Rename(from, to);
  ChangeNames({{to, NodeOf(from)}, {from, 0}});
}

void DiskRecorder::RenameOver(const std::string& from, const std::string& to) {
  FaultyFiles::RenameOver(from, to);
  ChangeNames({{to, NodeOf(from)}, {from, 0}});
}

void DiskRecorder::LinkOrCopy(const std::string& from, const std::string& to) {
  FaultyFiles::LinkOrCopy(from, to);
  ChangeNames({{to, NodeOf(from)}});
}

void DiskRecorder::FlushFolder(const std::string& path) {
  FaultyFiles::FlushFolder(path);
  const std::string folder = path.ends_with('\\') ? path.substr(0, path.size() - 1) : path;
  steps_.push_back({.What = Kind::FlushFolder, .Node = 0, .Offset = 0, .Bytes = {}, .Names = {}, .Folder = folder});
}

int DiskRecorder::Changes() const {
  return static_cast<int>(std::ranges::count_if(
      steps_, [](const Step& step) { return step.What != Kind::FlushFile && step.What != Kind::FlushFolder; }));
}

// The power goes before step `cut`, and no flush has kept this step until then.
bool DiskRecorder::IsPending(std::size_t step, std::size_t cut) const {
  const Step& change = steps_[step];
  if (change.What == Kind::FlushFile || change.What == Kind::FlushFolder) return false;
  for (std::size_t i = step + 1; i < cut; ++i) {
    const Step& flush = steps_[i];
    if (change.What == Kind::Names && flush.What == Kind::FlushFolder && flush.Folder == change.Folder) return false;
    if (change.What != Kind::Names && flush.What == Kind::FlushFile && flush.Node == change.Node) return false;
  }
  return true;
}

DiskState DiskRecorder::StateWith(const std::vector<Fate>& fates) const {
  std::map<std::string, int> names = startNames_;
  std::map<int, std::string> bytes;
  for (const auto& [path, node] : startNames_) bytes[node] = start_.at(path);
  for (std::size_t i = 0; i < fates.size(); ++i) {
    const Step& step = steps_[i];
    if (fates[i] == Fate::Missing) continue;
    if (step.What == Kind::Names) {
      for (const auto& [path, node] : step.Names) names[path] = node;
    } else if (step.What == Kind::Cut) {
      bytes[step.Node].clear();
    } else if (step.What == Kind::Write) {
      std::string& file = bytes[step.Node];
      const std::size_t count = fates[i] == Fate::Half ? step.Bytes.size() / 2 : step.Bytes.size();
      if (file.size() < step.Offset + count) file.resize(step.Offset + count);
      if (fates[i] == Fate::Zeros) {
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(step.Offset), count, '\0');
      } else {
        file.replace(step.Offset, count, step.Bytes, 0, count);
      }
    }
  }
  DiskState state;
  for (const auto& [path, node] : names)
    if (node != 0) state[path] = bytes[node];
  return state;
}

std::string DiskRecorder::Describe(std::size_t step) const {
  const Step& change = steps_[step];
  if (change.What == Kind::FlushFolder) return "flush of " + change.Folder;
  if (change.What == Kind::Names) {
    std::string text;
    for (const auto& [path, node] : change.Names) text += (node == 0 ? " name gone: " : " name there: ") + path;
    return text;
  }
  const char* what = change.What == Kind::Write ? "write of " : change.What == Kind::Cut ? "cut of " : "flush of ";
  return what + std::to_string(change.Bytes.size()) + " bytes, file " + std::to_string(change.Node);
}

void DiskRecorder::ForEachState(const std::function<void(const DiskState&, const std::string&)>& look) const {
  std::set<std::size_t> seen;
  const auto show = [&](const std::vector<Fate>& fates, const std::string& words) {
    const DiskState state = StateWith(fates);
    if (seen.insert(HashOf(state)).second) look(state, words);
  };
  for (std::size_t cut = 0; cut <= steps_.size(); ++cut) {
    const std::string when = cut == 0 ? "at the start" : "after the " + Describe(cut - 1);
    std::vector<std::size_t> pending;
    for (std::size_t i = 0; i < cut; ++i)
      if (IsPending(i, cut)) pending.push_back(i);
    std::vector<Fate> all(cut, Fate::There);
    std::vector<Fate> none = all;
    for (const std::size_t i : pending) none[i] = Fate::Missing;
    show(all, when + ": all there");
    show(none, when + ": nothing there that was not flushed");
    for (const std::size_t i : pending) {
      const auto with = [i](std::vector<Fate> fates, Fate fate) {
        fates[i] = fate;
        return fates;
      };
      show(with(all, Fate::Missing), when + ": without the " + Describe(i));
      show(with(none, Fate::There), when + ": with only the " + Describe(i));
      if (steps_[i].What != Kind::Write) continue;
      show(with(all, Fate::Half), when + ": with half of the " + Describe(i));
      show(with(all, Fate::Zeros), when + ": with zeros for the " + Describe(i));
    }
  }
}

}  // namespace pixorra
