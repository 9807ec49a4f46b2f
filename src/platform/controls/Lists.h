// List boxes and drop-down lists.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/Container.h"
#include "platform/controls/Label.h"

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
  virtual void UserChose(int index);
  // Differs from what it was before the entries were last changed: what shows them need not compare them all.
  unsigned Revision() const { return revision_; }

 protected:
  using Control::Control;
  virtual void Chosen() {}
  // None is chosen any more; nothing is raised.
  void DropChoice() { listIndex_ = -1; }

 private:
  struct Item {
    std::string Text;
    int Data = 0;
  };
  const Item& At(int index) const;

  std::vector<Item> items_;
  int listIndex_ = -1;
  unsigned revision_ = 0;
};

// A column of a list whose entries have several cells.
struct ListColumn {
  int Width = 0;  // pixels; 0: what the others leave, shared alike
  Alignment Side = Alignment::Left;
  bool operator==(const ListColumn&) const = default;
};

// An entry is one text for the program; on show its parts between tabs are the cells of a row, without the blanks
// around them.
class ListBox : public ItemList {
 public:
  ListBox(Container& container, const std::string& name);

  // None: each entry is shown as one text.
  const std::vector<ListColumn>& Columns() const { return columns_; }
  void SetColumns(const std::vector<ListColumn>& columns);
  // As many as there are columns, from left to right. The last tabs separate them: further ones stay in the first cell,
  // as a file's name may have some. Raises BadSubscript outside the list.
  std::vector<std::string> Cells(int index) const;

 private:
  std::vector<ListColumn> columns_;
};

class ComboBox : public ItemList {
 public:
  ComboBox(Container& container, const std::string& name);

  // The text on show; one that can be typed in when editable. A text that differs from the chosen entry's, whoever sets
  // it, leaves none chosen.
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);
  bool Editable() const { return editable_; }
  void SetEditable(bool editable);
  void UserTyped(const std::string& text);
  // Raises Click for the entry that is chosen already too.
  void UserChose(int index) override;

 protected:
  void Chosen() override;

 private:
  void TakeText(const std::string& text);

  std::string text_;
  bool editable_ = false;
};

}  // namespace pixorra
