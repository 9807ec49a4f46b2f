// Folder verbs behind the registry's keys.
#include "platform/posix/PosixRegistry.h"

#include <algorithm>
#include <cstddef>
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

struct VerbKey {
  std::string Name;
  bool Command = false;  // the key below the verb's that holds its command line
};

// Nothing for all other keys. Case does not count in keys, and the verb is shown in the case that it is given.
std::optional<VerbKey> VerbOf(std::uint32_t root, const std::string& key) {
  constexpr std::string_view start = "Folder\\Shell\\";
  constexpr std::string_view end = "\\Command";
  if (root != registry::ClassesRoot || !EqualIgnoringCase(key.substr(0, start.size()), start)) return std::nullopt;
  VerbKey verb{key.substr(start.size()), false};
  if (verb.Name.size() > end.size() && EqualIgnoringCase(verb.Name.substr(verb.Name.size() - end.size()), end)) {
    verb.Name.resize(verb.Name.size() - end.size());
    verb.Command = true;
  }
  const bool one = !verb.Name.empty() && verb.Name.find('\\') == std::string::npos;
  return one ? std::optional(verb) : std::nullopt;
}

}  // namespace

PosixRegistry::PosixRegistry(std::string dataHome, std::shared_ptr<MappingSource> mapping)
    : dataHome_(std::move(dataHome)), mapping_(std::move(mapping)) {}

bool PosixRegistry::IsOwn(const std::string& hostPath) {
  return ReadSmallFile(hostPath).value_or("").find(VerbMark) != std::string::npos;
}

bool PosixRegistry::KeyExists(std::uint32_t root, const std::string& key) {
  const std::optional<VerbKey> verb = VerbOf(root, key);
  if (!verb) return false;
  const std::vector<VerbFile> files = FilesOfFolderVerb(verb->Name, {}, {});
  return std::any_of(files.begin(), files.end(),
                     [this](const VerbFile& file) { return IsOwn(dataHome_ + '/' + file.Place); });
}

void PosixRegistry::SetKeyValue(std::uint32_t root, const std::string& key, const std::string& valueName,
                                const std::string& text) {
  const std::optional<VerbKey> verb = VerbOf(root, key);
  if (!verb || !verb->Command || !valueName.empty()) return;
  PosixFiles files(mapping_);
  const Command command = SplitCommand(text, [&files](const std::string& path) { return files.FileExists(path); });
  std::string program;
  if (ErrorsIgnored([&] { program = Locate(mapping_->Current().ToHost(command.Program)).Path.Text(); }) != 0) return;
  for (const VerbFile& file : FilesOfFolderVerb(verb->Name, program, command.Arguments)) {
    const std::string path = dataHome_ + '/' + file.Place;
    if (access(path.c_str(), F_OK) == 0 && !IsOwn(path)) continue;
    static_cast<void>(ErrorsIgnored([&] {
      if (!MakeFolders(path.substr(0, path.rfind('/')))) return;
      WriteSmallFile(path, file.Text);
      if (file.Executable) static_cast<void>(chmod(path.c_str(), 0700));
    }));
  }
}

void PosixRegistry::DeleteKey(std::uint32_t root, const std::string& key) {
  const std::optional<VerbKey> verb = VerbOf(root, key);
  if (!verb) return;
  for (const VerbFile& file : FilesOfFolderVerb(verb->Name, {}, {})) {
    const std::string path = dataHome_ + '/' + file.Place;
    if (IsOwn(path)) unlink(path.c_str());
  }
}

}  // namespace pixorra
