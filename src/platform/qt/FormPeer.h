// Shows a form as a window. Title, place, size, state and visibility are applied when the turn ends, all at once, so
// that a form hidden and shown again in one turn never leaves the screen.
#pragma once

#include <QPointer>
#include <QRegion>
#include <functional>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/KeptSize.h"
#include "platform/qt/Pending.h"
#include "platform/qt/PostedCall.h"

class QKeyEvent;

namespace pixorra {

class DragOverlay;
class QtBackend;

class FormPeer final : public Peer, public Pending {
 public:
  FormPeer(QtBackend& backend, Form& form);
  ~FormPeer() override;
  FormPeer(const FormPeer&) = delete;
  FormPeer& operator=(const FormPeer&) = delete;

  void Update(Change change) override;
  void Invalidate(const Rect& rect) override;
  void Flush() override;

  Form& GetForm() const { return form_; }
  QtBackend& GetBackend() { return backend_; }
  FormWindow& Window() { return *window_; }
  ClientArea& Client() { return window_->Client(); }
  // The form only tells something, and waits for nothing: it may close by itself at any time.
  bool IsNotice() const;

  void ShowDrag(const Toolkit::DragShown& drag);
  void ShowPointer(const Toolkit::PointerShown& pointer);

  // What comes from the window.
  void FrameChanged();
  void InputBlocked();
  void PersonActivates();
  void PersonCloses();
  bool KeyPressed(QKeyEvent& event);

 private:
  void ApplyTitle();
  void ApplyFrame();
  void ApplyOwner();
  void ApplyState();
  void ApplyPlace();
  void ApplyVisible();
  void ComeUpMaximised();
  void WaitForWindow(const std::function<bool(const FormWindow&)>& ready);
  void SyncMenus();
  bool IsProgressWindow() const;
  void ShowNow();
  void ReportFrame();
  bool IsAsWished(QSize client) const;
  void FocusFirst();
  void FocusLight();

  QtBackend& backend_;
  Form& form_;
  QPointer<FormWindow> window_;
  QPointer<DragOverlay> drag_;
  KeptSize keptSize_;
  QRegion outdated_;
  QSize agreedSize_;  // of the window, known to both sides
  QPoint agreedPlace_;
  Qt::WindowStates agreedState_ = Qt::WindowNoState;
  Toolkit::PointerShown pointer_;
  // State and size come in events of their own, in either order: they are looked at when both are settled.
  PostedCall report_;
  bool menuChanged_ = true;
  bool placeChanged_ = true;
  bool controlsAdded_ = false;
  bool everShown_ = false;
};

// The peer of the form that a control stands on; null where it has none.
FormPeer* FormPeerOf(Control& control);

}  // namespace pixorra
