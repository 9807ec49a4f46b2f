// Push buttons, check boxes and option buttons.
#pragma once

#include <string>

#include "platform/controls/Container.h"

namespace pixorra {

class Button : public Control {
 public:
  // "&" marks the letter that reaches it with Alt.
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

 protected:
  using Control::Control;

 private:
  std::string caption_;
};

class CommandButton : public Button {
 public:
  CommandButton(Container& container, const std::string& name);

  // Return presses the default button of a form, Escape its cancel button, wherever the focus is.
  bool IsDefault() const { return default_; }
  void SetDefault(bool isDefault);
  bool IsCancel() const { return cancel_; }
  void SetCancel(bool isCancel);
  bool Bold() const { return bold_; }
  void SetBold(bool bold);

  void UserClicked();

 private:
  bool default_ = false;
  bool cancel_ = false;
  bool bold_ = false;
};

class CheckBox : public Button {
 public:
  CheckBox(Container& container, const std::string& name);

  int Value() const { return value_; }  // 0 or 1
  // A different value raises Click, whoever sets it. Raises error 380 for any other number.
  void SetValue(int value);
  // A person's tick; MouseUp follows Click.
  void UserClicked();

 private:
  int value_ = 0;
};

// Of the option buttons in one container one at most is set.
class OptionButton : public Button {
 public:
  OptionButton(Container& container, const std::string& name);

  bool Value() const { return value_; }
  // Setting one that was not set raises Click, whoever sets it; the others of its group are cleared first.
  void SetValue(bool value);
  void UserClicked();

 private:
  bool value_ = false;
};

}  // namespace pixorra
