// Text on bitmaps: how large it is, and drawing it.
#pragma once

#include <string>

#include "platform/pixels/Picture.h"

namespace pixorra {

struct Font {
  std::string Name;  // empty: the desktop's own
  // Points, 96 pixels to the inch. Halves count on surfaces and in measures; a back end may take the nearest whole
  // pixel for sizes from 8 pixels on, and for the text of controls.
  double Size = 8.25;
  bool Bold = false;

  bool operator==(const Font&) const = default;
};

struct TextExtent {
  double Width = 0;   // pixels
  double Height = 0;  // pixels
};

class TextDrawing {
 public:
  virtual ~TextDrawing() = default;
  // As wide as the longest line, as high as all lines: an empty text has one, and each line end (CR LF, LF or CR) one
  // more. A line is as high as any other of its font, whatever its letters: from the font's size to one and a half of
  // it.
  virtual TextExtent Measure(const Font& font, const std::string& text) = 0;
  // `left` and `top` are those of the text's box, in pixels.
  virtual void Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text,
                    Colour colour) = 0;
  // The same on a bitmap with `fineness` pixels, 1 or more, to each of the font's and the place's.
  virtual void DrawFine(Bitmap& target, double fineness, const Font& font, double left, double top,
                        const std::string& text, Colour colour) {
    Font larger = font;
    larger.Size *= fineness;
    Draw(target, larger, left * fineness, top * fineness, text, colour);
  }
};

}  // namespace pixorra
