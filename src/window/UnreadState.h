// What is known of the saved state that was there before this run's.
#pragma once

namespace pixorra {

struct UnreadState {
  bool Unread = false;  // none was read: one that is there when it is first replaced may be a good one
  bool Kept = false;    // it has another name, which may be one of the same file
};

}  // namespace pixorra
