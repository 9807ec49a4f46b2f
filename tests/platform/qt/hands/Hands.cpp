#include "tests/platform/qt/hands/Hands.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>
#include <algorithm>

#include "platform/controls/Form.h"
#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/ScrollBar.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/FormPeer.h"

namespace pixorra {

namespace {

FormPeer* PeerOf(Form& form) {
  return static_cast<FormPeer*>(form.GetPeer());
}

Qt::MouseButton ToQt(int mouseButton) {
  if (mouseButton == button::Right) return Qt::RightButton;
  return mouseButton == button::Middle ? Qt::MiddleButton : Qt::LeftButton;
}

Qt::KeyboardModifiers ToModifiers(int shift) {
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, (shift & shift::Shift) != 0);
  modifiers.setFlag(Qt::ControlModifier, (shift & shift::Ctrl) != 0);
  modifiers.setFlag(Qt::AltModifier, (shift & shift::Alt) != 0);
  return modifiers;
}

void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QMouseEvent event(type, QPointF(at), QPointF(widget.mapToGlobal(at)), button, held, modifiers);
  // As from the window system: only such a press moves the focus.
  QSpontaneKeyEvent::setSpontaneous(&event);
  QApplication::instance()->notify(&widget, &event);
}

struct KeyOf {
  int Key;
  QString Text;
};

KeyOf ToKey(int code, int shift) {
  switch (code) {
    case key::Back:
      return {Qt::Key_Backspace, QStringLiteral("\b")};
    case key::Tab:
      return {Qt::Key_Tab, QStringLiteral("\t")};
    case key::Return:
      return {Qt::Key_Return, QStringLiteral("\r")};
    case key::Escape:
      return {Qt::Key_Escape, QStringLiteral("\x1b")};
    case key::PageUp:
      return {Qt::Key_PageUp, {}};
    case key::PageDown:
      return {Qt::Key_PageDown, {}};
    case key::End:
      return {Qt::Key_End, {}};
    case key::Home:
      return {Qt::Key_Home, {}};
    case key::Left:
      return {Qt::Key_Left, {}};
    case key::Up:
      return {Qt::Key_Up, {}};
    case key::Right:
      return {Qt::Key_Right, {}};
    case key::Down:
      return {Qt::Key_Down, {}};
    case key::Insert:
      return {Qt::Key_Insert, {}};
    case key::Delete:
      return {Qt::Key_Delete, QStringLiteral("\x7f")};
    case key::Other:
      return {Qt::Key_Pause, {}};
    default:
      break;
  }
  if (code >= key::F1 && code <= key::F1 + 11) return {Qt::Key_F1 + (code - key::F1), {}};
  const QChar letter(code);
  if ((shift & (shift::Ctrl | shift::Alt)) != 0) return {code, {}};
  return {code, (shift & shift::Shift) != 0 ? QString(letter) : QString(letter.toLower())};
}

QWidget* KeyReceiver() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  QWidget* focus = QApplication::focusWidget();
  QWidget* modal = QApplication::activeModalWidget();
  // A window that waits for another one gets no keys, also while the other one is not active yet.
  if (modal != nullptr && (focus == nullptr || focus->window() != modal)) {
    return modal->focusWidget() != nullptr ? modal->focusWidget() : modal;
  }
  return focus != nullptr ? focus : QApplication::activeWindow();
}

void SendKey(int qtKey, const QString& text, Qt::KeyboardModifiers modifiers) {
  const QPointer<QWidget> receiver = KeyReceiver();
  if (receiver == nullptr) return;
  QKeyEvent press(QEvent::KeyPress, qtKey, modifiers, text);
  QApplication::sendEvent(receiver, &press);
  if (receiver == nullptr) return;
  QKeyEvent release(QEvent::KeyRelease, qtKey, modifiers, text);
  QApplication::sendEvent(receiver, &release);
}

int IndexOf(const std::vector<MenuItem*>& items, const MenuItem& item) {
  return static_cast<int>(std::find(items.begin(), items.end(), &item) - items.begin());
}

}  // namespace

QWidget* Hands::WindowOf(Form& form) {
  return PeerOf(form) != nullptr ? &PeerOf(form)->Window() : nullptr;
}

QWidget* Hands::ClientOf(Form& form) {
  return PeerOf(form) != nullptr ? &PeerOf(form)->Client() : nullptr;
}

