#include "window/FilmStripState.h"

#include "base/Definition.h"
#include "base/Palette.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

FilmStripState::FilmStripState(Form& window, Host& host) : window_(window), host_(host) {
  DefineStrip(host);
  DefineButtons(host);
  PreviousList.SetVisible(false);
}

void FilmStripState::DefineStrip(Host& host) {
  SrcBackShape.SetFill(palette::Band);
  SrcBackShape.SetBorder(palette::Band, 0);
  for (Label* label : {&SrcPicsTotal, &SrcFolderPath, &SrcPicsCount}) label->SetForeColor(palette::BandText);
  Place(SrcPicsTotal, 4080, 0, 1095, 255);
  Place(SrcFolderPath, 5280, 0, 4980, 240);
  Place(SrcPicsCount, 10320, 0, 1095, 255);
  SrcFolderPath.SetAlignment(Alignment::Center);
  SrcFolderPath.SetShortensInMiddle(true);
  SrcPicsCount.SetAlignment(Alignment::Right);
  Place(SrcThumbsWindow, 4080, 240, 7335, 1630);
  SrcThumbsWindow.SetBackColor(palette::Film);
  SrcCanvas.SetBackColor(palette::Film);
  for (PictureBox* box : {&SrcThumbsWindow, &SrcCanvas})
    box->SetRowPicture(Drawing(host, "FilmLeader", SrcFrameWidth, SrcFrameHeight));
  Place(SrcScrollbar, 4080, 1860, 7335, 255);

  SrcBackground(0).SetPicture(Drawing(host, "SrcBackground", SrcFrameWidth, SrcFrameHeight));
  SrcThumbnail(0).SetStretch(true);
  SrcThumbnail(0).SetShowsPhotoOfTag(true);
  SrcThumbnail(0).Move(0, 0, ThumbnailWidth, ThumbnailHeight);
  SrcThumbnail(0).SetToolTipText("Drag Photo into a folder");
  SrcThumbnail(0).SetAutomaticDrag(true);
  SrcThumbnail(0).SetMousePointer(pointer::Hand);
  SrcThumbName(0).Move(0, 0, ThumbnailWidth, ThumbNameHeight);
  SrcThumbName(0).SetForeColor(palette::FilmText);
  SrcThumbName(0).SetAlignment(Alignment::Center);
  SrcThumbName(0).SetShortensInMiddle(true);
  SrcThumbName(0).SetFont({"", 8, false});
  SrcThumbFrame.SetBorder(palette::Selection, 3);
  SrcThumbFrame.SetVisible(false);
  NoFilmStripHint.SetCaption("Choose the camera, or browse for a folder of photos");
  NoFilmStripHint.SetForeColor(palette::FilmText);
  NoFilmStripHint.SetFont({"", 11, false});
  NoFilmStripHint.SetAutoSize(true);
  NoFilmStripHint.SetVisible(false);
}

void FilmStripState::DefineButtons(Host& host) {
  const struct {
    ImageBox& button;
    const char* name;
    const char* toolTip;
  } buttons[] = {
      {CameraButton, "CameraButton", "Select the photos in the Camera"},
      {BrowseButton, "BrowseButton", "Select a Film Strip"},
      {SwapButton, "SwapButton", "Swap Film Strip with Open Folder"},
      {DeleteButton, "DeleteButton", "Delete Photos in Film Strip"},
      {UndoButton, "UndoButton", "Undo last Drop"},
      {AllButton, "AllButton", "Drag All Remaining Photos"},
      {PrintButton, "PrintButton", "Print"},
  };
  for (const auto& [button, name, toolTip] : buttons) {
    button.SetStretch(true);
    Place(button, 4080, 2175, 540, 540);
    button.SetPicture(Drawing(host, name, 36, 36));
    button.SetPressedPicture(Drawing(host, std::string(name) + "Pressed", 36, 36));
    button.SetToolTipText(toolTip);
    button.SetMousePointer(pointer::Custom);
    button.SetMouseIcon(Drawing(host, "HandPointer", 32, 32));
  }
  AllButton.SetAutomaticDrag(true);

  Place(FilmStripModeFrame, 8760, 2175, 2655, 495);
  FilmStripModeFrame.SetCaption("Display Film Strip");
  FilmStripModeFrame.SetColors(palette::BandText, palette::Band);
  AllOption.SetCaption("All");
  AllOption.SetToolTipText("Display ALL photos in Film Strip");
  AllOption.Move(4, 14, 36, 17);
  RemainingOption.SetCaption("Remaining");
  RemainingOption.SetToolTipText("Display only photos that have NOT been dragged");
  RemainingOption.Move(44, 14, 80, 17);
  AutoScrollOption.SetCaption("Auto");
  AutoScrollOption.SetToolTipText("Auto Scroll dragged photos");
  AutoScrollOption.Move(128, 14, 48, 17);
  AutoScrollOption.SetValue(true);
}

int SelectedSlot(const FilmStripState& strip) {
  return CLng(Val(strip.SrcThumbFrame.Tag()));
}

// The frame moves to the slot's thumbnail.
void SelectSlot(FilmStripState& strip, int slot) {
  const ImageBox& thumbnail = strip.SrcThumbnail(slot);
  strip.SrcThumbFrame.Move(thumbnail.Left(), thumbnail.Top());
  strip.SrcThumbFrame.SetVisible(true);
  strip.SrcThumbFrame.SetTag(TrimmedStr(slot));
}

}  // namespace pixorra
