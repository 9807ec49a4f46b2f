#include "app/Layout.h"

#include <array>

#include "app/LayoutSums.h"
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

constexpr int SmallestWidth = 782;   // pixels
constexpr int SmallestHeight = 606;  // pixels
constexpr int SmallestScreen = 600;  // pixels

// Errors are ignored: a control that cannot take a size keeps its old one.
template <typename Statement>
void Try(Statement&& statement) {
  ErrorsIgnored(std::forward<Statement>(statement));
}

int Right(const Control& control) {
  return control.Left() + control.Width();
}

void PlaceStripAcross(MainForm& main, double windowWidthByY) {
  FilmStripState& strip = main.strip;
  const double rest = windowWidthByY - Right(main.preview.PicPreview);
  const double start = windowWidthByY - rest;
  Try([&] { strip.SrcBackShape.SetLeft(start); });
  Try([&] { strip.SrcBackShape.SetWidth(rest); });
  Try([&] { strip.SrcThumbsWindow.SetLeft(start + 19); });
  Try([&] { strip.SrcThumbsWindow.SetWidth(rest - 41); });
  const ImageBox& preview = main.preview.PicPreview;
  const PictureBox& window = strip.SrcThumbsWindow;
  Try([&] { strip.SrcScrollbar.SetLeft(window.Left()); });
  Try([&] { strip.SrcScrollbar.SetWidth(window.Width()); });
  Try([&] { strip.SrcPicsTotal.SetLeft(window.Left()); });
  Try([&] { strip.SrcPicsCount.SetLeft(Right(window) - strip.SrcPicsCount.Width()); });
  Try([&] {
    strip.SrcFolderPath.SetWidth(window.Width() - strip.SrcPicsCount.Width() - strip.SrcPicsTotal.Width() - 10);
  });
  Try([&] { strip.SrcFolderPath.SetLeft(window.Left() + (window.Width() - strip.SrcFolderPath.Width()) / 2.0); });
  Try([&] { strip.FilmStripModeFrame.SetLeft(Right(window) - strip.FilmStripModeFrame.Width()); });
  Label& size = main.preview.PicPreviewSize;
  size.SetMaxWidth(preview.Width());
  Try([&] { size.SetLeft(preview.Left() + (preview.Width() - size.Width()) / 2.0); });
}

std::array<ImageBox*, 7> ButtonRow(FilmStripState& strip) {
  return {&strip.CameraButton, &strip.BrowseButton, &strip.SwapButton, &strip.DeleteButton,
          &strip.UndoButton,   &strip.AllButton,    &strip.PrintButton};
}

void PlaceButtonsAcross(FilmStripState& strip) {
  const int gap = ButtonGap(strip.SrcThumbsWindow.Width(), strip.FilmStripModeFrame.Width());
  int left = strip.SrcThumbsWindow.Left();
  for (ImageBox* box : ButtonRow(strip)) {
    Try([&] { box->SetLeft(left); });
    left += gap;
  }
}

void PlaceOpenFolderAcross(MainForm& main, double windowWidth) {
  DesktopState& desk = main.desk;
  const int cell = desk.DestBackground(0).Width();
  desk.DestColumns = OpenFolderColumns(windowWidth, cell);
  Try([&] { desk.DestThumbsWindow.SetWidth(cell * desk.DestColumns + 4); });
  Try([&] { desk.DesktopImage.SetWidth(windowWidth - desk.DestThumbsWindow.Width() - 50); });
  Try([&] { desk.DestThumbsWindow.SetLeft(Right(desk.DesktopImage) + 7); });
  Try([&] { desk.DestScrollbar.SetLeft(Right(desk.DestThumbsWindow)); });
  Try([&] { desk.DestContentsLabel.SetWidth(desk.DestThumbsWindow.Width()); });
  Try([&] { desk.DestContentsLabel.SetLeft(desk.DestThumbsWindow.Left()); });
  const ScrollBar& bar = desk.DestScrollbar;
  Try([&] { desk.DestCountLabel.SetLeft(bar.Left() + (bar.Width() - desk.DestCountLabel.Width()) / 2.0); });
}

// The Desktop's frame: four strips, 2 pixels outside its edges and 4 wider.
constexpr int EdgeWidth = 2;

