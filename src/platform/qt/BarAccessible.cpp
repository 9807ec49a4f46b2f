#include "platform/qt/BarAccessible.h"

#include <QScrollBar>

namespace pixorra {

BarAccessible::BarAccessible(QAbstractSlider& bar)
    : QAccessibleWidget(&bar,
                        qobject_cast<QScrollBar*>(&bar) != nullptr ? QAccessible::ScrollBar : QAccessible::Slider),
      bar_(bar) {}

void* BarAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

// The widget's own setValue is what the program does: nobody hears of it.
void BarAccessible::setCurrentValue(const QVariant& value) {
  if (bar_.isEnabled()) bar_.setSliderPosition(value.toInt());
}

}  // namespace pixorra
