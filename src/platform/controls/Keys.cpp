// The keyboard: the form's preview, menu shortcuts, the focused control.
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"

namespace pixorra {

namespace {

// Keys that a text box edits with go before shortcuts while it has the focus.
bool EditsText(int keyCode, int shift) {
  if (keyCode == key::Delete || keyCode == key::Insert) return true;
  return shift == shift::Ctrl && (keyCode == 'C' || keyCode == 'V' || keyCode == 'X' || keyCode == 'Z');
}

MenuItem* FindShortcut(MenuItem& menu, int keyCode, int shift) {
  if (menu.ShortcutKey() == keyCode && menu.ShortcutShift() == shift && menu.Enabled() && menu.Items().empty())
    return &menu;
  for (MenuItem* item : menu.Items()) {
    if (MenuItem* found = FindShortcut(*item, keyCode, shift)) return found;
  }
  return nullptr;
}

// Return presses the button that has the focus, or else the default button; Escape the cancel button. In a box of
// several lines Return is a character.
bool PressButton(Form& form, Control* focus, int keyCode) {
  if (keyCode == key::Return && focus != nullptr) {
    if (focus->GetKind() == Kind::CommandButton) {
      static_cast<CommandButton*>(focus)->UserClicked();
      return true;
    }
    if (focus->GetKind() == Kind::TextBox && static_cast<TextBox*>(focus)->MultiLine()) return false;
  }
  if (keyCode != key::Return && keyCode != key::Escape) return false;
  for (Control* control : form.Controls()) {
    if (control->GetKind() != Kind::CommandButton || !control->IsShown() || !control->Enabled()) continue;
    auto* candidate = static_cast<CommandButton*>(control);
    if (keyCode == key::Return ? candidate->IsDefault() : candidate->IsCancel()) {
      candidate->UserClicked();
      return true;
    }
  }
  return false;
}

}  // namespace

bool Toolkit::RunShortcut(Form& form, int keyCode, int shift) {
  const Control* focus = focus_.Get();
  const bool typing = focus != nullptr && focus->GetKind() == Kind::TextBox && &focus->GetForm() == &form;
  if (typing && EditsText(keyCode, shift)) return false;
  for (MenuItem* menu : form.Menus()) {
    if (MenuItem* item = FindShortcut(*menu, keyCode, shift)) {
      item->UserClicked();
      return true;
    }
  }
  return false;
}

bool Toolkit::KeyPressed(Form& form, int keyCode, int shift) {
  if (!TakesInput(form)) return true;
  Watch<Form> watch(form);
  int code = keyCode;
  if (form.KeyPreview()) {
    Raise(form.On().KeyDown, static_cast<Control&>(form), code, shift);
    if (code == 0 || !watch) return true;
  }
  if (RunShortcut(form, code, shift)) return true;
  const Watch<Control> focus = focus_;
  if (focus && &focus->GetForm() == &form) {
    Raise(focus->On().KeyDown, *focus.Get(), code, shift);
  } else if (!form.KeyPreview()) {
    Raise(form.On().KeyDown, static_cast<Control&>(form), code, shift);
  }
  if (code == 0 || !watch) return true;
  return PressButton(form, focus.Get(), code);
}

bool Toolkit::CharacterTyped(Form& form, int codePoint) {
  if (!TakesInput(form)) return true;
  Watch<Form> watch(form);
  int code = codePoint;
  if (form.KeyPreview()) {
    Raise(form.On().KeyPress, static_cast<Control&>(form), code);
    if (code == 0 || !watch) return true;
  }
  const Watch<Control> focus = focus_;
  if (focus && &focus->GetForm() == &form) {
    Raise(focus->On().KeyPress, *focus.Get(), code);
  } else if (!form.KeyPreview()) {
    Raise(form.On().KeyPress, static_cast<Control&>(form), code);
  }
  return code == 0;
}

}  // namespace pixorra
