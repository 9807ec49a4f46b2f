#include "platform/qt/ClientArea.h"

#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>

#include "platform/controls/FileDrops.h"
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
  setAcceptDrops(true);
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
  QtBackend& backend = peer_->GetBackend();
  LightPainter(painter, *this, backend.Art(), backend.Sharp()).PaintForm(peer_->GetForm(), ToRect(event->rect()));
}

// A button that has no name here, such as those for back and forward, is one more key to a form that takes every key.
void ClientArea::mousePressEvent(QMouseEvent* event) {
  if (peer_ == nullptr) return;
  QtBackend& backend = peer_->GetBackend();
  if (ToButton(event->button()) == 0) {
    backend.Dispatch([&, form = &peer_->GetForm()] {
      if (form->TakesEveryKey()) backend.GetToolkit().KeyPressed(*form, key::Other, shift::None, KeyStroke::Pressed);
    });
    return;
  }
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

void ClientArea::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->accept();
}

// Folders are shown where they are: whoever drags them must never take them for moved.
bool ClientArea::TakesFiles(QDropEvent& event) {
  const QPoint at = event.position().toPoint();
  const bool taken = peer_ != nullptr && (event.possibleActions() & (Qt::CopyAction | Qt::LinkAction)) != 0 &&
                     TargetOfFiles(peer_->GetForm(), at.x(), at.y()) != nullptr;
  event.setAccepted(taken);
  if (!taken) return false;
  const bool link = (event.possibleActions() & Qt::LinkAction) != 0;
  event.setDropAction(link ? Qt::LinkAction : Qt::CopyAction);
  return true;
}

void ClientArea::dragMoveEvent(QDragMoveEvent* event) {
  TakesFiles(*event);
}

// The other program waits until the drop is done, and what the drop brings up may wait for the user.
void ClientArea::dropEvent(QDropEvent* event) {
  if (!TakesFiles(*event)) return;
  std::vector<std::string> paths;
  for (const QUrl& url : event->mimeData()->urls())
    paths.push_back(ToUtf8(url.isLocalFile() ? url.toLocalFile() : url.toString(QUrl::FullyDecoded)));
  const QPoint at = event->position().toPoint();
  QMetaObject::invokeMethod(
      this,
      [this, at, paths] {
        if (peer_ == nullptr) return;
        QtBackend& backend = peer_->GetBackend();
        backend.Dispatch([&, form = &peer_->GetForm()] { UserDroppedFiles(*form, at.x(), at.y(), paths); });
      },
      Qt::QueuedConnection);
}

}  // namespace pixorra
