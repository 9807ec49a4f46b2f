#include "platform/codecs/WholeAhead.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <numeric>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/ExpectedPhotos.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/LargePages.h"
#include "platform/codecs/PictureKind.h"
#include "platform/codecs/ThreadPriority.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

struct WholeAhead::Job {
  // Not: it is left to whoever wants it.
  enum class State { Waiting, Running, Ready, Not };

  std::string path;
  FileStamp stamp;  // from before the file was read
  ReadAhead::PaintedSizes sizes;
  State state = State::Not;
  bool claiming = false;  // it waits for memory
  bool decoding = false;  // it has been granted all that it takes
  bool again = false;     // what was made, or could have been, is wanted anew
  bool crowded = false;   // there was no room for it; it is tried again once something has been let go
  std::int64_t held = 0;  // bytes
  std::atomic<bool> dropped = false;
  Picture picture;
  // The thread's own while it runs.
  std::unique_ptr<File> file;
  Picture made;
  std::int64_t keeps = 0;  // bytes of what has been made
};

namespace {

constexpr std::size_t ReadPart = std::size_t{1024} * 1024;  // bytes

// A file's first bytes, so many or all that there are; returns how many. It ends early where the photo is dropped.
std::size_t ReadInParts(File& file, std::uint8_t* into, std::size_t bytes, const std::atomic<bool>& dropped) {
  std::size_t read = 0;
  while (read < bytes && !dropped) {
    const std::size_t part = std::min(ReadPart, bytes - read);
    const std::size_t got = file.ReadAt(static_cast<std::int64_t>(read), into + read, part);
    read += got;
    if (got < part) break;
  }
  return read;
}

bool HasReductions(const Picture& picture, const ReadAhead::PaintedSizes& sizes) {
  return std::ranges::all_of(SizesFor(sizes, picture.Width(), picture.Height()),
                             [&](PixelSize size) { return picture.Reduction(size.Width, size.Height) != nullptr; });
}

}  // namespace

WholeAhead::WholeAhead(Files& files, std::int64_t mostMemory) : files_(files), mostMemory_(mostMemory) {}

WholeAhead::~WholeAhead() {
  EndWithin(std::chrono::milliseconds(0));
  for (std::thread& thread : threads_) thread.join();
}

bool WholeAhead::EndWithin(std::chrono::milliseconds patience) {
  std::unique_lock lock(mutex_);
  ending_ = true;
  for (const JobPointer& job : jobs_) job->dropped = true;
  wake_.notify_all();
  worked_.notify_all();
  return worked_.wait_for(lock, patience, [this] { return working_ == 0; });
}

void WholeAhead::Expect(const std::vector<std::string>& paths, const ReadAhead::PaintedSizes& sizes) {
  expecting_ = !paths.empty();
  LetGoAllBut(paths);
  std::vector<JobPointer> wanted;
  for (const std::string& path : paths) {
    JobPointer job = Known(path, sizes);
    wanted.push_back(job != nullptr ? std::move(job) : NewJob(path, sizes));
  }
  const std::lock_guard lock(mutex_);
  jobs_.swap(wanted);
  for (const JobPointer& job : wanted) {
    if (std::ranges::find(jobs_, job) == jobs_.end()) LetGo(*job);
  }
  worked_.notify_all();
  if (NextWaiting() == nullptr) return;
  StartThreads();
  wake_.notify_all();
}

bool WholeAhead::IsReady(const std::string& path) {
  if (!expecting_) return false;
  const auto seen = OrElse(std::optional<FileStamp>(), [&] { return files_.StampOf(path); });
  if (!seen) return false;
  const FileStamp stamp = *seen;
  const std::lock_guard lock(mutex_);
  // What was made of another file, or of an earlier state of this one, is never wanted any more.
  if (const auto outdated = Find(path); outdated != jobs_.end() && (*outdated)->stamp != stamp) {
    LetGo(**outdated);
    (*outdated)->again = true;
  }
  if (!kept_.IsNothing() && keptStamp_ == stamp) return true;
  return std::ranges::any_of(
      jobs_, [&](const JobPointer& job) { return job->state == Job::State::Ready && job->stamp == stamp; });
}

Picture WholeAhead::Take(const FileStamp& stamp) {
  std::unique_lock lock(mutex_);
  if (!kept_.IsNothing() && keptStamp_ == stamp) return kept_;
  const auto found = std::ranges::find_if(
      jobs_, [&](const JobPointer& job) { return job->stamp == stamp && job->state != Job::State::Not; });
  if (found == jobs_.end()) return {};
  const JobPointer job = *found;
  if (job->state == Job::State::Running && job->decoding)
    worked_.wait(lock, [&] { return job->state != Job::State::Running; });
  if (job->state == Job::State::Waiting) {
    job->state = Job::State::Not;
    job->again = true;
  } else if (job->state == Job::State::Running) {
    job->dropped = true;
    job->again = true;
    worked_.notify_all();
  }
  return job->picture;
}

