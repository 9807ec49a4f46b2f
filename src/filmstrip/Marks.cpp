#include "filmstrip/Marks.h"

#include <string>

#include "base/Palette.h"
#include "base/StampText.h"
#include "filmstrip/Views.h"
#include "pictures/MarkedPhoto.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "pictures/Shading.h"
#include "platform/services/Files.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// The photo's stamp, kept in the Tag of the slot's frame; empty where it is not known.
void ShowMark(MainForm& main, ImageBox& thumbnail, const std::string& stamp) {
  FilmStripState& strip = main.strip;
  ShadeThumbnail(thumbnail);
  Label& name = strip.SrcThumbName(thumbnail.Index());
  name.SetTag("MARK");
  name.SetForeColor(palette::DraggedText);
  strip.SrcBackground(thumbnail.Index()).SetTag(stamp);
}

void Follow(MainForm& main) {
  FilmStripState& strip = main.strip;
  if (strip.AutoScrollOption.Value()) strip.AutoScrollPending = true;
  if (strip.RemainingOption.Value()) ArrangeRemaining(main);
}

void MarkAs(MainForm& main, ImageBox& thumbnail, const std::string& stamp) {
  ShowMark(main, thumbnail, stamp);
  QuickThumbsOf(main).SetQuickThumbMark(thumbnail.Tag(), "MARK");
  Follow(main);
}

}  // namespace

void MarkDragged(MainForm& main, ImageBox& thumbnail) {
  MarkAs(main, thumbnail, StampText(main.host.files, thumbnail.Tag()));
}

void MarkDragged(MainForm& main, ImageBox& thumbnail, const FileStamp& copied) {
  MarkAs(main, thumbnail, StampText(copied));
}

void NoteChangeSinceCopied(MainForm& main, const ImageBox& thumbnail) {
  // At the next start nothing but the cache tells it from the one that was copied.
  if (IsChangedSinceMarked(main, thumbnail.Index())) QuickThumbsOf(main).NoteEdited(thumbnail.Tag());
}

// The cache knows the photo by its length and date: it is as it was when the mark was set.
void MarkLoaded(MainForm& main, ImageBox& thumbnail) {
  const bool edited = QuickThumbsOf(main).WasEditedSinceDragged(thumbnail.Tag());
  ShowMark(main, thumbnail, edited ? std::string() : StampText(main.host.files, thumbnail.Tag()));
  Follow(main);
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
