#include "platform/qt/FormPeer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <QThread>
#include <QWindow>

#include "platform/qt/Accessibility.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/Convert.h"
#include "platform/qt/DragOverlay.h"
#include "platform/qt/HostWindow.h"
#include "platform/qt/KeyInput.h"
#include "platform/qt/MenuBarView.h"
#include "platform/qt/Pointers.h"
#include "platform/qt/QtBackend.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

// More pieces than this are repainted as the one rectangle around them.
constexpr int MostPieces = 16;

// How long a window may take to come to the screen where that is waited for, in milliseconds.
constexpr int MostPatience = 300;

int StateOf(const QWidget& window) {
  if (window.isMinimized()) return windowstate::Minimised;
  return window.isMaximized() ? windowstate::Maximised : windowstate::Normal;
}

// In the window of another program a form covers that, by its size alone.
bool IsInHost(const QtBackend& backend, const Form& form) {
  return backend.Host() != nullptr && form.FullScreen();
}

Qt::WindowStates WishedState(const QtBackend& backend, const Form& form) {
  if (IsInHost(backend, form)) return Qt::WindowNoState;
  if (form.FullScreen()) return Qt::WindowFullScreen;
  if (form.WindowState() == windowstate::Minimised) return Qt::WindowMinimized;
  return form.WindowState() == windowstate::Maximised ? Qt::WindowMaximized : Qt::WindowNoState;
}

// The model's frame stands around the window's inside by a fixed width, whatever frame is drawn: the place of the
// inside is what both sides agree on, and it is known before the frame is.
constexpr QPoint FrameCorner(4, 23);

QPoint PlaceOf(const QtBackend& backend, const Form& form) {
  if (IsInHost(backend, form)) return {0, 0};
  if (form.FullScreen()) return QtBackend::ScreenOf(form.FullScreenOn())->geometry().topLeft();
  return QPoint(CLng(form.TwipsLeft() / TwipsPerPixel), CLng(form.TwipsTop() / TwipsPerPixel)) + FrameCorner;
}

bool HasWidgets(const Container& container) {
  for (const Control* control : container.Controls()) {
    if (control->IsNative()) return true;
    if (TraitsOf(control->GetKind()).HoldsOthers && HasWidgets(static_cast<const Container&>(*control))) return true;
  }
  return false;
}

}  // namespace

FormPeer* FormPeerOf(Control& control) {
  return static_cast<FormPeer*>(control.GetForm().GetPeer());
}

FormPeer::FormPeer(QtBackend& backend, Form& form)
    : backend_(backend),
      form_(form),
      window_(new FormWindow(*this, backend.MenuBarHeight())),
      keptSize_(*window_, [this] { FrameChanged(); }),
      report_([this] { backend_.Dispatch([this] { ReportFrame(); }); }) {
  backend_.AtEndOfTurn().Add(*this);
}

FormPeer::~FormPeer() {
  backend_.AtEndOfTurn().Remove(*this);
  if (window_ != nullptr) window_->Detach();
}

void FormPeer::Update(Change change) {
  if (change == Change::Refresh && IsProgressWindow()) {
    ShowNow();
    return;
  }
  if (change == Change::Focus) {
    FocusLight();
    return;
  }
  if (change == Change::Menu) menuChanged_ = true;
  if (change == Change::Controls) controlsAdded_ = true;
  if (change == Change::Position || change == Change::State || change == Change::Visible) placeChanged_ = true;
  backend_.AtEndOfTurn().Add(*this);
  if (change == Change::Visible && form_.Visible() && !window_->isVisible() &&
      WishedState(backend_, form_) == Qt::WindowMaximized) {
    ComeUpMaximised();
  }
}

// A light control has the focus: no widget may keep it, and helpers are told.
void FormPeer::FocusLight() {
  window_->setFocus(Qt::OtherFocusReason);
  Control* focus = backend_.GetToolkit().Focus();
  if (focus != nullptr && &focus->GetForm() == &form_) TellFocused(Client(), *focus);
}

// A maximised window has its size from the window system. A program finds it when Show returns, and nothing that is
// arranged for another size is seen.
void FormPeer::ComeUpMaximised() {
  const Watch<Form> form(form_);
  Client().hide();
  Flush();
  const QSize asked = agreedSize_;
  WaitForWindow([asked](const FormWindow& window) { return window.size() != asked; });
  if (!form || form->GetPeer() != this) return;
  placeChanged_ = false;
  backend_.Dispatch([this] { ReportFrame(); });
  if (form && form->GetPeer() == this) Client().show();
}

// One that stands above another form without stopping it: it tells of work that lets no events run meanwhile.
bool FormPeer::IsProgressWindow() const {
  return form_.Owner() != nullptr && !form_.IsModal() && form_.Visible();
}

void FormPeer::ShowNow() {
  const QPointer<FormWindow> window = window_;
  backend_.AtEndOfTurn().RunAll();
  WaitForWindow([](const FormWindow&) { return true; });
  if (window != nullptr) window->repaint();
}

