// Tells the presses of a key that is held down from those that a person makes. Where the window system repeats the key,
// each repeat is a release and a press of one moment, and whether they are marked as such depends on how fast they are
// read.
#pragma once

#include <QKeyEvent>

namespace pixorra {

class HeldKey {
 public:
  void Released(const QKeyEvent& event) {
    key_ = event.key();
    moment_ = event.timestamp();
  }
  // The press is no more than the repeat of an earlier one.
  bool Repeats(const QKeyEvent& press) const {
    const bool knowsMoment = press.timestamp() != 0 && moment_ != 0;
    return press.isAutoRepeat() || (knowsMoment && press.key() == key_ && press.timestamp() - moment_ <= SameMoment);
  }

 private:
  static constexpr quint64 SameMoment = 1;  // milliseconds

  int key_ = 0;
  quint64 moment_ = 0;
};

}  // namespace pixorra
