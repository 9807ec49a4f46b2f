// Files that fail on demand: the n-th write, a full disk, a folder gone. Everything else goes to other Files.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/services/Files.h"

namespace pixorra {

// What can fail; CompleteNames fails with Names, and raises. Names, Attributes, LastWriteTime and SetTimes fail by
// answering as for nothing there, NameTaken by not knowing; the others raise. StampOf and LastWriteTimeToRead count as
// Length; the latter answers as for nothing there.
enum class FileCall {
  Names,
  Attributes,
  SetAttributes,
  NameTaken,
  Length,
  OpenToRead,
  OpenToWrite,
  Read,
  Write,
  Flush,
  Empty,
  Delete,
  Rename,
  LinkOrCopy,
  MakeFolder,
  RemoveFolder,
  RemoveTree,
  FlushFolder,
  LastWriteTime,
  SetTimes,
  FolderPath,
  IdentityOf,
  Folders,
};

class FaultyFiles : public Files {
 public:
  explicit FaultyFiles(Files& inner);

  // The n-th such call from now on (1 is the next one) raises error `number`, once. With `where`, only calls count
  // whose path holds that text.
  void FailNth(FileCall call, int n, int number, const std::string& where = {});
  // Every such call from now on.
  void FailAlways(FileCall call, int number, const std::string& where = {});
  // Right before the n-th such call from now on somebody else does this, once.
  void BeforeNth(FileCall call, int n, std::function<void()> action, const std::string& where = {});
  // So many more bytes can be written, whole or in part; then writes raise 61. What fits of a write is written.
  void FillDiskAfter(std::int64_t bytes);
  // Nothing at this path or below it can be seen or made any more: 53 and 76. Open files there fail with 57.
  void TakeAway(const std::string& folder);
  // The process is killed right before the n-th call from now on that changes the disk, opening to write and flushing
  // included.
  void DieBeforeChange(int n) { changesToDeath_ = n; }
  // The process is killed when half of the n-th write's bytes are written.
  void DieInWrite(int n) { writesToDeath_ = n; }
  // From here on everything that does not fail goes to these files.
  void PassOnTo(Files& inner) { inner_ = &inner; }
  // No fault is armed any more.
  void Heal();
  // So many calls were made since the start, failed ones included.
  int Count(FileCall call) const;

  std::vector<std::string> Names(const std::string& folder, const std::string& pattern, int attributes) override;
  std::vector<std::string> CompleteNames(const std::string& folder, const std::string& pattern,
                                         int attributes) override;
  std::vector<std::string> Folders(const std::string& folder, int attributes) override;
  std::optional<int> Attributes(const std::string& path) override;
  void SetAttributes(const std::string& path, int attributes) override;
  NameState LookAtName(const std::string& path) override;
  bool IsLink(const std::string& path) override;
  bool IsSameFile(const std::string& a, const std::string& b) override;
  std::int64_t Length(const std::string& path) override;
  std::unique_ptr<File> Open(const std::string& path, OpenMode mode) override;
  FileStamp StampOf(const std::string& path) override;
  void Delete(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;
  void RenameOver(const std::string& from, const std::string& to) override;
  void LinkOrCopy(const std::string& from, const std::string& to) override;
  void MakeFolder(const std::string& path) override;
  void RemoveFolder(const std::string& path) override;
  void RemoveTree(const std::string& path, const FolderIdentity& meant) override;
  void FlushFolder(const std::string& path) override;
  std::optional<CalendarTime> LastWriteTime(const std::string& path) override;
  std::optional<CalendarTime> LastWriteTimeToRead(const std::string& path) override;
  bool SetTimes(const std::string& path, const CalendarTime& time) override;
  std::vector<Drive> Drives() override { return inner_->Drives(); }
  std::string FolderPath(const std::string& path) override;
  FolderIdentity IdentityOf(const std::string& path) override;
  std::string RealPath(const std::string& path) override;
  std::string ShownPath(const std::string& path) override { return inner_->ShownPath(path); }
  std::string ProgramPath(const std::string& typed) override { return inner_->ProgramPath(typed); }

 private:
  friend class FaultyFile;

  struct Fault {
    FileCall Call = FileCall::Names;
    int Left = 0;  // calls until it strikes
    bool Always = false;
    int Number = 0;
    std::string Where;
    std::function<void()> Action{};
  };

  // Counts the call and tells the error number that it must fail with, 0 for none.
  int Strike(FileCall call, const std::string& path);
  // Raises what Strike tells; 53 for a path taken away, 76 for one whose folder is.
  void Check(FileCall call, const std::string& path);
  bool IsAway(const std::string& path) const;
  // Every call that changes the disk comes by here first.
  void AboutToChange();

  Files* inner_;
  // Open files may be read by other threads; nothing else is asked for there.
  mutable std::mutex mutex_;  // of the next three
  std::vector<Fault> faults_;
  std::map<FileCall, int> counts_;
  std::vector<std::string> away_;
  int changesToDeath_ = 0;  // 0 never
  int writesToDeath_ = 0;
  std::int64_t room_ = -1;  // bytes that can still be written, below 0 any number
};

}  // namespace pixorra
