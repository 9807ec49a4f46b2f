// The signals that ask a process to end: SIGTERM, SIGINT and SIGHUP. They do not interrupt it, but wait to be taken in
// its loop of events.
#pragma once

#include "platform/posix/UniqueFd.h"

namespace pixorra {

class EndSignals {
 public:
  // Those of a program, made by the first call. They are never let go: one that comes while the program ends already
  // must not end it on the way.
  static const EndSignals& OfProgram();

  // From here on they do nothing else. One that is ignored, as `nohup` and a shell's background do it, stays so. One
  // such object at a time.
  EndSignals();
  // They do again what they did before.
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  // Can be read when one has come; below 0 where the host has no pipes left: the signals end the process then, as ever.
  int Descriptor() const { return waiting_.Get(); }
  // Whether any has come since the last look. Does not wait.
  bool Take() const;

 private:
  UniqueFd waiting_;
};

}  // namespace pixorra
