#include "platform/qt/NativePeer.h"

#include <QApplication>
#include <QEnterEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWheelEvent>

#include "platform/controls/Form.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/Convert.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/KeyInput.h"
#include "platform/qt/QtBackend.h"

namespace pixorra {

// Stands between the widget and the peer: the widget's events and signals may come when the peer has gone already.
class NativePeer::Hook final : public QObject {
 public:
  explicit Hook(NativePeer& peer) : peer_(&peer) {}
  NativePeer* GetPeer() const { return peer_; }
  void Detach() {
    peer_ = nullptr;
    deleteLater();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    return peer_ != nullptr && peer_->Filter(*watched, *event);
  }

 private:
  NativePeer* peer_;
};

namespace {

// How much lighter than its frame the field of a mark is, in percent.
constexpr int LightField = 135;

// The form's own visibility is its window's matter: its widgets stay as they are while it is hidden.
bool IsVisibleOnForm(const Control& control) {
  for (const Control* outer = &control; outer->GetContainer() != nullptr; outer = outer->GetContainer()) {
    if (!outer->Visible()) return false;
  }
  return true;
}

// What is said of a control beside its name: its tool tip or, where it is one of several in a frame, what that is
// about.
std::string SpokenBeside(const Control& control) {
  const Container* outer = control.GetContainer();
  if (!control.ToolTipText().empty() || outer->GetKind() != Kind::Frame) return control.ToolTipText();
  return static_cast<const Frame*>(outer)->Caption();
}

bool IsEnabledOnForm(const Control& control) {
  for (const Control* outer = &control; outer->GetContainer() != nullptr; outer = outer->GetContainer()) {
    if (!outer->Enabled()) return false;
  }
  return true;
}

}  // namespace

NativePeer::NativePeer(QtBackend& backend, Control& control, QWidget* widget)
    : backend_(backend),
      control_(control),
      widget_(widget),
      hook_(new Hook(*this)),
      context_(std::make_unique<QObject>()),
      z_(control.ZOrder()) {
  if (FormPeer* form = FormPeerOf(control)) widget->setParent(&form->Client());
  widget->setObjectName(ToQString(control.Name()));
  // What a widget has no use for is not meant for the controls that lie behind it.
  widget->setAttribute(Qt::WA_NoMousePropagation);
  widget->installEventFilter(hook_);
  ApplyPlace();
  ApplyLook();
  ApplyVisible();
  backend_.AtEndOfTurn().Add(*this);
}

NativePeer::~NativePeer() {
  backend_.AtEndOfTurn().Remove(*this);
  // Before the widget is touched: leaving the focus makes it send signals.
  context_.reset();
  hook_->Detach();
  if (widget_ == nullptr) return;
  widget_->clearFocus();
  widget_->hide();
  widget_->deleteLater();
}

void NativePeer::Update(Change change) {
  switch (change) {
    case Change::Position:
      ApplyPlace();
      break;
    case Change::Visible:
    case Change::Enabled:
      ApplyVisible();
      break;
    case Change::Focus:
      widget_->setFocus(Qt::OtherFocusReason);
      break;
    case Change::Look:
      ApplyLook();
      [[fallthrough]];
    default:
      backend_.AtEndOfTurn().Add(*this);
  }
}

void NativePeer::Flush() {
  backend_.AtEndOfTurn().Remove(*this);
  mirroring_ = true;
  Mirror();
  mirroring_ = false;
}

void NativePeer::ApplyPlace() {
  widget_->setGeometry(ToQRect(control_.FormRect()));
}

void NativePeer::ApplyVisible() {
  const bool visible = IsVisibleOnForm(control_);
  const bool enabled = IsEnabledOnForm(control_);
  // The focus goes where the model sends it, and not on to the next widget.
  if (!visible || !enabled) widget_->clearFocus();
  widget_->setEnabled(enabled);
  widget_->setVisible(visible);
  if (control_.HasFocus() && visible) widget_->setFocus(Qt::OtherFocusReason);
}

// Those in a coloured frame take its colours. On dark ground a mark stands dark on a field as light as the text: a
// light one on a dark field has the look of one that is switched off. The rest of their look is the desktop's.
void NativePeer::ApplyColours() {
  const Container* outer = control_.GetContainer();
  const bool framed = outer->GetKind() == Kind::Frame && static_cast<const Frame*>(outer)->BackColor() != ButtonFace;
  const bool marked = control_.GetKind() == Kind::CheckBox || control_.GetKind() == Kind::OptionButton;
  if (colouring_ || !(framed || marked)) return;
  const QPalette desktop = QApplication::palette();
  const bool dark = IsDark(desktop);
  QColor ground = desktop.color(QPalette::Window);
  QColor text = desktop.color(QPalette::WindowText);
  QPalette own;
  if (framed) {
    const auto& frame = static_cast<const Frame&>(*outer);
    const Toolkit& toolkit = backend_.GetToolkit();
    ground = ToQColor(toolkit.PlainColour(frame.BackColor(), dark), desktop);
    text = ToQColor(toolkit.PlainColour(frame.ForeColor(), dark), desktop);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
      own.setColor(QPalette::Active, role, text);
      own.setColor(QPalette::Inactive, role, text);
    }
    own.setColor(QPalette::Window, ground);
  }
  if (marked && dark) {
    own.setColor(QPalette::Base, text);
    own.setColor(QPalette::Text, ground);
  } else if (marked && framed) {
    own.setColor(QPalette::Base, ground.lighter(LightField));
  }
  colouring_ = true;
  widget_->setPalette(own);
  colouring_ = false;
}

