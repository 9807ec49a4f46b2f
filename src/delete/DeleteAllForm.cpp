#include "delete/DeleteAllForm.h"

#include <string>
#include <utility>
#include <vector>

#include "base/Definition.h"
#include "base/Routines.h"
#include "base/StampText.h"
#include "delete/AskedFolder.h"
#include "delete/DeleteConfirmation.h"
#include "delete/DeleteFilmStripLocation.h"
#include "filmstrip/Listing.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int PictureSize = 96;  // pixels

constexpr DeleteConfirmation::Texts Texts{
    .Form = "DeleteAllForm",
    .Caption = "Delete all photos in Film Strip",
    .Picture = "A strip of film",
    .Question =
        "Delete all photos in the current film strip whether they have been dragged into folders, or not.  "
        "This will also delete the Film Strip location.",
    .Subject = "DeleteAllMessage",
    .Button = "&Delete Film Strip"};

struct ListedPhoto {
  std::string Path;
  std::string Stamp;  // as StampText; empty for one that could not be looked at
};

std::vector<ListedPhoto> ListedPhotos(Files& files, const FileListBox& list) {
  std::vector<ListedPhoto> photos;
  for (int i = 0; i < list.ListCount(); ++i) {
    std::string path = JoinPath(StripTrailingBackslash(list.Path()), list.List(i));
    std::string stamp = StampText(files, path);
    photos.push_back({std::move(path), std::move(stamp)});
  }
  return photos;
}

std::string Message(const std::string& shownPath, std::size_t count) {
  if (count == 0) return "Delete [" + shownPath + "]";
  return "Delete all " + std::to_string(count) + " photos in    [" + shownPath + "]";
}

// The strip is loaded anew, from its cache, with the photos that are left.
void ReloadStrip(FilmStripState& strip) {
  strip.SrcFileList.Refresh();
  strip.SrcLoadedPath.clear();
}

void ForgetStrip(FilmStripState& strip) {
  strip.NoFilmStrip = true;
  strip.SrcLoadedPath.clear();
  ShowNoFilmStrip(strip);
  strip.SrcFileList.Refresh();
}

void DeleteAll(MainForm& main, const AskedFolder& folder, const std::vector<ListedPhoto>& photos, DeleteRun& run) {
  Files& files = main.host.files;
  for (const ListedPhoto& photo : photos) {
    if (!run.GoesOn()) break;
    run.Delete(
        photo.Path, [&] { return photo.Stamp.empty() || StampText(files, photo.Path) != photo.Stamp; },
        "The photo has been changed since the question.");
  }
  if (main.host.toolkit.Ended()) return;
  run.Flush();
  if (run.IsStopped()) {
    ReloadStrip(main.strip);
    return;
  }
  // In another folder of that name, nothing is to be deleted.
  if (folder.IsTheSame()) {
    QuickThumbsOf(main).DeleteQuickThumbs(folder.Path());
    DeleteFilmStripLocation(main, folder);
  }
  if (!main.host.toolkit.Ended()) ForgetStrip(main.strip);
}

}  // namespace

void ShowDeleteAllForm(MainForm& main) {
  const FileListBox& list = main.strip.SrcFileList;
  const std::vector<ListedPhoto> photos = ListedPhotos(main.host.files, list);
  const AskedFolder folder(main.host.files, list.Path());
  DeleteRun run(main, folder, "Unable to delete this Photo");
  DeleteConfirmation form(main, Texts,
                          {.Image = Drawing(main.host, "DeleteAll", PictureSize, PictureSize),
                           .Width = PictureSize,
                           .Height = PictureSize,
                           .Subject = Message(main.host.files.ShownPath(list.Path()), photos.size())});
  form.Show(run, [&] { DeleteAll(main, folder, photos, run); });
}

}  // namespace pixorra
