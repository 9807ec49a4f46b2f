// The window of a form: a menu bar above a client area. What a person does with its frame goes to the form's peer.
#pragma once

#include <QMenuBar>
#include <QWidget>

namespace pixorra {

class ClientArea;
class FormPeer;

class FormWindow final : public QWidget {
 public:
  FormWindow(FormPeer& peer, int menuBarHeight);

  // Null once the form has gone.
  FormPeer* GetPeer() const { return peer_; }
  ClientArea& Client() { return *client_; }
  QMenuBar& MenuBar() { return *menuBar_; }
  void ShowMenuBar(bool shown);
  int MenuHeight() const { return hasMenuBar_ ? menuBarHeight_ : 0; }
  // The peer is about to go; the window goes a little later, and does nothing until then.
  void Detach();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

 private:
  void Arrange();

  FormPeer* peer_;
  QMenuBar* menuBar_;
  ClientArea* client_;
  int menuBarHeight_;
  bool hasMenuBar_ = false;
};

}  // namespace pixorra
