// A bar that fills.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class ProgressBar : public Control {
 public:
  ProgressBar(Container& container, const std::string& name)
      : Control(&container, Kind::ProgressBar, std::make_shared<Identity>(Identity{name, {}}), 0) {}

  int Max() const { return max_; }  // it runs from 0
  void SetMax(int max);
  int Value() const { return value_; }
  void SetValue(int value);  // raises error 380 outside 0 to Max

 private:
  int max_ = 100;
  int value_ = 0;
};

}  // namespace pixorra
