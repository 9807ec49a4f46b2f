#include "filmstrip/Marks.h"

#include "base/Palette.h"
#include "filmstrip/Views.h"
#include "pictures/DotScreen.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

void MarkDragged(MainForm& main, ImageBox& thumbnail) {
  FilmStripState& strip = main.strip;
  ShadeThumbnail(thumbnail);
  Label& name = strip.SrcThumbName(thumbnail.Index());
  name.SetTag("MARK");
  name.SetForeColor(palette::DraggedText);
  QuickThumbsOf(main).SetQuickThumbMark(thumbnail.Tag(), "MARK");
  if (strip.AutoScrollOption.Value()) strip.AutoScrollPending = true;
  if (strip.RemainingOption.Value()) ArrangeRemaining(main);
}

int CheckDraggedPhotos(const FilmStripState& strip) {
  int count = 0;
  for (int i = 1; i <= strip.SrcSlotCount; ++i) {
    if (IsMarked(strip, i)) ++count;
  }
  return count;
}

void SrcBackground_DblClick(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  ImageBox& thumbnail = strip.SrcThumbnail(slot);
  Label& name = strip.SrcThumbName(slot);
  if (!IsMarked(strip, slot)) {
    MarkDragged(main, thumbnail);
    return;
  }
  bool bDragged = false;
  const Watch<ImageBox> alive(thumbnail);
  PaintThumbnail(main, thumbnail, thumbnail.Tag(), bDragged);
  // A long step may have let the strip be cleared.
  if (!alive) return;
  name.SetTag("");
  name.SetForeColor(strip.SrcThumbName(0).ForeColor());
  QuickThumbsOf(main).SetQuickThumbMark(thumbnail.Tag(), "");
}

void SrcBackground_MouseMove(MainForm& main, int slot) {
  const bool marked = IsMarked(main.strip, slot);
  main.strip.SrcBackground(slot).SetToolTipText(marked ? "Double-Click to Recover Photo"
                                                       : "Double-Click to Discard Photo");
}

}  // namespace pixorra
