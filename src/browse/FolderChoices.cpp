#include "browse/FolderChoices.h"

#include "base/ShownNames.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "filmstrip/PreviousFolders.h"
#include "pictures/QuickThumbs.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

bool AnswersYes(MainForm& main, const std::string& title, const std::string& question) {
  return main.host.dialogs.MsgBox(question, BoxIcon::Question, BoxButtons::YesNo, title) == BoxAnswer::Yes;
}

namespace {

// The loader takes the slots away, and would load the same folder anew.
void ClearFilmStripChoice(FilmStripState& strip) {
  strip.NoFilmStrip = true;
  strip.SrcLoadedPath.clear();
  ShowNoFilmStrip(strip);
}

void TakeOffDesktop(MainForm& main, int slot) {
  const int before = main.desk.OpenFolderIndex;
  Select_a_Folder(main, slot);
  // A folder that no longer exists has been taken off by the selection already.
  if (main.desk.OpenFolderIndex == slot) Remove_Open_Folder(main);
  if (before != slot) Select_a_Folder(main, before);
}

}  // namespace

bool MaySelectFilmStrip(MainForm& main, const std::string& path) {
  if (IsFilmStrip(main.strip, path) &&
      !AnswersYes(main, "The Film Strip has not changed", "Do you want to refresh the Film Strip?"))
    return false;
  for (int slot = 1; slot <= FolderSlots; ++slot) {
    DesktopState& desk = main.desk;
    // A slot that is not in use keeps the path of its last folder.
    if (!desk.DestFolder(slot).Visible() || desk.DestFolderFiles(slot).Path() != path) continue;
    if (!AnswersYes(main, "Already Selected as a Folder [" + ShownFolderName(main.host.files, path) + "]",
                    "Do you want to move the folder up to the film strip?"))
      return false;
    TakeOffDesktop(main, slot);
  }
  return true;
}

bool MayShowFolder(MainForm& main, const std::string& path) {
  if (path == main.desk.DestFolderFiles(TrashcanSlot).Path()) {
    main.host.dialogs.MsgBox("Select another folder", BoxIcon::Exclamation, BoxButtons::Ok,
                             "WARNING: Can't select the Trashcan");
    return false;
  }
  if (!IsFilmStrip(main.strip, path)) return true;
  if (!AnswersYes(main, "Already Selected as the Film Strip", "Do you want to Show the Film Strip as a Folder?"))
    return false;
  ClearFilmStripChoice(main.strip);
  return true;
}

bool SelectFilmStrip(MainForm& main, const std::string& path) {
  FilmStripState& strip = main.strip;
  if (ErrorsIgnored([&] { strip.SrcFileList.SetPath(path); }) != error::None) {
    main.host.dialogs.Beep();
    return false;
  }
  // The same folder is read anew too.
  strip.SrcFileList.Refresh();
  strip.SrcLoadedPath.clear();
  strip.NoFilmStrip = false;
  SrcFileList_PathChange(main);
  // The last drop's slot is another photo's now.
  main.drop.ForgetLastDrop();
  QuickThumbsOf(main).ClearQuickThumbMarks(strip.SrcFileList.Path());
  AddToPreviousList(strip, strip.SrcFileList.Path());
  return true;
}

int ShowFolderOnDesktop(MainForm& main, const std::string& path) {
  const int slot = Display_a_New_Folder(main, path);
  AddToPreviousList(main.strip, path);
  Select_a_Folder(main, slot);
  return slot;
}

bool IsDesktopFull(MainForm& main) {
  if (main.desk.FoldersShown != FolderSlots) return false;
  main.host.dialogs.MsgBox(
      "You already have a maximum of 8 folders on your desktop.\nPlease close one before trying again.",
      BoxIcon::Exclamation, BoxButtons::Ok, "WARNING: Unable to Show folder");
  return true;
}

}  // namespace pixorra
