// One program for each user's saved state: the first start holds a lock for as long as it lives, and a later one tells
// it that it is wanted.
#pragma once

#include <string>

#include "platform/posix/UniqueFd.h"

namespace pixorra {

class RunningInstance {
 public:
  // The host's folder that the saved state is in; it is made when missing. Where the lock cannot be had for any other
  // reason than that someone holds it, such as a folder that cannot be written, the start counts as the first.
  explicit RunningInstance(const std::string& hostFolder);

  bool IsFirst() const { return first_; }

  enum class Outcome { Taken, IsFirst, Unanswered };
  // For a later start: calls the first one, and returns when that has taken the call, when it has ended instead and
  // this start has become the first, or when so many seconds have passed.
  Outcome CallFirst(double seconds);

  // For the first: a descriptor that can be read when a later start calls; below 0 where there is none.
  int Calls() const { return calls_.Get(); }
  // Takes the calls that wait, and says whether there were any. Does not wait itself.
  bool TakeCalls() const;

 private:
  bool TakeLock();

  UniqueFd folder_;
  UniqueFd lock_;
  UniqueFd calls_;
  bool first_ = true;
};

}  // namespace pixorra
