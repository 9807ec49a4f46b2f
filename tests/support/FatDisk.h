// A FAT file system, as on a camera's card, at a host folder.
#pragma once

#include <string>

namespace pixorra {

// Mounted for the life of this object, where this machine allows it: by the kernel, or else by fusefat. Only this
// process sees it.
class FatDisk {
 public:
  // The folder is made. The image is a file beside it.
  FatDisk(const std::string& folder, int kibibytes);
  ~FatDisk();
  FatDisk(const FatDisk&) = delete;
  FatDisk& operator=(const FatDisk&) = delete;

  bool Mounted() const { return whyNot_.empty(); }
  const std::string& WhyNot() const { return whyNot_; }

 private:
  std::string Mount(int kibibytes) const;

  std::string folder_;
  std::string image_;
  std::string whyNot_;
};

}  // namespace pixorra
