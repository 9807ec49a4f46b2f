// The window of a form as helpers find it: closed as by its frame, and answered as by the key Enter where a text box
// waits for that.
#pragma once

#include <QAccessibleWidget>

#include "platform/qt/FormWindow.h"

namespace pixorra {

class WindowAccessible final : public QAccessibleWidget {
 public:
  explicit WindowAccessible(FormWindow& window) : QAccessibleWidget(&window, QAccessible::Window), window_(window) {}

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessible::Role role() const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  QWidget* PopupMenu() const;
  bool TakesInput() const;
  QWidget* FocusedLine() const;

  FormWindow& window_;
};

}  // namespace pixorra
