// Starting other programs.
#include "platform/posix/Launcher.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pixorra {

int Launcher::Start(const std::vector<std::string>& arguments, const std::string& workingFolder) {
  TakeLeave();
  if (arguments.empty()) return ENOENT;
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);

  posix_spawn_file_actions_t actions{};
  posix_spawnattr_t attributes{};
  posix_spawn_file_actions_init(&actions);
  posix_spawnattr_init(&attributes);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (!workingFolder.empty()) posix_spawn_file_actions_addchdir_np(&actions, workingFolder.c_str());
  sigset_t none{};
  sigset_t all{};
  sigemptyset(&none);
  sigfillset(&all);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &all);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  pid_t started = 0;
  const int failure = posix_spawn(&started, pointers[0], &actions, &attributes, pointers.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (failure == 0) started_.push_back(started);
  return failure;
}

void Launcher::TakeLeave() {
  std::erase_if(started_, [](pid_t process) { return waitpid(process, nullptr, WNOHANG) != 0; });
}

}  // namespace pixorra
