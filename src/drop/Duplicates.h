// Duplicates: whether a photo that is new in a folder was there already, and which of the two is deleted.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace pixorra {

class FileListBox;
class Files;
struct MainForm;
struct SeenLengths;

// Whether two files hold the same bytes. The lengths must be equal. Deliberate: the first byte is not compared, so
// files of one byte or none are all the same. Reading ends at the first difference. Raises what files raise.
class ContentComparison {
 public:
  // Opens the file that others are compared with.
  ContentComparison(Files& files, const std::string& path);
  ~ContentComparison();
  std::int64_t Length() const;  // bytes, of that file
  bool SameContent(const std::string& candidate);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// The first file of the list, in its order, that equals the new file, as a full path; empty where there is none, and
// for an empty path. `newFile` is trimmed. With `seen`, lengths that it holds are not looked at again: a file that
// another program has made equal since then is not found, and both stay. Raises what files raise.
std::string FindDuplicate(Files& files, const FileListBox& list, std::string& newFile, SeenLengths* seen = nullptr);
// Deletes one of the two, or none, by the policy.
void ResolveDuplicate(MainForm& main, const std::string& equalFile, const std::string& newFile, int slot);

}  // namespace pixorra
