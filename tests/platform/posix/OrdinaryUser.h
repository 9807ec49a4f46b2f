// Permissions bind nobody who is root: for the life of this object such a test is somebody else.
#pragma once

#include <filesystem>
#include <string>
#include <unistd.h>

namespace pixorra {

class OrdinaryUser {
 public:
  // Gives the folder and all in it away first.
  explicit OrdinaryUser(const std::string& hostFolder) : wasRoot_(geteuid() == 0) {
    if (!wasRoot_) return;
    Give(hostFolder);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(hostFolder)) Give(entry.path());
    binds_ = setegid(nobody) == 0 && seteuid(nobody) == 0;
  }
  ~OrdinaryUser() {
    if (!wasRoot_) return;
    static_cast<void>(seteuid(0));
    static_cast<void>(setegid(0));
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  // False where the machine does not let root be somebody else.
  bool Binds() const { return binds_; }

 private:
  static constexpr unsigned nobody = 65534;
  void Give(const std::string& path) { binds_ = lchown(path.c_str(), nobody, nobody) == 0 && binds_; }

  bool wasRoot_;
  bool binds_ = true;
};

}  // namespace pixorra
