#include "platform/controls/FileListBox.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

FileListBox::FileListBox(Container& container, const std::string& name, Files& files)
    : FileListBox(container, std::make_shared<Identity>(Identity{name, {}}), 0, files) {}

FileListBox::FileListBox(Container& container, std::shared_ptr<Identity> identity, int index, Files& files)
    : Control(&container, Kind::FileListBox, std::move(identity), index), files_(files), path_("C:\\") {
  SetVisible(false);
}

void FileListBox::CopyFrom(const FileListBox& source) {
  Control::CopyFrom(source);
  path_ = source.path_;
  pattern_ = source.pattern_;
  names_ = source.names_;
  generation_ = source.generation_;
}

void FileListBox::SetPath(const std::string& path) {
  const std::string folder = files_.FolderPath(path);
  if (folder == path_) {
    if (generation_ == 0) Refresh();  // the folder that it starts with has not been read yet
    return;
  }
  path_ = folder;
  Refresh();
  Raise(On().PathChange, static_cast<Control&>(*this));
}

namespace {

// In whatever order they are named.
bool ListTheSame(const std::string& pattern, const std::string& other) {
  std::vector<std::string_view> one = Split(pattern, ';');
  std::vector<std::string_view> two = Split(other, ';');
  std::ranges::sort(one);
  std::ranges::sort(two);
  return one == two;
}

}  // namespace

void FileListBox::SetPattern(const std::string& pattern) {
  if (pattern == pattern_) return;
  const bool same = generation_ != 0 && ListTheSame(pattern, pattern_);
  pattern_ = pattern;
  if (!same) Refresh();
}

void FileListBox::SetListing(const std::string& path, const std::string& pattern, std::vector<std::string> names) {
  const bool moved = path != path_;
  path_ = path;
  pattern_ = pattern;
  names_ = std::move(names);
  ++generation_;
  if (moved) Raise(On().PathChange, static_cast<Control&>(*this));
}

void FileListBox::Refresh() {
  TakeNames(files_.Names(path_, pattern_, attribute::Normal));
}

void FileListBox::RefreshAs(const FileListBox& other) {
  if (other.path_ == path_ && other.pattern_ == pattern_) {
    names_ = other.names_;
    ++generation_;
  } else {
    Refresh();
  }
}

namespace {

// Whether the names are in the order of NameLess. Those that were listed before, which are, are in it to each other:
// they are compared for equality alone.
bool AreInOrder(const std::vector<std::string>& names, const std::vector<std::string>& before) {
  std::size_t i = 0;
  for (std::size_t j = 0; j < names.size(); ++j) {
    while (i < before.size() && before[i] != names[j] && NameLess(before[i], names[j])) ++i;
    if (i < before.size() && before[i] == names[j]) {
      ++i;
    } else if (j > 0 && !NameLess(names[j - 1], names[j])) {
      return false;
    }
  }
  return true;
}

}  // namespace

// Most names have been listed before, and keep their order: only the others are sorted.
void FileListBox::TakeNames(std::vector<std::string> names) {
  if (AreInOrder(names, names_)) {
    names_ = std::move(names);
    ++generation_;
    return;
  }
  if (names_.empty()) {
    names_ = std::move(names);
    std::ranges::sort(names_, NameLess);
    ++generation_;
    return;
  }
  std::unordered_set<std::string> added(std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
  std::erase_if(names_, [&](const std::string& name) { return added.erase(name) == 0; });
  const auto known = std::ssize(names_);
  while (!added.empty()) names_.push_back(std::move(added.extract(added.begin()).value()));
  std::sort(names_.begin() + known, names_.end(), NameLess);
  std::inplace_merge(names_.begin(), names_.begin() + known, names_.end(), NameLess);
  ++generation_;
}

const std::string& FileListBox::List(int index) const {
  if (index < 0 || index >= ListCount()) throw RuntimeError(error::BadSubscript);
  return names_[static_cast<std::size_t>(index)];
}

}  // namespace pixorra
