#include "base/LoadedPaths.h"

#include <algorithm>
#include <utility>

#include "base/Routines.h"

namespace pixorra {

namespace {

std::uint32_t HashOf(const std::string& path) {
  return static_cast<std::uint32_t>(std::hash<std::string>{}(path));
}

// Sizes of a table are powers of 2.
std::size_t Within(std::size_t size, std::size_t index) {
  return index & (size - 1);
}

}  // namespace

void LoadedPaths::Clear() {
  table_.clear();
  used_ = 0;
  cursor_ = 0;
}

void LoadedPaths::Add(const std::string& path, int place) {
  constexpr std::size_t Smallest = 64;
  if (2 * (used_ + 1) > table_.size()) {
    const std::vector<Entry> old = std::exchange(table_, std::vector<Entry>(std::max(Smallest, 2 * table_.size())));
    for (const Entry& entry : old) {
      if (entry.Place != Free) Put(entry);
    }
  }
  Put({.Hash = HashOf(path), .Place = place});
  ++used_;
}

void LoadedPaths::Put(Entry entry) {
  std::size_t at = Within(table_.size(), entry.Hash);
  while (table_[at].Place != Free) at = Within(table_.size(), at + 1);
  table_[at] = entry;
}

bool LoadedPaths::Has(const std::string& path, const PathOf& pathOf) const {
  if (table_.empty()) return false;
  const std::uint32_t hash = HashOf(path);
  for (std::size_t at = Within(table_.size(), hash); table_[at].Place != Free; at = Within(table_.size(), at + 1)) {
    if (table_[at].Hash == hash && pathOf(table_[at].Place) == path) return true;
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
