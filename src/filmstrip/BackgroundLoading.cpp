#include "filmstrip/BackgroundLoading.h"

#include "core/Layout.h"
#include "core/MainForm.h"
#include "desktop/OpenFolderView.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Views.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr int GuardHeld = 12345;

bool IsPaused(const FilmStripState& strip) {
  return EqualIgnoringCase(strip.ThumbsPaused, "True");
}

void LoadOpenFolder(MainForm& main) {
  DesktopState& desk = main.desk;
  if (desk.DestFileList.Path() != desk.DestLoadedPath) {
    ClearDestThumbnails(main);
    desk.DestLoadedPath = desk.DestFileList.Path();
  }
  const bool missing = desk.DestSlotCount < desk.DestFileList.ListCount();
  if (desk.OpenFolderIndex != 0 && missing && !IsPaused(main.strip)) {
    AddDestThumbnail(main, NextDestThumbFile(main));
  }
}

void LoadFilmStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  if (strip.SrcFileList.Path() != strip.SrcLoadedPath) {
    ClearFilmStrip(main);
    strip.SrcLoadedPath = strip.SrcFileList.Path();
  }
  const bool missing = strip.SrcSlotCount < strip.SrcFileList.ListCount();
  if (!strip.NoFilmStrip && missing && !IsPaused(strip)) AddSrcSlot(main, NextSrcPhoto(main));
}

}  // namespace

void ThumbsTimer_Timer(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.ThumbsTimer.SetEnabled(false);
  // A long step has let the loop run while a run of this handler is still on its way.
  if (strip.ThumbsTimerGuard == GuardHeld) {
    strip.ThumbsTimer.SetEnabled(true);
    return;
  }
  strip.ThumbsTimerGuard = GuardHeld;
  if (main.core.LayoutCountdown > 0 && --main.core.LayoutCountdown == 0) Window_Layout(main);
  // On a screen that is too small the layout has ended the program.
  if (main.host.toolkit.Ended()) return;
  if (!strip.ThumbsTimer.Tag().empty()) {
    strip.ThumbsTimer.SetTag("");
    LoadOpenFolder(main);
  } else {
    strip.ThumbsTimer.SetTag("*");
    LoadFilmStrip(main);
  }
  strip.ThumbsTimerGuard = 0;
  strip.ThumbsTimer.SetEnabled(true);
}

std::string NextSrcPhoto(MainForm& main) {
  FilmStripState& strip = main.strip;
  return strip.loadedPaths.FirstMissing(strip.SrcFileList,
                                        [&](int slot) -> const std::string& { return strip.SrcThumbnail(slot).Tag(); });
}

}  // namespace pixorra
