// Drags and drops: from the film strip, over the folders and into them.
#include <functional>

#include "app/Wiring.h"
#include "desktop/FolderRename.h"
#include "drop/DragGestures.h"
#include "drop/DropIntoFolder.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// The slot that a control is a target of drops for; 0: none.
using SlotOf = std::function<int(const Control&)>;

// What a drop on it does first, with the slot.
using BeforeDrop = std::function<void(int)>;

void ConnectTarget(MainForm& main, Events& on, const SlotOf& slotOf, const BeforeDrop& beforeDrop = {}) {
  Connect(on.DragOver, [&main, slotOf](Control& target, const DragArgs& drag) {
    if (slotOf(target) != 0) DragOverFolder(main, drag.Source, drag.State);
  });
  Connect(on.DragDrop, [&main, slotOf, beforeDrop](Control& target, const DragArgs& drag) {
    const int slot = slotOf(target);
    if (slot == 0) return;
    if (beforeDrop) beforeDrop(slot);
    DropOnFolder(main, slot, drag.Source);
  });
}

void ConnectFolderTargets(MainForm& main) {
  DesktopState& desk = main.desk;
  ConnectTarget(main, desk.DestFolderPreview.On(), [](const Control& preview) { return preview.Index(); });
  // A folder that shows its preview is no target beside it; one that does not shows it from its first photo on.
  const SlotOf slotOfIcon = [&desk](const Control& icon) {
    const int slot = icon.Index();
    return slot == TrashcanSlot || !desk.DestFolderPreview(slot).Visible() ? slot : 0;
  };
  ConnectTarget(main, desk.DestFolder.On(), slotOfIcon, [&desk](int slot) {
    if (slot != TrashcanSlot) desk.DestFolderPreview(slot).SetVisible(true);
  });
}

void ConnectViewTargets(MainForm& main) {
  DesktopState& desk = main.desk;
  for (Events* on : {&desk.DestThumbsWindow.On(), &desk.DestCanvas.On(), &desk.DestThumbnail.On(),
                     &desk.DestBackground.On(), &desk.DestThumbName.On()}) {
    ConnectTarget(main, *on, [&desk](const Control&) { return desk.OpenFolderIndex; });
  }
}

void ConnectSources(MainForm& main) {
  FilmStripState& strip = main.strip;
  // Both are targets of their own drag first: that is the press of the mouse.
  Connect(strip.SrcThumbnail.On().DragOver, EndingRename(main, [&main](Control& target, const DragArgs& drag) {
            SrcThumbnail_DragOver(main, target.Index(), drag.Source, drag.State);
          }));
  Connect(strip.SrcThumbnail.On().DragDrop, [&main](Control&, const DragArgs&) { SrcThumbnail_DragDrop(main); });
  Connect(strip.AllButton.On().DragOver, EndingRename(main, [&main](Control&, const DragArgs& drag) {
            AllButton_DragOver(main, drag.Source, drag.State);
          }));
  Connect(strip.AllButton.On().MouseMove, [&main](Control&, const MouseArgs&) { AllButton_MouseMove(main); });
}

}  // namespace

void ConnectDrop(MainForm& main) {
  ConnectFolderTargets(main);
  ConnectViewTargets(main);
  ConnectSources(main);
}

}  // namespace pixorra