// Until it is on the screen and ready. Neither timers nor a person come in here: only what the window system needs to
// bring the window up. The peer may be gone afterwards.
void FormPeer::WaitForWindow(const std::function<bool(const FormWindow&)>& ready) {
  const QPointer<FormWindow> window = window_;
  const auto isUp = [&] { return window->windowHandle()->isExposed() && ready(*window); };
  QElapsedTimer waiting;
  waiting.start();
  while (window != nullptr && !isUp() && waiting.elapsed() < MostPatience) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::X11ExcludeTimers);
    QThread::msleep(1);
  }
}

void FormPeer::Invalidate(const Rect& rect) {
  const QRect piece = ToQRect(rect);
  if (outdated_.rectCount() == 1 && outdated_.boundingRect().contains(piece)) return;
  outdated_ += piece;
  if (outdated_.rectCount() > MostPieces) outdated_ = outdated_.boundingRect();
  backend_.AtEndOfTurn().Add(*this);
}

void FormPeer::Flush() {
  if (controlsAdded_) {
    controlsAdded_ = false;
    form_.MakePeersWithin();
  }
  if (menuChanged_) SyncMenus();
  window_->ShowMenuBar(form_.HasMenuBar());
  ApplyTitle();
  if (placeChanged_ && form_.Visible()) {
    placeChanged_ = false;
    ApplyFrame();
    ApplyOwner();
    ApplyPlace();
  }
  ApplyVisible();
  if (!outdated_.isEmpty()) Client().update(outdated_);
  outdated_ = {};
  FollowSpoken(Client());
}

bool FormPeer::IsNotice() const {
  return form_.Owner() != nullptr && !form_.IsModal() && !form_.FullScreen() && !HasWidgets(form_);
}

void FormPeer::ApplyTitle() {
  const QString title = ToQString(form_.Caption());
  if (title == window_->windowTitle()) return;
  window_->setWindowTitle(title);
  TellRenamed(*window_);
}

void FormPeer::SyncMenus() {
  menuChanged_ = false;
  SyncMenuBar(backend_, form_, window_->MenuBar());
  if ((window_->MenuHeight() > 0) != form_.HasMenuBar()) placeChanged_ = true;
  window_->ShowMenuBar(form_.HasMenuBar());
}

void FormPeer::ApplyFrame() {
  Qt::WindowFlags flags = form_.Owner() != nullptr ? Qt::Dialog : Qt::Window;
  if (!form_.Sizable()) {
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  }
  if (form_.FullScreen()) flags = Qt::Window | Qt::FramelessWindowHint;
  flags.setFlag(Qt::WindowStaysOnTopHint, form_.StaysOnTop() || form_.FullScreen());
  flags.setFlag(Qt::WindowTransparentForInput, IsInHost(backend_, form_));
  if (!window_->isVisible()) {
    if (window_->windowFlags() != flags) window_->setWindowFlags(flags);
    window_->setWindowModality(form_.IsModal() ? Qt::ApplicationModal : Qt::NonModal);
    return;
  }
  // A window on the screen stays there: only what can be changed in place is.
  const Qt::WindowFlags changeable = Qt::WindowStaysOnTopHint | Qt::FramelessWindowHint;
  if (((window_->windowFlags() ^ flags) & changeable) == 0) return;
  window_->overrideWindowFlags(flags);
  QWindow& shown = *window_->windowHandle();
  shown.setFlags((shown.flags() & ~changeable) | (flags & changeable));
}

// A window that covers the screen leaves that state before it takes its own bounds.
void FormPeer::ApplyState() {
  const Qt::WindowStates all = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
  agreedState_ = WishedState(backend_, form_);
  window_->setWindowState((window_->windowState() & ~all) | agreedState_);
}

void FormPeer::ApplyOwner() {
  if (IsInHost(backend_, form_)) {
    window_->winId();
    window_->windowHandle()->setParent(&backend_.Host()->Window());
    return;
  }
  FormPeer* owner = form_.Owner() != nullptr ? FormPeerOf(*form_.Owner()) : nullptr;
  // A window that is to be minimised from the start must be made by its show: made earlier, it is brought up.
  const bool made = window_->testAttribute(Qt::WA_WState_Created);
  if (!made && owner == nullptr && WishedState(backend_, form_) == Qt::WindowMinimized) return;
  window_->winId();  // makes the window that the owner is told to
  QWindow* above = owner != nullptr ? owner->Window().windowHandle() : nullptr;
  window_->windowHandle()->setTransientParent(above);
}

