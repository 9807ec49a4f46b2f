#include "platform/controls/ScrollBar.h"

#include <algorithm>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

ScrollBar::ScrollBar(Container& container, const std::string& name, Orientation orientation)
    : Control(&container, Kind::ScrollBar, std::make_shared<Identity>(Identity{name, {}}), 0),
      orientation_(orientation) {}

void ScrollBar::SetSlider(bool slider) {
  if (slider == slider_) return;
  slider_ = slider;
  ChangePeer();
}

void ScrollBar::SetMin(double min) {
  SetRange(CInt(min), max_);
}

void ScrollBar::SetMax(double max) {
  SetRange(min_, CInt(max));
}

void ScrollBar::SetRange(int min, int max) {
  if (min == min_ && max == max_) return;
  min_ = static_cast<std::int16_t>(min);
  max_ = static_cast<std::int16_t>(max);
  const int before = value_;
  value_ = static_cast<std::int16_t>(std::clamp<int>(value_, std::min(min, max), std::max(min, max)));
  Watch<ScrollBar> self(*this);
  Changed(Change::Value);
  if (self && value_ != before) Raise(On().Change, static_cast<Control&>(*this));
}

// True: the value is another one than before, and the bar has not been destroyed while its peer heard of it.
bool ScrollBar::Take(int value) {
  if (value < std::min(min_, max_) || value > std::max(min_, max_)) throw RuntimeError(error::BadPropertyValue);
  if (value == value_) return false;
  value_ = static_cast<std::int16_t>(value);
  const Watch<ScrollBar> self(*this);
  Changed(Change::Value);
  return static_cast<bool>(self);
}

void ScrollBar::SetValue(double value) {
  if (Take(CInt(value))) Raise(On().Change, static_cast<Control&>(*this));
}

void ScrollBar::SetSmallChange(double change) {
  smallChange_ = CInt(change);
  Changed(Change::Value);
}

void ScrollBar::SetLargeChange(double change) {
  largeChange_ = CInt(change);
  Changed(Change::Value);
}

void ScrollBar::UserMovedTo(int value) {
  if (!Enabled()) return;
  if (Take(std::clamp<int>(value, std::min(min_, max_), std::max(min_, max_))))
    Raise(On().Change, static_cast<Control&>(*this));
}

void ScrollBar::UserScrolledTo(int value) {
  if (!Enabled()) return;
  held_ = true;
  if (Take(std::clamp<int>(value, std::min(min_, max_), std::max(min_, max_))))
    Raise(On().Scroll, static_cast<Control&>(*this));
}

void ScrollBar::UserLetGo() {
  if (!held_) return;
  held_ = false;
  Raise(On().Change, static_cast<Control&>(*this));
}

}  // namespace pixorra
