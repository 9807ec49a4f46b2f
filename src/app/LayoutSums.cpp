#include "app/LayoutSums.h"

#include <algorithm>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

// The preview leaves this much of the window to what lies beside and below it.
constexpr int BesidePreview = 537;
constexpr int BelowPreview = 422;
constexpr int WidestPreview = 350;

// From the preview to the strip's window, and what both of its sides take from its width.
constexpr int StripMargin = 19;
constexpr int StripMargins = 41;
constexpr int AroundFolderPath = 10;  // between the folder's name and the two counts

constexpr int WidestButtonGap = 55;
constexpr int BesideOpenFolder = 546 + 50;
constexpr int MostColumns = 4;
constexpr int CellsFrame = 4;  // wider than its cells
constexpr int BesideDesktop = 50;
constexpr int DesktopToCells = 7;

constexpr int LeastBand = 184;
constexpr int DesktopGap = 8;  // the height of the shape above the Desktop
constexpr int BelowDesktop = 7;
constexpr int ContentsRise = 5;  // of the open folder's captions above the Desktop's top
constexpr int CellsDrop = 13;    // of its cells below it
// The Desktop's frame: four strips, outside its edges.
constexpr int EdgeWidth = 2;

constexpr int ButtonsHeight = 43;  // of the row below the strip's bar
constexpr int FrameStep = 3;       // of the mode frame in that row
constexpr int LeastLabelsTop = 2;
constexpr int NamedBand = 210;  // a band as high as that has room for the company's name

constexpr int CaptionRise = 2;

// As a control takes its place: whole pixels, halves to the even neighbour; what it cannot take changes nothing.
void Set(Rect& rect, double left, double top, double width, double height) {
  ErrorsIgnored([&] {
    const Rect moved{CLng(left), CLng(top), CLng(width), CLng(height)};
    if (moved.Width >= 0 && moved.Height >= 0) rect = moved;
  });
}
void SetLeft(Rect& rect, double left) {
  Set(rect, left, rect.Top, rect.Width, rect.Height);
}
void SetTop(Rect& rect, double top) {
  Set(rect, rect.Left, top, rect.Width, rect.Height);
}
void SetWidth(Rect& rect, double width) {
  Set(rect, rect.Left, rect.Top, width, rect.Height);
}
void SetHeight(Rect& rect, double height) {
  Set(rect, rect.Left, rect.Top, rect.Width, height);
}

void PlaceStripAcross(LayoutPlaces& places, double windowWidth) {
  const double rest = windowWidth - places.PicPreview.Right();
  const double start = windowWidth - rest;
  SetLeft(places.SrcBackShape, start);
  SetWidth(places.SrcBackShape, rest);
  Rect& strip = places.SrcThumbsWindow;
  SetLeft(strip, start + StripMargin);
  SetWidth(strip, rest - StripMargins);
  SetLeft(places.SrcScrollbar, strip.Left);
  SetWidth(places.SrcScrollbar, strip.Width);
  SetLeft(places.SrcPicsTotal, strip.Left);
  SetLeft(places.SrcPicsCount, strip.Right() - places.SrcPicsCount.Width);
  Rect& path = places.SrcFolderPath;
  SetWidth(path, strip.Width - places.SrcPicsCount.Width - places.SrcPicsTotal.Width - AroundFolderPath);
  SetLeft(path, strip.Left + (strip.Width - path.Width) / 2.0);
  SetLeft(places.FilmStripModeFrame, strip.Right() - places.FilmStripModeFrame.Width);
}

void PlaceButtonsAcross(LayoutPlaces& places) {
  const int gap = ButtonGap(places.SrcThumbsWindow.Width, places.FilmStripModeFrame.Width);
  int left = places.SrcThumbsWindow.Left;
  for (Rect& button : places.Buttons) {
    SetLeft(button, left);
    left += gap;
  }
}

void PlaceOpenFolderAcross(LayoutPlaces& places, const LayoutWindow& window) {
  places.DestColumns = OpenFolderColumns(window.Width, window.CellWidth);
  Rect& cells = places.DestThumbsWindow;
  SetWidth(cells, window.CellWidth * places.DestColumns + CellsFrame);
  SetWidth(places.DesktopImage, window.Width - cells.Width - BesideDesktop);
  SetLeft(cells, places.DesktopImage.Right() + DesktopToCells);
  const Rect& bar = places.DestScrollbar;
  SetLeft(places.DestScrollbar, cells.Right());
  SetWidth(places.DestContentsLabel, cells.Width);
  SetLeft(places.DestContentsLabel, cells.Left);
  SetLeft(places.DestCountLabel, bar.Left + (bar.Width - places.DestCountLabel.Width) / 2.0);
}

