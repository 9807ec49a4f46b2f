#include "platform/controls/TreeView.h"

namespace pixorra {

namespace {

TreeView::Node* FindBelow(TreeView::Node& node, const std::string& key) {
  if (node.Key == key) return &node;
  for (const auto& child : node.Children) {
    if (TreeView::Node* found = FindBelow(*child, key)) return found;
  }
  return nullptr;
}

}  // namespace

TreeView::TreeView(Container& container, const std::string& name)
    : Control(&container, Kind::TreeView, std::make_shared<Identity>(Identity{name, {}}), 0) {}

TreeView::Node& TreeView::Add(Node& parent, const std::string& key, const std::string& text, bool hasChildren) {
  auto node = std::make_unique<Node>();
  node->Key = key;
  node->Text = text;
  node->HasChildren = hasChildren;
  node->Parent = &parent;
  parent.Children.push_back(std::move(node));
  Changed(Change::Items);
  return *parent.Children.back();
}

void TreeView::Clear() {
  selected_ = nullptr;
  root_.Children.clear();
  Changed(Change::Items);
}

TreeView::Node* TreeView::Find(const std::string& key) {
  for (const auto& child : root_.Children) {
    if (Node* found = FindBelow(*child, key)) return found;
  }
  return nullptr;
}

void TreeView::Expand(Node& node) {
  if (!node.Filled) {
    node.Filled = true;
    if (filler_) filler_(*this, node);
    node.HasChildren = !node.Children.empty();
  }
  node.Expanded = node.HasChildren;
  Changed(Change::Items);
}

void TreeView::Collapse(Node& node) {
  node.Expanded = false;
  Changed(Change::Items);
}

void TreeView::Select(Node* node) {
  if (node == selected_) return;
  selected_ = node;
  for (Node* above = node != nullptr ? node->Parent : nullptr; above != nullptr; above = above->Parent) {
    above->Expanded = true;
  }
  Watch<TreeView> self(*this);
  Changed(Change::Items);
  if (self) Raise(On().Change, static_cast<Control&>(*this));
}

void TreeView::UserSelected(Node& node) {
  if (Enabled()) Select(&node);
}

void TreeView::UserExpanded(Node& node, bool expanded) {
  if (expanded) {
    Expand(node);
  } else {
    Collapse(node);
  }
}

}  // namespace pixorra
