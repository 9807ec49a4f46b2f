#include "platform/qt/DropDownAccessible.h"

#include "platform/qt/ClientArea.h"

namespace pixorra {

DropDownAccessible::DropDownAccessible(QListView& view, QComboBox& widget)
    : QAccessibleWidget(&view, QAccessible::List), view_(view), widget_(&widget) {}

DropDownAccessible::~DropDownAccessible() {
  for (const auto& [row, id] : entries_) QAccessible::deleteAccessibleInterface(id);
}

// Not the frame of the list that opens, which nobody has a use for.
QAccessibleInterface* DropDownAccessible::parent() const {
  return QAccessible::queryAccessibleInterface(widget_.data());
}

int DropDownAccessible::childCount() const {
  return widget_ != nullptr ? widget_->count() : 0;
}

QAccessibleInterface* DropDownAccessible::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  const auto known = entries_.find(index);
  if (known != entries_.end()) return QAccessible::accessibleInterface(known->second);
  auto* made = new EntryAccessible(view_, *widget_, index);
  entries_[index] = QAccessible::registerAccessibleInterface(made);
  return made;
}

int DropDownAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const auto* entry = dynamic_cast<const EntryAccessible*>(child);
  return entry != nullptr && entry->Row() < childCount() ? entry->Row() : -1;
}

QAccessibleInterface* DropDownAccessible::childAt(int x, int y) const {
  return child(view_.indexAt(view_.viewport()->mapFromGlobal(QPoint(x, y))).row());
}

QAccessibleInterface* DropDownAccessible::focusChild() const {
  return view_.hasFocus() ? child(view_.currentIndex().row()) : nullptr;
}

QString DropDownAccessible::text(QAccessible::Text what) const {
  if (what != QAccessible::Name || widget_ == nullptr) return QAccessibleWidget::text(what);
  return widget_->accessibleName();
}

QString EntryAccessible::text(QAccessible::Text what) const {
  return isValid() && what == QAccessible::Name ? widget_->itemText(row_) : QString();
}

QRect EntryAccessible::rect() const {
  if (!isValid() || !view_->isVisible()) return {};
  const QModelIndex index = view_->model()->index(row_, widget_->modelColumn(), view_->rootIndex());
  const QRect shown = view_->visualRect(index) & view_->viewport()->rect();
  return {view_->viewport()->mapToGlobal(shown.topLeft()), shown.size()};
}

QAccessible::State EntryAccessible::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.selectable = true;
  state.focusable = true;
  // In a list that is open it is what the keys are on.
  const bool open = view_->isVisible();
  state.selected = row_ == (open ? view_->currentIndex().row() : widget_->currentIndex());
  state.focused = open && state.selected;
  state.disabled = !widget_->isEnabled();
  state.invisible = !open;
  state.offscreen = rect().isEmpty();
  return state;
}

void* EntryAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList EntryAccessible::actionNames() const {
  return isValid() && widget_->isEnabled() ? QStringList(pressAction()) : QStringList();
}

// As a click on it in the list that is open. That may be the end of the form, and of this.
void EntryAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  const QPointer<QComboBox> widget = widget_;
  const int row = row_;
  widget->hidePopup();
  if (widget != nullptr) widget->activated(row);
}

// The view is the widget's own until it lies in the frame that opens.
QComboBox* DropDownOf(const QListView& view) {
  QObject* outer = view.parent();
  auto* widget = qobject_cast<QComboBox*>(outer);
  if (widget == nullptr && outer != nullptr) widget = qobject_cast<QComboBox*>(outer->parent());
  return widget != nullptr && dynamic_cast<ClientArea*>(widget->parent()) != nullptr ? widget : nullptr;
}

}  // namespace pixorra
