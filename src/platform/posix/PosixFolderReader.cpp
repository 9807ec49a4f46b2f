#include "platform/posix/PosixFolderReader.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/posix/FolderListing.h"

namespace pixorra {

namespace {

using Answer = FolderReader::Answer;

struct Task {
  std::function<Answer()> Look;
  FolderReader::Handler Then;  // the program's thread alone touches it
  std::atomic<bool> Cancelled = false;
};

class TaskReading : public FolderReader::Reading {
 public:
  explicit TaskReading(std::shared_ptr<Task> task) : task_(std::move(task)) {}
  ~TaskReading() override {
    task_->Cancelled = true;
    task_->Then = {};
  }
  TaskReading(const TaskReading&) = delete;
  TaskReading& operator=(const TaskReading&) = delete;

 private:
  std::shared_ptr<Task> task_;
};

void Deliver(Task& task, const Answer& answer) {
  // The handler may end the reading, and itself with it.
  if (const FolderReader::Handler then = std::exchange(task.Then, {})) then(answer);
}

}  // namespace

// Outlives the reader for as long as one of its threads hangs.
struct PosixFolderReader::Queue {
  explicit Queue(Posting& loop) : Loop(&loop) {}

  std::mutex Mutex;  // of all that follows
  std::condition_variable Changed;
  std::deque<std::shared_ptr<Task>> Waiting;
  Posting* Loop;  // null when the reader has ended
  int Threads = 0;
  int Idle = 0;
};

PosixFolderReader::PosixFolderReader(std::shared_ptr<MappingSource> mapping, Posting& posting, Lengths lengths)
    : mapping_(std::move(mapping)), lengths_(lengths), queue_(std::make_shared<Queue>(posting)) {}

PosixFolderReader::~PosixFolderReader() {
  const std::lock_guard lock(queue_->Mutex);
  queue_->Loop = nullptr;
  queue_->Waiting.clear();
  queue_->Changed.notify_all();
}

void PosixFolderReader::Work(const std::shared_ptr<Queue>& queue) {
  std::unique_lock lock(queue->Mutex);
  for (;;) {
    ++queue->Idle;
    queue->Changed.wait(lock, [&] { return queue->Loop == nullptr || !queue->Waiting.empty(); });
    --queue->Idle;
    if (queue->Loop == nullptr) return;
    const std::shared_ptr<Task> task = std::move(queue->Waiting.front());
    queue->Waiting.pop_front();
    if (task->Cancelled) continue;
    lock.unlock();
    // Without memory for the answer there is none; the others must not suffer for it.
    try {
      Answer answer = task->Look();
      lock.lock();
      if (queue->Loop != nullptr) queue->Loop->Post([task, answer = std::move(answer)] { Deliver(*task, answer); });
    } catch (const std::bad_alloc&) {
      if (!lock.owns_lock()) lock.lock();
    }
  }
}

std::unique_ptr<FolderReader::Reading> PosixFolderReader::Read(const std::string& folder, int attributes,
                                                               Handler handler) {
  const auto look = [folder, attributes](const PathMapping& mapping, Answer& answer) {
    answer.Names = ListFolders(mapping, mapping.ToHost(folder), attributes);
  };
  return Begin(look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> PosixFolderReader::ReadFiles(const std::string& folder,
                                                                    const std::string& pattern, Handler handler) {
  const auto look = [folder, pattern, lengths = lengths_ == Lengths::Known](const PathMapping& mapping,
                                                                            Answer& answer) {
    answer.Path = PathOfFolder(mapping, folder);
    for (ListedFile& file : ListFiles(mapping, mapping.ToHost(answer.Path).Text(), pattern, lengths)) {
      answer.Names.push_back(std::move(file.Name));
      answer.Lengths.push_back(file.Length);
    }
  };
  return Begin(look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> PosixFolderReader::FindFile(const std::string& folder,
                                                                   const std::string& pattern, Handler handler) {
  const auto look = [folder, pattern](const PathMapping& mapping, Answer& answer) {
    answer.Path = PathOfFolder(mapping, folder);
    const auto files = ListFiles(mapping, mapping.ToHost(answer.Path).Text(), pattern, false);
    if (!files.empty()) answer.Names.push_back(files.front().Name);
  };
  return Begin(look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> PosixFolderReader::FindFolder(const std::string& folder, Handler handler) {
  const auto look = [folder](const PathMapping& mapping, Answer& answer) {
    answer.Path = PathOfFolder(mapping, folder);
  };
  return Begin(look, std::move(handler));
}

std::unique_ptr<FolderReader::Reading> PosixFolderReader::Begin(Look look, Handler handler) {
  const auto task = std::make_shared<Task>();
  // The mapping follows the mounts by itself, and only here.
  task->Look = [mapping = mapping_->Current(), look = std::move(look)] {
    Answer answer;
    if (const int failure = ErrorsIgnored([&] { look(mapping, answer); }); failure != error::None) {
      answer = {};
      answer.Error = failure;
    }
    return answer;
  };
  task->Then = std::move(handler);
  const std::lock_guard lock(queue_->Mutex);
  queue_->Waiting.push_back(task);
  const bool tooFew = queue_->Waiting.size() > static_cast<std::size_t>(queue_->Idle);
  if (tooFew && queue_->Threads < MostThreads) {
    try {
      std::thread([queue = queue_] { Work(queue); }).detach();
      ++queue_->Threads;
    } catch (const std::system_error&) {
      // Those that run will take it.
      if (queue_->Threads == 0) {
        queue_->Waiting.pop_back();
        throw RuntimeError(error::OutOfMemory);
      }
    }
  }
  queue_->Changed.notify_one();
  return std::make_unique<TaskReading>(task);
}

}  // namespace pixorra
