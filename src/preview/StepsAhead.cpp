#include "preview/StepsAhead.h"

#include <algorithm>
#include <cstdlib>

#include "pictures/PaintPhoto.h"
#include "platform/controls/FineSurface.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/ReadAhead.h"
#include "preview/FullSizeSums.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

bool IsInOpenFolder(const MainForm& main) {
  return main.desk.DestThumbFrame.Visible();
}

// So many steps along the photos that the strip shows; empty where there are not so many.
std::string PhotoOfStrip(const FilmStripState& strip, int slot, int steps) {
  const int direction = steps < 0 ? -1 : 1;
  int left = std::abs(steps);
  while (left > 0) {
    slot += direction;
    if (slot < 1 || slot > strip.SrcSlotCount || !strip.SrcThumbnail.IsLoaded(slot)) return {};
    if (strip.SrcThumbnail(slot).Visible()) --left;
  }
  return slot >= 1 && strip.SrcThumbnail.IsLoaded(slot) ? PhotoOf(strip, slot) : std::string();
}

std::string PhotoOfFolder(const DesktopState& desk, int cell) {
  const bool there = cell >= 1 && cell <= desk.DestSlotCount && desk.DestThumbnail.IsLoaded(cell);
  return there ? PhotoOf(desk, cell) : std::string();
}

// In the pane, and at full size.
ReadAhead::PaintedSizes SizesOf(MainForm& main) {
  const ImageBox& pane = main.preview.PicPreview;
  Toolkit& toolkit = main.host.toolkit;
  return [inPane = PixelSize{pane.Width(), pane.Height()}, screen = toolkit.GetScreen(), fineness = toolkit.Fineness()](
             int width, int height) {
    const PixelSize photo{width, height};
    const PixelSize full = PaintedAtFullSize(photo, screen);
    const Rect fine = FineRect({0, 0, full.Width, full.Height}, fineness);
    return std::vector<PixelSize>{{fine.Width, fine.Height},
                                  OrElse(PixelSize(), [&] { return StretchedSize(inPane, photo); })};
  };
}

}  // namespace

std::string StepsAhead::PhotoFrom(int place, int steps) const {
  if (IsInOpenFolder(main_)) return PhotoOfFolder(main_.desk, place + steps * step_);
  return PhotoOfStrip(main_.strip, place, steps * step_);
}

// The one before is as near as the one after. The one that is shown is the one before when the next step has been made.
void StepsAhead::Follow(const std::string& shown) {
  if (main_.preview.bPreviewNoButtons) return;
  const bool inFolder = IsInOpenFolder(main_);
  const int place = OrElse(0, [&] { return inFolder ? SelectedCell(main_.desk) : SelectedSlot(main_.strip); });
  if (place == 0 || PhotoFrom(place, 0) != shown) {
    main_.host.readAhead.ExpectWhole({}, {});
    return;
  }
  const int moved = place - place_;
  if (place_ > 0 && moved != 0) {
    const bool byRow = inFolder && std::abs(moved) == main_.desk.DestColumns;
    step_ = byRow ? moved : std::clamp(moved, -1, 1);
  }
  place_ = place;
  std::vector<std::string> paths;
  for (const int steps : {1, -1, 2, 0, 3}) {
    std::string path = PhotoFrom(place, steps);
    if (!path.empty() && std::ranges::find(paths, path) == paths.end()) paths.push_back(std::move(path));
  }
  main_.host.readAhead.ExpectWhole(paths, SizesOf(main_));
}

void StepsAhead::Stop() {
  place_ = 0;
  step_ = 1;
  main_.host.readAhead.ExpectWhole({}, {});
}

}  // namespace pixorra
