#include "filmstrip/Scrolling.h"

#include <algorithm>

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
// Pixels that the bar's range has beyond the last frame.
constexpr int RoomToScroll = 120;

// The first position of the page that the bar's value is on.
int PageBaseAtBar(const FilmStripState& strip) {
  const int frame = CLng(ScrolledPixels(strip.SrcScrollbar, strip.SrcBarScale) / strip.SrcBackground(0).Width());
  return frame / SrcFramesPerPage * SrcFramesPerPage;
}

// The bar counts in units of 2 pixels or more, and slots are placed relative to a page of 50 frames: both keep long
// strips within 16 bits. The canvas is moved by the page's width, so that no photo jumps when the page changes.
void ScrollStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  // A strip that has become shorter takes the bar back, maybe to another page.
  for (int base = PageBaseAtBar(strip); base != strip.SrcPageBase; base = PageBaseAtBar(strip)) {
    strip.SrcPageBase = base;
    Redisplay_FilmStrip(main);
  }
  const double pages = strip.SrcPageBase / SrcFramesPerPage * PageWidth;
  strip.SrcCanvas.SetLeft(pages - ScrolledPixels(strip.SrcScrollbar, strip.SrcBarScale) - SrcFrameWidth);
}

// In units of 2 pixels a step that leads past the bar's end fails. In larger ones a step may be less than a unit: steps
// add up, so that the strip keeps its speed.
void StepOn(FilmStripState& strip, int step) {
  ScrollBar& bar = strip.SrcScrollbar;
  if (strip.SrcBarScale.Unit == LeastBarUnit) {
    bar.SetValue((ScrolledPixels(bar, strip.SrcBarScale) + step) / LeastBarUnit);
  } else {
    MoveBarBy(bar, strip.SrcBarScale, step);
  }
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

bool IsInView(const FilmStripState& strip, int slot) {
  const ImageBox& background = strip.SrcBackground(slot);
  const int left = strip.SrcCanvas.Left() + background.Left();
  return left >= 0 && left + background.Width() <= strip.SrcThumbsWindow.Width();
}

void ScrollStripTo(FilmStripState& strip, int slot, int framesAhead) {
  ScrollBar& bar = strip.SrcScrollbar;
  // Slots are placed relative to the page, a frame to the right.
  const double wanted = strip.SrcBackground(slot).Left() + (strip.SrcPageBase - framesAhead - 1.0) * SrcFrameWidth;
  const double value = RoundHalfEven(wanted / strip.SrcBarScale.Unit);
  const double nearest = std::clamp<double>(value, bar.Min(), bar.Max());
  if (value == nearest || !IsInView(strip, slot)) bar.SetValue(nearest);
}

void FitSrcScrollbar(MainForm& main, int shown) {
  FilmStripState& strip = main.strip;
  const double pixels = shown * static_cast<double>(SrcFrameWidth) - strip.SrcThumbsWindow.ScaleWidth() + RoomToScroll;
  if (FitBar(strip.SrcScrollbar, strip.SrcBarScale, pixels)) ScrollStrip(main);
}

namespace {

void ScrollPastMarked(FilmStripState& strip) {
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
  ErrorsIgnored([&] { StepOn(strip, step); });
  // The change of the bar has taken this for a move by the user.
  strip.AutoScrollPending = true;
}

}  // namespace

void AutoScrollStep(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.SrcScrollbar.SetMax(strip.SrcScrollbar.Max());
  main.desk.DestScrollbar.SetMax(main.desk.DestScrollbar.Max());
  const int value = strip.SrcScrollbar.Value();
  const double rest = strip.SrcBarScale.Rest;
  ScrollPastMarked(strip);
  if (strip.SrcScrollbar.Value() == value && strip.SrcBarScale.Rest == rest)
    strip.AutoScrollTimer.WasIdle(Timer::UntilSomethingRuns);
}

}  // namespace pixorra
