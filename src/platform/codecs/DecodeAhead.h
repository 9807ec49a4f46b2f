// JPEG photos read and decoded ahead of their turn by threads of this back end. What they made serves a decode only
// when that one's bytes are the same to the last; errors are left to it.
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "platform/services/Files.h"
#include "platform/services/ReadAhead.h"

namespace pixorra {

// The pixels of a picture, blue, green, red, top row first, no padding.
struct ReducedRows {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;
};

// Used by one thread; its own stay inside. They start when the first photo is expected.
class DecodeAhead : public ReadAhead {
 public:
  // Shorter files decode in no time and longer ones would take too much memory: neither is got ready. Bytes.
  static constexpr std::int64_t ShortestFile = 512 * 1024;
  static constexpr std::int64_t LongestFile = 24 * 1024 * 1024;
  // The files in hand make no more than this together, but for the first one of each reader, which always counts.
  static constexpr std::int64_t MostFileBytes = 48 * 1024 * 1024;
  // All that is held and decoded at a time takes no more than this, in bytes: files, reductions, and what the JPEG
  // library keeps of progressive pictures.
  static constexpr std::int64_t MostMemory = 256 * 1024 * 1024;
  // The largest reduction that is kept, in bytes.
  static constexpr std::int64_t MostRowBytes = 16 * 1024 * 1024;

  explicit DecodeAhead(Files& files);
  ~DecodeAhead() override;
  DecodeAhead(const DecodeAhead&) = delete;
  DecodeAhead& operator=(const DecodeAhead&) = delete;

  int Depth() const override;
  void Expect(Reader reader, const std::vector<std::string>& paths, int scale) override;
  bool IsReady(const std::string& path, int scale) override;

  // What was made of a file of these bytes at 1/denominator, if it was; it is handed out once.
  std::optional<ReducedRows> Take(std::span<const std::uint8_t> file, int denominator);

  // Waits until all that is expected has been worked on.
  void Settle();
  std::size_t ThreadsStarted() const { return threads_.size(); }

 private:
  struct Job;
  class Claim;
  using Jobs = std::vector<std::shared_ptr<Job>>;

  std::shared_ptr<Job> Find(const std::string& path, int scale) const;
  std::shared_ptr<Job> NewJob(const std::string& path, int scale);
  std::shared_ptr<Job> NextWaiting() const;
  bool IsBusy() const;
  std::int64_t FileBytesInHand() const;
  std::int64_t ReadyBytes() const;
  bool Fits(std::int64_t bytes) const;
  void StartThreads();
  bool Decode(Job& job);
  void Work();

  Files& files_;
  const std::size_t mostThreads_;
  bool noThreads_ = false;  // the system cannot start any
  std::vector<std::thread> threads_;
  std::mutex mutex_;  // for all below, and for the state of jobs
  std::condition_variable wake_;
  std::condition_variable worked_;
  std::array<Jobs, 2> expected_;  // by reader; changed by the using thread alone
  std::int64_t claimed_ = 0;      // bytes that decodes under way have been granted
  bool ending_ = false;
};

}  // namespace pixorra
