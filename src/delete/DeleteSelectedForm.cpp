#include "delete/DeleteSelectedForm.h"

#include <string>

#include "base/Routines.h"
#include "base/ShownNames.h"
#include "base/StampText.h"
#include "delete/AskedFolder.h"
#include "delete/DeleteConfirmation.h"
#include "desktop/OpenFolderView.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "filmstrip/Views.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewPane.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// Pixels: the pane's own, in small.
constexpr int PictureWidth = 160;
constexpr int PictureHeight = 119;

constexpr DeleteConfirmation::Texts Texts{.Form = "DeleteSelectedForm",
                                          .Caption = "Delete Selected Photo",
                                          .Picture = "The photo",
                                          .Question = "Do you want to delete this photo?",
                                          .Subject = "PhotoName",
                                          .Button = "&Delete it"};

// The photo that the form shows. Of one that cannot be shown it is the name, and the file as it is then.
struct ShownPhoto {
  ShownPhoto(MainForm& main, const std::string& path)
      : Path(path),
        Folder(main.host.files, ParentPathOf(path)),
        InPane(path == SelectedPhoto(main.preview)),
        Stamp(InPane ? main.preview.PicPreviewSize.Tag() : StampText(main.host.files, path)) {}

  std::string Path;
  AskedFolder Folder;
  bool InPane;
  std::string Stamp;
};

// A photo that cannot be shown is not the selected one for the pane; its frame in the film strip is there all the same.
std::string PhotoToDelete(MainForm& main) {
  const std::string& selected = SelectedPhoto(main.preview);
  if (!selected.empty() || !main.strip.SrcThumbFrame.Visible()) return selected;
  return OrElse(std::string(), [&] { return PhotoOf(main.strip, SelectedSlot(main.strip)); });
}

// Another file may have taken the photo's name while the question was up: nobody was asked about that one. A link in
// its place goes by itself.
void Delete(Files& files, const ShownPhoto& photo) {
  photo.Folder.MustBeTheSame();
  const bool known = !photo.InPane || !photo.Stamp.empty();
  if (files.FileExists(photo.Path) && !files.IsLink(photo.Path) &&
      (!known || StampText(files, photo.Path) != photo.Stamp))
    throw RuntimeError(error::PathAccess, "The photo has been changed since it was shown.");
  DeletePhoto(files, photo.Folder, photo.Path);
  ErrorsIgnored([&] { files.FlushFolder(photo.Folder.Path()); });
}

// Deliberate: where film strip and open folder show one folder, the photo is taken for one of the film strip. The slot
// that was selected there last leaves the strip, and the open folder's cell stays until the view is loaded anew.
void TakeOutOfStrip(MainForm& main, const std::string& photo) {
  FilmStripState& strip = main.strip;
  // The frame may be on another slot than that of the pane's photo, or on none yet.
  const bool goesByPhoto = strip.SrcThumbFrame.Visible() || SelectedSlot(strip) == 0;
  const int slot = goesByPhoto ? SlotOf(strip, photo) : SelectedSlot(strip);
  if (slot != 0) EmptySrcSlot(strip, slot);
  Redisplay_FilmStrip(main);
}

void TakeOutOfOpenFolder(MainForm& main, const std::string& photo) {
  DesktopState& desk = main.desk;
  DeleteDestThumbnail(desk, CellOf(desk, photo));
  desk.DestThumbFrame.SetVisible(false);
  Redisplay_DestThumbnails(main);
  const int slot = desk.OpenFolderIndex;
  // The Trashcan has no preview.
  if (slot == 0 || slot == TrashcanSlot) return;
  const Picture before = desk.DestFolderPreview(slot).GetPicture();
  ShowNewestPhoto(main, slot, desk.DestFolderFiles(slot).Path(), before);
}

// The window at full size, where it shows the photo.
void CloseWindowOf(MainForm& main, const std::string& photo) {
  if (main.preview.sFullSizeFile == photo) CloseFullSizePreview(main);
}

void DeleteSelected(MainForm& main, const ShownPhoto& photo) {
  Delete(main.host.files, photo);
  CloseWindowOf(main, photo.Path);
  if (!main.strip.NoFilmStrip && photo.Folder.Path() == StripTrailingBackslash(main.strip.SrcFileList.Path())) {
    TakeOutOfStrip(main, photo.Path);
  } else {
    TakeOutOfOpenFolder(main, photo.Path);
  }
  // A message on the way lets events run.
  if (!main.host.toolkit.Ended()) ResetPreview(main, ApplicationTitle);
}

void ShowFailure(MainForm& main, const ShownPhoto& photo, const RuntimeError& failure) {
  main.host.dialogs.MsgBox(main.host.files.ShownPath(photo.Path) + "\n\n" + failure.Description(), BoxIcon::Critical,
                           BoxButtons::Ok, "Unable to delete Selected Photo");
}

// The pane's picture or, where that is empty, the thumbnail.
Picture PictureOf(const MainForm& main) {
  const Picture& shown = main.preview.PicPreview.GetPicture();
  if (!shown.IsNothing()) return shown;
  return OrElse(Picture(), [&] { return main.strip.SrcThumbnail(SelectedSlot(main.strip)).GetPicture(); });
}

}  // namespace

void DeleteMenuItem_Click(MainForm& main) {
  if (SelectedPhoto(main.preview).empty()) return;
  if (main.drop.DropAllRunning) {
    main.host.dialogs.Beep();
    return;
  }
  ShowDeleteSelectedForm(main);
}

void ShowDeleteSelectedForm(MainForm& main) {
  const ShownPhoto photo(main, PhotoToDelete(main));
  DeleteConfirmation form(main, Texts,
                          {.Image = PictureOf(main),
                           .Width = PictureWidth,
                           .Height = PictureHeight,
                           .Subject = ShownFileName(main.host.files, photo.Path)});
  DeleteRun run(main, photo.Folder, "Unable to delete Selected Photo");
  form.Show(run, [&] {
    try {
      DeleteSelected(main, photo);
    } catch (const RuntimeError& failure) {
      ShowFailure(main, photo, failure);
    }
  });
}

}  // namespace pixorra
