// Something that happens when a block ends, whichever way it ends.
#pragma once

#include <utility>

namespace pixorra {

// Runs the statement at the end of the block that holds it, also where the block returns early or raises. The statement
// must not raise.
template <typename Statement>
class AtExit {
 public:
  explicit AtExit(Statement statement) : statement_(std::move(statement)) {}
  ~AtExit() { statement_(); }
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;

 private:
  Statement statement_;
};

}  // namespace pixorra
