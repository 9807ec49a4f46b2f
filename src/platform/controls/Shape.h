// A drawn rectangle: a band behind controls, a frame around one. It takes no mouse.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class Shape : public Control {
 public:
  Shape(Container& container, const std::string& name);

  Colour BorderColor() const { return borderColor_; }
  int BorderWidth() const { return borderWidth_; }  // pixels, around the rectangle's edge, half of it outside; 0 none
  void SetBorder(Colour colour, int width);
  // Seen through where it is not filled.
  bool Filled() const { return filled_; }
  Colour FillColor() const { return fillColor_; }
  void SetFill(Colour colour);

 private:
  Colour borderColor_ = 0;
  Colour fillColor_ = 0x00FFFFFF;
  int borderWidth_ = 1;
  bool filled_ = false;
};

}  // namespace pixorra
