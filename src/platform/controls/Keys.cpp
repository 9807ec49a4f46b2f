// The keyboard: the form's preview, menu shortcuts, the focused control.
#include <algorithm>
#include <utility>

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"

namespace pixorra {

namespace {

MenuItem* FindShortcut(MenuItem& menu, int keyCode, int shift) {
  if (menu.ShortcutKey() == keyCode && menu.ShortcutShift() == shift && menu.Items().empty()) return &menu;
  for (MenuItem* item : menu.Items()) {
    if (MenuItem* found = FindShortcut(*item, keyCode, shift)) return found;
  }
  return nullptr;
}

// The menus above an item raise Click, the topmost first, as when a person opens them: what they enable and disable
// then holds for the item's shortcut as well.
void RaiseMenusAbove(const MenuItem& item) {
  MenuItem* const menu = item.Parent();
  if (menu == nullptr) return;
  RaiseMenusAbove(*menu);
  menu->UserClicked();
}

// Return presses the button that has the focus, or else the default button; Escape the cancel button. In a box of
// several lines Return is a character.
CommandButton* FindButton(const Container& container, bool (CommandButton::*isWanted)() const) {
  for (Control* control : container.Controls()) {
    if (const Container* inner = AsContainer(*control)) {
      if (CommandButton* found = FindButton(*inner, isWanted)) return found;
    }
    if (control->GetKind() != Kind::CommandButton || !control->IsShown() || !control->Enabled()) continue;
    auto* candidate = static_cast<CommandButton*>(control);
    if ((candidate->*isWanted)()) return candidate;
  }
  return nullptr;
}

bool PressButton(const Form& form, Control* focus, int keyCode) {
  if (keyCode == key::Return && focus != nullptr) {
    if (focus->GetKind() == Kind::CommandButton) {
      static_cast<CommandButton*>(focus)->UserClicked();
      return true;
    }
    if (focus->GetKind() == Kind::TextBox && static_cast<TextBox*>(focus)->MultiLine()) return false;
  }
  if (keyCode != key::Return && keyCode != key::Escape) return false;
  CommandButton* button =
      FindButton(form, keyCode == key::Return ? &CommandButton::IsDefault : &CommandButton::IsCancel);
  if (button == nullptr) return false;
  button->UserClicked();
  return true;
}

}  // namespace

// A command would act on what the writer of a text is not looking at.
bool Toolkit::IsTextTyped(const Form& form) const {
  const Control* focus = Focus();
  return focus != nullptr && focus->GetKind() == Kind::TextBox && &focus->GetForm() == &form;
}

bool Toolkit::RunShortcut(Form& form, int keyCode, int shift) {
  if (keyCode == 0 || IsTextTyped(form)) return false;
  for (MenuItem* menu : form.Menus()) {
    MenuItem* const item = FindShortcut(*menu, keyCode, shift);
    if (item == nullptr) continue;
    const Watch<MenuItem> watch(*item);
    {
      const AtExit raised([this, before = std::exchange(shortcutSought_, item)] { shortcutSought_ = before; });
      RaiseMenusAbove(*item);
    }
    if (!watch || !watch->CanBeChosen()) return false;
    watch->UserClicked();
    return true;
  }
  return false;
}

// A form that a handler has closed gets no more of the key.
bool Toolkit::KeyPressed(Form& form, int keyCode, int shift, KeyStroke stroke) {
  if (!TakesInput(form)) return true;
  if (keyCode == key::Other && !form.TakesEveryKey()) return false;
  if (stroke == KeyStroke::Repeated && std::ranges::find(keyForms_, &form) != keyForms_.end()) return true;
  keyForms_.push_back(&form);
  const AtExit handled([this, before = std::exchange(stroke_, stroke)] {
    keyForms_.pop_back();
    stroke_ = before;
  });
  const Watch<Form> watch(form);
  const auto used = [&](int code) { return code == 0 || !watch || !watch->Visible(); };
  int code = keyCode;
  if (form.KeyPreview()) {
    Raise(form.On().KeyDown, static_cast<Control&>(form), code, shift);
    if (used(code)) return true;
  }
  if (RunShortcut(form, code, shift)) return true;
  const Watch<Control> focus = windows_.FocusWithin(form);
  if (focus) {
    Raise(focus->On().KeyDown, *focus.Get(), code, shift);
  } else if (!form.KeyPreview()) {
    Raise(form.On().KeyDown, static_cast<Control&>(form), code, shift);
  }
  return used(code) || PressButton(form, focus.Get(), code);
}

bool Toolkit::CharacterTyped(Form& form, int codePoint) {
  if (!TakesInput(form)) return true;
  const Watch<Form> watch(form);
  const auto used = [&](int code) { return code == 0 || !watch || !watch->Visible(); };
  int code = codePoint;
  if (form.KeyPreview()) {
    Raise(form.On().KeyPress, static_cast<Control&>(form), code);
    if (used(code)) return true;
  }
  const Watch<Control> focus = windows_.FocusWithin(form);
  if (focus) {
    Raise(focus->On().KeyPress, *focus.Get(), code);
  } else if (!form.KeyPreview()) {
    Raise(form.On().KeyPress, static_cast<Control&>(form), code);
  }
  return used(code);
}

}  // namespace pixorra