void PlaceHeights(MainForm& main) {
  DesktopState& desk = main.desk;
  Label& size = main.preview.PicPreviewSize;
  Try([&] { size.SetTop(main.preview.PicPreview.Height() - size.Height() - 2); });
  const int band = BandHeight(main.preview.PicPreview.Height());
  Try([&] { main.strip.SrcBackShape.Move(main.strip.SrcBackShape.Left(), 0, main.strip.SrcBackShape.Width(), band); });
  Try([&] { desk.DesktopImage.SetTop(band + DesktopGap); });
  const int top = desk.DesktopImage.Top();
  Try([&] { desk.DesktopImage.SetHeight(main.Window.ScaleHeight() - top - 7); });
  const int height = desk.DesktopImage.Height();
  Try([&] { desk.DestContentsLabel.SetTop(top - 5); });
  Try([&] { desk.DestCountLabel.SetTop(top - 5); });
  Try([&] { desk.DestThumbsWindow.SetTop(top + 13); });
  Try([&] { desk.DestThumbsWindow.SetHeight(height - 13); });
  Try([&] { desk.DestScrollbar.SetTop(desk.DestThumbsWindow.Top()); });
  Try([&] { desk.DestScrollbar.SetHeight(desk.DestThumbsWindow.Height()); });
  const Rect edge = desk.DesktopImage.Bounds();
  Try([&] { desk.DestBackShape1.Move(edge.Left - 2, edge.Top - 2, edge.Width + 4, EdgeWidth); });
  Try([&] { desk.DestBackShape2.Move(edge.Left - 2, edge.Bottom(), edge.Width + 4, EdgeWidth); });
  Try([&] { desk.DestBackShape3.Move(edge.Left - 2, edge.Top - 2, EdgeWidth, edge.Height + 4); });
  Try([&] { desk.DestBackShape4.Move(edge.Right(), edge.Top - 2, EdgeWidth, edge.Height + 4); });
}

void PlaceCompanyName(MainForm& main) {
  const Shape& band = main.strip.SrcBackShape;
  Label& label = main.core.CompanyNameLabel;
  if (band.Height() < 210) {
    label.SetVisible(false);
    return;
  }
  Try([&] { label.Move(band.Left(), band.Top(), band.Width(), main.strip.SrcPicsTotal.Top()); });
  label.SetVisible(true);
  Font font = label.GetFont();
  font.Size = label.Height() * 0.55;
  label.SetFont(font);
}

void PlaceStripFromBelow(MainForm& main) {
  FilmStripState& strip = main.strip;
  const int below = strip.SrcBackShape.Top() + strip.SrcBackShape.Height() - 43;
  // The drawings stand higher or lower in their squares to match.
  constexpr std::array<int, 7> Steps = {4, 5, 3, 5, 2, 7, 2};
  const std::array<ImageBox*, 7> buttons = ButtonRow(strip);
  for (std::size_t n = 0; n < buttons.size(); ++n) Try([&] { buttons[n]->SetTop(below + Steps[n]); });
  Try([&] { strip.FilmStripModeFrame.SetTop(below + 3); });
  Try([&] { strip.SrcScrollbar.SetTop(below - strip.SrcScrollbar.Height()); });
  Try([&] { strip.SrcThumbsWindow.SetTop(strip.SrcScrollbar.Top() - strip.SrcThumbsWindow.Height()); });
  int labels = strip.SrcThumbsWindow.Top() - strip.SrcPicsTotal.Height();
  if (labels < 2) labels += 1;
  for (Label* label : {&strip.SrcPicsTotal, &strip.SrcFolderPath, &strip.SrcPicsCount}) {
    Try([&] { label->SetTop(labels); });
  }
  PlaceCompanyName(main);
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
  // A saved state may bring a size of 0, which is what stands before the first layout.
  if (width == 0 && height == 0) return false;
  return width == main.core.LastWidth && height == main.core.LastHeight;
}

}  // namespace

void Form_Resize(MainForm& main) {
  main.core.LayoutCountdown = 5;
}

void Window_Layout(MainForm& main) {
  Form& window = main.Window;
  if (window.WindowState() == windowstate::Minimised) return;
  if (HasLastSize(main)) return;
  window.SetVisible(false);
  const Screen screen = main.host.toolkit.GetScreen();
  if (window.WindowState() == windowstate::Normal) {
    if (window.TwipsHeight() / screen.TwipsPerPixelY < SmallestHeight)
      Try([&] { window.SetTwipsHeight(SmallestHeight * screen.TwipsPerPixelY); });
    if (window.TwipsWidth() / screen.TwipsPerPixelX < SmallestWidth)
      Try([&] { window.SetTwipsWidth(SmallestWidth * screen.TwipsPerPixelX); });
  }
  if (RefuseSmallScreen(main)) return;
  const double width = window.TwipsWidth() / screen.TwipsPerPixelX;
  const PreviewSize preview = FitPreview(width, window.TwipsHeight() / screen.TwipsPerPixelY);
  Try([&] { main.preview.PicPreview.SetWidth(preview.Width); });
  Try([&] { main.preview.PicPreview.SetHeight(preview.Height); });
  // The twips of the Y direction, here as before the screen had two.
  PlaceStripAcross(main, window.TwipsWidth() / screen.TwipsPerPixelY);
  PlaceButtonsAcross(main.strip);
  PlaceOpenFolderAcross(main, width);
  PlaceHeights(main);
  PlaceStripFromBelow(main);
  Try([&] { ArrangeFolderSlots(main.desk); });
  Try([&] { Redisplay_DestThumbnails(main); });
  main.core.LastWidth = RoundHalfEven(window.TwipsWidth());
  main.core.LastHeight = RoundHalfEven(window.TwipsHeight());
  window.SetVisible(true);
}

}  // namespace pixorra
