// A way down through folders and up again, by descriptors and by names as bytes. No step follows a link or enters
// another mount, and a tree may be deeper than a process may have files open.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/posix/PathMapping.h"
#include "platform/posix/UniqueFd.h"

namespace pixorra {

struct FolderEntry {
  std::string Name;  // the host's bytes
  bool IsFolder = false;
};

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

  // Into a folder of this one. 0, or the host's error: ENOTDIR where that is no folder, or is a link; EXDEV where
  // another file system is mounted on it.
  int Enter(const std::string& name, Access access);
  // Back to the folder above. 0, or the host's error: ESTALE where it is not the one that was left, as folders have
  // been moved meanwhile.
  int Leave();

 private:
  struct Identity {
    std::uint64_t Disk = 0;
    std::uint64_t Number = 0;
    std::uint64_t Mount = 0;  // 0 on hosts that do not say
    unsigned Mode = 0;
  };
  struct Level {
    UniqueFd Fd;  // empty where so many lie below it that it has been closed
    Identity Is;
  };
  static int Look(int fd, Identity& identity);
  static UniqueFd OpenWidened(int parent, const std::string& name, const Identity& above);
  static bool SameMount(const Identity& a, const Identity& b);

  std::vector<Level> levels_;
  int failure_ = 0;
};

}  // namespace pixorra
