#include "drop/DragGestures.h"

#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "preview/PreviewPane.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

bool ShowsOnClick(const MainForm& main) {
  return main.preferences.AutoPreviewCheckBox.Value() == 1;
}

// While a box is shown within a drag, a move of the mouse must not show it once more.
BoxAnswer AskInDrag(MainForm& main, const std::string& text, BoxIcon icon, BoxButtons buttons,
                    const std::string& title) {
  main.drop.dragQuestionUp = true;
  const AtExit down([&main] { main.drop.dragQuestionUp = false; });
  return main.host.dialogs.MsgBox(text, icon, buttons, title);
}

}  // namespace

bool IsAllButton(const Control& source) {
  return UCase(source.Name()) == "ALLBUTTON";
}

void DragOverFolder(MainForm& main, Control& source, DragState state) {
  if (state == DragState::Enter) source.SetDragIcon(main.drop.DropIcon);
  if (state == DragState::Leave) source.SetDragIcon(IsAllButton(source) ? main.drop.ReelDragIcon : Picture());
}

void SrcThumbnail_DragOver(MainForm& main, int index, Control& source, DragState state) {
  if (source.Name() != "SrcThumbnail" || source.Index() != index || state != DragState::Enter) return;
  source.SetDragIcon(Picture());
  if (index <= 0) return;
  FilmStripState& strip = main.strip;
  main.desk.DestThumbFrame.SetVisible(false);
  SelectSlot(strip, index);
  strip.SrcScrollbar.SetFocus();
  if (ShowsOnClick(main)) PaintPicPreview(main, PhotoOf(strip, index));
}

void SrcThumbnail_DragDrop(MainForm& main) {
  FilmStripState& strip = main.strip;
  int selected = 0;
  ErrorsIgnored([&] { selected = SelectedSlot(strip); });
  if (!ShowsOnClick(main) && selected > 0 && strip.SrcThumbnail.IsLoaded(selected)) {
    PaintPicPreview(main, PhotoOf(strip, selected));
  }
  main.preview.bPicEdited = false;
}

void AllButton_DragOver(MainForm& main, Control& source, DragState state) {
  if (main.drop.dragQuestionUp) return;
  main.preview.bPicEdited = false;
  if (!IsAllButton(source) || state == DragState::Over) return;
  if (main.drop.DropAllRunning) {
    const BoxAnswer answer = AskInDrag(main, "Do you want to STOP this process?", BoxIcon::Question, BoxButtons::YesNo,
                                       "Dragging ALL remaining Photos");
    if (answer == BoxAnswer::Yes) {
      main.drop.DropAllAbort = true;
      return;
    }
  }
  if (main.strip.SrcSlotCount < SlotsWanted(main.strip)) {
    AskInDrag(main, "The thumbnails are still loading.\nWait until it is finished loading, then try again.",
              BoxIcon::Exclamation, BoxButtons::Ok, "WARNING: Can't Drag Film Strip yet.");
    return;
  }
  source.SetDragIcon(state == DragState::Enter ? Picture() : main.drop.ReelDragIcon);
}

void AllButton_MouseMove(MainForm& main) {
  FilmStripState& strip = main.strip;
  const int count = SlotsWanted(strip);
  const bool ready = count > 0 && count == strip.SrcSlotCount;
  strip.AllButton.SetMouseIcon(ready ? strip.BrowseButton.MouseIcon() : main.drop.NotReadyIcon);
}

}  // namespace pixorra