QWidget* Hands::WidgetOf(Control& control) {
  QWidget* client = ClientOf(control.GetForm());
  if (client == nullptr || control.GetPeer() == nullptr) return nullptr;
  return client->findChild<QWidget*>(QString::fromStdString(control.Name()), Qt::FindDirectChildrenOnly);
}

bool Hands::IsBlocked(const QWidget& widget) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr && modal != widget.window();
}

QPoint Hands::MiddleOf(Control& control) {
  const Rect seen = control.ShownRect();
  return {seen.Left + seen.Width / 2, seen.Top + seen.Height / 2};
}

void Hands::Press(Form& form, QPoint at, int button, int shift) {
  QWidget* client = ClientOf(form);
  if (client == nullptr || IsBlocked(*client)) return;
  QWidget* under = client->childAt(at);
  pressed_ = under != nullptr ? under : client;
  held_ = ToQt(button);
  SendMouse(*pressed_, QEvent::MouseButtonPress, pressed_->mapFrom(client, at), ToQt(button), held_,
            ToModifiers(shift));
}

void Hands::Move(Form& form, QPoint at, int shift) {
  QWidget* client = ClientOf(form);
  if (client == nullptr || IsBlocked(*client)) return;
  QWidget* to = pressed_ != nullptr ? pressed_.data() : client->childAt(at);
  if (to == nullptr) to = client;
  SendMouse(*to, QEvent::MouseMove, to->mapFrom(client, at), Qt::NoButton, held_, ToModifiers(shift));
}

void Hands::Release(Form& form, QPoint at, int button, int shift) {
  held_ = Qt::NoButton;
  const QPointer<QWidget> to = std::exchange(pressed_, nullptr);
  QWidget* client = ClientOf(form);
  if (to == nullptr || client == nullptr || IsBlocked(*client)) return;
  SendMouse(*to, QEvent::MouseButtonRelease, to->mapFrom(client, at), ToQt(button), held_, ToModifiers(shift));
}

void Hands::DoubleClick(Form& form, QPoint at) {
  Press(form, at);
  Release(form, at);
  QWidget* client = ClientOf(form);
  if (client == nullptr || IsBlocked(*client)) return;
  QWidget* under = client->childAt(at);
  pressed_ = under != nullptr ? under : client;
  SendMouse(*pressed_, QEvent::MouseButtonDblClick, pressed_->mapFrom(client, at), Qt::LeftButton, Qt::LeftButton);
  Release(form, at);
}

