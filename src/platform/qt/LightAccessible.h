// One light control as helpers find it.
#pragma once

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QPointer>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/qt/ClientArea.h"

namespace pixorra {

class LightAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  LightAccessible(ClientArea& client, Control& control) : client_(&client), control_(control) {}

  Control* GetControl() const { return control_.Get(); }

  bool isValid() const override { return client_ != nullptr && control_; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(client_.data()); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text what) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

 private:
  bool CanBePressed() const;
  bool IsText() const;
  bool IsChosen() const;
  std::vector<NamedAction> OwnActions() const;
  void Press();

  QPointer<ClientArea> client_;
  Watch<Control> control_;
};

// What a control says of itself: its accessible name, caption or tool tip; empty where it says nothing.
QString SpokenName(const Control& control);

}  // namespace pixorra
