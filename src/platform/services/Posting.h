// The way back into the program's thread.
#pragma once

#include <functional>

namespace pixorra {

class Posting {
 public:
  virtual ~Posting() = default;
  // The call runs in the program's thread when control is next in its loop, calls in the order of their posting. From
  // any thread; not at all where the program has ended by then.
  virtual void Post(std::function<void()> call) = 0;
};

}  // namespace pixorra
