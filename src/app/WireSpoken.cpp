// What screen readers say of the main window's controls, beyond their captions and tool tips.
#include "app/Keys.h"
#include "app/SpokenActions.h"
#include "app/Wiring.h"
#include "base/ShownNames.h"
#include "filmstrip/Listing.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

std::string NameOfPhoto(MainForm& main, const std::string& path) {
  return path.empty() ? std::string() : ShownFileName(main.host.files, path);
}

// Said along with another control, of which it is a part.
std::string Nothing(const Control&) {
  return {};
}

PlaceAmong PlaceInStrip(const FilmStripState& strip, const Control& photo) {
  return {ShownPlace(strip, photo.Index()), strip.SrcShownCount, SlotSelected(strip) == photo.Index()};
}

// The cell of the open folder whose photo is selected; 0 for none.
int CellSelected(const DesktopState& desk) {
  if (!desk.DestThumbFrame.Visible()) return 0;
  const int cell = OrElse(0, [&] { return SelectedCell(desk); });
  return cell >= 1 && cell <= desk.DestSlotCount ? cell : 0;
}

Control* SelectedThumbnail(MainForm& main) {
  if (const int slot = SlotSelected(main.strip)) return &main.strip.SrcThumbnail(slot);
  const int cell = CellSelected(main.desk);
  return cell != 0 ? &main.desk.DestThumbnail(cell) : nullptr;
}

void SpeakStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  const auto marked = [&strip](const Control& of) { return !strip.SrcThumbName(of.Index()).Tag().empty(); };
  Connect(strip.SrcThumbnail.On().SpokenName, [&main, marked](const Control& photo) {
    const std::string name = NameOfPhoto(main, photo.Tag());
    return name.empty() ? name : name + (marked(photo) ? ", dragged" : ", not dragged");
  });
  Connect(strip.SrcThumbnail.On().SpokenPlace, [&strip](const Control& photo) { return PlaceInStrip(strip, photo); });
  Connect(strip.SrcBackground.On().SpokenName, Nothing);
  Connect(strip.SrcThumbName.On().SpokenName, Nothing);
  strip.SrcScrollbar.SetAccessibleName("Film Strip");
}

void SpeakFolders(MainForm& main) {
  DesktopState& desk = main.desk;
  Connect(desk.DestFolder.On().SpokenName, [&desk](const Control& folder) {
    const int slot = folder.Index();
    const bool open = slot == desk.OpenFolderIndex;
    return Trim(desk.DestFolderName(slot).Caption()) + ", " + Trim(desk.DestPicsCount(slot).Caption()) +
           (open ? ", open" : ", closed");
  });
  Connect(desk.DestFolder.On().SpokenDescription,
          [&desk](const Control& folder) { return desk.DestFolderName(folder.Index()).ToolTipText(); });
  Connect(desk.DestFolderPreview.On().SpokenName, [&desk](const Control& preview) {
    return "Newest photo in " + Trim(desk.DestFolderName(preview.Index()).Caption());
  });
  Connect(desk.DestFolderName.On().SpokenName, Nothing);
  Connect(desk.DestPicsCount.On().SpokenName, Nothing);
  desk.DesktopImage.SetAccessibleName("Desktop");
  Connect(desk.DesktopImage.On().SpokenDescription, [&desk](const Control&) { return desk.ShowFolder.ToolTipText(); });
  desk.FolderRenameBox.SetAccessibleName("New name of the folder");
}

void SpeakPhotos(MainForm& main) {
  Connect(main.desk.DestThumbnail.On().SpokenName,
          [&main](const Control& photo) { return NameOfPhoto(main, photo.Tag()); });
  Connect(main.desk.DestThumbnail.On().SpokenPlace, [&main](const Control& photo) {
    return PlaceAmong{photo.Index(), main.desk.DestSlotCount, CellSelected(main.desk) == photo.Index()};
  });
  Connect(main.desk.DestThumbName.On().SpokenName, Nothing);
  main.desk.DestScrollbar.SetAccessibleName("Open Folder");
  Connect(main.preview.PicPreview.On().SpokenName, [&main](const Control& pane) {
    return pane.Tag().empty() ? std::string("Preview, empty") : "Preview of " + NameOfPhoto(main, pane.Tag());
  });
}

}  // namespace

void ConnectSpoken(MainForm& main) {
  SpeakStrip(main);
  SpeakFolders(main);
  SpeakPhotos(main);
  Connect(main.Window.On().SpokenChoice, [&main](const Control&) { return SelectedThumbnail(main); });
  ConnectSpokenActions(main);
}

}  // namespace pixorra
