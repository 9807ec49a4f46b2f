#include "delete/DeleteFilmStripLocation.h"

#include <string>

#include "base/Routines.h"
#include "delete/AskedFolder.h"
#include "desktop/DelTreeModule.h"
#include "desktop/ProtectedFolders.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int Attempts = 10;
// Seconds between two attempts: time for the file system to let go of what has just been deleted.
constexpr double Pause = 0.1;

void ShowMessage(MainForm& main, BoxIcon icon, const std::string& reason) {
  main.host.dialogs.MsgBox("Can't delete the Film Strip Location\n" + reason, icon, BoxButtons::Ok,
                           "Photos have been Deleted");
}

void SayThatFilesAreLeft(MainForm& main) {
  ShowMessage(main, BoxIcon::Exclamation, "The Film Strip Location still contains other files.");
}

// Deliberate: the names of the camera's folder and of the Trashcan are compared letter by letter.
bool Stays(MainForm& main, const std::string& location) {
  return location == main.strip.CameraLocation || location == main.desk.DestFolderFiles(TrashcanSlot).Path() ||
         ProtectionOf(main.host, location) != Protection::None;
}

// Returns the error of the last attempt; None also where the program ends first.
int RemoveLocation(MainForm& main, const AskedFolder& location) {
  int failure = error::None;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    if (attempt > 0) main.host.toolkit.WaitFor(Pause);
    main.host.toolkit.DoEvents();
    if (main.host.toolkit.Ended()) return error::None;
    failure = ErrorsIgnored([&] {
      location.MustBeTheSame();
      main.host.files.RemoveFolder(location.Path());
    });
    if (failure == error::None) break;
  }
  return failure;
}

void SayWhyItStays(MainForm& main, const std::string& location, int failure) {
  if (failure == error::PathAccess) {
    // Hidden files are no other files in the count, and keep a folder no less.
    const FolderContents left =
        OrElse(FolderContents{.Files = 0, .Folders = 1}, [&] { return ContentsToLose(main.host.files, location); });
    if (left.Folders > 0) {
      ShowMessage(main, BoxIcon::Information,
                  "\nThe Film Strip contains a sub-folder\nDelete the sub-folder before trying again.");
      return;
    }
    if (left.Files > 0) {
      SayThatFilesAreLeft(main);
      return;
    }
  }
  main.host.dialogs.MsgBox(ErrorDescription(failure), BoxIcon::None, BoxButtons::Ok, ApplicationTitle);
}

}  // namespace

void DeleteFilmStripLocation(MainForm& main, const AskedFolder& location) {
  const std::string& path = location.Path();
  if (Stays(main, path)) return;
  if (TotalFilesRemaining(main.host.files, path) > 0) {
    SayThatFilesAreLeft(main);
    return;
  }
  const int failure = RemoveLocation(main, location);
  if (failure != error::None) {
    SayWhyItStays(main, path, failure);
    return;
  }
  ErrorsIgnored([&] { main.host.files.FlushFolder(ParentPathOf(path)); });
}

}  // namespace pixorra
