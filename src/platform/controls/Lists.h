// List boxes and drop-down lists.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/Container.h"

namespace pixorra {

// What both have: entries from 0, each with a text and a number.
class ItemList : public Control {
 public:
  int ListCount() const { return static_cast<int>(items_.size()); }
  // Raises error 9 outside the list.
  const std::string& List(int index) const;
  int ItemData(int index) const;
  void SetItemData(int index, int data);
  // At the end (-1), or before the entry of that index. Raises BadSubscript outside the list.
  void AddItem(const std::string& text, int index = -1);
  void RemoveItem(int index);
  void Clear();

  int ListIndex() const { return listIndex_; }  // -1: none
  // A different entry raises Click, whoever chooses it.
  void SetListIndex(int index);
  void UserChose(int index);

 protected:
  using Control::Control;
  virtual void Chosen() {}

 private:
  struct Item {
    std::string Text;
    int Data = 0;
  };
  const Item& At(int index) const;

  std::vector<Item> items_;
  int listIndex_ = -1;
};

class ListBox : public ItemList {
 public:
  ListBox(Container& container, const std::string& name);
};

class ComboBox : public ItemList {
 public:
  ComboBox(Container& container, const std::string& name);

  // The text on show; one that can be typed in when editable.
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);
  bool Editable() const { return editable_; }
  void SetEditable(bool editable);
  void UserTyped(const std::string& text);

 protected:
  void Chosen() override;

 private:
  std::string text_;
  bool editable_ = false;
};

}  // namespace pixorra