void Hands::TurnWheel(Form& form, QPoint at, const WheelArgs& turn) {
  QWidget* client = ClientOf(form);
  if (client == nullptr || IsBlocked(*client)) return;
  QWidget* under = client->childAt(at);
  QWidget& to = under != nullptr ? *under : *client;
  // Away from the hand, and to the left, count upwards; a touch pad gives both measures and says when it is stroked.
  const bool stroke = turn.PixelsX != 0 || turn.PixelsY != 0;
  const QPoint pixels(qRound(-turn.PixelsX), qRound(-turn.PixelsY));
  const QPoint angle = stroke ? pixels * 8 : QPoint(qRound(-turn.NotchesX * 120), qRound(-turn.NotchesY * 120));
  const auto send = [&](QPoint moved, QPoint turned, Qt::ScrollPhase phase) {
    QWheelEvent event(QPointF(to.mapFrom(client, at)), QPointF(client->mapToGlobal(at)), moved, turned, Qt::NoButton,
                      ToModifiers(turn.Shift), phase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(&to, &event);
  };
  if (!stroke) {
    send(pixels, angle, Qt::NoScrollPhase);
    return;
  }
  send({}, {}, Qt::ScrollBegin);
  send(pixels, angle, Qt::ScrollUpdate);
  send({}, {}, Qt::ScrollEnd);
}

void Hands::ClickWidget(QWidget& widget, QPoint at) {
  const QPointer<QWidget> watch = &widget;
  SendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
  if (watch != nullptr) SendMouse(widget, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
  if (watch != nullptr) SendMouse(widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

// What arrows, the shaft and the wheel come down to.
void Hands::MoveBar(ScrollBar& bar, int value) {
  if (auto* widget = qobject_cast<QAbstractSlider*>(WidgetOf(bar))) widget->setSliderPosition(value);
}

void Hands::DragBar(ScrollBar& bar, int value) {
  const QPointer<QAbstractSlider> widget = qobject_cast<QAbstractSlider*>(WidgetOf(bar));
  if (widget == nullptr) return;
  widget->setSliderDown(true);
  widget->setSliderPosition((widget->value() + value) / 2);
  if (widget != nullptr) widget->setSliderPosition(value);
  if (widget != nullptr) widget->setSliderDown(false);
}

void Hands::Choose(ItemList& list, int index) {
  QWidget* widget = WidgetOf(list);
  if (widget == nullptr) return;
  QAbstractItemView* view = qobject_cast<QListWidget*>(widget);
  if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    combo->showPopup();
    view = combo->view();
  }
  const QModelIndex entry = view->model()->index(index, 0);
  view->scrollTo(entry);
  view->setCurrentIndex(entry);
  if (widget == view) return;
  QKeyEvent choose(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
  const QPointer<QWidget> window = widget->window();
  QApplication::sendEvent(view, &choose);
  // As a window system does when a pop-up window has gone.
  if (window != nullptr && window->isVisible() && !IsBlocked(*window)) window->activateWindow();
}

void Hands::Key(int keyCode, int shift) {
  const KeyOf pressed = ToKey(keyCode, shift);
  SendKey(pressed.Key, pressed.Text, ToModifiers(shift));
}

void Hands::Type(const std::string& text) {
  for (const char32_t code : QString::fromStdString(text).toStdU32String()) {
    const QString character = QString::fromUcs4(&code, 1);
    const char32_t capital = QChar::toUpper(code);
    SendKey(capital < 128 ? static_cast<int>(capital) : 0, character, Qt::NoModifier);
  }
}

void Hands::ClickAction(QMenu& menu, int index) {
  ClickWidget(menu, menu.actionGeometry(menu.actions().at(index)).center());
}

void Hands::ChooseMenu(MenuItem& item) {
  std::vector<MenuItem*> path;
  for (MenuItem* above = &item; above != nullptr; above = above->Parent()) path.insert(path.begin(), above);
  Form& form = item.GetForm();
  if (PeerOf(form) == nullptr || IsBlocked(*WindowOf(form))) return;
  QMenuBar& bar = PeerOf(form)->Window().MenuBar();
  QAction* top = bar.actions().at(IndexOf(form.Menus(), *path[0]));
  ClickWidget(bar, bar.actionGeometry(top).center());
  QPointer<QMenu> menu = top->menu();
  for (std::size_t i = 1; i < path.size() && menu != nullptr; ++i) {
    if (!menu->isVisible()) menu->popup(QPoint(0, 0));  // a menu below opens after a moment's stay
    const int index = IndexOf(path[i - 1]->Items(), *path[i]);
    const QPointer<QMenu> below = menu->actions().at(index)->menu();
    if (below == nullptr) ClickAction(*menu, index);
    menu = below;
  }
  while (QWidget* left = QApplication::activePopupWidget()) {
    if (!left->close()) break;
  }
}

void Hands::ChooseFromPopup(MenuItem* item) {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr) return;
  if (item == nullptr) {
    menu->close();
    return;
  }
  std::vector<MenuItem*> path;
  for (MenuItem* above = item; above->Parent() != nullptr; above = above->Parent()) path.insert(path.begin(), above);
  for (MenuItem* step : path) {
    const int index = IndexOf(step->Parent()->Items(), *step);
    QMenu* below = menu->actions().at(index)->menu();
    if (below == nullptr) {
      const QPointer<QWidget> window = WindowOf(item->GetForm());
      ClickAction(*menu, index);
      // As a window system does when a pop-up window has gone.
      if (window != nullptr && window->isVisible() && !IsBlocked(*window)) window->activateWindow();
      return;
    }
    below->popup(QPoint(0, 0));
    menu = below;
  }
}

void Hands::Meanwhile(std::function<bool()> when, std::function<void()> act) {
  auto* poll = new QTimer(qApp);
  QObject::connect(poll, &QTimer::timeout, poll, [poll, when = std::move(when), act = std::move(act)] {
    if (when && !when()) return;
    poll->stop();
    poll->deleteLater();
    const std::function<void()> copy = act;
    copy();
  });
  poll->start(1);
}

}  // namespace pixorra
