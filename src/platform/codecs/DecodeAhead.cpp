#include "platform/codecs/DecodeAhead.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <exception>
#include <iterator>
#include <numeric>
#include <system_error>
#include <utility>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/ExpectedPhotos.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/JpegWriter.h"
#include "platform/codecs/PictureKind.h"
#include "platform/codecs/ThreadPriority.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "platform/services/FileBytes.h"
#include "platform/services/JpegCodec.h"

namespace pixorra {

struct DecodeAhead::Job {
  // Not: it stays with whoever wants it.
  enum class State { Waiting, Running, Ready, Not };

  std::string path;
  int scale = 0;
  ReadAhead::PaintedSizes sizes;
  std::int64_t length = 0;
  State state = State::Not;
  std::int64_t claimed = 0;  // bytes granted to its decode
  std::atomic<bool> dropped = false;
  // The thread's own while it runs.
  std::unique_ptr<File> file;
  FileBytes bytes;
  ReducedRows rows;
  SmallJpeg small;
};

namespace {

// In the quality that a transfer has unless another is asked for. Without one the rows alone are ready.
void MakeSmallJpeg(const ReducedRows& rows, const std::vector<PixelSize>& sizes, SmallJpeg& small) {
  const int quality = JPEG_CORE_PROPERTIES().jquality;
  JpegBytes encoded;
  const std::ptrdiff_t step = std::ptrdiff_t{rows.width} * 3;
  if (WriteJpeg(rows.bytes.data(), step, rows.width, rows.height, quality, encoded) != jpeg::Ok) return;
  const auto pixels = std::make_shared<Bitmap>(DecodePicture(encoded.Bytes()));
  std::vector<Bitmap> reductions;
  for (const PixelSize size : sizes) {
    reductions.emplace_back(size.Width, size.Height, PixelFormat::Bgr24);
    Stretch(*pixels, reductions.back(), 0, 0, size.Width, size.Height);
    small.bytes += BytesOf(size);
  }
  // They are asked for once, if at all.
  small.picture = Picture(rows.width, rows.height, std::move(reductions), [pixels] { return std::move(*pixels); });
  small.file.assign(encoded.Bytes().begin(), encoded.Bytes().end());
  small.quality = quality;
}

bool IsSame(std::span<const std::uint8_t> a, std::span<const std::uint8_t> b) {
  if (a.size() != b.size()) return false;
  return a.data() == b.data() || std::memcmp(a.data(), b.data(), a.size()) == 0;
}

// Block by block: a few that stay in the processor's cache are read in a third of the time that the whole takes.
bool HoldsJust(File& file, std::span<const std::uint8_t> bytes) {
  constexpr std::size_t BlockBytes = std::size_t{128} * 1024;
  if (file.Length() != static_cast<std::int64_t>(bytes.size())) return false;
  std::vector<std::uint8_t> block(BlockBytes);
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t wanted = std::min(BlockBytes, bytes.size() - at);
    if (file.ReadAt(static_cast<std::int64_t>(at), block.data(), wanted) != wanted) return false;
    if (std::memcmp(block.data(), bytes.data() + at, wanted) != 0) return false;
    at += wanted;
  }
  std::uint8_t oneMore = 0;
  return file.ReadAt(static_cast<std::int64_t>(bytes.size()), &oneMore, 1) == 0;
}

bool IsScale(int scale) {
  return scale == 1 || scale == 2 || scale == 4 || scale == 8;
}

}  // namespace

DecodeAhead::DecodeAhead(Files& files)
    : files_(files),
      whole_(files),
      mostThreads_(std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, MostThreads)) {}

DecodeAhead::~DecodeAhead() {
  EndWithin(std::chrono::milliseconds(0));
  for (std::thread& thread : threads_) thread.join();
}

bool DecodeAhead::EndWithin(std::chrono::milliseconds patience) {
  std::unique_lock lock(mutex_);
  ending_ = true;
  for (const Jobs& jobs : expected_) {
    for (const auto& job : jobs) job->dropped = true;
  }
  wake_.notify_all();
  worked_.notify_all();
  const bool ended = worked_.wait_for(lock, patience, [this] { return working_ == 0; });
  lock.unlock();
  return whole_.EndWithin(patience) && ended;
}

void EndOrLeave::operator()(DecodeAhead* ahead) const {
  constexpr std::chrono::milliseconds Patience(1000);
  if (ahead->EndWithin(Patience)) delete ahead;
}

// One for each thread, and some for the time until the reader's next turn.
int DecodeAhead::Depth() const {
  return noThreads_ ? 0 : static_cast<int>(mostThreads_) + 2;
}

