// One program for each user's saved state: the first start holds a lock for as long as it lives, and a later one tells
// it that it is wanted, and for which folder.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/posix/UniqueFd.h"

namespace pixorra {

class RunningInstance {
 public:
  // The host's folder that the saved state is in; it is made when missing. Where the lock cannot be had for any other
  // reason than that someone holds it, such as a folder that cannot be written, the start counts as the first.
  explicit RunningInstance(const std::string& hostFolder);

  bool IsFirst() const { return first_; }

  enum class Outcome { Taken, IsFirst, Unanswered };
  // Bytes of a message.
  static constexpr std::size_t MostBytes = 16384;
  // For a later start: calls the first one with a message, possibly empty, and returns when that has taken the call,
  // when it has ended instead and this start has become the first, or when so many seconds have passed. A message that
  // is too long is never taken.
  Outcome CallFirst(double seconds, const std::string& message = {});

  // For the first: a descriptor that can be read when a later start calls; below 0 where there is none.
  int Calls() const { return calls_.Get(); }
  // Takes the calls that wait, and gives the message of each. One that comes from another user, or not in one piece
  // within a moment, is not taken.
  std::vector<std::string> TakeCalls() const;

 private:
  bool TakeLock();

  UniqueFd folder_;
  UniqueFd lock_;
  UniqueFd calls_;
  bool first_ = true;
};

}  // namespace pixorra
