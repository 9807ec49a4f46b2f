// What screen readers say of the main window's controls, beyond their captions and tool tips.
#include "app/Wiring.h"
#include "base/ShownNames.h"
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

void SpeakStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  const auto marked = [&strip](const Control& of) { return !strip.SrcThumbName(of.Index()).Tag().empty(); };
  Connect(strip.SrcThumbnail.On().SpokenName, [&main, marked](const Control& photo) {
    const std::string name = NameOfPhoto(main, photo.Tag());
    return name.empty() ? name : name + (marked(photo) ? ", dragged" : ", not dragged");
  });
  Connect(strip.SrcBackground.On().SpokenName, [&main](const Control& frame) {
    const std::string name = NameOfPhoto(main, main.strip.SrcThumbnail(frame.Index()).Tag());
    return name.empty() ? name : "Frame of " + name;
  });
  Connect(strip.SrcBackground.On().SpokenDescription, [marked](const Control& frame) {
    return std::string(marked(frame) ? "Double-Click to Recover Photo" : "Double-Click to Discard Photo");
  });
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
}

}  // namespace pixorra
