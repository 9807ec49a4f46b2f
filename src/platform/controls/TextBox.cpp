#include "platform/controls/TextBox.h"

#include <algorithm>

namespace pixorra {

TextBox::TextBox(Container& container, const std::string& name)
    : Control(&container, Kind::TextBox, std::make_shared<Identity>(Identity{name, {}}), 0) {}

void TextBox::SetText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  selStart_ = 0;
  selLength_ = 0;
  Watch<TextBox> self(*this);
  Changed(Change::Text);
  if (self) Raise(On().Change, static_cast<Control&>(*this));
}

void TextBox::Select(int start, int length) {
  const int end = static_cast<int>(text_.size());
  selStart_ = std::clamp(start, 0, end);
  selLength_ = std::clamp(length, 0, end - selStart_);
  Changed(Change::Text);
}

void TextBox::SetMultiLine(bool multiLine) {
  if (multiLine == multiLine_) return;
  multiLine_ = multiLine;
  ChangePeer();
}

void TextBox::SetLocked(bool locked) {
  if (locked == locked_) return;
  locked_ = locked;
  Changed(Change::Look);
}

void TextBox::UserTyped(const std::string& text, int cursor) {
  if (locked_ || !Enabled() || text == text_) return;
  text_ = text;
  if (cursor >= 0) {
    UserSelected(cursor, 0);
  } else {
    UserSelected(selStart_, selLength_);
  }
  Raise(On().Change, static_cast<Control&>(*this));
}

void TextBox::UserSelected(int start, int length) {
  const int end = static_cast<int>(text_.size());
  selStart_ = std::clamp(start, 0, end);
  selLength_ = std::clamp(length, 0, end - selStart_);
}

}  // namespace pixorra
