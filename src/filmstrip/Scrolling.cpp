#include "filmstrip/Scrolling.h"

#include "base/Bars.h"
#include "filmstrip/Views.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Pixels that one step of the auto scroll moves the strip while the next photo is marked too.
constexpr int PastMarkedStep = 15;
constexpr double PageWidth = SrcFramesPerPage * SrcFrameWidth;

// The bar counts in units of 2 pixels, and slots are placed relative to a page of 50 frames: both keep long strips
// within 16 bits. The canvas is moved by the page's width, so that no photo jumps when the page changes.
void ScrollStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  const int value = strip.SrcScrollbar.Value();
  const int frame = CLng(value * 2.0 / strip.SrcBackground(0).Width());
  const int page = frame / SrcFramesPerPage;
  const int base = page * SrcFramesPerPage;
  if (base != strip.SrcPageBase) {
    strip.SrcPageBase = base;
    Redisplay_FilmStrip(main);
  }
  strip.SrcCanvas.SetLeft(-2.0 * value + page * PageWidth - SrcFrameWidth);
}

}  // namespace

void SrcScrollbar_Change(MainForm& main) {
  FilmStripState& strip = main.strip;
  if (ScrollInProgress::On(strip.SrcScrollbar)) return;
  ScrollStrip(main);
  strip.AutoScrollPending = false;
  TakeFocusOff(strip.SrcScrollbar);
}

void SrcScrollbar_Scroll(MainForm& main) {
  FilmStripState& strip = main.strip;
  const ScrollInProgress scroll(strip.SrcScrollbar);
  ScrollStrip(main);
  strip.AutoScrollPending = false;
}

void ScrollStripBy(MainForm& main, double pixels) {
  MoveBarBy(main.strip.SrcScrollbar, main.strip.SrcBarScale, pixels);
  main.strip.AutoScrollPending = false;
}

void AutoScrollStep(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.SrcScrollbar.SetMax(strip.SrcScrollbar.Max());
  main.desk.DestScrollbar.SetMax(main.desk.DestScrollbar.Max());
  if (!strip.AutoScrollPending || strip.SrcSlotCount == 0) return;
  int first = 0;
  int rightEdge = 0;
  for (int i = 1; i <= strip.SrcSlotCount && first == 0; ++i) {
    const ImageBox& background = strip.SrcBackground(i);
    const int left = strip.SrcCanvas.Left() + background.Left();
    rightEdge = left + background.Width();
    if (rightEdge > 0 && left < strip.SrcThumbsWindow.Width()) first = i;
  }
  if (first == 0 || !IsMarked(strip, first)) return;
  int step = CLng(rightEdge / 10.0 + 1);
  if (first < strip.SrcSlotCount && IsMarked(strip, first + 1)) step = PastMarkedStep;
  ErrorsIgnored([&] { strip.SrcScrollbar.SetValue((2 * strip.SrcScrollbar.Value() + step) / 2.0); });
  // The change of the bar has taken this for a move by the user.
  strip.AutoScrollPending = true;
}

}  // namespace pixorra