void NativePeer::ApplyLook() {
  ApplyColours();
  widget_->setToolTip(ToToolTip(control_.ToolTipText()));
  widget_->setAccessibleDescription(ToQString(SpokenBeside(control_)));
  // Each time it is set it is said.
  const QString name = ToQString(control_.AccessibleName());
  if (!name.isEmpty() && name != widget_->accessibleName()) widget_->setAccessibleName(name);
  if (control_.ZOrder() == z_) return;
  if (control_.ZOrder() > z_) {
    widget_->raise();
  } else {
    widget_->lower();
  }
  z_ = control_.ZOrder();
}

void NativePeer::Act(const std::function<void()>& act) {
  if (mirroring_) return;
  const QPointer<Hook> hook = hook_;
  // A screen reader also reaches what lies below a box or a modal form.
  if (backend_.GetToolkit().TakesInput(control_.GetForm())) backend_.Dispatch(act);
  // The widget has moved by itself; if the model did not follow, it goes back.
  if (hook != nullptr && hook->GetPeer() != nullptr) backend_.AtEndOfTurn().Add(*this);
}

bool NativePeer::Filter(QObject& watched, QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return FilterKey(watched, static_cast<QKeyEvent&>(event));
    case QEvent::KeyRelease:
      backend_.Held().Released(static_cast<QKeyEvent&>(event));
      return false;
    case QEvent::InputMethod: {
      const QString typed = static_cast<QInputMethodEvent&>(event).commitString();
      return !typed.isEmpty() && DeliverText(backend_, control_.GetForm(), typed);
    }
    case QEvent::PaletteChange:
    case QEvent::ApplicationPaletteChange:
      ApplyColours();
      return false;
    case QEvent::FocusIn:
      FocusTaken(static_cast<QFocusEvent&>(event).reason());
      return false;
    case QEvent::Wheel:
      return FilterWheel(static_cast<QWheelEvent&>(event));
    case QEvent::Enter: {
      const QPoint at = widget_->mapToParent(static_cast<QEnterEvent&>(event).position().toPoint());
      backend_.Dispatch([this, at] { backend_.GetToolkit().MouseMoved(control_.GetForm(), at.x(), at.y(), 0, 0); });
      return false;
    }
    default:
      return false;
  }
}

bool NativePeer::FilterKey(QObject& watched, QKeyEvent& event) {
  // Where the form has no order of its own the focus goes from widget to widget.
  if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
    return DeliverKey(backend_, control_.GetForm(), event);
  const QPointer<Hook> hook = hook_;
  const QPointer<QObject> receiver = &watched;
  event.accept();
  if (DeliverKey(backend_, control_.GetForm(), event)) return true;
  if (hook == nullptr || hook->GetPeer() == nullptr || receiver == nullptr) return true;
  // A light control may have the focus in the model: the widget that kept it here must not act on keys meant for that.
  if (!control_.HasFocus() || OwnKey(event)) return true;
  // Given to the widget from here, so that what it leaves does not come to the window as a second key.
  receiver->event(&event);
  event.accept();
  return true;
}

// A widget whose wheel the program has a use for does not act on it by itself.
bool NativePeer::FilterWheel(const QWheelEvent& event) {
  if (!control_.On().MouseWheel) return false;
  const std::optional<WheelArgs> turn = ToWheel(event);
  if (!turn) return true;
  const QPoint at = widget_->mapToParent(event.position().toPoint());
  backend_.Dispatch(
      [this, at, &turn] { backend_.GetToolkit().WheelTurned(control_.GetForm(), at.x(), at.y(), *turn); });
  return true;
}

void NativePeer::FocusTaken(Qt::FocusReason reason) {
  Toolkit& toolkit = backend_.GetToolkit();
  const Control* focus = toolkit.Focus();
  switch (reason) {
    case Qt::ActiveWindowFocusReason:
      // Coming back to the window, a person finds the focus where it was left.
      if (focus != nullptr && &focus->GetForm() == &control_.GetForm()) return;
      break;
    case Qt::MouseFocusReason:
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
      break;
    case Qt::OtherFocusReason:
      // A screen reader's wish; where it is the model's own, that has it already.
      break;
    default:
      return;
  }
  backend_.Dispatch([&] { toolkit.UserFocused(control_); });
}

}  // namespace pixorra
