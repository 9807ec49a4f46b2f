#include "app/Keys.h"

#include "app/KeyStops.h"
#include "app/Reset.h"
#include "app/SelectionKeys.h"
#include "desktop/FolderRename.h"
#include "desktop/FolderSlots.h"
#include "filmstrip/Marks.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/Dialogs.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

constexpr int AllShiftKeys = shift::Shift | shift::Ctrl | shift::Alt;

// What is typed is text, or the name of a folder is still to be settled.
bool IsNoCommand(const MainForm& main) {
  return IsFolderBeingRenamed(main.desk) || main.host.toolkit.IsTextTyped(main.Window);
}

// Keys that need neither a selection nor a focus; false where the key is none of them.
bool RunCommand(MainForm& main, int keyCode, int shift) {
  if (keyCode == key::F1 && shift == AllShiftKeys) {
    ResetToNewInstallation(main);
    return true;
  }
  if (keyCode == key::Space) {
    ImageBox& pane = main.preview.PicPreview;
    Raise(pane.On().MouseDown, static_cast<Control&>(pane), MouseArgs{.Button = button::Right});
    return true;
  }
  // With the Shift key too: there are keyboards that make their digits so.
  if (keyCode >= '1' && keyCode <= '9' && (shift & ~shift::Shift) == 0) {
    DropSelected(main, keyCode - '0');
    return true;
  }
  if (keyCode == key::Insert && shift == shift::None) {
    ToggleMarkOfSelected(main);
    return true;
  }
  return false;
}

}  // namespace

int SlotSelected(const FilmStripState& strip) {
  if (!strip.SrcThumbFrame.Visible()) return 0;
  const int slot = SelectedSlot(strip);
  const bool there = slot >= 1 && strip.SrcThumbnail.IsLoaded(slot) && strip.SrcThumbnail(slot).Visible();
  return there && !PhotoOf(strip, slot).empty() ? slot : 0;
}

void DropOnTarget(MainForm& main, int folder, Control& source) {
  DesktopState& desk = main.desk;
  if (!IsSlotInUse(desk, folder)) return;
  const bool onPreview = folder != TrashcanSlot && desk.DestFolderPreview(folder).Visible();
  ImageBox& target = onPreview ? desk.DestFolderPreview(folder) : desk.DestFolder(folder);
  Raise(target.On().DragDrop, static_cast<Control&>(target), DragArgs{source});
}

void DropSelected(MainForm& main, int folder) {
  const int slot = SlotSelected(main.strip);
  if (slot == 0 || !IsSlotInUse(main.desk, folder)) {
    main.host.dialogs.Beep();
    return;
  }
  DropOnTarget(main, folder, main.strip.SrcThumbnail(slot));
}

void ToggleMarkOfSelected(MainForm& main) {
  const int slot = SlotSelected(main.strip);
  if (slot == 0) {
    main.host.dialogs.Beep();
  } else {
    SrcBackground_DblClick(main, slot);
  }
}

void Form_KeyDown(MainForm& main, int& keyCode, int shift) {
  if (IsNoCommand(main)) return;
  // It waits for an answer, or lets events run.
  if (main.drop.DropRunning) {
    // The character that the Esc key makes stops a run.
    if (keyCode != key::Escape) keyCode = 0;
    return;
  }
  if (RunCommand(main, keyCode, shift) || MoveSelection(main, keyCode) || UseKeyOnFocus(main, keyCode, shift))
    keyCode = 0;
}

}  // namespace pixorra
