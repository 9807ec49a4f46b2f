// A person's keyboard: what keys do goes through the toolkit first; what it leaves is the focused control's own to act
// on.
#include <algorithm>
#include <map>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/controls/TreeView.h"
#include "platform/headless/Person.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {

namespace {

// The key that makes a character, and the keys held with it; code 0 where no single key makes it.
struct Stroke {
  int Code = 0;
  int Shift = 0;
};

Stroke StrokeFor(char32_t character) {
  static const std::map<char32_t, Stroke> others = {
      {U'.', {190, 0}}, {U',', {188, 0}},  {U'-', {189, 0}},   {U'_', {189, shift::Shift}},
      {U'=', {187, 0}}, {U'+', {187, 1}},  {U';', {186, 0}},   {U':', {186, 1}},
      {U'/', {191, 0}}, {U'?', {191, 1}},  {U'[', {219, 0}},   {U'\\', {220, 0}},
      {U']', {221, 0}}, {U'\'', {222, 0}}, {U'"', {222, 1}},   {U' ', {32, 0}},
      {U'\r', {13, 0}}, {U'\n', {13, 0}},  {U'\x1B', {27, 0}}, {U'\b', {8, 0}},
      {U'!', {'1', 1}}, {U'(', {'9', 1}},  {U')', {'0', 1}},   {U'{', {219, 1}},
      {U'}', {221, 1}}, {U'<', {188, 1}},  {U'>', {190, 1}},   {U'*', {'8', 1}},
      {U'&', {'7', 1}}, {U'#', {'3', 1}}};
  if (character >= U'a' && character <= U'z') return {static_cast<int>(character - U'a' + U'A'), 0};
  if (character >= U'A' && character <= U'Z') return {static_cast<int>(character), shift::Shift};
  if (character >= U'0' && character <= U'9') return {static_cast<int>(character), 0};
  const auto found = others.find(character);
  return found != others.end() ? found->second : Stroke{};
}

bool IsTyped(const Control& control) {
  if (control.GetKind() == Kind::TextBox) return !static_cast<const TextBox&>(control).Locked();
  return control.GetKind() == Kind::ComboBox && static_cast<const ComboBox&>(control).Editable();
}

// Replaces what is selected, or puts the text at the cursor.
void Insert(TextBox& box, const std::string& text) {
  if (box.Locked() || !box.Enabled()) return;
  std::string whole = box.Text();
  const int start = std::min(box.SelStart(), static_cast<int>(whole.size()));
  whole.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(box.SelLength()), text);
  box.UserTyped(whole, start + static_cast<int>(text.size()));
}

// Takes away what is selected, or else the character before or after the cursor; a line end is one.
void Erase(TextBox& box, bool before) {
  if (box.SelLength() == 0) {
    const std::string& text = box.Text();
    const int at = box.SelStart();
    const int end = before ? at - 2 : at;
    if (end >= 0 && text.compare(static_cast<std::size_t>(end), 2, "\r\n") == 0) {
      box.UserSelected(end, 2);
      Insert(box, {});
      return;
    }
    int other = before ? 0 : at;
    if (!before && at < static_cast<int>(text.size())) {
      other = at + static_cast<int>(CharacterAt(text, static_cast<std::size_t>(at)).Bytes);
    }
    for (int i = 0; before && i < at; i += static_cast<int>(CharacterAt(text, static_cast<std::size_t>(i)).Bytes))
      other = i;
    box.UserSelected(std::min(at, other), std::max(at, other) - std::min(at, other));
  }
  Insert(box, {});
}

void TypeInto(Control& control, const std::string& character) {
  const Kind kind = control.GetKind();
  if (kind == Kind::TextBox) Insert(static_cast<TextBox&>(control), character);
  if (kind == Kind::ComboBox) {
    auto& box = static_cast<ComboBox&>(control);
    box.UserTyped(box.Text() + character);
  }
  if (kind == Kind::TreeView) static_cast<TreeView&>(control).UserTyped(character);
}

void EraseLast(ComboBox& box) {
  const std::string& text = box.Text();
  std::size_t last = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterAt(text, at).Bytes) last = at;
  box.UserTyped(text.substr(0, last));
}

void EditText(TextBox& box, int keyCode, int shift) {
  const std::string& text = box.Text();
  const int end = static_cast<int>(text.size());
  const auto at = static_cast<std::size_t>(box.SelStart());
  if (keyCode == key::Home) {
    const std::size_t before = at > 0 ? text.rfind('\n', at - 1) : std::string::npos;
    box.UserSelected(before == std::string::npos ? 0 : static_cast<int>(before) + 1, 0);
  }
  if (keyCode == key::End) box.UserSelected(static_cast<int>(std::min(text.find("\r\n", at), text.size())), 0);
  if (keyCode == 'A' && shift == shift::Ctrl) box.UserSelected(0, end);
  if (keyCode == key::Back || keyCode == key::Delete) Erase(box, keyCode == key::Back);
}

