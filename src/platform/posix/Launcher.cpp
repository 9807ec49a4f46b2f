#include "platform/posix/Launcher.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/UniqueFd.h"

namespace pixorra {

namespace {

// From here to the program's start only calls that are safe after a fork in a program with threads.
int BecomeProgram(char* const* arguments, const char* workingFolder) {
  if (workingFolder != nullptr && chdir(workingFolder) != 0) return errno;
  const int nothing = open("/dev/null", O_RDWR);
  if (nothing < 0) return errno;
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (dup2(nothing, stream) < 0) return errno;
  if (nothing > STDERR_FILENO) close(nothing);
  for (int signal = 1; signal < NSIG; ++signal) static_cast<void>(std::signal(signal, SIG_DFL));
  sigset_t none{};
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  execv(arguments[0], arguments);
  return errno;
}

// The process between this program and the one that is started; the started one belongs to nobody when it has ended.
[[noreturn]] void BeBetween(int reports, char* const* arguments, const char* workingFolder) {
  // What this program holds, its lock among it, must not be held on where the start takes its time.
  const auto kept = static_cast<unsigned>(reports);
  if (kept > 3) close_range(3, kept - 1, 0);
  close_range(kept + 1, ~0U, 0);
  setsid();
  const pid_t started = fork();
  if (started > 0) _exit(0);
  const int failure = started < 0 ? errno : BecomeProgram(arguments, workingFolder);
  static_cast<void>(!write(reports, &failure, sizeof failure));
  _exit(1);
}

}  // namespace

int StartDetached(const std::vector<std::string>& arguments, const std::string& workingFolder) {
  if (arguments.empty()) return ENOENT;
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);

  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return errno;
  const UniqueFd reading(ends[0]);
  UniqueFd writing(ends[1]);
  const pid_t between = fork();
  if (between < 0) return errno;
  if (between == 0) BeBetween(writing.Get(), pointers.data(), workingFolder.empty() ? nullptr : workingFolder.c_str());
  writing = UniqueFd();
  while (waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
  }
  // The start of the program closes the pipe, and nothing is read.
  int failure = 0;
  ssize_t came = 0;
  while ((came = read(reading.Get(), &failure, sizeof failure)) < 0 && errno == EINTR) {
  }
  return came == static_cast<ssize_t>(sizeof failure) ? failure : 0;
}

}  // namespace pixorra
