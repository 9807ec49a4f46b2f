// Text measured and drawn with the desktop's fonts.
#pragma once

#include "platform/services/TextDrawing.h"

namespace pixorra {

class QtText final : public TextDrawing {
 public:
  TextExtent Measure(const Font& font, const std::string& text) override;
  void Draw(Bitmap& target, const Font& font, double left, double top, const std::string& text, Colour colour) override;
  // With the letters' places of Draw: a line is exactly as long in finer pixels.
  void DrawFine(Bitmap& target, double fineness, const Font& font, double left, double top, const std::string& text,
                Colour colour) override;
};

}  // namespace pixorra
