#include "app/Startup.h"

#include "app/INIfile.h"
#include "app/Layout.h"
#include "app/Preferences.h"
#include "app/Seeding.h"
#include "app/Shutdown.h"
#include "app/Wiring.h"
#include "base/Bars.h"
#include "base/Routines.h"
#include "desktop/Background.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolderView.h"
#include "filmstrip/Listing.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Places.h"
#include "platform/services/Printing.h"
#include "preview/PreviewPane.h"
#include "shell/FolderShortcut.h"
#include "shell/SlideShow.h"
#include "utility/frmAbout.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

void ClearFields(MainForm& main) {
  main.drop.DropAllRunning = false;
  main.drop.DropAllAbort = false;
  main.strip.ThumbsPaused = "False";
  main.core.PicturePattern = AllPictures;
  main.strip.SrcFileList.SetPattern(main.core.PicturePattern);
  main.desk.DestFileList.SetPattern(main.core.PicturePattern);
  main.desk.DestFolderFiles(0).SetPattern(main.core.PicturePattern);
  main.desk.DestCountLabel.SetCaption("");
  main.strip.SrcSlotCount = 0;
  main.desk.DestSlotCount = 0;
  main.strip.SrcLoadedPath.clear();
  main.desk.DestLoadedPath.clear();
  main.strip.NoFilmStrip = true;
  main.strip.CameraLocation.clear();
  // The root of the current drive, so that no photo folder is held.
  main.strip.SrcFileList.SetPath(main.strip.SrcFileList.Path().substr(0, 3));
  ShowNoFilmStrip(main.strip);
}

void SetGeometry(MainForm& main) {
  FilmStripState& strip = main.strip;
  DesktopState& desk = main.desk;
  desk.FoldersShown = 0;
  desk.OpenFolderIndex = 0;
  desk.DestColumns = 2;
  strip.SrcPageBase = 0;
  desk.DestPageBase = 0;
  for (ScrollBar* bar : {&strip.SrcScrollbar, &desk.DestScrollbar}) {
    bar->SetLargeChange(1);
    bar->SetMax(LeastBarMax);
  }
  strip.SrcCanvas.Move(-SrcFrameWidth, 0, strip.SrcThumbsWindow.Width(), strip.SrcThumbsWindow.Height());
  desk.DestCanvas.Move(0, -CellHeight, desk.DestThumbsWindow.Width(), desk.DestThumbsWindow.Height());
  strip.SrcThumbnail(0).Move(0, 0, ThumbnailWidth, ThumbnailHeight);
  desk.DestThumbnail(0).Move(0, 0, ThumbnailWidth, ThumbnailHeight);
  strip.SrcThumbFrame.Move(0, 0, strip.SrcThumbnail(0).Width(), strip.SrcThumbnail(0).Height());
  desk.DestThumbFrame.Move(0, 0, desk.DestThumbnail(0).Width(), desk.DestThumbnail(0).Height());
}

void ClearUndoAndPreview(MainForm& main) {
  main.drop.ForgetLastDrop();
  ResetPreview(main);
  main.desk.PopupFolderIndex = 0;
}

void StartTimers(MainForm& main) {
  main.preview.AutoPicPreviewTimer.SetEnabled(true);
  main.core.SystemResourceStatusTimer.SetEnabled(true);
  main.strip.ThumbsTimer.SetEnabled(true);
  main.strip.AutoScrollPending = false;
  main.strip.AutoScrollTimer.SetEnabled(true);
}

void Form_Load(MainForm& main) {
  main.Window.SetCaption(std::string(ApplicationTitle) + " v" + std::to_string(VersionMajor) + "." +
                         std::to_string(VersionMinor) + std::to_string(VersionRevision));
  ErrorsIgnored([&] {
    main.host.printing.SetTrackDefault(true);
    main.host.printing.WhenDefaultIsKnown([&main](const std::string& name) { main.core.DefaultPrinterName = name; });
  });
  ClearFields(main);
  SetGeometry(main);
  CreateFolderSlots(main.desk, main.host);
  ClearDestThumbnails(main);
  ClearUndoAndPreview(main);
  AddFolderShortcutAtFirstStart(main.host);
  frmAbout splash(main.host);
  splash.ShowSplash(main.Window);
  ReadSavedState(main);
  ApplyPicturePattern(main);
  LoadBackground(main);
  TakeFocusOff(main.strip.SrcScrollbar);
  TakeFocusOff(main.desk.DestScrollbar);
  splash.Window.Unload();
  StartTimers(main);
  main.core.LayoutCountdown = 1;
}

}  // namespace

void ConnectEvents(MainForm& main) {
  Events& window = main.Window.On();
  Connect(window.Load, [&main](Control&) { Form_Load(main); });
  Connect(window.Resize, [&main](Control&) { Form_Resize(main); });
  Connect(window.QueryUnload, [&main](Control&) { Form_QueryUnload(main); });
  Connect(window.Unload, [&main](Control&) { Form_Unload(main); });
  Connect(window.KeyPress, [&main](Control&, int& code) {
    // The box in which a folder is renamed has its own use for the key.
    if (code == key::Escape && !IsFolderBeingRenamed(main.desk)) main.drop.DropAllAbort = true;
  });
  Connect(main.menu.ExitMenuItem, [&main] { main.Window.Unload(); });
  Connect(main.menu.PreferenceMenuItem, [&main] { PreferenceMenuItem_Click(main); });
  Connect(main.preferences.CloseButton.On().Click, [&main](Control&) { main.preferences.Window.Hide(); });
  ConnectFilmStrip(main);
  ConnectPreview(main);
  ConnectDesktop(main);
  ConnectDrop(main);
  ConnectDelete(main);
  ConnectSelected(main);
  ConnectClipboard(main);
  ConnectBrowse(main);
  ConnectPrinting(main);
  ConnectShell(main);
  ConnectHelp(main);
  ConnectKeys(main);
  ConnectSpoken(main);
}

void StartUp(MainForm& main) {
  SeedShippedFiles(main.host.files, main.host.places, main.host.shipped);
  ProvideCompanion(main.host.places, main.host.shell);
  main.preferences.Window.Load();
  main.Window.Load();
  if (!main.Window.IsLoaded()) return;
  // Not before: what is to be saved has been read.
  main.host.toolkit.SetEnder([&main] { main.Window.Unload(); });
  main.Window.Show();
  Window_Layout(main);
}

}  // namespace pixorra
