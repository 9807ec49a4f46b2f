#include "printing/BatchSource.h"

#include "base/Routines.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

const FileListBox& PhotoList(const MainForm& main, BatchSource source) {
  return source == BatchSource::FilmStrip ? main.strip.SrcFileList : main.desk.DestFileList;
}

int LoadedCount(const MainForm& main, BatchSource source) {
  return source == BatchSource::FilmStrip ? main.strip.SrcSlotCount : main.desk.DestSlotCount;
}

std::string LoadedPhoto(const MainForm& main, BatchSource source, int slot) {
  const ControlArray<ImageBox>& slots =
      source == BatchSource::FilmStrip ? main.strip.SrcThumbnail : main.desk.DestThumbnail;
  return slots.IsLoaded(slot) ? slots(slot).Tag() : std::string();
}

std::string LocationCaption(const MainForm& main, BatchSource source) {
  return source == BatchSource::FilmStrip ? main.strip.SrcFolderPath.Caption() : main.desk.DestContentsLabel.Caption();
}

ListedPhoto PhotoAt(const MainForm& main, BatchSource source, int index) {
  const FileListBox& list = PhotoList(main, source);
  if (index < 0 || index >= list.ListCount()) return {};
  const std::string& name = list.List(index);
  return {name, StripTrailingBackslash(list.Path()) + "\\" + name};
}

}  // namespace pixorra
