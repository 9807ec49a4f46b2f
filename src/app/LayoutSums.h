// Where the controls of the main window lie for its size, as numbers alone. Pixels.
#pragma once

#include <array>

#include "platform/controls/Geometry.h"

namespace pixorra {

struct PreviewSize {
  double Width = 0;
  double Height = 0;
};

// The preview's size, 80 to 60, at most 350 wide, from the window's own size.
PreviewSize FitPreview(double windowWidth, double windowHeight);
// From one button of the strip's row to the next, by the widths of the strip's window and the mode frame.
int ButtonGap(int stripWidth, int frameWidth);
// How many cells make a row of the open folder.
int OpenFolderColumns(double windowWidth, int cellWidth);
// Height of the band behind the strip, by that of the preview.
int BandHeight(double previewHeight);

// The window that the controls are placed in.
struct LayoutWindow {
  double Width = 0;     // of the window, its frame included, by the twips of the X direction
  double WidthByY = 0;  // the same by the twips of the Y direction
  double Height = 0;    // of the window, its frame included
  int ScaleHeight = 0;  // what is left inside, below the menu bar
  int CellWidth = 0;    // of a cell of the open folder
};

// The places of the controls that the window's size moves.
struct LayoutPlaces {
  Rect PicPreview;
  Rect SrcBackShape;
  Rect SrcThumbsWindow;
  Rect SrcScrollbar;
  Rect SrcPicsTotal;
  Rect SrcFolderPath;
  Rect SrcPicsCount;
  Rect FilmStripModeFrame;
  std::array<Rect, 7> Buttons;  // in their row
  Rect CompanyNameLabel;
  Rect DesktopImage;
  Rect DestThumbsWindow;
  Rect DestScrollbar;
  Rect DestContentsLabel;
  Rect DestCountLabel;
  std::array<Rect, 4> DestBackShapes;  // above, below, left and right of the Desktop
  int DestColumns = 0;
  bool CompanyNameShown = false;

  bool operator==(const LayoutPlaces&) const = default;
};

// The places in this window. What has a size of its own has it in `present`; a side that would become less than nothing
// stays as it is there.
LayoutPlaces PlacesIn(const LayoutWindow& window, const LayoutPlaces& present);

// Where the preview's caption begins, in the middle of the preview's lower edge.
struct CaptionPlace {
  double Left = 0;
  double Top = 0;
};
CaptionPlace PlaceOfCaption(const Rect& preview, int captionWidth, int captionHeight);

}  // namespace pixorra
