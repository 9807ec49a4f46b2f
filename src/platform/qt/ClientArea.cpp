#include "platform/qt/ClientArea.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/Convert.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/LightPainter.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

namespace {

QPoint PixelOf(const QMouseEvent& event) {
  return {qFloor(event.position().x()), qFloor(event.position().y())};
}

}  // namespace

ClientArea::ClientArea(FormPeer& peer, QWidget* window) : QWidget(window), peer_(&peer) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFont(ToQFont(Font{}));
}

bool ClientArea::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || peer_ == nullptr) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  Toolkit& toolkit = peer_->GetBackend().GetToolkit();
  Form& form = peer_->GetForm();
  const std::string text = toolkit.ToolTipAt(form, help->x(), help->y());
  if (text.empty()) {
    QToolTip::hideText();
    event->ignore();
    return true;
  }
  const Rect about = toolkit.ControlAt(form, help->x(), help->y())->ShownRect();
  QToolTip::showText(help->globalPos(), ToToolTip(text), this, ToQRect(about));
  return true;
}

void ClientArea::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (peer_ == nullptr) {
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    return;
  }
  LightPainter(painter, *this, peer_->GetBackend().Art()).PaintForm(peer_->GetForm(), ToRect(event->rect()));
}

void ClientArea::mousePressEvent(QMouseEvent* event) {
  if (peer_ == nullptr || ToButton(event->button()) == 0) return;
  QtBackend& backend = peer_->GetBackend();
  backend.Dispatch([&, at = PixelOf(*event), form = &peer_->GetForm()] {
    backend.GetToolkit().MousePressed(*form, at.x(), at.y(), ToButton(event->button()), ToShift(event->modifiers()));
  });
}

void ClientArea::mouseDoubleClickEvent(QMouseEvent* event) {
  if (peer_ == nullptr || ToButton(event->button()) == 0) return;
  QtBackend& backend = peer_->GetBackend();
  backend.Dispatch([&, at = PixelOf(*event), form = &peer_->GetForm()] {
    backend.GetToolkit().MouseDoubleClicked(*form, at.x(), at.y(), ToButton(event->button()),
                                            ToShift(event->modifiers()));
  });
}

void ClientArea::mouseMoveEvent(QMouseEvent* event) {
  if (peer_ == nullptr) return;
  QtBackend& backend = peer_->GetBackend();
  backend.Dispatch([&, at = PixelOf(*event), form = &peer_->GetForm()] {
    backend.GetToolkit().MouseMoved(*form, at.x(), at.y(), ToButtons(event->buttons()), ToShift(event->modifiers()));
  });
}

void ClientArea::mouseReleaseEvent(QMouseEvent* event) {
  if (peer_ == nullptr || ToButton(event->button()) == 0) return;
  QtBackend& backend = peer_->GetBackend();
  backend.Dispatch([&, at = PixelOf(*event), form = &peer_->GetForm()] {
    backend.GetToolkit().MouseReleased(*form, at.x(), at.y(), ToButton(event->button()), ToShift(event->modifiers()));
  });
}

void ClientArea::wheelEvent(QWheelEvent* event) {
  const std::optional<WheelArgs> turn = ToWheel(*event);
  if (peer_ == nullptr || !turn) return;
  QtBackend& backend = peer_->GetBackend();
  backend.Dispatch([&, at = event->position(), form = &peer_->GetForm()] {
    backend.GetToolkit().WheelTurned(*form, qFloor(at.x()), qFloor(at.y()), *turn);
  });
}

void ClientArea::leaveEvent(QEvent*) {
  if (peer_ == nullptr) return;
  QtBackend& backend = peer_->GetBackend();
  backend.Dispatch([&, form = &peer_->GetForm()] { backend.GetToolkit().MouseLeft(*form); });
}

}  // namespace pixorra
