// How large the window of a photo at full size is. Windows and the screen are measured in twips, their frame included.
#pragma once

#include "platform/controls/Backend.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

// What is counted for the window's borders and title bar.
inline constexpr double FullSizeFrameWidth = 60;
inline constexpr double FullSizeFrameHeight = 370;

struct WindowSize {
  double Width = 0;
  double Height = 0;
  bool operator==(const WindowSize&) const = default;
};

// The window that shows the photo pixel by pixel.
WindowSize NaturalWindow(PixelSize photo, const Screen& screen);
// For a photo whose natural window the system refuses: it is too small for any window, and not shown.
bool IsTooSmallToShow(PixelSize photo);
// For one that is too large: a window little smaller than the screen and about of the photo's shape.
WindowSize LimitedWindow(PixelSize photo, const Screen& screen);
// What a form gives of it on one screen, where it may ask for a little more than that; also where more screens together
// are larger.
WindowSize GivenWindow(const WindowSize& limited, const Screen& screen);
// The size in which the photo is painted in a window of that size, in pixels.
PixelSize PaintedIn(const WindowSize& window);
// The same before there is a window, where the system gives each size from the smallest window to the screen; nothing
// for a photo that is not shown.
PixelSize PaintedAtFullSize(PixelSize photo, const Screen& screen);

}  // namespace pixorra
