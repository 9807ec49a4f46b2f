#include "platform/posix/PosixRegistry.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/CommandLine.h"
#include "platform/posix/FolderVerb.h"
#include "platform/posix/HostLookup.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

// Where a key lies on the road to a command.
struct VerbKey {
  std::string Verb;      // empty above the verbs, for all of them
  bool Command = false;  // the command's own key
};

// Nothing for keys elsewhere. Letter case does not count, and the verb is shown in the case that it is given.
std::optional<VerbKey> VerbOf(std::uint32_t root, std::string_view key) {
  constexpr std::array<std::string_view, 4> road{"Folder", "Shell", {}, "Command"};
  if (root != registry::ClassesRoot) return std::nullopt;
  VerbKey found;
  for (std::size_t depth = 0; depth < road.size(); ++depth) {
    const std::size_t end = std::min(key.find('\\'), key.size());
    const std::string_view name = key.substr(0, end);
    const bool isVerb = road[depth].empty();
    if (name.empty() || (!isVerb && !EqualIgnoringCase(name, road[depth]))) return std::nullopt;
    if (isVerb) found.Verb = name;
    if (end < key.size()) {
      key.remove_prefix(end + 1);
      continue;
    }
    found.Command = depth + 1 == road.size();
    return found;
  }
  return std::nullopt;
}

bool IsOwn(const std::string& hostPath) {
  return ReadSmallFile(hostPath).value_or("").find(VerbMark) != std::string::npos;
}

// A link counts that leads nowhere.
bool IsTaken(const std::string& hostPath) {
  struct stat entry {};
  return lstat(hostPath.c_str(), &entry) == 0;
}

std::string FolderOf(const std::string& hostPath) {
  return hostPath.substr(0, hostPath.rfind('/'));
}

// How many folders above the file are missing.
int FoldersToMake(const std::string& hostPath) {
  int missing = 0;
  for (std::string folder = FolderOf(hostPath); !folder.empty() && !IsTaken(folder); folder = FolderOf(folder))
    ++missing;
  return missing;
}

// A line below the mark notes how many folders were made, and may go again.
constexpr std::string_view madeNote = "# Folders made for it: ";

std::string WithNote(const std::string& text, int foldersMade) {
  const std::size_t line = text.find('\n', text.find(VerbMark)) + 1;
  return text.substr(0, line) + std::string(madeNote) + std::to_string(foldersMade) + '\n' + text.substr(line);
}

int FoldersMadeFor(const std::string& hostPath) {
  const std::string text = ReadSmallFile(hostPath).value_or("");
  const std::size_t note = text.find(madeNote);
  const std::size_t digit = note + madeNote.size();
  const bool isNoted = note != std::string::npos && digit < text.size() && text[digit] >= '0' && text[digit] <= '9';
  return isNoted ? text[digit] - '0' : 0;
}

// From the folder upwards; one with something in it stays, and so do those above it.
void RemoveFolders(std::string folder, int count) {
  for (; count > 0 && (rmdir(folder.c_str()) == 0 || errno == ENOENT); --count) folder = FolderOf(folder);
}

void Write(const std::string& hostPath, const VerbFile& file) {
  const int made = FoldersToMake(hostPath);
  const int failure = ErrorsIgnored([&] {
    if (!MakeFolders(FolderOf(hostPath))) throw RuntimeError(error::PathAccess);
    RemoveTracesOf(hostPath, VerbMark);
    WriteNewSmallFile(hostPath, WithNote(file.Text, made));
    if (file.Executable && chmod(hostPath.c_str(), 0700) != 0) throw RuntimeError(error::PathAccess);
  });
  if (failure == error::None || failure == error::FileExists) return;
  if (IsOwn(hostPath)) unlink(hostPath.c_str());
  RemoveFolders(FolderOf(hostPath), made);
}

