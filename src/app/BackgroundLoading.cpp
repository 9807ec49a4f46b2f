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

constexpr int BothSides = 2;  // turns

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

// A card that has been pulled out leaves what is loaded, and the rest away until it is back. Until then each turn finds
// nothing, and it is looked for only in those that are not left out.
bool HasGone(MainForm& main, const FileListBox& list) {
  return !main.host.files.FolderExists(list.Path());
}

// False: there is nothing to load, or it is not there.
bool LoadOpenFolder(MainForm& main) {
  DesktopState& desk = main.desk;
  const bool changed = desk.DestFileList.Path() != desk.DestLoadedPath;
  if (changed) {
    ClearDestThumbnails(main);
    desk.DestLoadedPath = desk.DestFileList.Path();
  }
  const bool wanted = desk.OpenFolderIndex != 0 && desk.DestSlotCount < CellsWanted(desk) && !IsPaused(main.strip);
  if (!wanted || HasGone(main, desk.DestFileList)) {
    main.host.readAhead.Expect(ReadAhead::Reader::OpenFolder, {}, 0, {});
    return changed;
  }
  const std::string next = NextDestThumbFile(desk);
  const auto following = [&](int most) { return NextDestThumbFiles(desk, most); };
  if (IsPrepared(main, ReadAhead::Reader::OpenFolder, next, following)) AddDestThumbnail(main, next);
  return true;
}

bool LoadFilmStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  const bool changed = strip.SrcFileList.Path() != strip.SrcLoadedPath;
  if (changed) {
    ClearFilmStrip(main);
    strip.SrcLoadedPath = strip.SrcFileList.Path();
  }
  const bool wanted = !strip.NoFilmStrip && strip.SrcSlotCount < SlotsWanted(strip) && !IsPaused(strip);
  if (!wanted || HasGone(main, strip.SrcFileList)) {
    main.host.readAhead.Expect(ReadAhead::Reader::FilmStrip, {}, 0, {});
    return changed;
  }
  const std::string next = NextSrcPhoto(strip);
  const auto following = [&](int most) { return strip.loadedPaths.Missing(strip.SrcFileList, SlotPaths(strip), most); };
  if (IsPrepared(main, ReadAhead::Reader::FilmStrip, next, following)) AddSrcSlot(main, next);
  return true;
}

// The film strip's turns and the open folder's alternate, by the timer's tag. True: the turn has found something to do.
bool TakeTurn(MainForm& main) {
  Timer& timer = main.strip.ThumbsTimer;
  const bool ofStrip = timer.Tag().empty();
  timer.SetTag(ofStrip ? "*" : "");
  return ofStrip ? LoadFilmStrip(main) : LoadOpenFolder(main);
}

// The turns that were left out count as any others.
void CountLeftOut(FilmStripState& strip) {
  const int turns = strip.ThumbsTimer.LeftOut();
  strip.SrcMedium.Turns += turns;
  if (turns % 2 != 0) strip.ThumbsTimer.SetTag(strip.ThumbsTimer.Tag().empty() ? "*" : "");
}

}  // namespace

void ThumbsTimer_Timer(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.ThumbsTimer.SetEnabled(false);
  CountLeftOut(strip);
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
  const bool settled = main.core.LayoutCountdown == 0;
  if (!settled && --main.core.LayoutCountdown == 0) Window_Layout(main);
  // On a screen that is too small the layout has ended the program.
  if (main.host.toolkit.Ended()) return;
  ShowHints(main);
  const bool found = WatchStripMedium(main);
  if (!TakeTurn(main) && !found && settled) strip.ThumbsTimer.WasIdle(TurnsWithoutLook(strip), BothSides);
}

std::string NextSrcPhoto(FilmStripState& strip) {
  return strip.loadedPaths.FirstMissing(strip.SrcFileList, SlotPaths(strip));
}

}  // namespace pixorra