void WholeAhead::Keep(const FileStamp& stamp, const Picture& picture) {
  if (!expecting_ || picture.IsNothing()) return;
  const auto bytes = static_cast<std::int64_t>(picture.Pixels().Stride()) * picture.Height();
  const std::lock_guard lock(mutex_);
  DropKept();
  if (!MakeRoom(nullptr, bytes)) return;
  kept_ = picture;
  keptStamp_ = stamp;
  keptBytes_ = bytes;
  Hold(bytes);
}

void WholeAhead::Settle() {
  std::unique_lock lock(mutex_);
  worked_.wait(lock, [this] { return threads_.empty() || (working_ == 0 && NextWaiting() == nullptr); });
}

std::int64_t WholeAhead::MostHeld() {
  const std::lock_guard lock(mutex_);
  return mostHeld_;
}

std::vector<WholeAhead::JobPointer>::const_iterator WholeAhead::Find(const std::string& path) const {
  return std::ranges::find_if(jobs_, [&](const JobPointer& job) { return job->path == path; });
}

// The job that is there for the path, unless one is to be begun anew.
WholeAhead::JobPointer WholeAhead::Known(const std::string& path, const ReadAhead::PaintedSizes& sizes) {
  const std::lock_guard lock(mutex_);
  const auto found = Find(path);
  if (found == jobs_.end() || (*found)->again) return nullptr;
  Job& job = **found;
  if (job.state == Job::State::Ready && !HasReductions(job.picture, sizes)) return nullptr;
  if (job.state == Job::State::Waiting) job.sizes = sizes;
  return *found;
}

// The file is opened here, as paths are mapped to the host's on this thread only; an open file may be read by another.
WholeAhead::JobPointer WholeAhead::NewJob(const std::string& path, const ReadAhead::PaintedSizes& sizes) const {
  auto job = std::make_shared<Job>();
  job->path = path;
  job->sizes = sizes;
  ErrorsIgnored([&] {
    job->file = files_.Open(path, OpenMode::Read);
    job->stamp = job->file->Stamp();
    job->state = Job::State::Waiting;
  });
  return job;
}

WholeAhead::JobPointer WholeAhead::NextWaiting() const {
  const auto found = std::ranges::find(jobs_, Job::State::Waiting, [](const JobPointer& job) { return job->state; });
  return found != jobs_.end() ? *found : nullptr;
}

// None while a job that is wanted more waits for memory: it would only be in its way.
WholeAhead::JobPointer WholeAhead::NextToBegin() const {
  const auto found = std::ranges::find_if(
      jobs_, [](const JobPointer& job) { return job->claiming || job->state == Job::State::Waiting; });
  return found != jobs_.end() && !(*found)->claiming ? *found : nullptr;
}

// A thread that is at it stops soon, and gives back what it holds.
void WholeAhead::LetGo(Job& job) {
  job.dropped = true;
  if (job.state == Job::State::Running) return;
  job.state = Job::State::Not;
  job.picture = {};
  GiveBack(std::exchange(job.held, 0));
}

// Before it is looked for what can be begun, so that there is room.
void WholeAhead::LetGoAllBut(const std::vector<std::string>& paths) {
  const std::lock_guard lock(mutex_);
  DropKept();
  for (const JobPointer& job : jobs_) {
    if (std::ranges::find(paths, job->path) == paths.end()) LetGo(*job);
  }
}

void WholeAhead::DropKept() {
  kept_ = {};
  GiveBack(std::exchange(keptBytes_, 0));
}

// Whoever found no room may find it now.
void WholeAhead::GiveBack(std::int64_t bytes) {
  if (bytes == 0) return;
  Hold(-bytes);
  for (const JobPointer& job : jobs_) {
    if (std::exchange(job->crowded, false)) job->again = true;
  }
}

void WholeAhead::StartThreads() {
  const auto most = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, MostThreads);
  try {
    while (threads_.size() < most) threads_.emplace_back([this] { Work(); });
  } catch (const std::system_error&) {
    return;  // with those that there are; without any, each photo is left to whoever wants it
  }
}

void WholeAhead::Hold(std::int64_t more) {
  held_ += more;
  mostHeld_ = std::max(mostHeld_, held_);
}

// Takes what is ready from jobs that are wanted less than this one (null: less than all), the least wanted first, if
// that makes room for so many bytes more.
bool WholeAhead::MakeRoom(const Job* before, std::int64_t bytes) {
  std::vector<Job*> ready;
  std::int64_t room = mostMemory_ - held_;
  for (auto job = jobs_.rbegin(); job != jobs_.rend() && job->get() != before && room < bytes; ++job) {
    if ((*job)->state != Job::State::Ready) continue;
    ready.push_back(job->get());
    room += (*job)->held;
  }
  if (room < bytes) return false;
  for (Job* job : ready) {
    LetGo(*job);
    job->again = true;
  }
  return true;
}

