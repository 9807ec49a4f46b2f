// The sums of the layout that stand by themselves. Pixels.
#pragma once

namespace pixorra {

// The height of the shape above the Desktop.
inline constexpr int DesktopGap = 8;

struct PreviewSize {
  double Width = 0;
  double Height = 0;
};

// The preview's size, 80 to 60, at most 350 wide, from the window's own size.
PreviewSize FitPreview(double windowWidth, double windowHeight);
// From one button of the strip's row to the next, by the widths of the strip's window and the mode frame.
int ButtonGap(int stripWidth, int frameWidth);
// How many cells stand in a row of the open folder.
int OpenFolderColumns(double windowWidth, int cellWidth);
// Height of the band behind the strip, by that of the preview.
int BandHeight(double previewHeight);

}  // namespace pixorra
