#include "app/Reset.h"

#include "browse/CameraVolume.h"
#include "desktop/Background.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

// Twips.
constexpr double FirstWidth = 11730;
constexpr double FirstHeight = 9090;

void ForgetStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.PreviousList.Clear();
  SetCameraLocation(main, "");
  // The root of its drive, so that no photo folder is held.
  ErrorsIgnored([&] { strip.SrcFileList.SetPath(strip.SrcFileList.Path().substr(0, 3)); });
  strip.NoFilmStrip = true;
  // The slots go also where the strip was that root.
  strip.SrcLoadedPath.clear();
  ShowNoFilmStrip(strip);
  // The last drop's photo leaves the strip.
  main.drop.ForgetLastDrop();
}

// One after the other is opened and taken off. One that can't be opened any more is taken off by that.
void TakeFoldersOff(MainForm& main) {
  DesktopState& desk = main.desk;
  for (int i = 1; i <= FolderSlots; ++i) {
    if (!IsSlotInUse(desk, i)) continue;
    Select_a_Folder(main, i);
    if (desk.OpenFolderIndex == i) Remove_Open_Folder(main);
  }
  if (desk.OpenFolderIndex != 0) Select_a_Folder(main, 0);
  ErrorsIgnored([&] { desk.DestFileList.SetPath(main.strip.SrcFileList.Path()); });
}

// False where the program has ended meanwhile.
bool PlaceWindow(MainForm& main) {
  Form& window = main.Window;
  window.SetWindowState(windowstate::Normal);
  main.host.toolkit.DoEvents();
  if (main.host.toolkit.Ended() || !window.IsLoaded()) return false;
  window.SetTwipsWidth(FirstWidth);
  window.SetTwipsHeight(FirstHeight);
  window.CentreOn(nullptr);
  return true;
}

}  // namespace

void ResetToNewInstallation(MainForm& main) {
  ForgetStrip(main);
  TakeFoldersOff(main);
  RestoreCloudScene(main);
  bool goesOn = true;
  // A window that can't be placed now keeps its place.
  ErrorsIgnored([&] { goesOn = PlaceWindow(main); });
  if (!goesOn) return;
  main.core.CompanyNameLabel.SetCaption("Pixorra - Kestrelia Corp");
  main.preferences.Default_Settings();
}

}  // namespace pixorra
