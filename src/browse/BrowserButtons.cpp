// What the browser's buttons do.
#include "base/Routines.h"
#include "base/ShownNames.h"
#include "browse/BrowseFolderLocationForm.h"
#include "browse/CameraVolume.h"
#include "browse/FolderChoices.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "utility/HelpPages.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// The caption of the button names the action.
bool Names(const CommandButton& button, const char* action) {
  return UCase(button.Caption()) == action;
}

std::string FreeNameIn(Files& files, const std::string& folder) {
  const std::string path = StripTrailingBackslash(folder) + "\\New Folder";
  std::string free = path;
  for (int counter = 1; files.FolderExists(free); ++counter) free = path + " " + std::to_string(counter);
  return free;
}

}  // namespace

bool BrowseFolderLocationForm::PutOff(std::function<void()> action) {
  if (listing_ == nullptr && finding_ == nullptr) return false;
  whenListed_ = std::move(action);
  return true;
}

void BrowseFolderLocationForm::SelectButton_Click() {
  if (PutOff([this] { SelectButton_Click(); })) return;
  if (Names(SelectButton, "SHOW FOLDER")) ShowFolder();
  if (Names(SelectButton, "SELECT FILM STRIP")) UseAsFilmStrip();
  if (Names(SelectButton, "SET CAMERA LOCATION")) UseAsCamera();
}

void BrowseFolderLocationForm::ShowFolder() {
  const std::string path = File1.Path();
  if (!MayShowFolder(main_, path)) return;
  Window.Hide();
  ShowFolderOnDesktop(main_, path);
  main_.preview.bPreviewNoButtons = false;
  Close();
}

void BrowseFolderLocationForm::UseAsFilmStrip() {
  const std::string path = File1.Path();
  if (MaySelectFilmStrip(main_, path) && SelectFilmStrip(main_, path)) Close();
}

void BrowseFolderLocationForm::UseAsCamera() {
  const std::string path = File1.Path();
  if (!AnswersYes(main_, "Set Camera Location",
                  "You are about to set the default 'Drive/Location' for the\n"
                  "photos stored in your Camera. This film strip can then be\n"
                  "selected by clicking on the Camera Icon on the tool bar.\n\nAre you Sure?"))
    return;
  Window.Hide();
  SetCameraLocation(main_, path);
  main_.preview.bPreviewNoButtons = false;
  Close();
}

bool BrowseFolderLocationForm::MayCreateIn(const std::string& folder) {
  for (int slot = 1; slot <= FolderSlots; ++slot) {
    const DesktopState& desk = main_.desk;
    if (!IsSlotInUse(desk, slot) || desk.DestFolderFiles(slot).Path() != folder) continue;
    const std::string name = ShownFolderName(main_.host.files, folder);
    const std::string text = "You are about to create a 'New Folder' within the folder '" + name +
                             "' which is already\nshown in the work area. This is NOT recommended as the contents of "
                             "the 'New Folder' could be\n"
                             "accidentally lost if the parent folder '" +
                             name + "' is later deleted.\n\nDo you want to continue?";
    if (!AnswersYes(main_, "Warning - Creating a New Folder", text)) return false;
  }
  return true;
}

void BrowseFolderLocationForm::CreateButton_Click() {
  if (PutOff([this] { CreateButton_Click(); })) return;
  const std::string parent = File1.Path();
  if (!MayCreateIn(parent)) return;
  Files& files = main_.host.files;
  const std::string path = FreeNameIn(files, parent);
  std::string failure;
  try {
    files.MakeFolder(path);
  } catch (const RuntimeError& refused) {
    failure = refused.Description();
  }
  if (!failure.empty()) {
    main_.host.dialogs.MsgBox(failure, BoxIcon::Exclamation, BoxButtons::Ok, "WARNING: Unable to create a new folder");
    return;
  }
  File1.SetListing(path, main_.core.PicturePattern, {});
  Close();
  // Its name is typed at once.
  RenameFolderStart(main_, ShowFolderOnDesktop(main_, path));
}

void BrowseFolderLocationForm::HelpButton_Click() {
  if (Names(SelectButton, "SHOW FOLDER")) ShowHelp(main_, HelpTopic::ShowFolder);
  if (Names(SelectButton, "SELECT FILM STRIP")) ShowHelp(main_, HelpTopic::SelectFilmStrip);
  if (Names(SelectButton, "SET CAMERA LOCATION")) ShowHelp(main_, HelpTopic::SetCameraLocation);
}

}  // namespace pixorra
