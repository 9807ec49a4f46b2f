// A scroll bar or slider. Value and range are 16 bits wide: what does not fit raises error 6, a value outside the range
// 380.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

enum class Orientation : std::uint8_t { Horizontal, Vertical };

class ScrollBar : public Control {
 public:
  ScrollBar(Container& container, const std::string& name, Orientation orientation);

  Orientation GetOrientation() const { return orientation_; }
  // Shown as a slider with a handle of fixed size.
  bool IsSlider() const { return slider_; }
  void SetSlider(bool slider);

  int Min() const { return min_; }
  int Max() const { return max_; }
  int Value() const { return value_; }
  int SmallChange() const { return smallChange_; }
  int LargeChange() const { return largeChange_; }
  // A range that shuts the value out takes it along to its nearer end.
  void SetMin(double min);
  void SetMax(double max);
  // A different value raises Change, whoever sets it. Halves go to the even neighbour.
  void SetValue(double value);
  void SetSmallChange(double change);
  void SetLargeChange(double change);

  // A person has moved it: Change at once, or Scroll while the thumb is held and Change when it is let go.
  void UserMovedTo(int value);
  void UserScrolledTo(int value);
  void UserLetGo();

 private:
  void SetRange(int min, int max);
  bool Take(int value);

  std::int16_t min_ = 0;
  std::int16_t max_ = 32767;
  std::int16_t value_ = 0;
  std::int16_t smallChange_ = 1;
  std::int16_t largeChange_ = 1;
  Orientation orientation_;
  bool slider_ = false;
  bool held_ = false;
};

}  // namespace pixorra