void DecodeAhead::Expect(Reader reader, const std::vector<std::string>& paths, int scale, const PaintedSizes& sizes) {
  Jobs& own = expected_.at(static_cast<std::size_t>(reader));
  if (own.empty() && (paths.empty() || noThreads_)) return;
  const std::lock_guard lock(mutex_);
  Jobs wanted;
  if (IsScale(scale)) {
    for (const std::string& path : paths) {
      std::shared_ptr<Job> job = Find(path, scale);
      wanted.push_back(job != nullptr ? std::move(job) : NewJob(path, scale, sizes));
    }
  }
  own.swap(wanted);
  // The first is decoded whatever memory it needs; the others only while there is room.
  while (own.size() > 1 && FileBytesInHand() > MostFileBytes) {
    wanted.push_back(std::move(own.back()));
    own.pop_back();
  }
  // The other reader may want it still.
  for (const auto& job : wanted) job->dropped = Find(job->path, job->scale) != job;
  if (NextWaiting() == nullptr) return;
  StartThreads();
  wake_.notify_all();
}

bool DecodeAhead::IsReady(const std::string& path, int scale) {
  if (noThreads_) return true;
  const std::lock_guard lock(mutex_);
  const std::shared_ptr<Job> job = Find(path, scale);
  return job == nullptr || job->state == Job::State::Ready || job->state == Job::State::Not;
}

void DecodeAhead::ExpectWhole(const std::vector<std::string>& paths, const PaintedSizes& sizes) {
  whole_.Expect(paths, sizes);
}

bool DecodeAhead::IsWholeReady(const std::string& path) {
  return whole_.IsReady(path);
}

std::span<const std::uint8_t> DecodeAhead::AtHand(File& file) {
  std::vector<std::shared_ptr<Job>> ready;
  {
    const std::lock_guard lock(mutex_);
    for (const Jobs& jobs : expected_)
      std::ranges::copy_if(jobs, std::back_inserter(ready),
                           [](const auto& job) { return job->state == Job::State::Ready; });
  }
  std::span<const std::uint8_t> found;
  ErrorsIgnored([&] {
    for (const auto& job : ready) {
      if (found.empty() && HoldsJust(file, job->bytes.Bytes())) found = job->bytes.Bytes();
    }
  });
  return found;
}

const ReducedRows* DecodeAhead::Take(std::span<const std::uint8_t> file, int denominator,
                                     const std::optional<PixelSize>& size) {
  takenRows_ = {};
  takenJpeg_ = {};
  const std::lock_guard lock(mutex_);
  for (Jobs& jobs : expected_) {
    const auto same = std::ranges::find_if(jobs, [&](const auto& job) {
      if (job->state != Job::State::Ready || job->scale != denominator) return false;
      if (size && (size->Width != job->rows.width || size->Height != job->rows.height)) return false;
      return IsSame(job->bytes.Bytes(), file);
    });
    if (same == jobs.end()) continue;
    takenRows_ = std::move((*same)->rows);
    takenJpeg_ = std::move((*same)->small);
    (*same)->bytes = {};
    (*same)->length = 0;
    (*same)->state = Job::State::Not;  // where the other reader expects it too
    jobs.erase(same);
    return &takenRows_;
  }
  return nullptr;
}

std::span<const std::uint8_t> DecodeAhead::Encoded(const std::uint8_t* topRow, std::ptrdiff_t step, int width,
                                                   int height, int quality) const {
  if (takenJpeg_.quality != quality || takenRows_.width != width || takenRows_.height != height) return {};
  const auto length = static_cast<std::size_t>(width) * 3;
  for (int y = 0; y < height; ++y) {
    const std::uint8_t* own = takenRows_.bytes.data() + static_cast<std::size_t>(y) * length;
    if (std::memcmp(topRow + y * step, own, length) != 0) return {};
  }
  return takenJpeg_.file;
}

Picture DecodeAhead::Decoded(std::span<const std::uint8_t> file) {
  if (file.empty() || !std::ranges::equal(file, takenJpeg_.file)) return {};
  takenRows_ = {};
  return std::exchange(takenJpeg_, {}).picture;
}

void DecodeAhead::Settle() {
  std::unique_lock lock(mutex_);
  worked_.wait(lock, [this] { return noThreads_ || (!IsBusy() && runningFileBytes_ == 0); });
}

std::shared_ptr<DecodeAhead::Job> DecodeAhead::Find(const std::string& path, int scale) const {
  for (const Jobs& jobs : expected_) {
    for (const auto& job : jobs) {
      if (job->scale == scale && job->path == path && !job->dropped) return job;
    }
  }
  return nullptr;
}

// The file is opened here, as paths are mapped to the host's on this thread only; an open file may be read by another.
std::shared_ptr<DecodeAhead::Job> DecodeAhead::NewJob(const std::string& path, int scale, const PaintedSizes& sizes) {
  auto job = std::make_shared<Job>();
  job->path = path;
  job->scale = scale;
  job->sizes = sizes;
  ErrorsIgnored([&] {
    std::unique_ptr<File> file = files_.Open(path, OpenMode::Read);
    const std::int64_t length = file->Length();
    if (length < ShortestFile || length > LongestFile) return;
    job->file = std::move(file);
    job->length = length;
    job->state = Job::State::Waiting;
  });
  return job;
}

