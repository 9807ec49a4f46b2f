// A tree as helpers find it: its nodes, each below the one that it lies in, to be chosen, opened and closed.
#pragma once

#include <QAccessibleWidget>
#include <map>
#include <string>
#include <vector>

#include "platform/qt/TreeWidget.h"

namespace pixorra {

class TreeAccessible final : public QAccessibleWidget {
 public:
  explicit TreeAccessible(TreeWidget& tree) : QAccessibleWidget(&tree, QAccessible::Tree), tree_(tree) {}
  ~TreeAccessible() override;

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  TreeWidget& Widget() const { return tree_; }
  // One for each node, as long as that lives; null for the root of all.
  QAccessibleInterface* InterfaceOf(const TreeNode& node) const;
  // How often all nodes were looked through for those that have gone.
  int Sweeps() const { return sweeps_; }

 private:
  // Folders that have gone are many over time; so many are kept before any is looked for.
  static constexpr std::size_t MostGone = 4096;

  void Sweep() const;

  TreeWidget& tree_;
  mutable std::map<std::string, QAccessible::Id> nodes_;
  mutable std::size_t sweepAt_ = MostGone;
  mutable int sweeps_ = 0;
};

class NodeAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  NodeAccessible(const TreeAccessible& tree, std::string key)
      : tree_(tree), widget_(&tree.Widget()), key_(std::move(key)) {}

  // Null once the tree has it no longer.
  TreeNode* Node() const;

  bool isValid() const override { return Node() != nullptr; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QString text(QAccessible::Text what) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::TreeItem; }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  const TreeAccessible& tree_;  // not once the widget has gone
  QPointer<TreeWidget> widget_;
  std::string key_;
};

}  // namespace pixorra
