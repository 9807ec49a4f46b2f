#include "platform/posix/RunningInstance.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/SmallFiles.h"

namespace pixorra {

namespace {

constexpr const char* LockName = "lock";
constexpr const char* SocketName = "running";
constexpr mode_t OwnersOnly = 0600;
constexpr int MostWaiting = 8;
// Between two tries to reach a first start that is not ready yet, milliseconds.
constexpr int Pause = 20;
// A caller sends its message at once; the program stands still meanwhile.
constexpr double SecondsForMessage = 0.25;

double Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Until that moment, for poll().
int Milliseconds(double until) {
  return std::max(0, static_cast<int>((until - Now()) * 1000));
}

// By the folder's descriptor, as an address has room for about a hundred bytes of path only.
sockaddr_un AddressIn(const UniqueFd& folder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = "/proc/self/fd/" + std::to_string(folder.Get()) + '/' + SocketName;
  std::copy_n(path.c_str(), std::min(path.size(), sizeof address.sun_path - 1), address.sun_path);
  return address;
}

UniqueFd NewSocket(int flags) {
  return UniqueFd(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

UniqueFd Listen(const UniqueFd& folder) {
  // What a start before this one has left: nobody listens there, as the lock was free.
  unlinkat(folder.Get(), SocketName, 0);
  UniqueFd calls = NewSocket(SOCK_NONBLOCK);
  const sockaddr_un address = AddressIn(folder);
  if (!calls || bind(calls.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return {};
  fchmodat(folder.Get(), SocketName, OwnersOnly, 0);
  if (listen(calls.Get(), MostWaiting) != 0) return {};
  return calls;
}

enum class Reply { Taken, Ended, None };

// All of it, or none.
bool Send(const UniqueFd& call, const std::string& message, double until) {
  std::size_t sent = 0;
  while (sent < message.size()) {
    const ssize_t went = send(call.Get(), message.data() + sent, message.size() - sent, MSG_NOSIGNAL);
    if (went > 0) {
      sent += static_cast<std::size_t>(went);
    } else if (errno != EINTR) {
      pollfd wait{call.Get(), POLLOUT, 0};
      if (errno != EAGAIN || poll(&wait, 1, Milliseconds(until)) <= 0) return false;
    }
  }
  return shutdown(call.Get(), SHUT_WR) == 0;
}

// Up to its end; nothing where that does not come in time or the message is too long.
std::optional<std::string> Receive(const UniqueFd& call) {
  const double until = Now() + SecondsForMessage;
  std::string message;
  std::array<char, 4096> bytes{};
  while (message.size() <= RunningInstance::MostBytes) {
    const ssize_t came = recv(call.Get(), bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (came == 0) return message;
    if (came > 0) {
      message.append(bytes.data(), static_cast<std::size_t>(came));
    } else if (errno != EINTR) {
      pollfd wait{call.Get(), POLLIN, 0};
      if (errno != EAGAIN || poll(&wait, 1, Milliseconds(until)) <= 0) return std::nullopt;
    }
  }
  return std::nullopt;
}

// The socket's own permissions keep others away where its file system has any.
bool IsOwnUser(const UniqueFd& call) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(call.Get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

// The first start answers with a byte when it has taken the call. A connection that ends without one was never taken.
Reply WaitForAnswer(const UniqueFd& call, double until) {
  pollfd wait{call.Get(), POLLIN, 0};
  if (poll(&wait, 1, Milliseconds(until)) <= 0) return Reply::None;
  char byte = 0;
  return recv(call.Get(), &byte, 1, 0) == 1 ? Reply::Taken : Reply::Ended;
}

Reply Call(const UniqueFd& folder, const std::string& message, double until) {
  const sockaddr_un address = AddressIn(folder);
  // A full queue of calls refuses at once, and does not keep this one waiting without an end.
  const UniqueFd call = NewSocket(SOCK_NONBLOCK);
  if (call && connect(call.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    if (Send(call, message, until)) return WaitForAnswer(call, until);
    return errno == EPIPE || errno == ECONNRESET ? Reply::Ended : Reply::None;
  }
  return errno == ECONNREFUSED || errno == ENOENT ? Reply::Ended : Reply::None;
}

}  // namespace

RunningInstance::RunningInstance(const std::string& hostFolder) {
  static_cast<void>(MakeFolders(hostFolder));
  folder_ = UniqueFd(open(hostFolder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder_) return;
  lock_ = UniqueFd(openat(folder_.Get(), LockName, O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, OwnersOnly));
  if (!lock_) return;
  first_ = TakeLock();
}

// True also where the file system has no locks.
bool RunningInstance::TakeLock() {
  while (flock(lock_.Get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return false;
    if (errno != EINTR) return true;
  }
  calls_ = Listen(folder_);
  return true;
}

RunningInstance::Outcome RunningInstance::CallFirst(double seconds, const std::string& message) {
  const double until = Now() + seconds;
  do {
    const Reply answer = Call(folder_, message, until);
    if (answer == Reply::Taken) return Outcome::Taken;
    // Nobody listens: the first start is not ready yet, or is about to end, and then its lock is free.
    if (answer == Reply::Ended && TakeLock()) {
      first_ = true;
      return Outcome::IsFirst;
    }
    poll(nullptr, 0, Pause);
  } while (Now() < until);
  return Outcome::Unanswered;
}

std::vector<std::string> RunningInstance::TakeCalls() const {
  std::vector<std::string> messages;
  for (;;) {
    const UniqueFd call(accept4(calls_.Get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (call) {
      std::optional<std::string> message = IsOwnUser(call) ? Receive(call) : std::nullopt;
      if (!message) continue;
      // A caller that has given up has told its user that nothing was taken.
      const char answer = 1;
      if (send(call.Get(), &answer, 1, MSG_NOSIGNAL) == 1) messages.push_back(std::move(*message));
    } else if (errno != EINTR && errno != ECONNABORTED) {
      return messages;
    }
  }
}

}  // namespace pixorra
