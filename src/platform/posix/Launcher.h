// Starting other programs, which then go their own way.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace pixorra {

class Launcher {
 public:
  Launcher() = default;
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;
  ~Launcher() { TakeLeave(); }

  // The first argument is the program's absolute host path. It runs in a session of its own, reads nothing, and works
  // in the folder, or where this program does if that is empty. 0, or the host's error. No shell looks at the
  // arguments.
  int Start(const std::vector<std::string>& arguments, const std::string& workingFolder);

 private:
  // Programs that ended must be taken leave of, else the host keeps their names.
  void TakeLeave();
  std::vector<pid_t> started_;
};

}  // namespace pixorra
