#include "platform/codecs/ThreadedFrames.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/codecs/FrameDecoder.h"
#include "platform/codecs/ThreadPriority.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

struct Task {
  std::string Path;
  PixelSize Screen;
  PhotoFrame Known;
  PhotoFrames::Handler Then;  // the program's thread alone touches it
  std::atomic<bool> Cancelled = false;
};

class TaskMaking final : public PhotoFrames::Making {
 public:
  explicit TaskMaking(std::shared_ptr<Task> task) : task_(std::move(task)) {}
  ~TaskMaking() override {
    task_->Cancelled = true;
    task_->Then = {};
  }
  TaskMaking(const TaskMaking&) = delete;
  TaskMaking& operator=(const TaskMaking&) = delete;

 private:
  std::shared_ptr<Task> task_;
};

void Deliver(Task& task, const PhotoFrame& frame) {
  // The handler may end the making, and itself with it.
  if (const PhotoFrames::Handler then = std::exchange(task.Then, {})) then(frame);
}

bool Serves(const PhotoFrame& known, const FileStamp& stamp, PixelSize screen) {
  return known.Stamp == stamp &&
         (known.Shown.IsNothing() || (known.Shown.Width() == screen.Width && known.Shown.Height() == screen.Height));
}

void MakeFrame(Files& files, Task& task, PhotoFrame& frame) {
  const std::unique_ptr<File> file = files.Open(task.Path, OpenMode::Read);
  frame.Stamp = file->Stamp();
  if (Serves(task.Known, frame.Stamp, task.Screen)) {
    frame = task.Known;
    return;
  }
  task.Known = {};
  frame.Shown = Picture(DecodeFrame(*file, task.Screen, task.Cancelled));
}

}  // namespace

// Outlives the frames for as long as the thread hangs.
struct ThreadedFrames::Queue {
  Queue(std::shared_ptr<Files> of, Posting& loop) : Source(std::move(of)), Loop(&loop) {}

  std::shared_ptr<Files> Source;
  std::mutex Mutex;  // of all that follows
  std::condition_variable Changed;
  std::deque<std::shared_ptr<Task>> Waiting;
  Posting* Loop;  // null when the frames have ended
};

ThreadedFrames::ThreadedFrames(std::shared_ptr<Files> files, Posting& posting)
    : queue_(std::make_shared<Queue>(std::move(files), posting)) {}

ThreadedFrames::~ThreadedFrames() {
  const std::lock_guard lock(queue_->Mutex);
  queue_->Loop = nullptr;
  queue_->Waiting.clear();
  queue_->Changed.notify_all();
}

void ThreadedFrames::Work(const std::shared_ptr<Queue>& queue) {
  LowerOwnPriority();
  std::unique_lock lock(queue->Mutex);
  for (;;) {
    queue->Changed.wait(lock, [&] { return queue->Loop == nullptr || !queue->Waiting.empty(); });
    if (queue->Loop == nullptr) return;
    const std::shared_ptr<Task> task = std::move(queue->Waiting.front());
    queue->Waiting.pop_front();
    if (task->Cancelled) continue;
    lock.unlock();
    PhotoFrame frame;
    const int failure = ErrorsIgnored([&] { MakeFrame(*queue->Source, *task, frame); });
    // What fails for anything but the file itself may do better another time.
    if (failure != error::None && failure != error::BadPicture) frame.Stamp = {};
    task->Known = {};
    lock.lock();
    if (queue->Loop != nullptr && !task->Cancelled) queue->Loop->Post([task, frame] { Deliver(*task, frame); });
  }
}

std::unique_ptr<PhotoFrames::Making> ThreadedFrames::Make(const std::string& path, PixelSize screen,
                                                          const PhotoFrame& known, Handler handler) {
  const auto task = std::make_shared<Task>();
  task->Path = path;
  task->Screen = screen;
  task->Known = known;
  task->Then = std::move(handler);
  const std::lock_guard lock(queue_->Mutex);
  if (!started_) {
    try {
      std::thread([queue = queue_] { Work(queue); }).detach();
    } catch (const std::system_error&) {
      throw RuntimeError(error::OutOfMemory);
    }
    started_ = true;
  }
  queue_->Waiting.push_back(task);
  queue_->Changed.notify_one();
  return std::make_unique<TaskMaking>(task);
}

}  // namespace pixorra