void PlaceDesktopDown(LayoutPlaces& places, int scaleHeight) {
  Rect& band = places.SrcBackShape;
  Set(band, band.Left, 0, band.Width, BandHeight(places.PicPreview.Height));
  Rect& desktop = places.DesktopImage;
  SetTop(desktop, BandHeight(places.PicPreview.Height) + DesktopGap);
  SetHeight(desktop, scaleHeight - desktop.Top - BelowDesktop);
  SetTop(places.DestContentsLabel, desktop.Top - ContentsRise);
  SetTop(places.DestCountLabel, desktop.Top - ContentsRise);
  Rect& cells = places.DestThumbsWindow;
  SetTop(cells, desktop.Top + CellsDrop);
  SetHeight(cells, desktop.Height - CellsDrop);
  SetTop(places.DestScrollbar, cells.Top);
  SetHeight(places.DestScrollbar, cells.Height);
  const Rect outer = desktop.Grown(EdgeWidth);
  auto& [above, below, left, right] = places.DestBackShapes;
  Set(above, outer.Left, outer.Top, outer.Width, EdgeWidth);
  Set(below, outer.Left, desktop.Bottom(), outer.Width, EdgeWidth);
  Set(left, outer.Left, outer.Top, EdgeWidth, outer.Height);
  Set(right, desktop.Right(), outer.Top, EdgeWidth, outer.Height);
}

void PlaceStripFromBelow(LayoutPlaces& places) {
  const Rect& band = places.SrcBackShape;
  const int row = band.Bottom() - ButtonsHeight;
  // The drawings lie higher or lower in their squares to match.
  constexpr std::array<int, 7> Steps = {4, 5, 3, 5, 2, 7, 2};
  for (std::size_t n = 0; n < Steps.size(); ++n) SetTop(places.Buttons[n], row + Steps[n]);
  SetTop(places.FilmStripModeFrame, row + FrameStep);
  SetTop(places.SrcScrollbar, row - places.SrcScrollbar.Height);
  SetTop(places.SrcThumbsWindow, places.SrcScrollbar.Top - places.SrcThumbsWindow.Height);
  int labels = places.SrcThumbsWindow.Top - places.SrcPicsTotal.Height;
  if (labels < LeastLabelsTop) labels += 1;
  for (Rect* label : {&places.SrcPicsTotal, &places.SrcFolderPath, &places.SrcPicsCount}) SetTop(*label, labels);
  places.CompanyNameShown = band.Height >= NamedBand;
  if (places.CompanyNameShown) Set(places.CompanyNameLabel, band.Left, band.Top, band.Width, places.SrcPicsTotal.Top);
}

}  // namespace

PreviewSize FitPreview(double windowWidth, double windowHeight) {
  double width = windowWidth - BesidePreview;
  const double height = windowHeight - BelowPreview;
  if (width * 60 / 80 > height) width = height * 80 / 60;
  if (width > WidestPreview) width = WidestPreview;
  return {width, width * 60 / 80};
}

int ButtonGap(int stripWidth, int frameWidth) {
  return std::min(WidestButtonGap, CLng((stripWidth - frameWidth) / 7.0));
}

int OpenFolderColumns(double windowWidth, int cellWidth) {
  return std::min(MostColumns, CLng((windowWidth - BesideOpenFolder) / cellWidth));
}

int BandHeight(double previewHeight) {
  return std::max(LeastBand, CLng(previewHeight));
}

LayoutPlaces PlacesIn(const LayoutWindow& window, const LayoutPlaces& present) {
  LayoutPlaces places = present;
  const PreviewSize preview = FitPreview(window.Width, window.Height);
  SetWidth(places.PicPreview, preview.Width);
  SetHeight(places.PicPreview, preview.Height);
  // Deliberate: the strip counts by the twips of the Y direction.
  PlaceStripAcross(places, window.WidthByY);
  PlaceButtonsAcross(places);
  PlaceOpenFolderAcross(places, window);
  PlaceDesktopDown(places, window.ScaleHeight);
  PlaceStripFromBelow(places);
  return places;
}

CaptionPlace PlaceOfCaption(const Rect& preview, int captionWidth, int captionHeight) {
  // Deliberate: the preview's top counts as 0.
  return {preview.Left + (preview.Width - captionWidth) / 2.0,
          static_cast<double>(preview.Height - captionHeight - CaptionRise)};
}

}  // namespace pixorra