void MoveInBar(ScrollBar& bar, int keyCode) {
  if (keyCode == key::Left || keyCode == key::Up) bar.UserMovedTo(bar.Value() - bar.SmallChange());
  if (keyCode == key::Right || keyCode == key::Down) bar.UserMovedTo(bar.Value() + bar.SmallChange());
  if (keyCode == key::PageUp) bar.UserMovedTo(bar.Value() - bar.LargeChange());
  if (keyCode == key::PageDown) bar.UserMovedTo(bar.Value() + bar.LargeChange());
  if (keyCode == key::Home) bar.UserMovedTo(bar.Min());
  if (keyCode == key::End) bar.UserMovedTo(bar.Max());
}

}  // namespace

Form* Person::FormForKeys(const std::string& what) {
  Form* form = toolkit_.ActiveForm();
  if (form == nullptr) {
    Fail(what + ": no window is active");
    return nullptr;
  }
  return MustTakeInput(*form, what) ? form : nullptr;
}

// A key that nobody used makes its character; a character that nobody refused is typed.
void Person::Type(const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Character character = CharacterAt(text, at);
    const std::string typed = text.substr(at, character.Bytes);
    at += character.Bytes;
    Form* form = FormForKeys("type \"" + typed + "\"");
    if (form == nullptr) return;
    const Watch<Form> watch(*form);
    Act([&] {
      const Stroke stroke = StrokeFor(character.Code);
      if (stroke.Code != 0 && toolkit_.KeyPressed(*form, stroke.Code, stroke.Shift)) return;
      if (!watch || toolkit_.CharacterTyped(*form, static_cast<int>(character.Code))) return;
      Control* focus = toolkit_.Focus();
      if (watch && focus != nullptr && &focus->GetForm() == form) TypeInto(*focus, typed);
    });
  }
}

void Person::Key(int keyCode, int shift) {
  StrikeKey(keyCode, shift, KeyStroke::Pressed);
}

void Person::RepeatKey(int keyCode, int shift) {
  StrikeKey(keyCode, shift, KeyStroke::Repeated);
}

void Person::StrikeKey(int keyCode, int shift, KeyStroke stroke) {
  Form* form = FormForKeys("key " + std::to_string(keyCode));
  if (form == nullptr) return;
  const Watch<Form> watch(*form);
  Act([&] {
    if (toolkit_.KeyPressed(*form, keyCode, shift, stroke)) return;
    const bool makesCharacter = keyCode == key::Return || keyCode == key::Escape || keyCode == key::Back ||
                                keyCode == key::Tab || keyCode == key::Space;
    if (!watch || (makesCharacter && toolkit_.CharacterTyped(*form, keyCode))) return;
    Control* focus = toolkit_.Focus();
    if (watch && focus != nullptr && &focus->GetForm() == form) EditByKey(*focus, keyCode, shift);
  });
}

void Person::EditByKey(Control& control, int keyCode, int shift) {
  const Kind kind = control.GetKind();
  if (kind == Kind::TextBox) {
    auto& box = static_cast<TextBox&>(control);
    if (keyCode == key::Space) {
      Insert(box, " ");
    } else if (keyCode == key::Return) {
      if (box.MultiLine()) Insert(box, "\r\n");
    } else {
      EditText(box, keyCode, shift);
    }
  }
  if (kind == Kind::TreeView) {
    auto& tree = static_cast<TreeView&>(control);
    if (!tree.UserKey(keyCode) && keyCode == key::Space) tree.UserTyped(" ");
    return;
  }
  if (kind == Kind::ComboBox && keyCode == key::Back) EraseLast(static_cast<ComboBox&>(control));
  if (kind == Kind::ScrollBar) MoveInBar(static_cast<ScrollBar&>(control), keyCode);
  if (kind == Kind::ListBox || kind == Kind::ComboBox) {
    auto& list = static_cast<ItemList&>(control);
    if (keyCode == key::Up && list.ListIndex() > 0) list.UserChose(list.ListIndex() - 1);
    if (keyCode == key::Down && list.ListIndex() + 1 < list.ListCount()) list.UserChose(list.ListIndex() + 1);
  }
  if (keyCode == key::Space && kind != Kind::TextBox) LetGoNative(control);
}

void Person::Fill(TextBox& box, const std::string& text) {
  if (!CanUse(box)) return;
  const Watch<TextBox> watch(box);
  Focus(box);
  if (!watch || !box.HasFocus()) return;
  Act([&] { box.UserSelected(0, static_cast<int>(box.Text().size())); });
  if (text.empty()) Key(key::Delete);
  Type(text);
}

void Person::Fill(ComboBox& box, const std::string& text) {
  if (!CanUse(box) || !IsTyped(box)) return;
  const Watch<ComboBox> watch(box);
  Focus(box);
  if (!watch || !box.HasFocus()) return;
  Act([&] { box.UserTyped({}); });
  Type(text);
}

}  // namespace pixorra
