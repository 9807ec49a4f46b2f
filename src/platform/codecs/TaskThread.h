// A thread for tasks that may take long, one after the other in the order in which they came. It starts with the first
// one, and gives way to the program's own. Nobody waits for it at the end: it may hang, in a disk that does not answer.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "platform/services/Posting.h"

namespace pixorra {

class TaskThread {
 public:
  // In the thread; what it raises as a RuntimeError is ignored. `stop` becomes true when the task is not wanted any
  // more. It goes there too, with all that it holds.
  using Work = std::function<void(const std::atomic<bool>& stop)>;

  // For as long as it lives its task is wanted.
  class Wish {
   public:
    virtual ~Wish() = default;
  };

  explicit TaskThread(Posting& posting);
  ~TaskThread();
  TaskThread(const TaskThread&) = delete;
  TaskThread& operator=(const TaskThread&) = delete;

  // `then` runs in the program's thread, from a later turn of its loop, once the work is done, and not where the wish
  // has ended by then. It may end its own wish, and begin other tasks. Raises OutOfMemory where no thread can be had.
  [[nodiscard]] std::unique_ptr<Wish> Begin(Work work, std::function<void()> then);

 private:
  struct Queue;
  static void Run(const std::shared_ptr<Queue>& queue);

  std::shared_ptr<Queue> queue_;
  bool started_ = false;
};

}  // namespace pixorra
