#include "platform/posix/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace pixorra {

namespace {

constexpr std::array Signals{SIGTERM, SIGINT, SIGHUP};

// What a handler may use: a signal comes in the middle of anything.
volatile sig_atomic_t writeEnd = -1;
std::array<struct sigaction, Signals.size()> before{};

void Note(int) {
  const int kept = errno;
  const char byte = 1;
  // A full pipe holds enough of them already.
  [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
  errno = kept;
}

}  // namespace

const EndSignals& EndSignals::OfProgram() {
  static const auto* const signals = new EndSignals;
  return *signals;
}

EndSignals::EndSignals() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  waiting_ = UniqueFd(ends[0]);
  writeEnd = ends[1];
  struct sigaction action {};
  action.sa_handler = Note;
  // What is being read or written goes on.
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < Signals.size(); ++i) {
    sigaction(Signals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(Signals[i], &action, nullptr);
  }
}

EndSignals::~EndSignals() {
  if (!waiting_) return;
  for (std::size_t i = 0; i < Signals.size(); ++i) sigaction(Signals[i], &before[i], nullptr);
  const int end = writeEnd;
  writeEnd = -1;
  close(end);
}

bool EndSignals::Take() const {
  bool any = false;
  std::array<char, 64> bytes{};
  while (read(waiting_.Get(), bytes.data(), bytes.size()) > 0) any = true;
  return any;
}

}  // namespace pixorra