// This program's files of the verb in the folder of `wanted`, in the case that the disk has.
void AddOwnFiles(const std::filesystem::path& wanted, const VerbKey& place, std::vector<std::string>& paths) {
  std::error_code failure;
  for (std::filesystem::directory_iterator entry(wanted.parent_path(), failure), end; !failure && entry != end;
       entry.increment(failure)) {
    const std::string name = entry->path().filename();
    const bool named = place.Verb.empty() || EqualIgnoringCase(name, wanted.filename().string());
    if (named && IsOwn(entry->path())) paths.push_back(entry->path());
  }
}

}  // namespace

PosixRegistry::PosixRegistry(std::string dataHome, std::string configHome, std::shared_ptr<MappingSource> mapping,
                             std::vector<std::string> dataFolders)
    : dataHome_(std::move(dataHome)),
      configHome_(std::move(configHome)),
      mapping_(std::move(mapping)),
      dataFolders_(std::move(dataFolders)) {}

std::string PosixRegistry::PathOf(const VerbFile& file) const {
  return (file.Below == VerbFile::Home::Data ? dataHome_ : configHome_) + '/' + file.Place;
}

std::vector<std::string> PosixRegistry::FilesOfKey(std::uint32_t root, const std::string& key) const {
  std::vector<std::string> paths;
  const std::optional<VerbKey> place = VerbOf(root, key);
  if (!place) return paths;
  for (const VerbFile& file : FilesOfFolderVerb(place->Verb, {}, {})) AddOwnFiles(PathOf(file), *place, paths);
  return paths;
}

std::vector<std::string> PosixRegistry::PathsToHide(std::uint32_t root, const std::string& key) const {
  std::vector<std::string> hiding;
  const std::optional<VerbKey> place = VerbOf(root, key);
  if (!place) return hiding;
  for (const VerbFile& file : FilesOfFolderVerb(place->Verb, {}, {})) {
    if (!file.ForEverybody) continue;
    std::vector<std::string> brought;
    for (const std::string& folder : dataFolders_) AddOwnFiles(folder + '/' + file.Place, *place, brought);
    for (const std::string& path : brought) {
      const std::string own = FolderOf(PathOf(file)) + path.substr(path.rfind('/'));
      if (!IsTaken(own)) hiding.push_back(own);
    }
  }
  return hiding;
}

bool PosixRegistry::KeyExists(std::uint32_t root, const std::string& key) {
  const std::vector<std::string> own = FilesOfKey(root, key);
  const bool hasOwn = std::any_of(
      own.begin(), own.end(), [](const std::string& path) { return !IsHidingText(ReadSmallFile(path).value_or("")); });
  return hasOwn || !PathsToHide(root, key).empty();
}

void PosixRegistry::SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                                const std::string& text) {
  const std::optional<VerbKey> place = VerbOf(root, key);
  if (!place || !place->Command || !valueName.empty()) return;
  PosixFiles files(mapping_);
  const Command command = SplitCommand(text, [&files](const std::string& path) { return files.FileExists(path); });
  std::string program;
  if (ErrorsIgnored([&] { program = Locate(mapping_->Current().ToHost(command.Program)).Path.Text(); }) != 0) return;
  // A verb that is there under another case is replaced.
  RemoveOwnFiles(root, key);
  const std::vector<std::string> brought = PathsToHide(root, key);
  for (const VerbFile& file : FilesOfFolderVerb(place->Verb, program, command.Arguments)) {
    const std::string path = PathOf(file);
    if (IsTaken(path) || std::find(brought.begin(), brought.end(), path) != brought.end()) continue;
    Write(path, file);
  }
}

void PosixRegistry::DeleteKey(std::uint32_t root, const std::string& key) {
  RemoveOwnFiles(root, key);
  for (const std::string& path : PathsToHide(root, key)) Write(path, {.Text = HidingText()});
}

void PosixRegistry::RemoveOwnFiles(std::uint32_t root, const std::string& key) {
  // The last one first: folders that they share were made for the first.
  std::vector<std::string> paths = FilesOfKey(root, key);
  std::reverse(paths.begin(), paths.end());
  for (const std::string& path : paths) {
    const int made = FoldersMadeFor(path);
    if (unlink(path.c_str()) == 0) RemoveFolders(FolderOf(path), made);
  }
}

}  // namespace pixorra
