// The way to a print server, which may hold up or lose what it carries, or break off.
#pragma once

#include <atomic>
#include <cstdint>
#include <limits>
#include <mutex>
#include <thread>
#include <vector>

namespace pixorra {

class PrintLine {
 public:
  // To a port of this machine.
  explicit PrintLine(int port);
  ~PrintLine();
  PrintLine(const PrintLine&) = delete;
  PrintLine& operator=(const PrintLine&) = delete;

  // Where it begins.
  int Port() const { return port_; }
  // The connections that were made so far.
  int Connections() const { return begun_; }
  // From now on a connection carries no more than so many bytes to the server by itself, and then the pieces of 16 KB
  // that LetGoOn lets go.
  void HoldUpAfter(std::int64_t bytes) { freely_ = bytes; }
  void LetGoOn(int pieces) { let_ += pieces; }
  // Nothing that is answered over the connections that there are arrives any more.
  void LoseAnswers() { loses_ = begun_.load(); }
  // Ends the connections that there are.
  void BreakOff() { broken_ = begun_.load(); }

 private:
  void Accept();
  void Carry(int client, int number);

  const int to_;
  int listens_ = -1;
  int port_ = 0;
  std::atomic<int> begun_ = 0;  // connections
  std::atomic<int> loses_ = 0;  // the first ones of these
  std::atomic<int> broken_ = 0;
  std::atomic<std::int64_t> freely_ = std::numeric_limits<std::int64_t>::max();
  std::atomic<int> let_ = 0;  // pieces
  std::atomic<bool> ends_ = false;
  std::mutex mutex_;
  std::vector<std::thread> threads_;
};

}  // namespace pixorra
