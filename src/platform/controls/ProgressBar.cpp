#include "platform/controls/ProgressBar.h"

#include <algorithm>

#include "platform/runtime/Errors.h"

namespace pixorra {

void ProgressBar::SetMax(int max) {
  max_ = max;
  value_ = std::min(value_, max_);
  Changed(Change::Value);
}

void ProgressBar::SetValue(int value) {
  if (value < 0 || value > max_) throw RuntimeError(error::BadPropertyValue);
  if (value == value_) return;
  value_ = value;
  Changed(Change::Value);
}

}  // namespace pixorra
