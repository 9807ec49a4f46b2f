// A scroll bar or slider of a form as helpers find it: a value that they set is one that a person has moved it to.
#pragma once

#include <QAbstractSlider>
#include <QAccessibleWidget>

namespace pixorra {

class BarAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit BarAccessible(QAbstractSlider& bar);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QVariant currentValue() const override { return bar_.value(); }
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override { return bar_.maximum(); }
  QVariant minimumValue() const override { return bar_.minimum(); }
  QVariant minimumStepSize() const override { return bar_.singleStep(); }

 private:
  QAbstractSlider& bar_;
};

}  // namespace pixorra
