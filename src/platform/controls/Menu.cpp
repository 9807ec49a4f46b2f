#include "platform/controls/Menu.h"

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

MenuItem::MenuItem(Form& form, const std::string& name, const std::string& caption)
    : Control(&form, Kind::MenuItem, std::make_shared<Identity>(Identity{name, {}}), 0), caption_(caption) {
  form.AddMenu(*this);
}

MenuItem::MenuItem(MenuItem& parent, const std::string& name, const std::string& caption, int shortcutKey,
                   int shortcutShift)
    : Control(&parent.GetForm(), Kind::MenuItem, std::make_shared<Identity>(Identity{name, {}}), 0),
      caption_(caption),
      parent_(&parent),
      shortcutKey_(shortcutKey),
      shortcutShift_(shortcutShift) {
  parent.items_.push_back(this);
}

// Both ways, as neither the menu above nor the items below need outlive it.
MenuItem::~MenuItem() {
  for (MenuItem* item : items_) item->parent_ = nullptr;
  if (parent_ != nullptr) std::erase(parent_->items_, this);
  if (GetContainer() == nullptr) return;
  if (parent_ == nullptr) GetForm().RemoveMenu(*this);
  Tell();
}

void MenuItem::SetCaption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Tell();
}

void MenuItem::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  Tell();
}

void MenuItem::VisibleChanged() {
  Tell();
}

void MenuItem::EnabledChanged() {
  Tell();
}

void MenuItem::Tell() {
  GetForm().MenuChanged();
}

bool MenuItem::CanBeChosen() const {
  for (const MenuItem* item = this; item != nullptr; item = item->parent_) {
    if (!item->Enabled()) return false;
  }
  return true;
}

void MenuItem::UserClicked() {
  if (CanBeChosen()) Raise(On().Click, static_cast<Control&>(*this));
}

std::string MenuItem::ShortcutText() const {
  if (shortcutKey_ == 0) return {};
  std::string text;
  if ((shortcutShift_ & shift::Shift) != 0) text += "Shift+";
  if ((shortcutShift_ & shift::Ctrl) != 0) text += "Ctrl+";
  if ((shortcutShift_ & shift::Alt) != 0) text += "Alt+";
  if (shortcutKey_ >= key::F1) return text + "F" + std::to_string(shortcutKey_ - key::F1 + 1);
  if (shortcutKey_ == key::Delete) return text + "Del";
  return text + static_cast<char>(shortcutKey_);
}

}  // namespace pixorra
