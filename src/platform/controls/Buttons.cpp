#include "platform/controls/Buttons.h"

#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

std::shared_ptr<Identity> Named(const std::string& name) {
  return std::make_shared<Identity>(Identity{name, {}});
}

}  // namespace

void Button::SetCaption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed(Change::Text);
}

CommandButton::CommandButton(Container& container, const std::string& name)
    : Button(&container, Kind::CommandButton, Named(name), 0) {}

void CommandButton::SetDefault(bool isDefault) {
  if (isDefault == default_) return;
  default_ = isDefault;
  Changed(Change::Look);
}

void CommandButton::SetCancel(bool isCancel) {
  if (isCancel == cancel_) return;
  cancel_ = isCancel;
  Changed(Change::Look);
}

void CommandButton::SetBold(bool bold) {
  if (bold == bold_) return;
  bold_ = bold;
  Changed(Change::Look);
}

void CommandButton::UserClicked() {
  if (Enabled() && IsShown()) Raise(On().Click, static_cast<Control&>(*this));
}

CheckBox::CheckBox(Container& container, const std::string& name)
    : Button(&container, Kind::CheckBox, Named(name), 0) {}

void CheckBox::SetValue(int value) {
  if (value != 0 && value != 1) throw RuntimeError(error::BadPropertyValue);
  if (value == value_) return;
  value_ = value;
  Watch<CheckBox> self(*this);
  Changed(Change::Value);
  if (self) Raise(On().Click, static_cast<Control&>(*this));
}

void CheckBox::UserClicked() {
  if (!Enabled() || !IsShown()) return;
  Watch<CheckBox> self(*this);
  SetValue(1 - value_);
  if (self) Raise(On().MouseUp, static_cast<Control&>(*this), MouseArgs{button::Left, 0, 0, 0});
}

OptionButton::OptionButton(Container& container, const std::string& name)
    : Button(&container, Kind::OptionButton, Named(name), 0) {}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  if (value) {
    for (Control* other : GetContainer()->Controls()) {
      if (other == this || other->GetKind() != Kind::OptionButton) continue;
      auto* option = static_cast<OptionButton*>(other);
      if (!option->value_) continue;
      option->value_ = false;
      option->Changed(Change::Value);
    }
  }
  value_ = value;
  Watch<OptionButton> self(*this);
  Changed(Change::Value);
  if (self && value) Raise(On().Click, static_cast<Control&>(*this));
}

void OptionButton::UserClicked() {
  if (Enabled() && IsShown()) SetValue(true);
}

}  // namespace pixorra
