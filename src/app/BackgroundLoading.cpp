#include "app/BackgroundLoading.h"

#include <functional>
#include <vector>

#include "app/Hints.h"
#include "app/Layout.h"
#include "app/StripMedium.h"
#include "desktop/OpenFolderView.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Views.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"
#include "platform/services/ReadAhead.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"

namespace pixorra {

namespace {

bool IsPaused(const FilmStripState& strip) {
  return EqualIgnoringCase(strip.ThumbsPaused, "True");
}

LoadedPaths::PathOf SlotPaths(FilmStripState& strip) {
  return [&strip](int slot) -> const std::string& { return strip.SrcThumbnail(slot).Tag(); };
}

// False while the photo is still being decoded ahead: this turn is then left out. A photo whose thumbnail is in the
// cache need not wait. `following` returns so many photos, from `next` on.
bool IsPrepared(MainForm& main, ReadAhead::Reader reader, const std::string& next,
                const std::function<std::vector<std::string>(int)>& following) {
  ReadAhead& ahead = main.host.readAhead;
  const int depth = ahead.Depth();
  if (depth == 0 || next.empty() || QuickThumbsOf(main).HasQuickThumb(next)) return true;
  std::vector<std::string> paths = following(depth);
  std::erase_if(paths,
                [&](const std::string& path) { return path != next && QuickThumbsOf(main).HasQuickThumb(path); });
  ahead.Expect(reader, paths, main.pictures.lDecodeScale, ThumbnailSizes);
  return ahead.IsReady(next, main.pictures.lDecodeScale);
}

// A card that has been pulled out leaves what is loaded, and the rest away until it is back.
bool HasGone(MainForm& main, const FileListBox& list) {
  return !main.host.files.FolderExists(list.Path());
}

void LoadOpenFolder(MainForm& main) {
  DesktopState& desk = main.desk;
  if (desk.DestFileList.Path() != desk.DestLoadedPath) {
    ClearDestThumbnails(main);
    desk.DestLoadedPath = desk.DestFileList.Path();
  }
  const bool missing = desk.DestSlotCount < CellsWanted(desk);
  if (desk.OpenFolderIndex == 0 || !missing || IsPaused(main.strip) || HasGone(main, desk.DestFileList)) {
    main.host.readAhead.Expect(ReadAhead::Reader::OpenFolder, {}, 0, {});
    return;
  }
  const std::string next = NextDestThumbFile(desk);
  const auto following = [&](int most) { return NextDestThumbFiles(desk, most); };
  if (IsPrepared(main, ReadAhead::Reader::OpenFolder, next, following)) AddDestThumbnail(main, next);
}

void LoadFilmStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  if (strip.SrcFileList.Path() != strip.SrcLoadedPath) {
    ClearFilmStrip(main);
    strip.SrcLoadedPath = strip.SrcFileList.Path();
  }
  const bool missing = strip.SrcSlotCount < SlotsWanted(strip);
  if (strip.NoFilmStrip || !missing || IsPaused(strip) || HasGone(main, strip.SrcFileList)) {
    main.host.readAhead.Expect(ReadAhead::Reader::FilmStrip, {}, 0, {});
    return;
  }
  const std::string next = NextSrcPhoto(strip);
  const auto following = [&](int most) { return strip.loadedPaths.Missing(strip.SrcFileList, SlotPaths(strip), most); };
  if (IsPrepared(main, ReadAhead::Reader::FilmStrip, next, following)) AddSrcSlot(main, next);
}

}  // namespace

void ThumbsTimer_Timer(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.ThumbsTimer.SetEnabled(false);
  // A long step of this handler has let events run, and the timer has ticked meanwhile.
  if (strip.ThumbsTimerGuard == GuardHeld) {
    strip.ThumbsTimer.SetEnabled(true);
    return;
  }
  // The guard is held for one turn. Another turn follows also where a step of this one raises, until the program ends.
  strip.ThumbsTimerGuard = GuardHeld;
  const AtExit turnEnds([&main] {
    if (main.host.toolkit.Ended()) return;
    main.strip.ThumbsTimerGuard = 0;
    main.strip.ThumbsTimer.SetEnabled(true);
  });
  if (main.core.LayoutCountdown > 0 && --main.core.LayoutCountdown == 0) Window_Layout(main);
  // On a screen that is too small the layout has ended the program.
  if (main.host.toolkit.Ended()) return;
  ShowHints(main);
  WatchStripMedium(main);
  if (!strip.ThumbsTimer.Tag().empty()) {
    strip.ThumbsTimer.SetTag("");
    LoadOpenFolder(main);
  } else {
    strip.ThumbsTimer.SetTag("*");
    LoadFilmStrip(main);
  }
}

std::string NextSrcPhoto(FilmStripState& strip) {
  return strip.loadedPaths.FirstMissing(strip.SrcFileList, SlotPaths(strip));
}

}  // namespace pixorra
