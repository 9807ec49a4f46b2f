#include "platform/qt/TreeAccessible.h"

#include <algorithm>

#include "platform/qt/Convert.h"

namespace pixorra {

namespace {

const QString ExpandAction = QStringLiteral("Expand");
const QString CollapseAction = QStringLiteral("Collapse");

// Of a node that is closed nothing below it is to be seen.
int ShownChildren(const TreeNode& node) {
  return node.Parent() == nullptr || node.Expanded() ? static_cast<int>(node.Children().size()) : 0;
}

const TreeNode* ChildOf(const TreeNode& node, int index) {
  if (index < 0 || index >= ShownChildren(node)) return nullptr;
  return node.Children()[static_cast<std::size_t>(index)].get();
}

int PlaceIn(const TreeNode& parent, const QAccessibleInterface* child) {
  const auto* entry = dynamic_cast<const NodeAccessible*>(child);
  const TreeNode* node = entry != nullptr ? entry->Node() : nullptr;
  return node != nullptr && node->Parent() == &parent ? static_cast<int>(node->Place()) : -1;
}

}  // namespace

TreeAccessible::~TreeAccessible() {
  for (const auto& [key, id] : nodes_) QAccessible::deleteAccessibleInterface(id);
}

int TreeAccessible::childCount() const {
  const TreeView* tree = tree_.Model();
  return tree != nullptr ? ShownChildren(tree->Root()) : 0;
}

QAccessibleInterface* TreeAccessible::child(int index) const {
  const TreeView* tree = tree_.Model();
  const TreeNode* node = tree != nullptr ? ChildOf(tree->Root(), index) : nullptr;
  return node != nullptr ? InterfaceOf(*node) : nullptr;
}

int TreeAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const TreeView* tree = tree_.Model();
  return tree != nullptr ? PlaceIn(tree->Root(), child) : -1;
}

QAccessibleInterface* TreeAccessible::childAt(int x, int y) const {
  const TreeView* tree = tree_.Model();
  const QTreeWidgetItem* item = tree_.itemAt(tree_.viewport()->mapFromGlobal(QPoint(x, y)));
  const TreeNode* node = tree != nullptr && item != nullptr && tree_.NodeOf ? tree_.NodeOf(*item) : nullptr;
  return node != nullptr ? InterfaceOf(*node) : nullptr;
}

QAccessibleInterface* TreeAccessible::focusChild() const {
  const TreeView* tree = tree_.Model();
  const bool any = tree_.hasFocus() && tree != nullptr && tree->Selected() != nullptr;
  return any ? InterfaceOf(*tree->Selected()) : nullptr;
}

QAccessibleInterface* TreeAccessible::InterfaceOf(const TreeNode& node) const {
  if (node.Parent() == nullptr) return nullptr;
  const auto known = nodes_.find(node.Key());
  if (known != nodes_.end()) return QAccessible::accessibleInterface(known->second);
  if (nodes_.size() >= sweepAt_) Sweep();
  auto* made = new NodeAccessible(*this, node.Key());
  nodes_[node.Key()] = QAccessible::registerAccessibleInterface(made);
  return made;
}

// Where most nodes are there still, the next sweep is as far away again, so that each node costs its share of one.
void TreeAccessible::Sweep() const {
  std::erase_if(nodes_, [this](const auto& entry) {
    const bool gone = tree_.Model() == nullptr || tree_.Model()->Find(entry.first) == nullptr;
    if (gone) QAccessible::deleteAccessibleInterface(entry.second);
    return gone;
  });
  sweepAt_ = std::max(MostGone, 2 * nodes_.size());
  ++sweeps_;
}

TreeNode* NodeAccessible::Node() const {
  const TreeView* tree = widget_ != nullptr ? widget_->Model() : nullptr;
  return tree != nullptr ? tree->Find(key_) : nullptr;
}

QAccessibleInterface* NodeAccessible::parent() const {
  const TreeNode* node = Node();
  if (node == nullptr) return nullptr;
  QAccessibleInterface* outer = tree_.InterfaceOf(*node->Parent());
  return outer != nullptr ? outer : QAccessible::queryAccessibleInterface(widget_.data());
}

int NodeAccessible::childCount() const {
  const TreeNode* node = Node();
  return node != nullptr ? ShownChildren(*node) : 0;
}

QAccessibleInterface* NodeAccessible::child(int index) const {
  const TreeNode* node = Node();
  const TreeNode* below = node != nullptr ? ChildOf(*node, index) : nullptr;
  return below != nullptr ? tree_.InterfaceOf(*below) : nullptr;
}

int NodeAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const TreeNode* node = Node();
  return node != nullptr ? PlaceIn(*node, child) : -1;
}

QString NodeAccessible::text(QAccessible::Text what) const {
  const TreeNode* node = Node();
  return node != nullptr && what == QAccessible::Name ? ToQString(node->Spoken()) : QString();
}

QRect NodeAccessible::rect() const {
  const TreeNode* node = Node();
  const QTreeWidgetItem* item = node != nullptr && widget_->ItemOf ? widget_->ItemOf(*node) : nullptr;
  if (item == nullptr) return {};
  const QRect shown = widget_->visualItemRect(item) & widget_->viewport()->rect();
  return {widget_->viewport()->mapToGlobal(shown.topLeft()), shown.size()};
}

QAccessible::State NodeAccessible::state() const {
  QAccessible::State state;
  const TreeNode* node = Node();
  if (node == nullptr) {
    state.invalid = true;
    return state;
  }
  state.selectable = true;
  state.focusable = true;
  state.selected = widget_->Model()->Selected() == node;
  state.focused = state.selected && widget_->hasFocus();
  state.expandable = node->HasChildren();
  state.expanded = node->HasChildren() && node->Expanded();
  state.collapsed = node->HasChildren() && !node->Expanded();
  state.disabled = !widget_->isEnabled();
  state.invisible = !widget_->isVisible();
  state.offscreen = rect().isEmpty();
  return state;
}

void* NodeAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList NodeAccessible::actionNames() const {
  const TreeNode* node = Node();
  if (node == nullptr || !widget_->isEnabled()) return {};
  QStringList names(pressAction());
  if (node->HasChildren()) names.append(node->Expanded() ? CollapseAction : ExpandAction);
  return names;
}

// The tree may change in it as it likes, and be gone with its form, and what it asked of the peer with that.
void NodeAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  const auto choose = widget_->Choose;
  const auto open = widget_->Open;
  if (name == pressAction() && choose) {
    choose(*Node());
  } else if (name != pressAction() && open) {
    open(*Node(), name == ExpandAction);
  }
}

}  // namespace pixorra
