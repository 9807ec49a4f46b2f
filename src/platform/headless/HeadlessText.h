// Text of fixed measure: every character of a standard font is 6 pixels wide, a line 13 pixels high.
#pragma once

#include <string>
#include <vector>

#include "platform/services/TextDrawing.h"

namespace pixorra {

// The lines of a text, at least one; each ends with CR LF, LF or CR.
std::vector<std::string> LinesOf(const std::string& text);

class HeadlessText : public TextDrawing {
 public:
  TextExtent Measure(const Font& font, const std::string& text) override;
  // A pattern of blocks that differs from character to character.
  void Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text, Colour colour) override;
};

}  // namespace pixorra
