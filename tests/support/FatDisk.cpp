#include "tests/support/FatDisk.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/mount.h>

#include "tests/platform/posix/PrivateMounts.h"

namespace pixorra {

namespace {

bool Runs(const std::string& command) {
  return std::system(("PATH=$PATH:/usr/sbin:/sbin; " + command + " >/dev/null 2>&1").c_str()) == 0;
}

std::string Quoted(const std::string& path) {
  return "'" + path + "'";
}

}  // namespace

FatDisk::FatDisk(const std::string& folder, int kibibytes) : folder_(folder), image_(folder + ".image") {
  whyNot_ = Mount(kibibytes);
}

FatDisk::~FatDisk() {
  if (Mounted()) umount2(folder_.c_str(), MNT_DETACH);
}

std::string FatDisk::Mount(int kibibytes) const {
  if (!HavePrivateMounts()) return "this user may not mount";
  std::filesystem::create_directories(folder_);
  std::ofstream(image_).close();
  std::filesystem::resize_file(image_, static_cast<std::uintmax_t>(kibibytes) * 1024);
  if (!Runs("mkfs.fat " + Quoted(image_))) return "no mkfs.fat here";
  const std::string places = " " + Quoted(image_) + " " + Quoted(folder_);
  if (Runs("mount -t vfat -o loop,utf8" + places) || Runs("fusefat -o rw+" + places)) return {};
  return "neither the kernel nor fusefat mounts FAT here";
}

}  // namespace pixorra
