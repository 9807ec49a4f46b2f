#include "app/Layout.h"

#include <array>
#include <vector>

#include "app/LayoutSums.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolderView.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

constexpr int SmallestWidth = 782;       // pixels
constexpr int SmallestHeight = 606;      // pixels
constexpr int SmallestScreen = 600;      // pixels
constexpr int SettlingTicks = 5;         // of ThumbsTimer, after the last resize
constexpr double CompanyLetters = 0.55;  // points to a pixel of the label's height

std::array<ImageBox*, 7> ButtonRow(FilmStripState& strip) {
  return {&strip.CameraButton, &strip.BrowseButton, &strip.SwapButton, &strip.DeleteButton,
          &strip.UndoButton,   &strip.AllButton,    &strip.PrintButton};
}

// Each control that the window's size moves, with its place.
struct Placed {
  Control& Moved;
  Rect& Place;
};
std::vector<Placed> PlacedControls(MainForm& main, LayoutPlaces& places) {
  FilmStripState& strip = main.strip;
  DesktopState& desk = main.desk;
  std::vector<Placed> placed = {
      {main.preview.PicPreview, places.PicPreview},
      {strip.SrcBackShape, places.SrcBackShape},
      {strip.SrcThumbsWindow, places.SrcThumbsWindow},
      {strip.SrcScrollbar, places.SrcScrollbar},
      {strip.SrcPicsTotal, places.SrcPicsTotal},
      {strip.SrcFolderPath, places.SrcFolderPath},
      {strip.SrcPicsCount, places.SrcPicsCount},
      {strip.FilmStripModeFrame, places.FilmStripModeFrame},
      {main.core.CompanyNameLabel, places.CompanyNameLabel},
      {desk.DesktopImage, places.DesktopImage},
      {desk.DestThumbsWindow, places.DestThumbsWindow},
      {desk.DestScrollbar, places.DestScrollbar},
      {desk.DestContentsLabel, places.DestContentsLabel},
      {desk.DestCountLabel, places.DestCountLabel},
      {desk.DestBackShape1, places.DestBackShapes[0]},
      {desk.DestBackShape2, places.DestBackShapes[1]},
      {desk.DestBackShape3, places.DestBackShapes[2]},
      {desk.DestBackShape4, places.DestBackShapes[3]},
  };
  const std::array<ImageBox*, 7> buttons = ButtonRow(strip);
  for (std::size_t i = 0; i < buttons.size(); ++i) placed.push_back({*buttons[i], places.Buttons[i]});
  return placed;
}

void PlaceControls(MainForm& main, LayoutWindow window) {
  LayoutPlaces places;
  const std::vector<Placed> controls = PlacedControls(main, places);
  for (const Placed& each : controls) each.Place = each.Moved.Bounds();
  window.ScaleHeight = main.Window.ScaleHeight();
  window.CellWidth = main.desk.DestBackground(0).Width();
  places = PlacesIn(window, places);
  for (const auto& [moved, place] : controls) {
    ErrorsIgnored([&control = moved, &to = place] { control.Move(to.Left, to.Top, to.Width, to.Height); });
  }
  ErrorsIgnored([&] { SetDestColumns(main, places.DestColumns); });
  Label& company = main.core.CompanyNameLabel;
  company.SetVisible(places.CompanyNameShown);
  if (!places.CompanyNameShown) return;
  Font font = company.GetFont();
  font.Size = company.Height() * CompanyLetters;
  company.SetFont(font);
}

void PlaceCaption(PreviewState& preview) {
  Label& caption = preview.PicPreviewSize;
  caption.SetMaxWidth(preview.PicPreview.Width());
  const CaptionPlace place = PlaceOfCaption(preview.PicPreview.Bounds(), caption.Width(), caption.Height());
  ErrorsIgnored([&] { caption.Move(place.Left, place.Top); });
}

// True where the screen is too small; the program has then ended.
bool RefuseSmallScreen(MainForm& main) {
  const Screen screen = main.host.toolkit.GetScreen();
  if (screen.Height / screen.TwipsPerPixelX >= SmallestScreen) return false;
  main.Window.SetVisible(false);
  main.host.dialogs.MsgBox(
      "Supports a minimum screen size of 800 x 600 pixels.\r\nReset your monitor display settings.", BoxIcon::Critical,
      BoxButtons::Ok, "Pixorra - Can't display Application");
  main.host.toolkit.End();
  return true;
}

bool HasLastSize(const MainForm& main) {
  const double width = main.Window.TwipsWidth();
  const double height = main.Window.TwipsHeight();
  // A saved state may bring a size of 0, which is also the last size before the first layout.
  if (width == 0 && height == 0) return false;
  return width == main.core.LastWidth && height == main.core.LastHeight;
}

}  // namespace

void Form_Resize(MainForm& main) {
  main.core.LayoutCountdown = SettlingTicks;
}

void Window_Layout(MainForm& main) {
  EndFolderRename(main);
  Form& window = main.Window;
  if (window.WindowState() == windowstate::Minimised) return;
  if (HasLastSize(main)) return;
  window.SetVisible(false);
  const Screen screen = main.host.toolkit.GetScreen();
  if (window.WindowState() == windowstate::Normal) {
    if (window.TwipsHeight() / screen.TwipsPerPixelY < SmallestHeight)
      ErrorsIgnored([&] { window.SetTwipsHeight(SmallestHeight * screen.TwipsPerPixelY); });
    if (window.TwipsWidth() / screen.TwipsPerPixelX < SmallestWidth)
      ErrorsIgnored([&] { window.SetTwipsWidth(SmallestWidth * screen.TwipsPerPixelX); });
  }
  if (RefuseSmallScreen(main)) return;
  PlaceControls(main, {.Width = window.TwipsWidth() / screen.TwipsPerPixelX,
                       .WidthByY = window.TwipsWidth() / screen.TwipsPerPixelY,
                       .Height = window.TwipsHeight() / screen.TwipsPerPixelY});
  PlaceCaption(main.preview);
  ErrorsIgnored([&] { ArrangeFolderSlots(main.desk); });
  ErrorsIgnored([&] { Redisplay_DestThumbnails(main); });
  main.core.LastWidth = RoundHalfEven(window.TwipsWidth());
  main.core.LastHeight = RoundHalfEven(window.TwipsHeight());
  window.SetVisible(true);
}

}  // namespace pixorra
