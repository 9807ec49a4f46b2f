#include "tests/platform/qt/printing/PrintLine.h"

#include <arpa/inet.h>
#include <array>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pixorra {

namespace {

constexpr int LookMilliseconds = 10;

sockaddr_in Here(int port) {
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_port = htons(static_cast<std::uint16_t>(port));
  at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return at;
}

bool SendAll(int to, const char* bytes, ssize_t count) {
  while (count > 0) {
    const ssize_t sent = send(to, bytes, static_cast<std::size_t>(count), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes += sent;
    count -= sent;
  }
  return true;
}

}  // namespace

PrintLine::PrintLine(int port) : to_(port), listens_(socket(AF_INET, SOCK_STREAM, 0)) {
  sockaddr_in at = Here(0);
  socklen_t size = sizeof at;
  if (bind(listens_, reinterpret_cast<sockaddr*>(&at), size) == 0 && listen(listens_, 8) == 0 &&
      getsockname(listens_, reinterpret_cast<sockaddr*>(&at), &size) == 0) {
    port_ = ntohs(at.sin_port);
  }
  threads_.emplace_back([this] { Accept(); });
}

PrintLine::~PrintLine() {
  ends_ = true;
  // The first thread makes the others.
  threads_.front().join();
  for (std::size_t i = 1; i < threads_.size(); ++i) threads_[i].join();
  close(listens_);
}

void PrintLine::Accept() {
  pollfd waits{listens_, POLLIN, 0};
  while (!ends_) {
    if (poll(&waits, 1, LookMilliseconds) <= 0) continue;
    const int client = accept(listens_, nullptr, nullptr);
    if (client < 0) continue;
    const int number = ++begun_;
    const std::lock_guard lock(mutex_);
    threads_.emplace_back([this, client, number] { Carry(client, number); });
  }
}

void PrintLine::Carry(int client, int number) {
  const int server = socket(AF_INET, SOCK_STREAM, 0);
  const sockaddr_in at = Here(to_);
  std::array<char, 16384> piece{};
  std::int64_t carried = 0;  // to the server
  bool open = connect(server, reinterpret_cast<const sockaddr*>(&at), sizeof at) == 0;
  while (open && !ends_ && number > broken_) {
    const bool held = carried >= freely_ && let_ <= 0;
    std::array<pollfd, 2> ends{{{held ? -1 : client, POLLIN, 0}, {server, POLLIN, 0}}};
    if (poll(ends.data(), ends.size(), LookMilliseconds) <= 0) continue;
    for (std::size_t i = 0; i < ends.size() && open; ++i) {
      if (ends[i].revents == 0) continue;
      const ssize_t count = recv(ends[i].fd, piece.data(), piece.size(), 0);
      open = count > 0 && (i == 1 && number <= loses_ ? true : SendAll(i == 1 ? client : server, piece.data(), count));
      if (i == 1) continue;
      if (carried >= freely_) --let_;
      carried += count;
    }
  }
  close(server);
  close(client);
}

}  // namespace pixorra
