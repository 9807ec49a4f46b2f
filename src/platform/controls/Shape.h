// A drawn rectangle: a band behind controls, a frame around one. It takes no mouse.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class Shape : public Control {
 public:
  // Pixels by which a border may stand out of the rectangle.
  static constexpr int BorderReach = 4;

  Shape(Container& container, const std::string& name);

  Colour BorderColor() const { return borderColor_; }
  int BorderWidth() const { return borderWidth_; }  // pixels, drawn around the rectangle's edge, half outside; 0 none
  void SetBorder(Colour colour, int width);
  // Seen through where it is not filled.
  bool Filled() const { return filled_; }
  Colour FillColor() const { return fillColor_; }
  void SetFill(Colour colour);
  // A drawing that fills the rectangle in place of the colour, repeated or stretched as the back end does best.
  const Picture& FillPicture() const { return fillPicture_; }
  void SetFillPicture(const Picture& picture);

 private:
  Picture fillPicture_;
  Colour borderColor_ = 0;
  Colour fillColor_ = 0x00FFFFFF;
  int borderWidth_ = 1;
  bool filled_ = false;
};

}  // namespace pixorra