// Whether no thread is at a job that is wanted less than this one, or no longer.
bool WholeAhead::IsLeastWanted(const Job& job) const {
  int wantedMore = 0;
  for (const JobPointer& other : jobs_) {
    if (other->state == Job::State::Running) ++wantedMore;
    if (other.get() == &job) break;
  }
  return wantedMore >= working_;
}

// Memory for a job, all that it is to hold. One that does not fit beside the decodes under way, or beside what jobs
// that are wanted less hold, waits for them; of jobs that only hold their files' bytes the least wanted gives way. What
// does not fit at all is left alone.
bool WholeAhead::Claim(std::unique_lock<std::mutex>& lock, Job& job, std::int64_t bytes) {
  const bool everFits = bytes <= mostMemory_;
  const auto fits = [&] { return MakeRoom(&job, bytes - job.held); };
  const auto othersEnd = [&] { return everFits && (decoding_ > 0 || !IsLeastWanted(job)); };
  job.claiming = true;
  worked_.wait(lock, [&] { return ending_ || job.dropped || !othersEnd() || fits(); });
  job.claiming = false;
  wake_.notify_all();
  if (ending_ || job.dropped) return false;
  if (!fits()) {
    job.crowded = everFits;
    return false;
  }
  Hold(bytes - std::exchange(job.held, bytes));
  return true;
}

bool WholeAhead::BeginReading(Job& job) {
  std::unique_lock lock(mutex_);
  return Claim(lock, job, job.stamp.Length);
}

bool WholeAhead::BeginDecoding(Job& job, std::int64_t bytes) {
  std::unique_lock lock(mutex_);
  if (!Claim(lock, job, bytes)) return false;
  job.decoding = true;
  ++decoding_;
  return true;
}

void WholeAhead::Decode(Job& job) {
  if (!IsJpeg(*job.file) || !BeginReading(job)) return;
  const auto length = static_cast<std::size_t>(job.stamp.Length);
  const auto block = std::make_shared_for_overwrite<std::uint8_t[]>(length);
  const std::size_t read = ReadInParts(*job.file, block.get(), length, job.dropped);
  if (job.dropped || job.file->Stamp() != job.stamp) return;
  const std::span<const std::uint8_t> bytes(block.get(), read);
  JpegReader reader(bytes);
  if (reader.Open() != jpeg::Ok) return;
  reader.StopOn(job.dropped);
  if (reader.Reduce(1) != jpeg::Ok) return;
  const PixelSize whole{reader.Width(), reader.Height()};
  const std::vector<PixelSize> sizes = SizesFor(job.sizes, whole.Width, whole.Height);
  const std::int64_t kept = std::accumulate(sizes.begin(), sizes.end(), job.stamp.Length,
                                            [](std::int64_t sum, PixelSize size) { return sum + BytesOf(size); });
  if (!BeginDecoding(job, kept + BytesOf(whole) + reader.WorkingMemory())) return;
  Bitmap pixels = Bitmap::Cleared(whole.Width, whole.Height, PixelFormat::Bgr24);
  UseLargePages(pixels);
  if (reader.Read(pixels.Row(0), static_cast<std::ptrdiff_t>(pixels.Stride()), 3) != jpeg::Ok) return;
  std::vector<Bitmap> reductions;
  for (const PixelSize size : sizes) {
    if (job.dropped) return;
    reductions.emplace_back(size.Width, size.Height, PixelFormat::Bgr24);
    Stretch(pixels, reductions.back(), 0, 0, size.Width, size.Height);
  }
  job.made = Picture(whole.Width, whole.Height, std::move(reductions), [block, bytes] { return DecodePicture(bytes); });
  job.keeps = kept;
}

void WholeAhead::Work() {
  LowerOwnPriority();
  std::unique_lock lock(mutex_);
  for (;;) {
    JobPointer job;
    wake_.wait(lock, [&] { return ending_ || (job = NextToBegin()) != nullptr; });
    if (ending_) return;
    job->state = Job::State::Running;
    ++working_;
    lock.unlock();
    // Whatever is wrong shows again where the photo is wanted.
    try {
      Decode(*job);
    } catch (const std::exception&) {
      job->made = {};
    }
    job->file.reset();
    lock.lock();
    Finish(*job);
  }
}

void WholeAhead::Finish(Job& job) {
  --working_;
  if (std::exchange(job.decoding, false)) --decoding_;
  const bool ready = !job.made.IsNothing() && !job.dropped;
  job.picture = ready ? std::exchange(job.made, {}) : Picture();
  job.made = {};
  job.state = ready ? Job::State::Ready : Job::State::Not;
  const std::int64_t keeps = ready ? job.keeps : 0;
  const std::int64_t rest = std::exchange(job.held, keeps) - keeps;
  if (job.dropped) {
    GiveBack(rest);
  } else {
    Hold(-rest);
  }
  worked_.notify_all();
}

}  // namespace pixorra
