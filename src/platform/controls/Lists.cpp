#include "platform/controls/Lists.h"

#include <algorithm>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

const ItemList::Item& ItemList::At(int index) const {
  if (index < 0 || index >= ListCount()) throw RuntimeError(error::BadSubscript);
  return items_[static_cast<std::size_t>(index)];
}

const std::string& ItemList::List(int index) const {
  return At(index).Text;
}

int ItemList::ItemData(int index) const {
  return At(index).Data;
}

void ItemList::SetItemData(int index, int data) {
  const_cast<Item&>(At(index)).Data = data;
}

void ItemList::AddItem(const std::string& text, int index) {
  if (index < -1 || index > ListCount()) throw RuntimeError(error::BadSubscript);
  const int at = index == -1 ? ListCount() : index;
  items_.insert(items_.begin() + at, Item{text, 0});
  if (listIndex_ >= at) ++listIndex_;
  ++revision_;
  Changed(Change::Items);
}

void ItemList::RemoveItem(int index) {
  At(index);
  items_.erase(items_.begin() + index);
  ++revision_;
  if (listIndex_ == index) {
    listIndex_ = -1;
    Chosen();
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  Changed(Change::Items);
}

void ItemList::Clear() {
  items_.clear();
  ++revision_;
  listIndex_ = -1;
  Chosen();
  Changed(Change::Items);
}

void ItemList::SetListIndex(int index) {
  if (index != -1) At(index);
  if (index == listIndex_) return;
  listIndex_ = index;
  Chosen();
  Watch<ItemList> self(*this);
  Changed(Change::Items);
  if (self && index != -1) Raise(On().Click, static_cast<Control&>(*this));
}

void ItemList::UserChose(int index) {
  if (Enabled() && index >= 0 && index < ListCount()) SetListIndex(index);
}

ListBox::ListBox(Container& container, const std::string& name)
    : ItemList(&container, Kind::ListBox, std::make_shared<Identity>(Identity{name, {}}), 0) {}

void ListBox::SetColumns(const std::vector<ListColumn>& columns) {
  if (columns == columns_) return;
  columns_ = columns;
  Changed(Change::Items);
}

std::vector<std::string> ListBox::Cells(int index) const {
  const std::string& text = List(index);
  if (columns_.empty()) return {text};
  std::vector<std::string> cells(columns_.size());
  const auto tabs = static_cast<std::size_t>(std::ranges::count(text, '\t'));
  std::size_t end = text.size();
  for (std::size_t i = std::min(tabs, columns_.size() - 1); i > 0; --i) {
    const std::size_t tab = text.rfind('\t', end - 1);
    cells[i] = Trim(text.substr(tab + 1, end - tab - 1));
    end = tab;
  }
  cells[0] = Trim(text.substr(0, end));
  return cells;
}

ComboBox::ComboBox(Container& container, const std::string& name)
    : ItemList(&container, Kind::ComboBox, std::make_shared<Identity>(Identity{name, {}}), 0) {}

void ComboBox::SetText(const std::string& text) {
  if (text == text_) return;
  TakeText(text);
  Changed(Change::Text);
}

void ComboBox::SetEditable(bool editable) {
  if (editable == editable_) return;
  editable_ = editable;
  ChangePeer();
}

void ComboBox::UserTyped(const std::string& text) {
  if (!editable_ || text == text_) return;
  TakeText(text);
  Raise(On().Change, static_cast<Control&>(*this));
}

void ComboBox::UserChose(int index) {
  if (index == -1 || index != ListIndex()) {
    ItemList::UserChose(index);
  } else if (Enabled()) {
    Raise(On().Click, static_cast<Control&>(*this));
  }
}

void ComboBox::TakeText(const std::string& text) {
  text_ = text;
  if (ListIndex() >= 0 && List(ListIndex()) != text) DropChoice();
}

void ComboBox::Chosen() {
  text_ = ListIndex() >= 0 ? List(ListIndex()) : std::string();
}

}  // namespace pixorra
