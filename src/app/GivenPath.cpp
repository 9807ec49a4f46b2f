#include "app/GivenPath.h"

#include <utility>
#include <vector>

#include "app/SelectionKeys.h"
#include "base/PictureTypes.h"
#include "base/Routines.h"
#include "browse/BrowseFolderLocationForm.h"
#include "browse/CardFolders.h"
#include "browse/FindFolder.h"
#include "browse/FolderChoices.h"
#include "desktop/FolderRename.h"
#include "filmstrip/Listing.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/OneLine.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "preview/PreviewPane.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

constexpr int Interval = 50;  // milliseconds

void Refuse(MainForm& main, const std::string& path, const std::string& reason) {
  main.host.dialogs.MsgBox(OneLine(main.host.files.ShownPath(path)) + "\n" + reason, BoxIcon::Exclamation,
                           BoxButtons::Ok, "WARNING: Unable to Select Film Strip");
}

// A dialog or a menu is up, photos are dropped or printed, a folder's name is typed, or the program is about to end.
bool IsBusy(const MainForm& main) {
  const Toolkit& toolkit = main.host.toolkit;
  return !toolkit.TakesInput(main.Window) || toolkit.IsMenuUp() || toolkit.EndAsked() ||
         toolkit.Drag().Source != nullptr || main.drop.DropRunning || main.drop.DropAllRunning ||
         main.core.PrintJobRuns || IsFolderBeingRenamed(main.desk);
}

// Shows a photo that has no place in film strip and open folder yet: nothing that goes by a frame may take another for
// it.
void ShowAhead(MainForm& main, const std::string& photo) {
  main.strip.SrcThumbFrame.SetVisible(false);
  main.strip.SrcThumbFrame.SetTag("0");
  main.desk.DestThumbFrame.SetVisible(false);
  PaintPicPreview(main, photo);
}

bool IsReadable(Files& files, const std::string& folder) {
  return ErrorsIgnored([&] { files.CompleteNames(folder, AllPictures, 0); }) == error::None;
}

// As the list has it, by that spelling before any other; empty where it has no such photo.
std::string InList(const FileListBox& list, const std::string& name) {
  std::string found;
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) == name) return list.FullPath(i);
    if (found.empty() && EqualIgnoringCase(list.List(i), name)) found = list.FullPath(i);
  }
  return found;
}

// Empty for none.
std::string StripNow(const FilmStripState& strip) {
  return strip.NoFilmStrip ? std::string() : strip.SrcFileList.Path();
}

}  // namespace

GivenPath::GivenPath(MainForm& main) : main_(main), timer_(main.Window, "GivenPathTimer", Interval) {
  timer_.SetEnabled(false);
  Connect(timer_.On().Timer, [this](Control&) { Tick(); });
}

void GivenPath::Give(const std::string& path) {
  path_ = path;
  photo_.clear();
  timer_.SetEnabled(true);
}

void GivenPath::Tick() {
  // A menu may close without anything that would wake the timer.
  if (main_.host.toolkit.IsMenuUp()) return;
  if (IsBusy(main_)) return timer_.WasIdle(Timer::UntilSomethingRuns);
  const AtExit taken([this] {
    if (!main_.host.toolkit.Ended()) timer_.SetEnabled(!IsDone());
  });
  if (!path_.empty()) {
    Take(main_.host.files.ProgramPath(std::exchange(path_, {})));
  } else if (!photo_.empty() && !SelectWhenLoaded()) {
    timer_.WasIdle(Timer::UntilSomethingRuns);
  }
}

// A look at folders has let events run. What has been given since is taken instead.
bool GivenPath::MustWait(const std::string& path) {
  if (!IsBusy(main_) && path_.empty()) return false;
  if (path_.empty()) path_ = path;
  return true;
}

void GivenPath::Take(const std::string& path) {
  const std::string trimmed = StripTrailingBackslash(path);
  const std::string before = StripNow(main_.strip);
  const auto found = FindFolders(main_.host, {path, IsRootPath(path) ? path : ParentPathOf(trimmed)});
  if (main_.host.toolkit.Ended()) return;
  if (MustWait(path)) return;
  const bool isPhoto = !found[0] && found[1] && main_.host.files.FileExists(trimmed);
  if (!found[0] && !isPhoto) return Refuse(main_, path, "cannot be found or opened.");
  if (isPhoto && !MatchesPattern(FileNameOf(trimmed), AllPictures))
    return Refuse(main_, path, "is not a photo that Pixorra can show.");
  const std::string given = isPhoto ? *found[1] : *found[0];
  if (!IsReadable(main_.host.files, given)) return Refuse(main_, given, "cannot be read.");
  const PhotosOfCard photos = isPhoto ? PhotosOfCard{given} : FindPhotosOfCard(main_.host, given);
  if (main_.host.toolkit.Ended() || MustWait(path)) return;
  // What a person has chosen meanwhile stays.
  if (StripNow(main_.strip) != before) return;
  if (photos.AreInSeveral) {
    main_.preview.bPicEdited = false;
    return ShowBrowserAt(main_, photos.Folder);
  }
  const std::string& folder = photos.Folder;
  // Another photo of the film strip needs no question.
  const bool isHere = isPhoto && IsFilmStrip(main_.strip, folder);
  if (!isHere && !(MaySelectFilmStrip(main_, folder) && SelectFilmStrip(main_, folder))) return;
  main_.preview.bPicEdited = false;
  if (isPhoto && !main_.host.toolkit.Ended()) SelectPhoto(folder, FileNameOf(trimmed));
}

// A photo whose type is not shown now is in no list.
void GivenPath::SelectPhoto(const std::string& folder, const std::string& name) {
  FilmStripState& strip = main_.strip;
  if (!IsFilmStrip(strip, folder)) return;
  if (InList(strip.SrcFileList, name).empty()) strip.SrcFileList.Refresh();
  photo_ = InList(strip.SrcFileList, name);
  folder_ = folder;
  shown_ = false;
}

// The pane shows the photo at once; its thumbnail is loaded when the turn of it comes.
bool GivenPath::SelectWhenLoaded() {
  FilmStripState& strip = main_.strip;
  const bool here = IsFilmStrip(strip, folder_);
  if (here && strip.SrcLoadedPath != strip.SrcFileList.Path()) return false;
  // Somebody has selected another one meanwhile.
  const std::string pane = main_.preview.PicPreview.Tag();
  const bool anotherIsFramed = strip.SrcThumbFrame.Visible() || main_.desk.DestThumbFrame.Visible();
  const bool wanted = here && (!shown_ || (!anotherIsFramed && (pane.empty() || pane == photo_)));
  const int slot = wanted ? SlotOf(strip, photo_) : 0;
  if (slot > 0) {
    SelectSlotInStrip(main_, slot);
  } else if (wanted && !shown_) {
    shown_ = true;
    ShowAhead(main_, std::string(photo_));
    return true;
  } else if (wanted && strip.SrcSlotCount < SlotsWanted(strip)) {
    return false;
  }
  // Also where all are loaded: a photo that has gone before its turn gets no slot any more.
  photo_.clear();
  return true;
}

}  // namespace pixorra
