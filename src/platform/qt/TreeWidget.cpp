#include "platform/qt/TreeWidget.h"

#include "platform/qt/TreeAccessible.h"

namespace pixorra {

// While a screen reader runs, the toolkit has made the interface of a plain tree for what this was until here.
TreeWidget::TreeWidget(TreeView& tree) : tree_(tree) {
  QAccessibleInterface* made = QAccessible::isActive() ? QAccessible::queryAccessibleInterface(this) : nullptr;
  if (made == nullptr || dynamic_cast<TreeAccessible*>(made) != nullptr) return;
  QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(made));
}

void TreeWidget::TellSelected() {
  if (!QAccessible::isActive() || !hasFocus() || Model() == nullptr || Model()->Selected() == nullptr) return;
  const auto* tree = dynamic_cast<TreeAccessible*>(QAccessible::queryAccessibleInterface(this));
  QAccessibleInterface* node = tree != nullptr ? tree->InterfaceOf(*Model()->Selected()) : nullptr;
  if (node == nullptr) return;
  QAccessibleEvent event(node, QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

void TreeWidget::focusInEvent(QFocusEvent* event) {
  // Where nothing is selected the focus alone would choose the first item.
  if (currentItem() != nullptr) {
    QTreeWidget::focusInEvent(event);
  } else {
    QWidget::focusInEvent(event);
    viewport()->update();
  }
  TellSelected();
}

void TreeWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);
}

void TreeWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QAbstractItemView::selectionChanged(selected, deselected);
}

}  // namespace pixorra
