// The way to a print server, which may be slow, lose what it carries, or break off.
#pragma once

#include <atomic>
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
  // Each piece of 16 KB takes so long from now on.
  void SlowDown(int milliseconds) { delay_ = milliseconds; }
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
  std::atomic<int> delay_ = 0;  // milliseconds
  std::atomic<bool> ends_ = false;
  std::mutex mutex_;
  std::vector<std::thread> threads_;
};

}  // namespace pixorra
