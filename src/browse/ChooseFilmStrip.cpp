#include "browse/ChooseFilmStrip.h"

#include "base/Routines.h"
#include "browse/BrowseFolderLocationForm.h"
#include "browse/CameraVolume.h"
#include "browse/FindFolder.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Clock.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

constexpr const char* Looking = "BUSY";

void Warn(MainForm& main, const std::string& title, const std::string& text) {
  main.host.dialogs.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, title);
}

void LoadCamera(MainForm& main) {
  FilmStripState& strip = main.strip;
  ErrorsIgnored([&] {
    strip.SrcFileList.SetPath(strip.CameraLocation);
    strip.SrcFileList.Refresh();
    // The strip reloads, also where this was its folder.
    strip.SrcLoadedPath.clear();
    strip.NoFilmStrip = false;
    SrcFileList_PathChange(main);
    QuickThumbsOf(main).ClearQuickThumbMarks(strip.CameraLocation);
  });
}

// Waiting for the camera lets events run: a second click meanwhile is not answered.
std::optional<std::string> FindCamera(MainForm& main) {
  ImageBox& button = main.strip.CameraButton;
  if (button.Tag() == Looking) return std::nullopt;
  button.SetTag(Looking);
  const AtExit done([&main] { main.strip.CameraButton.SetTag(""); });
  return FindFolder(main.host, main.strip.CameraLocation);
}

// The former film strip, now a folder; `path` is its.
void ShowFormerStrip(MainForm& main, const std::string& path) {
  if (path == main.desk.DestFolderFiles(TrashcanSlot).Path()) {
    Select_a_Folder(main, TrashcanSlot);
  } else {
    Select_a_Folder(main, Display_a_New_Folder(main, path));
  }
}

// False, after a message, where the open folder has gone.
bool MakeOpenFolderTheStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  const int slot = main.desk.OpenFolderIndex;
  if (ErrorsIgnored([&] { strip.SrcFileList.SetPath(main.desk.DestFolderFiles(slot).Path()); }) != error::None) {
    Select_a_Folder(main, slot);
    return false;
  }
  strip.NoFilmStrip = false;
  // The list raises nothing where it has had this path all along.
  SrcFileList_PathChange(main);
  Remove_Open_Folder(main);
  return true;
}

void Swap(MainForm& main) {
  FilmStripState& strip = main.strip;
  const std::string former = strip.SrcFileList.Path();
  const bool hadNone = strip.NoFilmStrip;
  if (main.desk.OpenFolderIndex != 0) {
    if (!MakeOpenFolderTheStrip(main)) return;
  } else {
    strip.NoFilmStrip = true;
    strip.SrcLoadedPath.clear();
    ShowNoFilmStrip(strip);
  }
  if (hadNone) {
    Select_a_Folder(main, 0);
  } else {
    ShowFormerStrip(main, former);
  }
  main.desk.DestLoadedPath.clear();
}

}  // namespace

void CameraButton_Click(MainForm& main) {
  main.preview.bPicEdited = false;
  FilmStripState& strip = main.strip;
  if (strip.CameraLocation.empty()) {
    Warn(main, "Select film strip in Camera", "You must first set the location of your camera.");
    ShowBrowser(main, BrowseMode::Camera);
    // The browser does not wait for an answer: there is no camera yet.
    return;
  }
  if (strip.CameraButton.Tag() == Looking) return;
  FollowCameraVolume(main);
  const bool there = FindCamera(main).has_value();
  if (main.host.toolkit.Ended()) return;
  if (!there) {
    Warn(main, "Warning: Select film strip in Camera",
         "Camera cannot be found\nPlease plug your camera in and try again.");
  } else if (main.host.dialogs.MsgBox(main.host.files.ShownPath(strip.CameraLocation) + "\n\nAre you Sure ?",
                                      BoxIcon::Question, BoxButtons::YesNo, "Select Camera Photos") == BoxAnswer::Yes) {
    LoadCamera(main);
  }
  main.drop.ForgetLastDrop();
  // Nothing of the camera is held that a look at another folder would have to let go.
}

void CameraLook::CameraButton_MouseMove() {
  constexpr double Pause = 1;  // seconds between two looks
  const std::string& location = main_.strip.CameraLocation;
  const double now = main_.host.clock.Seconds();
  if (location != asked_) {
    going_.reset();
    lookedAt_.reset();
  }
  if (location.empty()) {
    Show(false);
  } else if (going_ == nullptr && (!lookedAt_ || now - *lookedAt_ >= Pause)) {
    lookedAt_ = now;
    FollowCameraVolume(main_);
    asked_ = location;
    going_ = main_.host.folderReader.FindFolder(asked_, [this](const FolderReader::Answer& answer) {
      const auto looked = std::move(going_);
      // Another camera may have been set meanwhile.
      if (asked_ == main_.strip.CameraLocation) Show(answer.Error == error::None);
    });
  }
  // The look at this drive is asked for whatever drives there are. It costs nothing.
  static_cast<void>(main_.host.files.Attributes("z:"));
}

void CameraLook::Show(bool there) {
  FilmStripState& strip = main_.strip;
  if (there) {
    strip.CameraButton.SetMouseIcon(strip.BrowseButton.MouseIcon());
    return;
  }
  strip.CameraButton.SetMouseIcon(main_.drop.NotReadyIcon);
  QuickThumbsOf(main_).DeleteQuickThumbs(strip.CameraLocation);
}

void SwapButton_MouseDown(MainForm& main) {
  main.preview.bPicEdited = false;
  if (main.desk.OpenFolderIndex == 0 && main.strip.NoFilmStrip) {
    main.host.dialogs.Beep();
    return;
  }
  main.drop.ForgetLastDrop();
  Swap(main);
}

void SwapFolderMenuItem_Click(MainForm& main) {
  const int slot = main.desk.PopupFolderIndex;
  if (!IsSlotInUse(main.desk, slot)) {
    main.host.dialogs.Beep();
    return;
  }
  Select_a_Folder(main, slot);
  // One that no longer exists has been taken off the Desktop, with a message.
  if (main.desk.OpenFolderIndex == slot) Swap(main);
}

void SwapOpenFolderMenuItem_Click(MainForm& main) {
  main.desk.PopupFolderIndex = main.desk.OpenFolderIndex;
  SwapFolderMenuItem_Click(main);
}

}  // namespace pixorra
