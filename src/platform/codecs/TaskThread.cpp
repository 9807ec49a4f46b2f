#include "platform/codecs/TaskThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/codecs/ThreadPriority.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

struct Task {
  TaskThread::Work Do;         // the thread alone touches it once it is in the queue
  std::function<void()> Then;  // the program's thread alone touches it
  std::atomic<bool> Cancelled = false;
};

class TaskWish final : public TaskThread::Wish {
 public:
  explicit TaskWish(std::shared_ptr<Task> task) : task_(std::move(task)) {}
  ~TaskWish() override {
    task_->Cancelled = true;
    task_->Then = {};
  }
  TaskWish(const TaskWish&) = delete;
  TaskWish& operator=(const TaskWish&) = delete;

 private:
  std::shared_ptr<Task> task_;
};

void Finish(Task& task) {
  // It may end the wish, and itself with it.
  if (const std::function<void()> then = std::exchange(task.Then, {})) then();
}

}  // namespace

// Outlives its owner for as long as the thread hangs.
struct TaskThread::Queue {
  explicit Queue(Posting& loop) : Loop(&loop) {}

  std::mutex Mutex;  // of all that follows
  std::condition_variable Changed;
  std::deque<std::shared_ptr<Task>> Waiting;
  Posting* Loop;  // null when the owner has gone
};

TaskThread::TaskThread(Posting& posting) : queue_(std::make_shared<Queue>(posting)) {}

TaskThread::~TaskThread() {
  const std::lock_guard lock(queue_->Mutex);
  queue_->Loop = nullptr;
  queue_->Waiting.clear();
  queue_->Changed.notify_all();
}

void TaskThread::Run(const std::shared_ptr<Queue>& queue) {
  LowerOwnPriority();
  std::unique_lock lock(queue->Mutex);
  for (;;) {
    queue->Changed.wait(lock, [&] { return queue->Loop == nullptr || !queue->Waiting.empty(); });
    if (queue->Loop == nullptr) return;
    const std::shared_ptr<Task> task = std::move(queue->Waiting.front());
    queue->Waiting.pop_front();
    lock.unlock();
    if (!task->Cancelled) ErrorsIgnored([&] { task->Do(task->Cancelled); });
    task->Do = {};
    lock.lock();
    if (queue->Loop != nullptr && !task->Cancelled) queue->Loop->Post([task] { Finish(*task); });
  }
}

std::unique_ptr<TaskThread::Wish> TaskThread::Begin(Work work, std::function<void()> then) {
  const auto task = std::make_shared<Task>();
  task->Do = std::move(work);
  task->Then = std::move(then);
  const std::lock_guard lock(queue_->Mutex);
  if (!started_) {
    try {
      std::thread([queue = queue_] { Run(queue); }).detach();
    } catch (const std::system_error&) {
      throw RuntimeError(error::OutOfMemory);
    }
    started_ = true;
  }
  queue_->Waiting.push_back(task);
  queue_->Changed.notify_one();
  return std::make_unique<TaskWish>(task);
}

}  // namespace pixorra
