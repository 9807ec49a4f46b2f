#include "base/ShownNames.h"

#include "base/Routines.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

// What follows the last separator of the host's spelling; where that is the program's own, `own`.
std::string LastPart(const std::string& shown, const std::string& path, const std::string& own) {
  if (shown == path) return own;
  const std::size_t slash = shown.find_last_of('/');
  return slash == std::string::npos ? shown : shown.substr(slash + 1);
}

}  // namespace

std::string ShownFolderName(Files& files, const std::string& path) {
  const std::string own = FolderDisplayName(path);
  if (own.empty()) return own;
  const std::string shown = files.ShownPath(path);
  return own == path ? shown : LastPart(shown, path, own);
}

std::string ShownFileName(Files& files, const std::string& path) {
  const std::string own = FileNameOf(path);
  return own.empty() ? own : LastPart(files.ShownPath(path), path, own);
}

std::string ShownBaseName(Files& files, const std::string& path) {
  const std::string name = ShownFileName(files, path);
  return name.substr(0, name.find('.'));
}

// Paths have two spellings, so the name goes by way of one.
std::string TypedName(Files& files, const std::string& name) {
  if (name.find('/') != std::string::npos) return name;
  const std::string path = files.ProgramPath("/" + name);
  const std::string typed = FileNameOf(path);
  return path.starts_with('/') || typed.empty() ? name : typed;
}

}  // namespace pixorra
