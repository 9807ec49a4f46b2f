// Text on bitmaps: how large it is, and drawing it.
#pragma once

#include <string>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct Font {
  std::string Name;    // empty: the desktop's own
  double Size = 8.25;  // points; 96 pixels to the inch
  bool Bold = false;

  bool operator==(const Font&) const = default;
};

struct TextExtent {
  double Width = 0;   // pixels
  double Height = 0;  // pixels, a line
};

class TextDrawing {
 public:
  virtual ~TextDrawing() = default;
  virtual TextExtent Measure(const Font& font, const std::string& text) = 0;
  // `left` and `top` are those of the text's box, in pixels.
  virtual void Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text,
                    Colour colour) = 0;
};

}  // namespace pixorra
