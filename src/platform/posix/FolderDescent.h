// A way down through folders and up again, by descriptors and by names as bytes. No step follows a link or enters
// another mount, and a tree may be deeper than a process may have files open.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/posix/PathMapping.h"
#include "platform/posix/UniqueFd.h"
#include "platform/services/Files.h"

namespace pixorra {

struct FolderEntry {
  std::string Name;  // the host's bytes
  bool IsFolder = false;
};

// The identity of a host's folder; a link counts as what it leads to. 0, or the host's error: ENOTDIR where that is no
// folder.
int LookAtFolder(const std::string& hostPath, FolderIdentity& identity);

enum class Access {
  AsItIs,
  Widened,  // a folder that its owner may not read, enter or change is given those rights
};

class FolderDescent {
 public:
  // Begins in the folder of the path's first `count` names. Those after the root must not be links.
  FolderDescent(const HostPath& path, std::size_t count);

  // The error that beginning met, 0 for none; nothing else may be called after one.
  int Failure() const { return failure_; }
  // Descriptor of the folder that it is in.
  int Folder() const { return levels_.back().Fd.Get(); }
  // All of it but "." and "..", read once. What cannot be read is left out.
  std::vector<FolderEntry> List() const;

  const FolderIdentity& Is() const { return levels_.back().Is; }
  // The identity of what has the name in this folder, a link by itself. 0, or the host's error.
  int LookAt(const std::string& name, FolderIdentity& identity) const;

  // Into a folder of this one. 0, or the host's error: ENOTDIR where that is no folder, or is a link; EXDEV where
  // another file system is mounted on it; ESTALE where it has been moved elsewhere just now.
  int Enter(const std::string& name, Access access);
  // Back to the folder above. 0, or the host's error: ESTALE where this folder is no longer in the one that it was
  // entered from, as folders have been moved meanwhile.
  int Leave();
  // 0 where this folder and those above it, as far as they are open, are in each other still, or else ESTALE: one of
  // them has been moved since it was entered.
  int CheckWay() const;

 private:
  struct Level {
    UniqueFd Fd;  // empty where so many lie below it that it has been closed
    FolderIdentity Is;
  };
  int CheckAbove(std::size_t level) const;
  static UniqueFd OpenWidened(int parent, const std::string& name, const FolderIdentity& above);

  std::vector<Level> levels_;
  int failure_ = 0;
};

}  // namespace pixorra