// What the model has from the window itself is not set again: the window may be on its way to another size.
void FormPeer::ApplyPlace() {
  if (window_->isFullScreen() && !form_.FullScreen()) ApplyState();
  const QSize size(form_.ScaleWidth(), form_.ScaleHeight() + window_->MenuHeight());
  const bool fixed = !form_.Sizable() && form_.WindowState() == windowstate::Normal && !form_.FullScreen();
  window_->setMinimumSize(fixed ? size : QSize(0, 0));
  window_->setMaximumSize(fixed ? size : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
  if (window_->isVisible() && form_.WindowState() != windowstate::Normal && !form_.FullScreen()) return;
  if (size != agreedSize_ || !window_->isVisible()) {
    agreedSize_ = size;
    window_->resize(size);
  }
  // By its place alone a window may come up covering another screen, where screens differ in fineness.
  if (form_.FullScreen() && backend_.Host() == nullptr) window_->setScreen(QtBackend::ScreenOf(form_.FullScreenOn()));
  const QPoint place = PlaceOf(backend_, form_);
  if ((form_.HasPlace() || form_.FullScreen()) && (place != agreedPlace_ || !window_->isVisible())) {
    agreedPlace_ = place;
    window_->setGeometry(QRect(place, size));
  }
  FrameChanged();
}

void FormPeer::ApplyVisible() {
  const bool visible = form_.Visible();
  // A state that a person has chosen, and that is not reported yet, is left alone.
  if (visible && WishedState(backend_, form_) != agreedState_) ApplyState();
  if (visible == window_->isVisible()) return;
  if (!visible) {
    placeChanged_ = true;
    window_->hide();
    return;
  }
  if (!everShown_) FocusFirst();
  everShown_ = true;
  window_->show();
  // It would be brought up by this.
  if (form_.WindowState() == windowstate::Minimised || IsInHost(backend_, form_)) return;
  window_->raise();
  window_->activateWindow();
}

// A form that gives the focus to none begins in its first text box, or with the focus on no control.
void FormPeer::FocusFirst() {
  const Control* focus = backend_.GetToolkit().Focus();
  if (focus != nullptr && &focus->GetForm() == &form_) return;
  window_->setFocus();
}

void FormPeer::FrameChanged() {
  if (!form_.FullScreen()) keptSize_.Follow();
  report_.Post();
}

// What the model knows already is an echo of its own wish; what it wishes anew goes before what a person did.
void FormPeer::ReportFrame() {
  if (placeChanged_ || keptSize_.IsAway() || !form_.Visible() || !window_->isVisible()) return;
  if (form_.FullScreen()) {
    if (form_.Width() != form_.ScaleWidth() || form_.Height() != form_.ScaleHeight()) form_.ScreenChanged();
    return;
  }
  const int state = StateOf(*window_);
  if (WishedState(backend_, form_) == agreedState_) {
    agreedState_ = window_->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized);
    if (agreedState_.testFlag(Qt::WindowMinimized)) agreedState_ = Qt::WindowMinimized;
  }
  const QPoint place = window_->geometry().topLeft();
  const QPoint corner = (place - FrameCorner) * TwipsPerPixel;
  if (state == windowstate::Normal && place != PlaceOf(backend_, form_)) {
    agreedPlace_ = place;
    form_.UserMoved(corner.x(), corner.y());
  } else if (state != windowstate::Minimised) {
    form_.UserPlaced(corner.x(), corner.y());
  }
  const QSize client(window_->width(), window_->height() - window_->MenuHeight());
  double width = form_.TwipsWidth();
  double height = form_.TwipsHeight();
  if (state != windowstate::Minimised && !IsAsWished(client)) {
    const int menu = form_.HasMenuBar() ? backend_.MenuBarHeight() : 0;
    width = client.width() * TwipsPerPixel + form_.FrameTwipsWidth();
    height = (client.height() + menu) * TwipsPerPixel + form_.FrameTwipsHeight();
    agreedSize_ = window_->size();
  }
  form_.UserResized(width, height, state);
}

// At a broken scale factor a size in whole device pixels may miss by one: nobody has changed it then.
bool FormPeer::IsAsWished(QSize client) const {
  const double ratio = window_->devicePixelRatioF();
  const int slack = ratio == qRound(ratio) ? 0 : 1;
  return qAbs(client.width() - form_.ScaleWidth()) <= slack && qAbs(client.height() - form_.ScaleHeight()) <= slack;
}

void FormPeer::InputBlocked() {
  const Control* source = backend_.GetToolkit().Drag().Source;
  if (source == nullptr || &source->GetForm() != &form_) return;
  backend_.Dispatch([this] { backend_.GetToolkit().CancelDrag(); });
}

void FormPeer::PersonActivates() {
  backend_.Dispatch([this] {
    if (form_.Visible()) backend_.GetToolkit().Activate(form_);
  });
}

void FormPeer::PersonCloses() {
  backend_.Dispatch([this] { form_.UserClosed(); });
}

bool FormPeer::KeyPressed(QKeyEvent& event) {
  return DeliverKey(backend_, form_, event);
}

void FormPeer::ShowDrag(const Toolkit::DragShown& drag) {
  if (drag.Source == nullptr || drag.Over != &form_) {
    if (drag_ != nullptr) drag_->deleteLater();
    if (drag_ != nullptr) drag_->hide();
    drag_ = nullptr;
    return;
  }
  if (drag_ == nullptr) drag_ = new DragOverlay(*window_, backend_.Art());
  drag_->Follow(drag, Client().pos());
}

void FormPeer::ShowPointer(const Toolkit::PointerShown& pointer) {
  if (pointer.Pointer == pointer_.Pointer && pointer.Icon == pointer_.Icon) return;
  pointer_ = pointer;
  window_->setCursor(ToCursor(pointer, backend_.Art(), window_->devicePixelRatioF()));
}

}  // namespace pixorra
