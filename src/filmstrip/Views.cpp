#include "filmstrip/Views.h"

#include "base/Bars.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Scrolling.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "preview/PreviewPane.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

void HideSlot(FilmStripState& strip, int slot) {
  strip.SrcBackground(slot).SetVisible(false);
  strip.SrcThumbnail(slot).SetVisible(false);
  strip.SrcThumbName(slot).SetVisible(false);
}

// Puts the slots that `shows` names one after the other from the strip's start; returns how many there are.
template <typename Shows>
int PlaceSlots(FilmStripState& strip, const Shows& shows) {
  int position = 0;
  for (int i = 1; i <= strip.SrcSlotCount; ++i) {
    if (shows(i)) {
      PlaceSrcSlot(strip, i, position++);
    } else {
      HideSlot(strip, i);
    }
  }
  return position;
}

void ShowArranged(MainForm& main, int shown) {
  FilmStripState& strip = main.strip;
  FitSrcCanvas(strip, strip.SrcSlotCount);
  FitSrcScrollbar(main, shown);
  strip.SrcShownCount = shown;
  ShowSrcCount(strip);
  strip.SrcPicsTotal.SetCaption(TrimmedStr(strip.SrcFileList.ListCount()) + " Total");
}

// The frame follows its slot; one that is no longer shown loses the selection.
void FollowSelection(MainForm& main) {
  FilmStripState& strip = main.strip;
  ErrorsIgnored([&] {
    const int selected = SelectedSlot(strip);
    const ImageBox& thumbnail = strip.SrcThumbnail(selected);
    if (thumbnail.Visible()) {
      strip.SrcThumbFrame.Move(thumbnail.Left(), thumbnail.Top());
      strip.SrcThumbFrame.SetVisible(true);
      return;
    }
    strip.SrcThumbFrame.SetVisible(false);
    ResetPreview(main);
  });
}

// Brings the selected photo into view, the third from the left edge.
void ScrollToSelection(MainForm& main) {
  FilmStripState& strip = main.strip;
  ErrorsIgnored([&] {
    const int selected = SelectedSlot(strip);
    const ImageBox& thumbnail = strip.SrcThumbnail(selected);
    if (!strip.SrcThumbFrame.Visible() || !thumbnail.Visible()) return;
    strip.SrcThumbFrame.Move(thumbnail.Left(), thumbnail.Top());
    ScrollStripTo(strip, selected, 2);
  });
}

// The selected photo, if it is shown still, is in view before and after.
void ArrangeAroundSelection(MainForm& main, void (*arrange)(MainForm&)) {
  FilmStripState& strip = main.strip;
  ScrollToSelection(main);
  arrange(main);
  ErrorsIgnored([&] {
    if (!IsInView(strip, SelectedSlot(strip))) ScrollToSelection(main);
  });
}

}  // namespace

void Redisplay_FilmStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  const double place = ScrolledPixels(strip.SrcScrollbar, strip.SrcBarScale);
  strip.SrcCanvas.SetVisible(false);
  strip.SrcFileList.Refresh();
  if (strip.RemainingOption.Value()) {
    ArrangeRemaining(main);
  } else {
    ArrangeAll(main);
    ErrorsIgnored([&] { strip.SrcScrollbar.SetValue(place / strip.SrcBarScale.Unit); });
    if (!strip.SrcThumbFrame.Visible() && strip.AutoScrollOption.Value()) strip.AutoScrollPending = true;
  }
  strip.SrcCanvas.SetVisible(true);
}

void ArrangeAll(MainForm& main) {
  FilmStripState& strip = main.strip;
  if (strip.SrcSlotCount == 0) return;
  const int shown = PlaceSlots(strip, [&](int i) { return !PhotoOf(strip, i).empty(); });
  ShowArranged(main, shown);
  if (strip.SrcThumbFrame.Visible()) FollowSelection(main);
}

void ArrangeRemaining(MainForm& main) {
  FilmStripState& strip = main.strip;
  if (strip.SrcSlotCount == 0) return;
  const bool selected = strip.SrcThumbFrame.Visible();
  strip.SrcThumbFrame.SetVisible(false);
  const int shown = PlaceSlots(strip, [&](int i) { return !PhotoOf(strip, i).empty() && !IsMarked(strip, i); });
  ShowArranged(main, shown);
  if (selected) FollowSelection(main);
}

void ClearFilmStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  for (int i = 1; i <= strip.SrcSlotCount; ++i) UnloadSrcSlot(strip, i);
  strip.loadedPaths.Clear();
  strip.SrcCanvas.SetPicture(Picture());
  HideSlot(strip, 0);
  if (strip.SrcThumbFrame.Visible()) ResetPreview(main);
  strip.SrcSlotCount = 0;
  strip.SrcShownCount = 0;
  strip.SrcThumbFrame.SetVisible(false);
  strip.SrcCanvas.Refresh();
  strip.SrcScrollbar.SetLargeChange(1);
  strip.SrcBarScale = {};
  strip.SrcScrollbar.SetMax(LeastBarMax);
  TakeFocusOff(strip.SrcScrollbar);
}

void AllOption_Click(MainForm& main) {
  ArrangeAroundSelection(main, ArrangeAll);
  main.strip.SrcScrollbar.Refresh();
}

void RemainingOption_Click(MainForm& main) {
  ArrangeAroundSelection(main, ArrangeRemaining);
  main.strip.AutoScrollPending = false;
  main.strip.SrcScrollbar.Refresh();
}

void AutoScrollOption_Click(MainForm& main) {
  ArrangeAroundSelection(main, ArrangeAll);
  main.strip.AutoScrollPending = true;
  main.strip.SrcScrollbar.Refresh();
}

}  // namespace pixorra
