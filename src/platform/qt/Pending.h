// What is put off until the turn ends, so that many changes of a control become one change of its widget.
#pragma once

#include <deque>

#include "platform/qt/PostedCall.h"

namespace pixorra {

class Pending {
 public:
  virtual void Flush() = 0;

 protected:
  ~Pending() = default;
};

class PendingList {
 public:
  // Runs Flush once, when control is back in the event loop at the latest. Adding it again before does nothing.
  void Add(Pending& pending);
  void Remove(Pending& pending);
  bool Holds(const Pending& pending) const;
  // Runs all that waits; false where nothing did.
  bool RunAll();

 private:
  std::deque<Pending*> waiting_;
  PostedCall runAll_{[this] { RunAll(); }};
};

}  // namespace pixorra
