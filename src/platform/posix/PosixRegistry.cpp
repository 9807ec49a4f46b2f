#include "platform/posix/PosixRegistry.h"

#include <algorithm>
#include <array>
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

}  // namespace

PosixRegistry::PosixRegistry(std::string dataHome, std::shared_ptr<MappingSource> mapping)
    : dataHome_(std::move(dataHome)), mapping_(std::move(mapping)) {}

// Those that are there, in the case that the disk has.
std::vector<std::string> PosixRegistry::FilesOfKey(std::uint32_t root, const std::string& key) {
  std::vector<std::string> paths;
  const std::optional<VerbKey> place = VerbOf(root, key);
  if (!place) return paths;
  for (const VerbFile& file : FilesOfFolderVerb(place->Verb, {}, {})) {
    const std::filesystem::path wanted = dataHome_ + '/' + file.Place;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(wanted.parent_path(), failure), end; !failure && entry != end;
         entry.increment(failure)) {
      const std::string name = entry->path().filename();
      const bool named = place->Verb.empty() || EqualIgnoringCase(name, wanted.filename().string());
      if (named && IsOwn(entry->path())) paths.push_back(entry->path());
    }
  }
  return paths;
}

bool PosixRegistry::KeyExists(std::uint32_t root, const std::string& key) {
  return !FilesOfKey(root, key).empty();
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
  DeleteKey(root, key);
  for (const VerbFile& file : FilesOfFolderVerb(place->Verb, program, command.Arguments)) {
    const std::string path = dataHome_ + '/' + file.Place;
    if (access(path.c_str(), F_OK) == 0) continue;
    static_cast<void>(ErrorsIgnored([&] {
      if (!MakeFolders(path.substr(0, path.rfind('/')))) return;
      WriteSmallFile(path, file.Text);
      if (file.Executable) static_cast<void>(chmod(path.c_str(), 0700));
    }));
  }
}

void PosixRegistry::DeleteKey(std::uint32_t root, const std::string& key) {
  for (const std::string& path : FilesOfKey(root, key)) unlink(path.c_str());
}

}  // namespace pixorra
