// What the desktop session has to do with a show: whether the screen may sleep meanwhile, and whether its user wants
// things to move.
#pragma once

#include <memory>
#include <string>

namespace pixorra {

class Session {
 public:
  // The screen stays on until this ends.
  class Awake {
   public:
    virtual ~Awake() = default;
  };

  virtual ~Session() = default;
  // Asks the session not to blank or lock the screen, from soon after on; `why` is shown where it lists who asks. A
  // session that knows no such wish changes nothing. Returns at once, and raises nothing.
  [[nodiscard]] virtual std::unique_ptr<Awake> KeepAwake(const std::string& why) = 0;
  // The desktop has been told to do without animations.
  virtual bool WantsLessMotion() = 0;
};

}  // namespace pixorra
