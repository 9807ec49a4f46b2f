// Text of fixed measure: every character of a standard font is 6 pixels wide, a line 13 pixels high.
#pragma once

#include "platform/services/TextDrawing.h"

namespace pixorra {

class HeadlessText : public TextDrawing {
 public:
  TextExtent Measure(const Font& font, const std::string& text) override;
  // A pattern of blocks that differs from character to character.
  void Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text, Colour colour) override;
};

}  // namespace pixorra
