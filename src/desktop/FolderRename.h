// Renaming a folder of the Desktop in place: a box to type in takes the place of its name.
#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "platform/controls/Control.h"

namespace pixorra {

struct DesktopState;
struct MainForm;

// A rename is running: the box is up.
bool IsFolderBeingRenamed(const DesktopState& desk);
// Opens the box for the slot; a protected folder gets a message instead. Nothing for 0, for a slot that is not in use
// and for the Trashcan.
void RenameFolderStart(MainForm& main, int slot);
// Renames the slot's folder on the disk, or shows why that cannot be: it may be protected by now.
void RenameFolderFinish(MainForm& main, int slot, const std::string& name);
// What was typed so far is the new name. Nothing where no rename is running; where the slot shows another folder by
// now, the box is closed and nothing renamed.
void EndFolderRename(MainForm& main);

void FolderRenameBox_GotFocus(MainForm& main);
void FolderRenameBox_KeyPress(MainForm& main, int& code);

// A handler of a control's event, or a menu item's operation, that first ends a running rename. A message may come up
// in that: a control that has gone meanwhile gets no event.
template <typename Handler>
auto EndingRename(MainForm& main, Handler handler) {
  if constexpr (std::is_invocable_v<Handler>) {
    return [&main, handler] {
      EndFolderRename(main);
      handler();
    };
  } else {
    return [&main, handler]<typename... Args>(Control& control, Args&&... args) {
      const Watch<Control> watch(control);
      EndFolderRename(main);
      if (watch) handler(control, std::forward<Args>(args)...);
    };
  }
}

}  // namespace pixorra
