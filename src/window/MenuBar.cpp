#include "window/MenuBar.h"

namespace pixorra {

namespace {

// What has no operation yet cannot be chosen.
void DisableItems(MenuItem& menu) {
  for (MenuItem* item : menu.Items()) {
    DisableItems(*item);
    if (item->Items().empty() && !item->IsSeparator()) item->SetEnabled(false);
  }
}

}  // namespace

MenuBar::MenuBar(Form& window) : window_(window) {
  for (MenuItem* popup : {&FolderPopupMenu, &TrashcanPopupMenu, &PrintPopupMenu}) popup->SetVisible(false);
  SlideShowSpeedMediumMenuItem.SetChecked(true);
  SlideShowTitleCounterMenuItem.SetChecked(true);
  for (MenuItem* menu : window_.Menus()) DisableItems(*menu);
}

void Connect(MenuItem& item, const std::function<void()>& operation) {
  Connect(item.On().Click, [operation](Control&) { operation(); });
  item.SetEnabled(true);
}

}  // namespace pixorra
