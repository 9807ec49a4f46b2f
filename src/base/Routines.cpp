// The path and name helpers.
#include "base/Routines.h"

#include <cstddef>

#include "platform/runtime/Text.h"
#include "platform/services/Places.h"

namespace pixorra {

namespace {

// Empty for a text without a backslash.
std::string AfterLastBackslash(const std::string& path) {
  const std::size_t last = path.rfind('\\');
  return last == std::string::npos ? std::string() : path.substr(last + 1);
}

}  // namespace

std::string StripTrailingBackslash(const std::string& path) {
  return path.ends_with('\\') ? path.substr(0, path.size() - 1) : path;
}

std::string FileNameOf(std::string* path) {
  if (path->ends_with('\\')) path->pop_back();
  return AfterLastBackslash(*path);
}

std::string FileNameOf(const std::string& path) {
  std::string copy = path;
  return FileNameOf(&copy);
}

std::string BaseNameOf(std::string* path) {
  const std::string name = FileNameOf(path);
  return name.substr(0, name.find('.'));
}

std::string BaseNameOf(const std::string& path) {
  std::string copy = path;
  return BaseNameOf(&copy);
}

std::string FolderDisplayName(const std::string& path) {
  return path.ends_with('\\') ? path : AfterLastBackslash(path);
}

std::string ParentPathOf(std::string* path) {
  if (path->ends_with('\\')) path->pop_back();
  const std::size_t last = path->rfind('\\');
  return last == std::string::npos ? std::string() : path->substr(0, last + 1);
}

std::string ParentPathOf(const std::string& path) {
  std::string copy = path;
  return ParentPathOf(&copy);
}

bool IsRootPath(std::string* path) {
  const std::string stripped = StripTrailingBackslash(*path);
  if (stripped.ends_with(':') && CharacterCount(stripped) == 2) return true;
  if (!path->starts_with("\\\\")) return false;
  // The parent of a share's root is its server: two backslashes and its name.
  const std::string parent = StripTrailingBackslash(ParentPathOf(path));
  return EqualIgnoringCase(parent, "\\\\" + FolderDisplayName(parent));
}

bool IsRootPath(const std::string& path) {
  std::string copy = path;
  return IsRootPath(&copy);
}

std::string SpecialFolderPath(Places& places, int number) {
  const std::string folder = places.SpecialFolder(number);
  return folder.empty() ? folder : folder + "\\";
}

std::string WindowsFolderPath(Places& places) {
  return Trim(places.WindowsFolder()) + "\\";
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  return StripTrailingBackslash(folder) + "\\" + name;
}

std::string CountCaption(std::int64_t count) {
  return count == 0 ? " Empty" : std::to_string(count) + " pics";
}

}  // namespace pixorra