// The first photo of each reader is decoded before the second of any.
std::shared_ptr<DecodeAhead::Job> DecodeAhead::NextWaiting() const {
  std::size_t longest = 0;
  for (const Jobs& jobs : expected_) longest = std::max(longest, jobs.size());
  for (std::size_t i = 0; i < longest; ++i) {
    for (const Jobs& jobs : expected_) {
      if (i < jobs.size() && jobs[i]->state == Job::State::Waiting) return jobs[i];
    }
  }
  return nullptr;
}

bool DecodeAhead::IsBusy() const {
  return std::ranges::any_of(expected_, [](const Jobs& jobs) {
    return std::ranges::any_of(
        jobs, [](const auto& job) { return job->state == Job::State::Waiting || job->state == Job::State::Running; });
  });
}

std::int64_t DecodeAhead::FileBytesInHand() const {
  std::int64_t sum = runningFileBytes_;
  for (const Jobs& jobs : expected_) {
    for (const auto& job : jobs)
      if (job->state != Job::State::Running) sum += job->length;
  }
  return sum;
}

// Of what is ready to be taken, beside the files.
std::int64_t DecodeAhead::ReadyBytes() const {
  std::int64_t sum = 0;
  for (const Jobs& jobs : expected_) {
    for (const auto& job : jobs)
      if (job->state == Job::State::Ready)
        sum += 2 * static_cast<std::int64_t>(job->rows.bytes.size()) + job->small.bytes;
  }
  return sum;
}

bool DecodeAhead::Fits(std::int64_t bytes) const {
  return FileBytesInHand() + ReadyBytes() + claimed_ + bytes <= MostMemory;
}

void DecodeAhead::StartThreads() {
  try {
    while (threads_.size() < mostThreads_) threads_.emplace_back([this] { Work(); });
  } catch (const std::system_error&) {
    noThreads_ = threads_.empty();
  }
}

// Memory for a decode. One that does not fit beside those under way waits for them; what does not fit at all is left
// alone. What is granted is held until Finish.
bool DecodeAhead::Claim(Job& job, std::int64_t bytes) {
  std::unique_lock lock(mutex_);
  worked_.wait(lock, [&] { return ending_ || job.dropped || claimed_ == 0 || Fits(bytes); });
  if (ending_ || job.dropped || !Fits(bytes)) return false;
  job.claimed = bytes;
  claimed_ += bytes;
  return true;
}

bool DecodeAhead::Decode(Job& job) {
  JpegReader reader(job.bytes.Bytes());
  if (reader.Open() != jpeg::Ok) return false;
  reader.StopOn(job.dropped);
  if (reader.Reduce(job.scale) != jpeg::Ok) return false;
  ReducedRows& rows = job.rows;
  const std::int64_t step = std::int64_t{reader.ReducedWidth()} * 3;
  const std::int64_t size = step * reader.ReducedHeight();
  if (size > MostRowBytes) return false;
  const std::vector<PixelSize> sizes = SizesFor(job.sizes, reader.ReducedWidth(), reader.ReducedHeight());
  const std::int64_t painted = std::accumulate(sizes.begin(), sizes.end(), std::int64_t{0},
                                               [](std::int64_t sum, PixelSize one) { return sum + BytesOf(one); });
  if (!Claim(job, 2 * size + painted + reader.WorkingMemory())) return false;
  rows.width = reader.ReducedWidth();
  rows.height = reader.ReducedHeight();
  rows.bytes.resize(static_cast<std::size_t>(size));
  if (reader.Read(rows.bytes.data(), static_cast<std::ptrdiff_t>(step), 3) != jpeg::Ok) return false;
  MakeSmallJpeg(rows, sizes, job.small);
  return true;
}

void DecodeAhead::Work() {
  LowerOwnPriority();
  std::unique_lock lock(mutex_);
  for (;;) {
    std::shared_ptr<Job> job;
    wake_.wait(lock, [&] { return ending_ || (job = NextWaiting()) != nullptr; });
    if (ending_) return;
    job->state = Job::State::Running;
    runningFileBytes_ += job->length;
    ++working_;
    lock.unlock();
    bool ready = false;
    // Whatever is wrong shows again where the photo is wanted.
    try {
      if (IsJpeg(*job->file)) {
        job->bytes.Read(*job->file);
        ready = Decode(*job);
      }
    } catch (const std::exception&) {
      ready = false;
    }
    job->file.reset();
    if (!ready) {
      job->bytes = {};
      job->rows = {};
      job->small = {};
    }
    lock.lock();
    Finish(*job, ready);
  }
}

// With the mutex held, so that nobody sees memory that counts neither as under way nor as ready.
void DecodeAhead::Finish(Job& job, bool ready) {
  --working_;
  claimed_ -= std::exchange(job.claimed, 0);
  runningFileBytes_ -= job.length;
  job.state = ready ? Job::State::Ready : Job::State::Not;
  if (!ready) job.length = 0;
  worked_.notify_all();
}

}  // namespace pixorra
