// The list of a drop-down list as helpers find it: its entries, each to be chosen, whether the list is open or not. The
// toolkit's own entries can only be selected, which chooses nothing.
#pragma once

#include <QAccessibleWidget>
#include <QComboBox>
#include <QListView>
#include <QPointer>
#include <map>

namespace pixorra {

class DropDownAccessible final : public QAccessibleWidget {
 public:
  // The view that the widget opens for its entries.
  DropDownAccessible(QListView& view, QComboBox& widget);
  ~DropDownAccessible() override;
  DropDownAccessible(const DropDownAccessible&) = delete;
  DropDownAccessible& operator=(const DropDownAccessible&) = delete;

  QAccessibleInterface* parent() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  QString text(QAccessible::Text what) const override;

 private:
  QListView& view_;
  QPointer<QComboBox> widget_;
  mutable std::map<int, QAccessible::Id> entries_;
};

class EntryAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  EntryAccessible(QListView& view, QComboBox& widget, int row) : view_(&view), widget_(&widget), row_(row) {}

  int Row() const { return row_; }

  bool isValid() const override { return view_ != nullptr && widget_ != nullptr && row_ < widget_->count(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_.data()); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text what) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QPointer<QListView> view_;
  QPointer<QComboBox> widget_;
  int row_;
};

// The drop-down list of a form that this is the view of; null for none.
QComboBox* DropDownOf(const QListView& view);

}  // namespace pixorra
