#include "filmstrip/Listing.h"

#include "base/ShownNames.h"
#include "filmstrip/Marks.h"
#include "filmstrip/Scrolling.h"
#include "pictures/PaintPhoto.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

void SrcFileList_PathChange(MainForm& main) {
  FilmStripState& strip = main.strip;
  const std::string& path = strip.SrcFileList.Path();
  strip.SrcFolderPath.SetCaption(path != strip.CameraLocation ? ShownFolderName(main.host.files, path)
                                                              : "Camera Photos");
  strip.SrcFolderPath.SetToolTipText(main.host.files.ShownPath(path));
  strip.SrcPicsCount.SetCaption("");
  strip.SrcPicsTotal.SetCaption(TrimmedStr(strip.SrcFileList.ListCount()) + " Total");
}

bool IsFilmStrip(const FilmStripState& strip, const std::string& folder) {
  return !strip.NoFilmStrip && strip.SrcFileList.Path() == folder;
}

void ShowNoFilmStrip(FilmStripState& strip) {
  strip.SrcFolderPath.SetCaption("Select a Film Strip");
  strip.SrcFolderPath.SetToolTipText("");
  strip.SrcPicsCount.SetCaption("");
  strip.SrcPicsTotal.SetCaption("");
}

void SetSrcSlotPath(FilmStripState& strip, int slot, const std::string& path) {
  ImageBox& thumbnail = strip.SrcThumbnail(slot);
  // The list may hold the former photo still, and the search has passed it.
  if (!thumbnail.Tag().empty() && thumbnail.Tag() != path) strip.loadedPaths.StartOver();
  thumbnail.SetTag(path);
  if (!path.empty()) strip.loadedPaths.Add(path, slot);
}

// The frame tells which of several slots with the photo is meant.
int SlotOf(const FilmStripState& strip, const std::string& photo) {
  const auto has = [&](int slot) { return slot >= 1 && slot <= strip.SrcSlotCount && PhotoOf(strip, slot) == photo; };
  const int selected = OrElse(0, [&] { return SelectedSlot(strip); });
  if (has(selected)) return selected;
  for (int i = 1; i <= strip.SrcSlotCount; ++i) {
    if (has(i)) return i;
  }
  return 0;
}

namespace {

// Pixels: of a thumbnail in its frame, from a thumbnail to its name, and what the canvas has beyond the last
// frame.
constexpr int ThumbnailInset = 10;
constexpr int ThumbnailDrop = 17;
constexpr int NameGap = 1;
constexpr int RoomBesideFrames = 74;

void PlaceBackground(FilmStripState& strip, int slot, int position) {
  ImageBox& background = strip.SrcBackground(slot);
  background.Move((position - strip.SrcPageBase) * SrcFrameWidth + SrcFrameWidth, 0);
  background.SetVisible(true);
}

// On the slot's background, wherever that is.
void PlaceThumbnail(FilmStripState& strip, int slot) {
  const ImageBox& background = strip.SrcBackground(slot);
  ImageBox& thumbnail = strip.SrcThumbnail(slot);
  Label& name = strip.SrcThumbName(slot);
  thumbnail.Move(background.Left() + ThumbnailInset, background.Top() + ThumbnailDrop);
  thumbnail.SetVisible(true);
  name.Move(thumbnail.Left(), thumbnail.Top() + thumbnail.Height() + NameGap);
  name.SetVisible(true);
  name.BringToFront();
}

}  // namespace

void PlaceSrcSlot(FilmStripState& strip, int slot, int position) {
  PlaceBackground(strip, slot, position);
  PlaceThumbnail(strip, slot);
}

int ShownPlace(const FilmStripState& strip, int slot) {
  if (!strip.SrcThumbnail(slot).Visible()) return 0;
  return strip.SrcBackground(slot).Left() / SrcFrameWidth + strip.SrcPageBase;
}

void FitSrcCanvas(FilmStripState& strip, int lastSlot) {
  const ImageBox& last = strip.SrcBackground(lastSlot);
  ErrorsIgnored([&] { strip.SrcCanvas.SetWidth(last.Left() + last.Width() + RoomBesideFrames); });
}

void ShowSrcCount(FilmStripState& strip) {
  strip.SrcPicsCount.SetCaption(TrimmedStr(strip.SrcShownCount) + " pics");
}

void AddSrcSlot(MainForm& main, const std::string& path) {
  FilmStripState& strip = main.strip;
  if (strip.SrcSlotCount >= MostThumbnails) return;
  const int slot = strip.SrcSlotCount + 1;
  const AtExit undone([&strip, slot] {
    if (strip.SrcSlotCount < slot) UnloadSrcSlot(strip, slot);
  });
  ImageBox& thumbnail = strip.SrcThumbnail.Load(slot);
  strip.SrcBackground.Load(slot);
  Label& name = strip.SrcThumbName.Load(slot);
  const int pageBase = strip.SrcPageBase;
  PlaceBackground(strip, slot, strip.SrcShownCount);
  bool bDragged = false;
  PaintThumbnail(main, thumbnail, path, bDragged);
  // A long step may have let the strip be cleared.
  if (strip.SrcSlotCount != slot - 1) return;
  name.SetCaption(ShownBaseName(main.host.files, path));
  name.SetToolTipText(ShownFileName(main.host.files, path));
  PlaceThumbnail(strip, slot);
  // The slot does not count yet: a bar that moves now arranges the others alone.
  FitSrcCanvas(strip, slot);
  ErrorsIgnored([&] { FitSrcScrollbar(main, strip.SrcShownCount); });
  if (pageBase != strip.SrcPageBase) PlaceSrcSlot(strip, slot, strip.SrcShownCount);
  strip.SrcSlotCount = slot;
  ++strip.SrcShownCount;
  SetSrcSlotPath(strip, slot, path);
  ShowSrcCount(strip);
  name.SetTag("");
  if (bDragged) ErrorsIgnored([&] { MarkLoaded(main, thumbnail); });
}

void UnloadSrcSlot(FilmStripState& strip, int slot) {
  ErrorsIgnored([&] { strip.SrcThumbnail.Unload(slot); });
  ErrorsIgnored([&] { strip.SrcBackground.Unload(slot); });
  ErrorsIgnored([&] { strip.SrcThumbName.Unload(slot); });
}

}  // namespace pixorra
