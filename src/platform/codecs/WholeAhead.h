// JPEG photos that are going to be looked at, decoded ahead in full by threads of this back end and made as small as
// they will be painted. What is kept of each is its file's bytes and those reductions, a few megabytes. It serves only
// as long as the file is the one that was read, and unchanged.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/pixels/Picture.h"
#include "platform/services/Files.h"
#include "platform/services/ReadAhead.h"

namespace pixorra {

// Used by one thread; its own stay inside. They start when the first photo is expected.
class WholeAhead {
 public:
  // All that is held and being decoded takes no more than this, in bytes.
  static constexpr std::int64_t MostMemory = std::int64_t{256} * 1024 * 1024;

  explicit WholeAhead(Files& files, std::int64_t mostMemory = MostMemory);
  ~WholeAhead();
  WholeAhead(const WholeAhead&) = delete;
  WholeAhead& operator=(const WholeAhead&) = delete;

  // Tells the threads to end; false where one of them is still at a photo after so long. A read from a disk that no
  // longer answers may never return, and the destructor waits for it. Nothing is to be expected afterwards.
  bool EndWithin(std::chrono::milliseconds patience);

  // As ReadAhead::ExpectWhole and IsWholeReady.
  void Expect(const std::vector<std::string>& paths, const ReadAhead::PaintedSizes& sizes);
  bool IsReady(const std::string& path);
  bool IsExpecting() const { return expecting_; }

  // The picture of the file that has this stamp, with its reductions, or nothing. One that is being decoded is waited
  // for; one that is still to be begun is left to the caller.
  Picture Take(const FileStamp& stamp);
  // Shows the picture again to the next that asks for the same file: a photo is painted in two places, one after the
  // other. Until photos are expected anew.
  void Keep(const FileStamp& stamp, const Picture& picture);

  // Waits until all that is expected has been worked on, and nothing else is any more.
  void Settle();
  // The most that has been held at a time, in bytes.
  std::int64_t MostHeld();
  std::size_t ThreadsStarted() const { return threads_.size(); }

 private:
  struct Job;
  using JobPointer = std::shared_ptr<Job>;

  std::vector<JobPointer>::const_iterator Find(const std::string& path) const;
  JobPointer Known(const std::string& path, const ReadAhead::PaintedSizes& sizes);
  JobPointer NewJob(const std::string& path, const ReadAhead::PaintedSizes& sizes) const;
  JobPointer NextWaiting() const;
  JobPointer NextToBegin() const;
  void LetGo(Job& job);
  void LetGoAllBut(const std::vector<std::string>& paths);
  void DropKept();
  void GiveBack(std::int64_t bytes);
  void StartThreads();
  void Hold(std::int64_t more);
  bool MakeRoom(const Job* before, std::int64_t bytes);
  bool IsLeastWanted(const Job& job) const;
  bool Claim(std::unique_lock<std::mutex>& lock, Job& job, std::int64_t bytes);
  bool BeginReading(Job& job);
  bool BeginDecoding(Job& job, std::int64_t bytes);
  void Decode(Job& job);
  void Work();
  void Finish(Job& job);

  Files& files_;
  const std::int64_t mostMemory_;
  std::vector<std::thread> threads_;
  bool expecting_ = false;
  std::mutex mutex_;  // for all below, and for the state of jobs
  std::condition_variable wake_;
  std::condition_variable worked_;
  std::vector<JobPointer> jobs_;  // expected; the most wanted first
  FileStamp keptStamp_;
  Picture kept_;
  std::int64_t keptBytes_ = 0;
  std::int64_t held_ = 0;  // bytes granted, to jobs that are let go and still at work as well
  std::int64_t mostHeld_ = 0;
  int working_ = 0;   // jobs that a thread is at
  int decoding_ = 0;  // of these, those that have been granted what their decode takes
  bool ending_ = false;
};

}  // namespace pixorra
