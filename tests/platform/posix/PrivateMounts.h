// Mounts that only this process sees and that go with it. Needs root; a test skips where it cannot have them.
#pragma once

#include <fcntl.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/UniqueFd.h"

namespace pixorra {

inline bool HavePrivateMounts() {
  static const bool have =
      geteuid() == 0 && unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  return have;
}

// A small file system in memory at a host folder, for the life of this object.
class MemoryDisk {
 public:
  MemoryDisk(std::string folder, const char* options, unsigned long flags = 0) : folder_(std::move(folder)) {
    mounted_ = HavePrivateMounts() && mount("test", folder_.c_str(), "tmpfs", flags, options) == 0;
  }
  ~MemoryDisk() { Unmount(); }
  MemoryDisk(const MemoryDisk&) = delete;
  MemoryDisk& operator=(const MemoryDisk&) = delete;
  bool Mounted() const { return mounted_; }
  bool MakeReadOnly() { return mount("test", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0; }
  void Unmount() {
    if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
    mounted_ = false;
  }

 private:
  std::string folder_;
  bool mounted_ = false;
};

// A file system at a host folder that answers nothing, until End.
class HangingMount {
 public:
  explicit HangingMount(std::string folder)
      : folder_(std::move(folder)), server_(open("/dev/fuse", O_RDWR | O_CLOEXEC)) {
    const std::string options = "fd=" + std::to_string(server_.Get()) + ",rootmode=40000,user_id=0,group_id=0";
    mounted_ = server_ && HavePrivateMounts() && mount("test", folder_.c_str(), "fuse", 0, options.c_str()) == 0;
  }
  ~HangingMount() { End(); }
  HangingMount(const HangingMount&) = delete;
  HangingMount& operator=(const HangingMount&) = delete;
  bool Mounted() const { return mounted_; }
  // It has gone, and who waits for it hears of that.
  void End() {
    if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
    mounted_ = false;
    server_ = UniqueFd();
  }

 private:
  std::string folder_;
  UniqueFd server_;
  bool mounted_ = false;
};

// What is at one host path, a folder or a file, at another one too, for the life of this object.
class BoundFolder {
 public:
  BoundFolder(const std::string& from, std::string to) : to_(std::move(to)) {
    mounted_ = HavePrivateMounts() && mount(from.c_str(), to_.c_str(), nullptr, MS_BIND, nullptr) == 0;
  }
  ~BoundFolder() {
    if (mounted_) umount2(to_.c_str(), MNT_DETACH);
  }
  BoundFolder(const BoundFolder&) = delete;
  BoundFolder& operator=(const BoundFolder&) = delete;
  bool Mounted() const { return mounted_; }

 private:
  std::string to_;
  bool mounted_ = false;
};

}  // namespace pixorra
