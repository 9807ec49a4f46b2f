// The widget of a tree, which helpers find as the model's nodes: the toolkit's own table of them opens none, and takes
// one row for another.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <string>

#include "platform/controls/TreeView.h"

namespace pixorra {

class TreeWidget final : public QTreeWidget {
 public:
  explicit TreeWidget(TreeView& tree);

  // Null once the control has gone.
  TreeView* Model() const { return tree_.Get(); }

  // As a person does it; set by the peer, which may be gone afterwards.
  std::function<void(TreeView::Node&)> Choose;
  std::function<void(TreeView::Node&, bool)> Open;
  // Null where the node is not mirrored yet.
  std::function<QTreeWidgetItem*(const TreeView::Node&)> ItemOf;

  // Null where the model has it no longer.
  std::function<TreeView::Node*(const QTreeWidgetItem&)> NodeOf;

  // Helpers hear which node the keys act on, while the tree has the focus.
  void TellSelected();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  // Without what the toolkit tells of its own table.
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  Watch<TreeView> tree_;
};

}  // namespace pixorra
