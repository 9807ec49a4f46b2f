// Files and folders of the host's file system.
#pragma once

#include <memory>
#include <string>
#include <sys/stat.h>

#include "platform/posix/KeptFolders.h"
#include "platform/posix/MappingSource.h"
#include "platform/services/Files.h"

namespace pixorra {

struct Located;

class PosixFiles : public Files {
 public:
  explicit PosixFiles(PathMapping mapping);
  explicit PosixFiles(std::shared_ptr<MappingSource> mapping);

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
  std::unique_ptr<File> OpenOfLength(const std::string& path, std::int64_t length) override;
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
  std::vector<Drive> Drives() override;
  std::string FolderPath(const std::string& path) override;
  FolderIdentity IdentityOf(const std::string& path) override;
  std::string RealPath(const std::string& path) override;
  std::string ShownPath(const std::string& path) override;
  std::string ProgramPath(const std::string& typed) override;

 private:
  // A name that was looked at and was free, and its folder as it was then.
  struct FreeName {
    std::string Path;      // as it was asked for
    std::string HostPath;  // in the disk's own case
    std::string HostFolder;
    struct stat Folder {};
  };

  Located Find(const std::string& path);
  std::vector<std::string> NamesIn(const std::string& folder, const std::string& pattern, int attributes, int& failure);
  void RememberFree(const std::string& path, const Located& located);
  bool IsStillFree(const std::string& path) const;

  std::shared_ptr<MappingSource> mapping_;
  FreeName free_;
  KeptFolders kept_;
};

}  // namespace pixorra
