#include "app/Shutdown.h"

#include "app/INIfile.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolderView.h"
#include "desktop/Trashcan.h"
#include "filmstrip/Views.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/ErrorReport.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"
#include "window/PreferencesForm.h"

namespace pixorra {

void Form_QueryUnload(MainForm& main) {
  EndFolderRename(main);
  if (main.preferences.EmptyTrashcanCheckbox.Value() == 1) EmptyTrashcan(main);
  // A state that cannot be saved gives a message and must not keep the window open.
  try {
    WriteSavedState(main);
  } catch (const RuntimeError& failure) {
    main.host.dialogs.MsgBox(ErrorReport(failure), BoxIcon::Critical, BoxButtons::Ok, ApplicationTitle);
  }
}

void SaveForSession(MainForm& main) {
  // A window that is not shown yet, or no longer, has not all of the state.
  if (main.Window.IsLoaded() && main.Window.Visible()) ErrorsIgnored([&] { WriteSavedState(main); });
}

void Form_Unload(MainForm& main) {
  main.modeless.UnloadAll();
  main.preferences.Window.Unload();
  QuickThumbsOf(main).DeleteQuickThumbs(main.strip.CameraLocation);
  ClearFilmStrip(main);
  ClearDestThumbnails(main);
  DestroyFolderSlots(main.desk);
  main.host.toolkit.End();
}

}  // namespace pixorra
