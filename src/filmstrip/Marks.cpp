#include "filmstrip/Marks.h"

#include <charconv>
#include <system_error>

#include "base/Palette.h"
#include "filmstrip/Views.h"
#include "pictures/DotScreen.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Kept in the Tag of the slot's frame.
void NoteLength(MainForm& main, const ImageBox& thumbnail) {
  main.strip.SrcBackground(thumbnail.Index()).SetTag(OrElse(std::string(), [&] {
    return std::to_string(main.host.files.Length(thumbnail.Tag()));
  }));
}

}  // namespace

std::optional<std::int64_t> LengthWhenMarked(const FilmStripState& strip, int slot) {
  const std::string& kept = strip.SrcBackground(slot).Tag();
  std::int64_t length = 0;
  if (std::from_chars(kept.data(), kept.data() + kept.size(), length).ec != std::errc()) return std::nullopt;
  return length;
}

void MarkDragged(MainForm& main, ImageBox& thumbnail) {
  FilmStripState& strip = main.strip;
  ShadeThumbnail(thumbnail);
  Label& name = strip.SrcThumbName(thumbnail.Index());
  name.SetTag("MARK");
  name.SetForeColor(palette::DraggedText);
  NoteLength(main, thumbnail);
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
