// What lies inside a form's frame and below its menu bar: paints the form's light controls and takes the mouse for
// them.
#pragma once

#include <QWidget>

namespace pixorra {

class FormPeer;

class ClientArea final : public QWidget {
 public:
  ClientArea(FormPeer& peer, QWidget* window);
  void Detach() { peer_ = nullptr; }
  // Null once the form has gone.
  FormPeer* GetPeer() const { return peer_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Accepts the event where the files can be dropped, never as a move.
  bool TakesFiles(QDropEvent& event);

  FormPeer* peer_;
};

}  // namespace pixorra
