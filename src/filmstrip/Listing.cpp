#include "filmstrip/Listing.h"

#include <algorithm>

#include "core/MainForm.h"
#include "core/ShownNames.h"
#include "filmstrip/Marks.h"
#include "pictures/Painting.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

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

void ShowNoFilmStrip(MainForm& main) {
  main.strip.SrcFolderPath.SetCaption("Select a Film Strip");
  main.strip.SrcFolderPath.SetToolTipText("");
  main.strip.SrcPicsCount.SetCaption("");
  main.strip.SrcPicsTotal.SetCaption("");
}

void SetSrcSlotPath(FilmStripState& strip, int slot, const std::string& path) {
  strip.SrcThumbnail(slot).SetTag(path);
  if (path.empty()) {
    strip.loadedPaths.StartOver();
  } else {
    strip.loadedPaths.Add(path, slot);
  }
}

void PlaceSrcSlot(FilmStripState& strip, int slot, int position) {
  ImageBox& background = strip.SrcBackground(slot);
  ImageBox& thumbnail = strip.SrcThumbnail(slot);
  Label& name = strip.SrcThumbName(slot);
  background.Move((position - strip.SrcPageBase) * SrcFrameWidth + SrcFrameWidth, 0);
  background.SetVisible(true);
  thumbnail.Move(background.Left() + 10, background.Top() + 17);
  thumbnail.SetVisible(true);
  name.Move(thumbnail.Left(), thumbnail.Top() + thumbnail.Height() + 1);
  name.SetVisible(true);
  name.BringToFront();
}

void FitSrcCanvas(FilmStripState& strip, int shown) {
  const ImageBox& last = strip.SrcBackground(strip.SrcSlotCount);
  ErrorsIgnored([&] { strip.SrcCanvas.SetWidth(last.Left() + last.Width() + 74); });
  // Past 16 bits the assignment fails and the former Max stands.
  ErrorsIgnored([&] {
    const double max = (shown * static_cast<double>(SrcFrameWidth) - strip.SrcThumbsWindow.ScaleWidth() + 120) / 2;
    strip.SrcScrollbar.SetMax(std::max(50, CLng(max)));
  });
  strip.SrcScrollbar.Refresh();
}

void ShowSrcCount(FilmStripState& strip) {
  strip.SrcPicsCount.SetCaption(TrimmedStr(strip.SrcShownCount) + " pics");
}

void AddSrcSlot(MainForm& main, const std::string& path) {
  FilmStripState& strip = main.strip;
  const int slot = strip.SrcSlotCount + 1;
  ImageBox& thumbnail = strip.SrcThumbnail.Load(slot);
  strip.SrcBackground.Load(slot);
  Label& name = strip.SrcThumbName.Load(slot);
  bool bDragged = false;
  PaintThumbnail(main, thumbnail, path, bDragged);
  name.SetCaption(ShownBaseName(main.host.files, path));
  name.SetToolTipText(ShownFileName(main.host.files, path));
  PlaceSrcSlot(strip, slot, strip.SrcShownCount);

  const int shownBefore = strip.SrcShownCount;
  strip.SrcSlotCount = slot;
  FitSrcCanvas(strip, shownBefore);
  strip.SrcShownCount = shownBefore + 1;
  SetSrcSlotPath(strip, slot, path);
  ShowSrcCount(strip);
  name.SetTag("");
  if (bDragged) ErrorsIgnored([&] { MarkDragged(main, thumbnail); });
}

}  // namespace pixorra
