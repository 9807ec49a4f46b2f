// The folder in which the desktop mounts shares and devices. A mount that hangs may keep the whole folder from
// answering: it is looked at in a thread of its own, which is left to itself then, at the program's end too. Where
// nothing is mounted on it, no thread is needed.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace pixorra {

class DesktopMountsLook {
 public:
  // Nobody waits longer for an answer, but for the program's start, which has no earlier one.
  static constexpr std::chrono::milliseconds Patience{50};
  static constexpr std::chrono::milliseconds PatienceAtStart{1500};

  // A host path, empty for none, and what is known of it.
  explicit DesktopMountsLook(std::string folder, std::vector<std::string> names = {});
  ~DesktopMountsLook();
  DesktopMountsLook(const DesktopMountsLook&) = delete;
  DesktopMountsLook& operator=(const DesktopMountsLook&) = delete;

  // The names in it, in order. Where they do not come in time, and at once while an earlier look has no answer yet,
  // those of the last look that had one.
  std::vector<std::string> Names(std::chrono::milliseconds patience = Patience);
  // As it is mounted now.
  bool NeedsThread() const;

 private:
  struct State;
  static void Work(const std::shared_ptr<State>& state);

  std::shared_ptr<State> state_;
};

// The names in the desktop's folder of mounts, in order; nothing is looked at below it. May hang.
std::vector<std::string> DesktopMounts(const std::string& folder);

}  // namespace pixorra
