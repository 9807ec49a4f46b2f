#include "platform/qt/WindowAccessible.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

const QString CloseAction = QStringLiteral("Close");
const QString EnterAction = QStringLiteral("Enter");

bool HasWidgets(const Container& container) {
  for (const Control* control : container.Controls()) {
    if (control->IsNative()) return true;
    if (TraitsOf(control->GetKind()).HoldsOthers && HasWidgets(static_cast<const Container&>(*control))) return true;
  }
  return false;
}

}  // namespace

// One that only tells something, and waits for nothing.
bool WindowAccessible::IsNotice() const {
  const Form& form = window_.GetPeer()->GetForm();
  return !form.IsModal() && !form.FullScreen() && !HasWidgets(form);
}

QAccessible::Role WindowAccessible::role() const {
  const FormPeer* peer = window_.GetPeer();
  if (peer == nullptr || peer->GetForm().Owner() == nullptr) return QAccessible::Window;
  return IsNotice() ? QAccessible::AlertMessage : QAccessible::Dialog;
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
