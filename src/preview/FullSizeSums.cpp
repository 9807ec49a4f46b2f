#include "preview/FullSizeSums.h"

#include <algorithm>

#include "platform/controls/Form.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

// Of a photo: below these a window's frame has no room.
constexpr int LeastWidth = 80;
constexpr int LeastHeight = 60;
// What is left of the screen beside a limited window.
constexpr double Spare = 120;

// A picture's own measure of its size, hundredths of a millimetre.
double OwnFigure(int pixels, double twipsPerPixel) {
  constexpr double PerInch = 2540;
  constexpr double TwipsPerInch = 1440;
  return CLng(pixels * twipsPerPixel * PerInch / TwipsPerInch);
}

// Deliberate: the photo's figures are compared as they are with the screen's, which are in twips, so the frame's height
// is counted for photos from little more than half of the screen on.
bool IsLimitedByHeight(double width, double height, const Screen& screen) {
  const double framed = height + FullSizeFrameHeight;
  if (screen.Width < width && screen.Height < framed) return framed / screen.Height > width / screen.Width;
  return screen.Width / screen.Height > width / height;
}

double Between(double least, double size, double most) {
  return std::min(std::max(least, size), most);
}

}  // namespace

WindowSize NaturalWindow(PixelSize photo, const Screen& screen) {
  return {photo.Width * screen.TwipsPerPixelX + FullSizeFrameWidth,
          photo.Height * screen.TwipsPerPixelY + FullSizeFrameHeight};
}

bool IsTooSmallToShow(PixelSize photo) {
  return photo.Width <= LeastWidth || photo.Height <= LeastHeight;
}

WindowSize LimitedWindow(PixelSize photo, const Screen& screen) {
  const double width = OwnFigure(photo.Width, screen.TwipsPerPixelX);
  const double height = OwnFigure(photo.Height, screen.TwipsPerPixelY);
  const double shape = width / height;
  if (IsLimitedByHeight(width, height, screen)) {
    const double limit = screen.Height - Spare;
    return {static_cast<double>(CLng(limit * shape)), limit};
  }
  const double limit = screen.Width - Spare;
  return {limit, static_cast<double>(CLng(limit / shape))};
}

WindowSize GivenWindow(const WindowSize& limited, const Screen& screen) {
  return {Between(Form::SmallestWidth * TwipsPerPixel, limited.Width, screen.Width),
          Between(Form::SmallestHeight * TwipsPerPixel, limited.Height, screen.Height)};
}

PixelSize PaintedIn(const WindowSize& window) {
  return {CLng((window.Width - FullSizeFrameWidth) / TwipsPerPixel),
          CLng((window.Height - FullSizeFrameHeight) / TwipsPerPixel)};
}

PixelSize PaintedAtFullSize(PixelSize photo, const Screen& screen) {
  const auto inPixels = [](double twips) { return CLng(twips / TwipsPerPixel); };
  const WindowSize natural = NaturalWindow(photo, screen);
  const bool given = natural.Width <= screen.Width && natural.Height <= screen.Height &&
                     inPixels(natural.Width) >= Form::SmallestWidth && inPixels(natural.Height) >= Form::SmallestHeight;
  if (given) return PaintedIn(natural);
  if (IsTooSmallToShow(photo)) return {};
  return PaintedIn(GivenWindow(LimitedWindow(photo, screen), screen));
}

}  // namespace pixorra
