#include "platform/qt/FormWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <algorithm>

#include "platform/qt/ClientArea.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

FormWindow::FormWindow(FormPeer& peer, int menuBarHeight)
    : peer_(&peer), menuBar_(new QMenuBar(this)), client_(new ClientArea(peer, this)), menuBarHeight_(menuBarHeight) {
  // Places on a form are from its left edge, and the program speaks English: what Qt would mirror on a desktop that
  // reads from right to left would be some of it only.
  setLayoutDirection(Qt::LeftToRight);
  menuBar_->setNativeMenuBar(false);
  menuBar_->hide();
}

void FormWindow::Detach() {
  peer_ = nullptr;
  client_->Detach();
  menuBar_->disconnect();
  hide();
  deleteLater();
}

void FormWindow::ShowMenuBar(bool shown) {
  if (shown == hasMenuBar_) return;
  hasMenuBar_ = shown;
  menuBar_->setVisible(shown);
  Arrange();
}

void FormWindow::Arrange() {
  menuBar_->setGeometry(0, 0, width(), menuBarHeight_);
  client_->setGeometry(0, MenuHeight(), width(), std::max(0, height() - MenuHeight()));
}

bool FormWindow::event(QEvent* event) {
  if (peer_ != nullptr && event->type() == QEvent::WindowBlocked) peer_->InputBlocked();
  if (peer_ != nullptr && event->type() == QEvent::ScreenChangeInternal) {
    peer_->GetBackend().FollowScreens();
    peer_->FrameChanged();
  }
  // Ahead of the widget's own use for it, which is to look for a widget that takes the focus.
  if (peer_ != nullptr && event->type() == QEvent::KeyPress) {
    auto& key = static_cast<QKeyEvent&>(*event);
    if ((key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) && peer_->KeyPressed(key)) return true;
  }
  return QWidget::event(event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  if (peer_ != nullptr) peer_->PersonCloses();
  // A form that has gone or is hidden lets its window close, so that a session's end is not held up; any other keeps
  // it.
  event->setAccepted(peer_ == nullptr || !peer_->GetForm().Visible());
}

void FormWindow::resizeEvent(QResizeEvent*) {
  Arrange();
  if (peer_ != nullptr) peer_->FrameChanged();
}

void FormWindow::moveEvent(QMoveEvent*) {
  if (peer_ != nullptr) peer_->FrameChanged();
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (peer_ == nullptr) return;
  if (event->type() == QEvent::WindowStateChange) peer_->FrameChanged();
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) peer_->PersonActivates();
}

// Only what no control with the focus has taken comes here.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (peer_ == nullptr || !peer_->KeyPressed(*event)) QWidget::keyPressEvent(event);
}

void FormWindow::keyReleaseEvent(QKeyEvent* event) {
  if (peer_ != nullptr) peer_->GetBackend().Held().Released(*event);
  QWidget::keyReleaseEvent(event);
}

}  // namespace pixorra
