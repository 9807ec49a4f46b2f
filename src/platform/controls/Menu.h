// Menus: items in a tree below a form's menu bar. A menu that holds items raises Click when it is about to open.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace pixorra {

class MenuItem : public Control {
 public:
  // A menu of the bar, or a pop-up menu when made invisible.
  MenuItem(Form& form, const std::string& name, const std::string& caption);
  // An item of a menu, or a submenu. A caption of "-" is a separator.
  MenuItem(MenuItem& parent, const std::string& name, const std::string& caption, int shortcutKey = 0,
           int shortcutShift = 0);
  ~MenuItem() override;

  // "&" marks the letter that chooses it.
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  bool IsSeparator() const { return caption_ == "-"; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  int ShortcutKey() const { return shortcutKey_; }
  int ShortcutShift() const { return shortcutShift_; }
  // "Ctrl+O", empty for none.
  std::string ShortcutText() const;
  const std::vector<MenuItem*>& Items() const { return items_; }
  MenuItem* Parent() const { return parent_; }

  // Enabled, and so are the menus above it.
  bool CanBeChosen() const;
  // A person has chosen it, or opened the menu.
  void UserClicked();

 protected:
  void VisibleChanged() override;
  void EnabledChanged() override;

 private:
  void Tell();

  std::string caption_;
  std::vector<MenuItem*> items_;
  MenuItem* parent_ = nullptr;
  int shortcutKey_ = 0;
  int shortcutShift_ = 0;
  bool checked_ = false;
};

}  // namespace pixorra
