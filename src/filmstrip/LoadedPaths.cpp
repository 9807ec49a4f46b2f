#include "filmstrip/LoadedPaths.h"

#include "core/Routines.h"

namespace pixorra {

void LoadedPaths::Clear() {
  places_.clear();
  cursor_ = 0;
}

void LoadedPaths::Add(const std::string& path, int place) {
  places_.emplace(std::hash<std::string>{}(path), place);
}

bool LoadedPaths::Has(const std::string& path, const PathOf& pathOf) const {
  const auto [first, last] = places_.equal_range(std::hash<std::string>{}(path));
  for (auto it = first; it != last; ++it) {
    if (pathOf(it->second) == path) return true;
  }
  return false;
}

std::string LoadedPaths::FirstMissing(const FileListBox& list, const PathOf& pathOf) {
  if (generation_ != list.Generation()) {
    generation_ = list.Generation();
    cursor_ = 0;
  }
  for (; cursor_ < list.ListCount(); ++cursor_) {
    std::string path = JoinPath(list.Path(), list.List(cursor_));
    if (!Has(path, pathOf)) return path;
  }
  return {};
}

std::vector<std::string> LoadedPaths::Missing(const FileListBox& list, const PathOf& pathOf, int most) {
  std::vector<std::string> missing;
  std::string path = FirstMissing(list, pathOf);
  for (int i = cursor_ + 1; !path.empty(); ++i) {
    if (!Has(path, pathOf)) missing.push_back(std::move(path));
    if (std::ssize(missing) >= most || i >= list.ListCount()) break;
    path = JoinPath(list.Path(), list.List(i));
  }
  return missing;
}

}  // namespace pixorra
