// A test on the back end with windows. Its hands work on the widgets, as those of a person do: what happens in the
// model is what the back end makes of it.
#pragma once

#include <QApplication>
#include <QImage>
#include <QPaintEvent>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

// Counts the paint events of a widget, and the pixels that they were about.
class PaintCounter final : public QObject {
 public:
  explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    ++Count;
    Last = static_cast<QPaintEvent*>(event)->region().boundingRect();
    return false;
  }
  int Count = 0;
  QRect Last;
};

class QtTest : public ::testing::Test {
 protected:
  QtTest();
  ~QtTest() override;

  // Handles everything that waits, what is put off until the turn's end included.
  void Settle();
  QWidget& WindowOf(Form& form);
  QWidget& ClientOf(Form& form);
  // The widget of a native control.
  template <typename WidgetType>
  WidgetType& WidgetOf(Control& control) {
    auto* widget = ClientOf(control.GetForm()).findChild<WidgetType*>(QString::fromStdString(control.Name()));
    if (widget == nullptr) throw std::runtime_error("no widget for " + control.Name());
    return *widget;
  }
  // The client area as it is on the screen.
  QImage Shot(Form& form);

  void Press(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
  void Move(QWidget& widget, QPoint at, Qt::MouseButtons held = Qt::NoButton);
  void Release(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
  void Click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
  void Key(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Type(QWidget& widget, const QString& text);

  // On a screen that has this many device pixels to each pixel's side. The scale is a process's own from its start: the
  // test runs once more, in a process of its own.
  static constexpr int Fineness = 2;
  void OnAFineScreen(const std::function<void()>& test);
  // On one screen of this size.
  void OnAScreenOf(int width, int height, const std::function<void()>& test);
  // The test once more, in a process of its own that has these screens: the offscreen platform's description of them.
  static void RunAgainOn(const std::string& screens, double scale);

  // Runs when a box or menu of the host is up and waits for a person.
  void Meanwhile(const std::function<void()>& act);

  QtBackend backend;
  Toolkit toolkit{backend};
};

}  // namespace pixorra
