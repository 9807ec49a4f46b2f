#include "platform/qt/Pending.h"

#include <algorithm>

namespace pixorra {

void PendingList::Add(Pending& pending) {
  if (Holds(pending)) return;
  waiting_.push_back(&pending);
  runAll_.Post();
}

void PendingList::Remove(Pending& pending) {
  std::erase(waiting_, &pending);
}

bool PendingList::Holds(const Pending& pending) const {
  return std::find(waiting_.begin(), waiting_.end(), &pending) != waiting_.end();
}

bool PendingList::RunAll() {
  const bool any = !waiting_.empty();
  while (!waiting_.empty()) {
    Pending* next = waiting_.front();
    waiting_.pop_front();
    next->Flush();
  }
  return any;
}

}  // namespace pixorra
