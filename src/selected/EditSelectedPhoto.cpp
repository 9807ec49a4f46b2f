#include "selected/EditSelectedPhoto.h"

#include <string>

#include "base/Routines.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Shell.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// The folder that the other program starts in.
constexpr const char* StartFolder = "c:\\";

bool IsInCamera(const MainForm& main, const std::string& photo) {
  const std::string& camera = main.strip.CameraLocation;
  return !camera.empty() && StripTrailingBackslash(ParentPathOf(photo)) == StripTrailingBackslash(camera);
}

}  // namespace

void SelectedEditMenuItem_Click(MainForm& main) {
  const std::string photo = SelectedPhoto(main.preview);
  if (photo.empty()) {
    main.host.dialogs.Beep();
    return;
  }
  if (IsInCamera(main, photo)) {
    main.host.dialogs.MsgBox(
        "You cannot edit the photos inside the camera.\nDrag the photo into a folder first, then edit\nthat copy.",
        BoxIcon::Exclamation, BoxButtons::Ok, "Can't edit in Camera");
    return;
  }
  main.preview.bPicEdited = true;
  main.host.shell.Open(photo, StartFolder);
}

}  // namespace pixorra
