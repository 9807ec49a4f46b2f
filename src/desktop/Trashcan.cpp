#include "desktop/Trashcan.h"

#include "base/Host.h"
#include "base/Routines.h"
#include "pictures/QuickThumbs.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// The list is that of the Trashcan's own folder, and that is a folder and not a link to one.
bool ListsItsOwnFolder(MainForm& main, const FileListBox& list) {
  return OrElse(false, [&] {
    Files& files = main.host.files;
    const std::string own = TrashcanFolder(main.host.places);
    return !files.IsLink(own) && list.Path() == files.FolderPath(own);
  });
}

}  // namespace

std::string TrashcanFolder(Places& places) {
  return StripTrailingBackslash(places.ProgramFolder()) + "\\Trashcan";
}

void EmptyTrashcan(MainForm& main) {
  const FileListBox& list = main.desk.DestFolderFiles(TrashcanSlot);
  if (list.ListCount() == 0 || !ListsItsOwnFolder(main, list)) return;
  for (int i = 0; i < list.ListCount(); ++i) ErrorsIgnored([&] { main.host.files.Delete(list.FullPath(i)); });
  QuickThumbsOf(main).DeleteQuickThumbs(list.Path());
}

}  // namespace pixorra
