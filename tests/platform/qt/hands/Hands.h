// A person's hands on real widgets: events go to the widget that would get them, and to none behind a modal window.
#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Control.h"

class QAbstractSlider;
class QMenu;
class QTreeWidgetItem;

namespace pixorra {

class Form;
class ItemList;
class MenuItem;
class ScrollBar;
class TreeView;

class Hands {
 public:
  // The widgets of a form; null while it has no window.
  static QWidget* WindowOf(Form& form);
  static QWidget* ClientOf(Form& form);
  // The widget of a native control; null where it has none.
  static QWidget* WidgetOf(Control& control);

  // --- mouse; pixels of the form's client area ---------------------------------------------------------------------
  void Press(Form& form, QPoint at, int button = button::Left, int shift = 0);
  void Move(Form& form, QPoint at, int shift = 0);
  void Release(Form& form, QPoint at, int button = button::Left, int shift = 0);
  void DoubleClick(Form& form, QPoint at);
  // Over what is there.
  static void TurnWheel(Form& form, QPoint at, const WheelArgs& turn);
  // The middle of what is seen of a control.
  static QPoint MiddleOf(Control& control);

  // --- controls with a widget of their own -------------------------------------------------------------------------
  static void MoveBar(ScrollBar& bar, int value);
  static void DragBar(ScrollBar& bar, int value);
  void Choose(ItemList& list, int index);
  // The item of a node of a tree, told by the texts on the way to it; null where there is none.
  static QTreeWidgetItem* ItemOf(TreeView& tree, const std::vector<std::string>& path);
  // By the mouse, scrolled to at first: on its text, or on what opens and closes it.
  void ChooseItem(QTreeWidgetItem& item);
  void ClickOpener(QTreeWidgetItem& item);

  // --- keyboard; goes to the widget that has the focus in the active window
  // -------------------------------------------
  static void Key(int keyCode, int shift);
  static void Type(const std::string& text);

  // --- menus -------------------------------------------------------------------------------------------------------
  void ChooseMenu(MenuItem& item);
  // From the pop-up menu that is up; nothing closes it.
  void ChooseFromPopup(MenuItem* item);

  // Runs once, in a loop of events, as soon as `when` holds.
  static void Meanwhile(std::function<bool()> when, std::function<void()> act);

 private:
  // A person cannot reach what a modal window of the host or the program stands in front of.
  static bool IsBlocked(const QWidget& widget);
  void ClickWidget(QWidget& widget, QPoint at);
  void ClickAction(QMenu& menu, int index);

  QPointer<QWidget> pressed_;  // has the mouse until it is let go
  Qt::MouseButtons held_;
};

}  // namespace pixorra
