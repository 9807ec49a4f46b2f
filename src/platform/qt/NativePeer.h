// What the peers of all native controls have in common: a widget on the form's client area that follows the control's
// place, visibility and focus, and sends its keys through the form first.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/controls/Control.h"
#include "platform/qt/Pending.h"

class QKeyEvent;
class QWheelEvent;

namespace pixorra {

class QtBackend;

class NativePeer : public Peer, public Pending {
 public:
  ~NativePeer() override;
  NativePeer(const NativePeer&) = delete;
  NativePeer& operator=(const NativePeer&) = delete;

  void Update(Change change) override;
  void Flush() override;

 protected:
  // Takes over the widget, a child of the form's client area.
  NativePeer(QtBackend& backend, Control& control, QWidget* widget);
  // The control's contents go into the widget; echoes of it are not to be taken for a person's acts.
  virtual void Mirror() = 0;
  // For a key that neither the form nor its handlers used; true where the widget is not to have it either.
  virtual bool OwnKey(const QKeyEvent&) { return false; }

  // Runs a person's act on the control. The peer may be gone afterwards.
  void Act(const std::function<void()>& act);
  bool Mirroring() const { return mirroring_; }
  // What connections of the widget's signals live as long as.
  QObject* Context() { return context_.get(); }
  QtBackend& GetBackend() { return backend_; }

 private:
  class Hook;
  bool Filter(QObject& watched, QEvent& event);
  bool FilterWheel(const QWheelEvent& event);
  bool FilterKey(QObject& watched, QKeyEvent& event);
  void FocusTaken(Qt::FocusReason reason);
  void ApplyPlace();
  void ApplyVisible();
  void ApplyLook();
  void ApplyColours();

  QtBackend& backend_;
  Control& control_;
  QPointer<QWidget> widget_;
  Hook* hook_;
  std::unique_ptr<QObject> context_;
  int z_;
  bool mirroring_ = false;
  bool colouring_ = false;
};

// The same for one kind of control and of widget.
template <typename WidgetType, typename ControlType>
class PeerOf : public NativePeer {
 protected:
  PeerOf(QtBackend& backend, ControlType& control, WidgetType* widget)
      : NativePeer(backend, control, widget), ownWidget_(*widget), model_(control) {}

  WidgetType& Widget() const { return ownWidget_; }
  ControlType& Model() const { return model_; }

 private:
  WidgetType& ownWidget_;
  ControlType& model_;
};

}  // namespace pixorra
