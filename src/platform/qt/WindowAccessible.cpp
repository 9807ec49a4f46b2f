#include "platform/qt/WindowAccessible.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

const QString CloseAction = QStringLiteral("Close");
const QString EnterAction = QStringLiteral("Enter");

}  // namespace

// A menu that is up over the window, as a child of it; null for none. The menu bar has its own. Of several, the one
// that came up last is in front.
QWidget* WindowAccessible::PopupMenu() const {
  QWidget* front = nullptr;
  for (QMenu* menu : window_.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
    if (menu->isVisible()) front = menu;
  }
  return front;
}

int WindowAccessible::childCount() const {
  return QAccessibleWidget::childCount() + (PopupMenu() != nullptr ? 1 : 0);
}

QAccessibleInterface* WindowAccessible::child(int index) const {
  if (index != QAccessibleWidget::childCount()) return QAccessibleWidget::child(index);
  return QAccessible::queryAccessibleInterface(PopupMenu());
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
  QWidget* const menu = PopupMenu();
  const bool isMenu = menu != nullptr && child != nullptr && child->object() == menu;
  return isMenu ? QAccessibleWidget::childCount() : QAccessibleWidget::indexOfChild(child);
}

QAccessible::Role WindowAccessible::role() const {
  const FormPeer* peer = window_.GetPeer();
  if (peer == nullptr || peer->GetForm().Owner() == nullptr) return QAccessible::Window;
  return peer->IsNotice() ? QAccessible::AlertMessage : QAccessible::Dialog;
}

bool WindowAccessible::TakesInput() const {
  FormPeer* peer = window_.GetPeer();
  return peer != nullptr && peer->GetForm().Visible() && peer->GetBackend().GetToolkit().TakesInput(peer->GetForm());
}

// Lines alone: in a text of several lines the key is the text's own.
QWidget* WindowAccessible::FocusedLine() const {
  QWidget* const focus = window_.focusWidget();
  const auto* list = qobject_cast<QComboBox*>(focus);
  return qobject_cast<QLineEdit*>(focus) != nullptr || (list != nullptr && list->isEditable()) ? focus : nullptr;
}

QStringList WindowAccessible::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (!TakesInput()) return names;
  names.append(CloseAction);
  if (FocusedLine() != nullptr) names.append(EnterAction);
  return names;
}

// Either may be the end of the window, and of this.
void WindowAccessible::doAction(const QString& name) {
  if (name != CloseAction && name != EnterAction) {
    QAccessibleWidget::doAction(name);
    return;
  }
  if (!TakesInput()) return;
  if (name == CloseAction) {
    window_.close();
    return;
  }
  const QPointer<QWidget> line(FocusedLine());
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (line == nullptr) return;
    QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QCoreApplication::sendEvent(line, &event);
  }
}

}  // namespace pixorra
