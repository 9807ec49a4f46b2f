// Paths by text alone.
#include "platform/posix/PathMapping.h"

#include <algorithm>
#include <utility>

#include "platform/posix/HostNames.h"
#include "platform/posix/ShareMounts.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr std::string_view peoplesSharePrefix = "smb://";

char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsLetter(char c) {
  return Capital(c) >= 'A' && Capital(c) <= 'Z';
}

// The parts between separators; empty ones count for nothing.
std::vector<std::string_view> Parts(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) parts.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// Also takes "." and ".." out.
std::vector<std::string_view> HostParts(std::string_view hostPath) {
  std::vector<std::string_view> parts;
  for (const std::string_view part : Parts(hostPath, '/')) {
    if (part == ".") continue;
    if (part != "..") {
      parts.push_back(part);
    } else if (!parts.empty()) {
      parts.pop_back();
    }
  }
  return parts;
}

bool StartsWith(const std::vector<std::string_view>& parts, const std::vector<std::string_view>& start) {
  return parts.size() >= start.size() && std::equal(start.begin(), start.end(), parts.begin());
}

std::string HostName(std::string_view name) {
  std::optional<std::string> host = NameToHost(name);
  if (!host) throw RuntimeError(error::BadFileName);
  return *std::move(host);
}

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && IsLetter(path[0]) && path[1] == ':' && (path.size() == 2 || path[2] == '\\');
}

bool HasServer(std::string_view path) {
  return path.starts_with("\\\\");
}

std::string JoinForPeople(std::string start, std::string_view rest) {
  for (const std::string_view name : Parts(rest, '\\')) {
    if (!start.ends_with('/')) start += '/';
    start += NameForPeople(name);
  }
  if (rest.ends_with('\\') && !start.ends_with('/')) start += '/';
  return start;
}

}  // namespace

std::string HostPath::Text(std::size_t count) const {
  std::string text = Root;
  for (std::size_t i = 0; i < count; ++i) {
    text += '/';
    text += Names[i];
  }
  return text.empty() ? "/" : text;
}

PathMapping::PathMapping() : PathMapping({Volume{'C', "/", "File System"}}) {}

PathMapping::PathMapping(std::vector<Volume> volumes, std::string shareMounts, bool shownAsProgram)
    : volumes_(std::move(volumes)), shareMounts_(std::move(shareMounts)), shownAsProgram_(shownAsProgram) {}

const Volume* PathMapping::VolumeOf(char letter) const {
  const auto found = std::find_if(volumes_.begin(), volumes_.end(),
                                  [letter](const Volume& volume) { return volume.Letter == Capital(letter); });
  return found == volumes_.end() ? nullptr : &*found;
}

bool PathMapping::IsVolumeRoot(std::string_view hostPath) const {
  return std::any_of(volumes_.begin(), volumes_.end(),
                     [hostPath](const Volume& volume) { return volume.HostRoot == hostPath; });
}

HostPath PathMapping::ToHost(std::string_view path) const {
  HostPath host;
  if (HasDrive(path)) {
    for (const std::string_view name : Parts(path.substr(2), '\\')) host.Names.push_back(HostName(name));
    const Volume* volume = VolumeOf(path[0]);
    if (volume == nullptr) throw RuntimeError(error::PathNotFound);
    if (volume->HostRoot != "/") host.Root = volume->HostRoot;
    return host;
  }
  if (!HasServer(path)) throw RuntimeError(error::BadFileName);
  for (const std::string_view name : Parts(path, '\\')) host.Names.push_back(HostName(name));
  if (host.Names.size() < 2 || shareMounts_.empty()) throw RuntimeError(error::PathNotFound);
  const std::string mount = MountOfShare({host.Names[0], host.Names[1]});
  host.Names.erase(host.Names.begin());
  host.Names.front() = mount;
  host.Root = shareMounts_;
  host.RootNames = 1;
  return host;
}

std::optional<std::string> PathMapping::ToProgram(std::string_view hostPath) const {
  return Program(hostPath, NameFromHost);
}

std::optional<std::string> PathMapping::Program(std::string_view hostPath, NameSpelling spelling) const {
  if (!hostPath.starts_with('/')) return std::nullopt;
  const std::vector<std::string_view> parts = HostParts(hostPath);
  std::string program;
  std::size_t taken = 0;
  for (const Volume& volume : volumes_) {
    const std::vector<std::string_view> root = HostParts(volume.HostRoot);
    if (!StartsWith(parts, root) || (!program.empty() && root.size() < taken)) continue;
    program = {volume.Letter, ':'};
    taken = root.size();
  }
  const std::vector<std::string_view> mounts = HostParts(shareMounts_);
  if (!shareMounts_.empty() && StartsWith(parts, mounts) && parts.size() > mounts.size() && mounts.size() >= taken) {
    if (const std::optional<Share> share = ShareOfMount(parts[mounts.size()])) {
      program = "\\\\" + NameFromHost(share->Server) + '\\' + NameFromHost(share->Name);
      taken = mounts.size() + 1;
    }
  }
  if (program.empty()) return std::nullopt;
  for (std::size_t i = taken; i < parts.size(); ++i) program += '\\' + spelling(parts[i]);
  if (program.size() == 2) program += '\\';
  return program;
}

std::string PathMapping::ShownPath(const std::string& path) const {
  if (shownAsProgram_) return path;
  if (HasServer(path)) return JoinForPeople(std::string(peoplesSharePrefix), path);
  if (!HasDrive(path)) return path.find('\\') == std::string::npos ? NameForPeople(path) : path;
  const Volume* volume = VolumeOf(path[0]);
  return volume == nullptr ? path : JoinForPeople(volume->HostRoot, std::string_view(path).substr(2));
}

std::string PathMapping::ProgramPath(const std::string& typed) const {
  if (typed.starts_with(peoplesSharePrefix)) {
    const std::vector<std::string_view> parts = Parts(std::string_view(typed).substr(peoplesSharePrefix.size()), '/');
    if (parts.empty()) return typed;
    std::string program = "\\";
    for (const std::string_view part : parts) program += '\\' + NameFromPeople(part);
    return program;
  }
  return Program(typed, NameFromPeople).value_or(typed);
}

std::string PathBelowRoot(const PathMapping& mapping, const std::string& path) {
  std::optional<std::string> below = PathMapping().ToProgram(mapping.ToHost(path).Text());
  if (!below) throw RuntimeError(error::PathNotFound);
  return *std::move(below);
}

}  // namespace pixorra
