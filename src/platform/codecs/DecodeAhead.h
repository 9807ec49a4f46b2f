// JPEG photos read and decoded ahead of their turn by threads of this back end, and the small JPEG file that the
// program makes of each, with its picture, as small as that will be painted. What they made serves only where the bytes
// asked about are the same to the last; errors are left to who asks. Photos that are wanted whole are in WholeAhead.
#pragma once

#include <array>
#include <chrono>
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

#include "platform/codecs/WholeAhead.h"
#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"
#include "platform/services/ReadAhead.h"

namespace pixorra {

// The pixels of a picture, blue, green, red, top row first, no padding.
struct ReducedRows {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;
};

// What becomes of a reduction next.
struct SmallJpeg {
  int quality = 0;
  std::vector<std::uint8_t> file;
  Picture picture;         // what that file shows, with its reductions
  std::int64_t bytes = 0;  // of the reductions
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
  // The largest reduction that is kept, in bytes; its picture takes as much again.
  static constexpr std::int64_t MostRowBytes = 16 * 1024 * 1024;

  explicit DecodeAhead(Files& files);
  ~DecodeAhead() override;
  DecodeAhead(const DecodeAhead&) = delete;
  DecodeAhead& operator=(const DecodeAhead&) = delete;

  // As WholeAhead::EndWithin, for all threads of both, each of which has so long.
  bool EndWithin(std::chrono::milliseconds patience);

  int Depth() const override;
  void Expect(Reader reader, const std::vector<std::string>& paths, int scale, const PaintedSizes& sizes) override;
  bool IsReady(const std::string& path, int scale) override;
  void ExpectWhole(const std::vector<std::string>& paths, const PaintedSizes& sizes) override;
  bool IsWholeReady(const std::string& path) override;
  WholeAhead& Whole() { return whole_; }

  // The bytes of a photo that is ready, where the file holds the same to the last; else nothing. They live until the
  // next Take or Expect. Raises nothing.
  std::span<const std::uint8_t> AtHand(File& file);
  // What was made of a file of these bytes at 1/denominator, else null. It is handed out once, and lives until the next
  // call. With a size, what has another one is left where it is.
  const ReducedRows* Take(std::span<const std::uint8_t> file, int denominator,
                          const std::optional<PixelSize>& size = std::nullopt);
  // The JPEG file of these pixels in this quality, if they are those that were taken last; else nothing. It lives until
  // the next Take. Rows as WriteJpeg has them.
  std::span<const std::uint8_t> Encoded(const std::uint8_t* topRow, std::ptrdiff_t step, int width, int height,
                                        int quality) const;
  // What that file shows, if these are its bytes, else nothing. It is handed out once.
  Picture Decoded(std::span<const std::uint8_t> file);

  // Waits until all that is expected has been worked on, and nothing else is any more.
  void Settle();
  std::size_t ThreadsStarted() const { return threads_.size(); }

 private:
  struct Job;
  using Jobs = std::vector<std::shared_ptr<Job>>;

  std::shared_ptr<Job> Find(const std::string& path, int scale) const;
  std::shared_ptr<Job> NewJob(const std::string& path, int scale, const PaintedSizes& sizes);
  std::shared_ptr<Job> NextWaiting() const;
  bool IsBusy() const;
  std::int64_t FileBytesInHand() const;
  std::int64_t ReadyBytes() const;
  bool Fits(std::int64_t bytes) const;
  void StartThreads();
  bool Claim(Job& job, std::int64_t bytes);
  bool Decode(Job& job);
  void Work();
  void Finish(Job& job, bool ready);

  Files& files_;
  WholeAhead whole_;
  const std::size_t mostThreads_;
  ReducedRows takenRows_;  // by the using thread, as what follows
  SmallJpeg takenJpeg_;
  bool noThreads_ = false;  // the system cannot start any
  std::vector<std::thread> threads_;
  std::mutex mutex_;  // for all below, and for the state of jobs
  std::condition_variable wake_;
  std::condition_variable worked_;
  std::array<Jobs, Readers> expected_;  // by reader; changed by the using thread alone
  std::int64_t claimed_ = 0;            // bytes that decodes under way have been granted
  std::int64_t runningFileBytes_ = 0;   // of the files that are being read and decoded, expected still or not
  int working_ = 0;                     // jobs that a thread is at
  bool ending_ = false;
};

// Ends one that was made by new. Deliberate: where a thread hangs in a read, from a disk that no longer answers, it is
// left as it is, for the thread to use: the program must not wait for it to end.
struct EndOrLeave {
  void operator()(DecodeAhead* ahead) const;
};

}  // namespace pixorra
