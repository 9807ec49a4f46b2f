// The nodes of a tree, and what code does with them.
#include "platform/controls/TreeView.h"

#include <unordered_set>
#include <utility>

#include "platform/runtime/Errors.h"

namespace pixorra {

bool TreeNode::IsBelow(const TreeNode& node) const {
  const TreeNode* above = parent_;
  while (above != nullptr && above != &node) above = above->parent_;
  return above != nullptr;
}

TreeHandle::TreeHandle(TreeNode& node) {
  if (!node.life_) node.life_ = std::make_shared<TreeNode*>(&node);
  life_ = node.life_;
}

TreeNode* TreeHandle::Get() const {
  const auto life = life_.lock();
  return life ? *life : nullptr;
}

TreeView::TreeView(Container& container, const std::string& name)
    : Control(&container, Kind::TreeView, std::make_shared<Identity>(Identity{name, {}}), 0) {
  root_.expanded_ = true;
}

// --- nodes -----------------------------------------------------------------------------------------------------------

TreeView::Node& TreeView::Insert(Node& parent, TreeEntry entry) {
  std::unique_ptr<Node> node(new Node(std::move(entry), &parent));
  index_[node->Key()] = node.get();
  node->stamp_ = stamp_;
  node->place_ = parent.children_.size();
  parent.children_.push_back(std::move(node));
  return *parent.children_.back();
}

void TreeView::Forget(const Node& node) {
  index_.erase(node.Key());
  for (const auto& child : node.Children()) Forget(*child);
}

void TreeView::Touch(Node& node) {
  ++stamp_;
  for (Node* above = &node; above != nullptr; above = above->parent_) above->stamp_ = stamp_;
}

TreeView::Node& TreeView::Add(Node& parent, TreeEntry entry) {
  if (Find(entry.Key) != nullptr) throw RuntimeError(error::BadPropertyValue);
  Touch(parent);
  if (&parent != &root_) parent.entry_.HasChildren = true;
  Node& node = Insert(parent, std::move(entry));
  Changed(Change::Items);
  return node;
}

void TreeView::MustBeNew(const Node& node, const std::vector<TreeEntry>& children) const {
  std::unordered_set<std::string_view> keys;
  for (const TreeEntry& entry : children) {
    const Node* known = Find(entry.Key);
    const bool elsewhere = known != nullptr && known->Parent() != &node;
    if (elsewhere || !keys.insert(entry.Key).second) throw RuntimeError(error::BadPropertyValue);
  }
}

// True where what the node shows has changed.
bool TreeView::TakeOver(Node& node, TreeEntry entry) {
  // What is known to be there counts for more than what is said of it.
  entry.HasChildren = entry.HasChildren || !node.children_.empty();
  const TreeEntry& before = node.entry_;
  const bool same = before.Text == entry.Text && before.Spoken == entry.Spoken && before.Icon == entry.Icon &&
                    before.OpenIcon == entry.OpenIcon && before.HasChildren == entry.HasChildren;
  node.entry_ = std::move(entry);
  node.expanded_ = node.expanded_ && node.entry_.HasChildren;
  // It was empty when it was last asked, and is so no more.
  if (node.known_ && node.children_.empty() && node.entry_.HasChildren) node.asked_ = node.known_ = false;
  return !same;
}

// True where the selection was among those that go.
bool TreeView::Replace(Node& node, std::vector<TreeEntry> children) {
  std::vector<std::unique_ptr<Node>> before = std::exchange(node.children_, {});
  std::unordered_map<std::string, std::unique_ptr<Node>*> places;
  for (std::unique_ptr<Node>& child : before) places[child->Key()] = &child;
  node.children_.reserve(children.size());
  for (TreeEntry& entry : children) {
    const auto place = places.find(entry.Key);
    if (place == places.end()) {
      Insert(node, std::move(entry));
      continue;
    }
    Node& kept = **place->second;
    if (TakeOver(kept, std::move(entry))) kept.stamp_ = stamp_;
    kept.place_ = node.children_.size();
    node.children_.push_back(std::move(*place->second));
  }
  bool moved = false;
  for (const auto& gone : before) {
    if (gone == nullptr) continue;
    moved = SelectionLeaves(*gone, &node) || moved;
    Forget(*gone);
  }
  return moved;
}

void TreeView::Fill(Node& node, std::vector<TreeEntry> children) {
  MustBeNew(node, children);
  Touch(node);
  const bool moved = Replace(node, std::move(children));
  node.asked_ = true;
  node.known_ = true;
  if (&node != &root_) {
    node.entry_.HasChildren = !node.children_.empty();
    node.expanded_ = node.expanded_ && node.entry_.HasChildren;
  }
  Tell(moved);
}

void TreeView::Remove(Node& node) {
  Node& parent = *node.parent_;
  Touch(parent);
  const bool moved = SelectionLeaves(node, &parent);
  Forget(node);
  const std::size_t place = node.place_;
  const std::unique_ptr<Node> gone = std::move(parent.children_[place]);
  parent.children_.erase(parent.children_.begin() + static_cast<std::ptrdiff_t>(place));
  for (std::size_t i = place; i < parent.children_.size(); ++i) parent.children_[i]->place_ = i;
  if (parent.children_.empty() && &parent != &root_) {
    parent.entry_.HasChildren = false;
    parent.expanded_ = false;
  }
  Tell(moved);
}

void TreeView::Clear() {
  Touch(root_);
  selected_ = nullptr;
  index_.clear();
  root_.children_.clear();
  Changed(Change::Items);
}

void TreeView::SetText(Node& node, const std::string& text) {
  if (node.entry_.Text == text) return;
  node.entry_.Text = text;
  Touch(node);
  Changed(Change::Items);
}

TreeView::Node* TreeView::Find(const std::string& key) const {
  const auto found = index_.find(key);
  return found != index_.end() ? found->second : nullptr;
}

// --- opening and selecting -------------------------------------------------------------------------------------------

void TreeView::Ask(Node& node) {
  node.asked_ = true;
  Raise(filler_, *this, node);
}

void TreeView::GiveUp(Node& node) {
  node.asked_ = false;
  node.expanded_ = node.expanded_ && !node.children_.empty();
  Touch(node);
  Changed(Change::Items);
}

void TreeView::Expand(Node& node) {
  if (!node.HasChildren() || node.Expanded()) return;
  node.expanded_ = true;
  Touch(node);
  Changed(Change::Items);
  if (!node.asked_) Ask(node);
}

void TreeView::Collapse(Node& node) {
  if (!node.Expanded() || &node == &root_) return;
  node.expanded_ = false;
  Touch(node);
  const bool moved = selected_ != nullptr && selected_->IsBelow(node);
  if (moved) selected_ = &node;
  Tell(moved);
}

void TreeView::OpenAbove(const Node& node) {
  for (Node* above = node.Parent(); above != nullptr; above = above->Parent()) {
    if (above->expanded_) continue;
    above->expanded_ = true;
    Touch(*above);
  }
}

void TreeView::Reveal(Node& node) {
  OpenAbove(node);
  revealed_ = TreeHandle(node);
  ++reveals_;
}

void TreeView::EnsureVisible(Node& node) {
  Reveal(node);
  Changed(Change::Items);
}

void TreeView::Select(Node* node) {
  if (node == selected_) return;
  selected_ = node;
  if (node != nullptr) Reveal(*node);
  Tell(true);
}

bool TreeView::SelectionLeaves(const Node& going, Node* to) {
  if (selected_ == nullptr || (selected_ != &going && !selected_->IsBelow(going))) return false;
  selected_ = to == &root_ ? nullptr : to;
  return true;
}

void TreeView::Tell(bool selectionMoved) {
  const Watch<TreeView> self(*this);
  Changed(Change::Items);
  if (self && selectionMoved) Raise(On().Change, static_cast<Control&>(*this));
}

}  // namespace pixorra
