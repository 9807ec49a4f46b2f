// A loop that runs what was posted when the test says so.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/services/Posting.h"

namespace pixorra {

class PostedCalls : public Posting {
 public:
  void Post(std::function<void()> call) override {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
    came_.notify_all();
  }
  void RunNext() {
    std::unique_lock lock(mutex_);
    came_.wait(lock, [this] { return !calls_.empty(); });
    const std::function<void()> call = std::move(calls_.front());
    calls_.pop_front();
    lock.unlock();
    call();
  }

 private:
  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<std::function<void()>> calls_;
};

}  // namespace pixorra
