// Drags and drops: from the film strip, over the folders and into them.
#include <functional>

#include "app/Wiring.h"
#include "drop/DragGestures.h"
#include "drop/DropIntoFolder.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// The slot that a control stands for in a drop; 0: none.
using SlotOf = std::function<int(const Control&)>;

void ConnectTarget(MainForm& main, Events& on, const SlotOf& slotOf) {
  on.DragOver = [&main, slotOf](Control& target, Control& source, double, double, int state) {
    if (slotOf(target) != 0) DragOverFolder(main, source, state);
  };
  on.DragDrop = [&main, slotOf](Control& target, Control& source, double, double) {
    const int slot = slotOf(target);
    if (slot != 0) DropOnFolder(main, slot, source);
  };
}

void ConnectFolderTargets(MainForm& main) {
  DesktopState& desk = main.desk;
  ConnectTarget(main, desk.DestFolderPreview.On(), [](const Control& preview) { return preview.Index(); });
  // A folder that shows its preview is no target beside it.
  const SlotOf slotOfIcon = [&desk](const Control& icon) {
    const int slot = icon.Index();
    return slot == TrashcanSlot || !desk.DestFolderPreview(slot).Visible() ? slot : 0;
  };
  ConnectTarget(main, desk.DestFolder.On(), slotOfIcon);
  desk.DestFolder.On().DragDrop = [&main, slotOfIcon](Control& target, Control& source, double, double) {
    const int slot = slotOfIcon(target);
    if (slot == 0) return;
    if (slot != TrashcanSlot) main.desk.DestFolderPreview(slot).SetVisible(true);
    DropOnFolder(main, slot, source);
  };
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
  strip.SrcThumbnail.On().DragOver = [&main](Control& target, Control& source, double, double, int state) {
    SrcThumbnail_DragOver(main, target.Index(), source, state);
  };
  strip.SrcThumbnail.On().DragDrop = [&main](Control&, Control&, double, double) { SrcThumbnail_DragDrop(main); };
  strip.AllButton.On().DragOver = [&main](Control&, Control& source, double, double, int state) {
    AllButton_DragOver(main, source, state);
  };
  strip.AllButton.On().MouseMove = [&main](Control&, const MouseArgs&) { AllButton_MouseMove(main); };
}

}  // namespace

void ConnectDrop(MainForm& main) {
  ConnectFolderTargets(main);
  ConnectViewTargets(main);
  ConnectSources(main);
}

}  // namespace pixorra
