// A list of the files of one folder that match a pattern, sorted by name. It is never seen: views follow it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/Container.h"
#include "platform/services/Files.h"

namespace pixorra {

class FileListBox : public Control {
 public:
  FileListBox(Container& container, const std::string& name, Files& files);
  FileListBox(Container& container, std::shared_ptr<Identity> identity, int index, Files& files);
  void CopyFrom(const FileListBox& source);

  // A path different from the present one lists that folder and raises PathChange. Raises error 76, and stays as it is,
  // where there is no such folder. No trailing backslash stands but for a root.
  const std::string& Path() const { return path_; }
  void SetPath(const std::string& path);
  const std::string& Pattern() const { return pattern_; }
  void SetPattern(const std::string& pattern);  // lists anew when it names others than before
  // The folder, the pattern and the names by the order of NameLess, as they have been read elsewhere. A path different
  // from the present one raises PathChange. Looks at no disk and raises nothing itself.
  void SetListing(const std::string& path, const std::string& pattern, std::vector<std::string> names);
  // Reads the folder again; a folder that has gone is empty.
  void Refresh();
  // Takes the names of another list that has just been refreshed, where both show one folder by one pattern; else
  // Refresh.
  void RefreshAs(const FileListBox& other);

  int ListCount() const { return static_cast<int>(names_.size()); }
  const std::string& List(int index) const;  // raises error 9 outside the list
  // The entry's name in the list's folder. Raises BadSubscript outside the list.
  std::string FullPath(int index) const { return path_ + (path_.ends_with('\\') ? "" : "\\") + List(index); }
  // Changes whenever the names may have changed.
  unsigned Generation() const { return generation_; }

 private:
  void TakeNames(std::vector<std::string> names);

  Files& files_;
  std::string path_;
  std::string pattern_;
  std::vector<std::string> names_;
  unsigned generation_ = 0;
};

}  // namespace pixorra
