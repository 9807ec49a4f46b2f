// A person's hands on the widgets of trees.
#include <QTreeWidget>

#include "platform/controls/TreeView.h"
#include "tests/platform/qt/hands/Hands.h"

namespace pixorra {

QTreeWidgetItem* Hands::ItemOf(TreeView& tree, const std::vector<std::string>& path) {
  auto* widget = qobject_cast<QTreeWidget*>(WidgetOf(tree));
  QTreeWidgetItem* item = widget != nullptr ? widget->invisibleRootItem() : nullptr;
  for (const std::string& text : path) {
    QTreeWidgetItem* found = nullptr;
    for (int i = 0; item != nullptr && i < item->childCount() && found == nullptr; ++i) {
      if (item->child(i)->text(0).toStdString() == text) found = item->child(i);
    }
    item = found;
  }
  return item;
}

void Hands::ChooseItem(QTreeWidgetItem& item) {
  QTreeWidget& widget = *item.treeWidget();
  if (IsBlocked(widget)) return;
  widget.scrollToItem(&item);
  const QPoint at = widget.visualItemRect(&item).center();
  if (widget.viewport()->rect().contains(at)) {
    widget.setFocus(Qt::MouseFocusReason);
    ClickWidget(*widget.viewport(), at);
  }
}

void Hands::ClickOpener(QTreeWidgetItem& item) {
  QTreeWidget& widget = *item.treeWidget();
  if (IsBlocked(widget)) return;
  widget.scrollToItem(&item);
  const QRect row = widget.visualItemRect(&item);
  ClickWidget(*widget.viewport(), QPoint(row.left() - widget.indentation() / 2, row.center().y()));
}

}  // namespace pixorra
