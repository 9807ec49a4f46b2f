#include "platform/qt/QtBackend.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/Menu.h"
#include "platform/controls/Toolkit.h"
#include "platform/qt/ClientArea.h"
#include "platform/qt/Convert.h"
#include "platform/qt/FormPeer.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/HostWindow.h"
#include "platform/qt/MenuView.h"
#include "platform/qt/NativePeers.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// While a timer's handler runs a loop of its own, the other timers are looked after this often at least.
constexpr int NestedAlarm = 10;  // milliseconds

int MeasureMenuBar() {
  QMenuBar bar;
  bar.setNativeMenuBar(false);
  bar.addMenu(QStringLiteral("&File"));
  return bar.sizeHint().height();
}

int ToMilliseconds(double seconds) {
  return static_cast<int>(std::clamp(std::ceil(seconds * 1000), 0.0, 1e9));
}

// What the innermost loop is, for as long as it runs.
class LoopKind {
 public:
  LoopKind(bool& waits, bool now) : waits_(waits), before_(std::exchange(waits, now)) {}
  ~LoopKind() { waits_ = before_; }
  LoopKind(const LoopKind&) = delete;
  LoopKind& operator=(const LoopKind&) = delete;

 private:
  bool& waits_;
  bool before_;
};

void ClosePopups() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    if (!popup->close()) break;
  }
}

FormPeer* FormPeerOf(Form& form) {
  return static_cast<FormPeer*>(form.GetPeer());
}

// A menu that was asked for by key comes up at the light control that has the focus, any other one at the mouse.
QPoint PlaceForMenu(const Toolkit& toolkit, Form& form) {
  const Control* focus = toolkit.Focus();
  FormPeer* peer = FormPeerOf(form);
  const bool byKey = peer != nullptr && focus != nullptr && &focus->GetForm() == &form &&
                     TraitsOf(focus->GetKind()).Shown == ShownAs::Light;
  return byKey ? peer->Client().mapToGlobal(ToQRect(focus->ShownRect()).center()) : QCursor::pos();
}

}  // namespace

QtBackend::QtBackend() : menuBarHeight_(MeasureMenuBar()) {
  QApplication::setQuitOnLastWindowClosed(false);
  clock_.start();
  wake_.setSingleShot(true);
  wake_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&wake_, &QTimer::timeout, &wake_, [this] { RunTimers(); });
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &wake_, [this] {
    FollowActiveForm();
    LookForStir();
  });
  const auto watch = [this](const QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &screensChanged_, [this] { FollowScreens(); });
    QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, &screensChanged_, [this] { FollowScreens(); });
  };
  for (const QScreen* screen : QGuiApplication::screens()) watch(screen);
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &screensChanged_, [this, watch](const QScreen* screen) {
    watch(screen);
    FollowScreens();
  });
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &screensChanged_, [this] { FollowScreens(); });
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &screensChanged_, [this] { FollowScreens(); });
}

QtBackend::~QtBackend() = default;

// A form that code has brought to the front, or that is left in front when another goes, is active on the screen too.
// An application that its user has left for another one does not push itself forward.
void QtBackend::FollowActiveForm() {
  Form* active = toolkit_ != nullptr ? toolkit_->ActiveForm() : nullptr;
  if (active == front_.Get()) return;
  front_ = Watch<Form>::Of(active);
  if (host_ != nullptr || active == nullptr || FormPeerOf(*active) == nullptr ||
      QApplication::activePopupWidget() != nullptr)
    return;
  FormWindow& window = FormPeerOf(*active)->Window();
  const QWidget* modal = QApplication::activeModalWidget();
  if (active->WindowState() == windowstate::Minimised) return;
  if (!window.isVisible() || window.isActiveWindow() || (modal != nullptr && modal != &window)) return;
  if (QGuiApplication::applicationState() != Qt::ApplicationActive) return;
  window.raise();
  window.activateWindow();
}

void QtBackend::Run() {
  while (!toolkit_->Ended()) loop_.exec();
}

void QtBackend::Run(const std::function<void()>& startUp) {
  Dispatch(startUp);
  const std::vector<Form*>& forms = toolkit_->Forms();
  if (std::ranges::none_of(forms, [](const Form* form) { return form->Visible(); })) toolkit_->End();
  Run();
}

void QtBackend::ProcessEvents() {
  pending_.RunAll();
  {
    const LoopKind handles(waits_, false);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
  }
  pending_.RunAll();
}

void QtBackend::WaitForEvents(std::optional<double> seconds) {
  // What is put off may raise events; the caller's condition must be looked at before any sleep.
  const bool changed = pending_.RunAll();
  if (endingDue_) {
    ContinueEnding();
    return;
  }
  // A wait that is over does not come back here.
  const AtExit goesOn([this] {
    if (endingDue_) endingStep_.Post();
  });
  const LoopKind waits(waits_, true);
  if (changed) {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    return;
  }
  QTimer bound;
  if (seconds) {
    bound.setSingleShot(true);
    bound.setTimerType(Qt::PreciseTimer);
    bound.start(ToMilliseconds(*seconds));
  }
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

// Boxes and menus of the host run loops of their own; they are put away so that nothing waits for a person any more.
void QtBackend::EndLoop() {
  ClosePopups();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* dialog = qobject_cast<QDialog*>(window);
    if (dialog != nullptr && dialog->isVisible()) dialog->reject();
  }
  loop_.quit();
}

// Who waits for what the last step has closed goes on before the next one.
void QtBackend::EndingStep() {
  if (waits_ && !toolkit_->GetWindows().IsBoxUp() && QApplication::activePopupWidget() == nullptr) {
    endingDue_ = true;
  } else {
    ContinueEnding();
  }
}

void QtBackend::ContinueEnding() {
  endingDue_ = false;
  Dispatch([this] { toolkit_->ContinueEnding(); });
}

bool QtBackend::CloseFront() {
  if (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr && popup->close()) return true;
  auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (dialog == nullptr) return false;
  dialog->reject();
  // Some refuse, as long as something of theirs goes on.
  if (dialog->isVisible()) dialog->hide();
  return true;
}

double QtBackend::Seconds() {
  return static_cast<double>(clock_.nsecsElapsed()) / 1e9;
}

void QtBackend::WakeAt(std::optional<double> seconds) {
  if (seconds) {
    wake_.start(ToMilliseconds(*seconds - Seconds()));
  } else {
    wake_.stop();
  }
}

void QtBackend::RunTimers() {
  if (toolkit_ == nullptr || toolkit_->Ended()) return;
  wake_.start(NestedAlarm);
  Guarded([this] { toolkit_->RunDueTimers(); });
  toolkit_->GetTimers().Changed();
  onlyTimersRan_ = true;
}

// A turn of the loop in which something other than the timers ran. What a person does comes by Dispatch too, but the
// toolkit below has a life of its own.
void QtBackend::LookForStir() {
  if (!std::exchange(onlyTimersRan_, false) && toolkit_ != nullptr) toolkit_->Stirred();
}

namespace {

Screen InTwips(const QRect& pixels, double fineness) {
  Screen result;
  result.Fineness = fineness;
  result.Left = pixels.x() * result.TwipsPerPixelX;
  result.Top = pixels.y() * result.TwipsPerPixelY;
  result.Width = pixels.width() * result.TwipsPerPixelX;
  result.Height = pixels.height() * result.TwipsPerPixelY;
  return result;
}

}  // namespace

// The main screen is the first.
QScreen* QtBackend::ScreenOf(int number) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  return number > 0 && number < screens.size() ? screens.at(number) : QGuiApplication::primaryScreen();
}

int QtBackend::ScreenCount() {
  if (host_ != nullptr) return 1;
  return std::max(1, static_cast<int>(QGuiApplication::screens().size()));
}

Screen QtBackend::GetScreen(int number) {
  if (host_ != nullptr) return InTwips({{}, host_->Size()}, host_->Fineness());
  const QScreen* screen = ScreenOf(number);
  return screen != nullptr ? InTwips(screen->geometry(), screen->devicePixelRatio()) : Screen();
}

int QtBackend::ScreenOfPointer() {
  QScreen* screen = host_ == nullptr ? QGuiApplication::screenAt(QCursor::pos()) : nullptr;
  return screen != nullptr ? static_cast<int>(std::max<qsizetype>(0, QGuiApplication::screens().indexOf(screen))) : 0;
}

bool QtBackend::ShowInside(std::uint64_t window) {
  host_ = HostWindow::Of(window);
  if (host_ == nullptr) return false;
  host_->OnResized([this] { TellOfScreens(); });
  host_->OnGone([this] { toolkit_->End(); });
  return true;
}

// A form may go while another one arranges itself.
void QtBackend::TellOfScreens() {
  if (toolkit_ == nullptr || toolkit_->Ended()) return;
  std::vector<Watch<Form>> forms;
  for (Form* form : toolkit_->Forms()) forms.emplace_back(*form);
  for (const Watch<Form>& form : forms) {
    if (form) Dispatch([&form] { form->ScreenChanged(); });
  }
}

Screen QtBackend::LargestWindow() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen != nullptr ? InTwips(screen->virtualGeometry(), screen->devicePixelRatio()) : Screen();
}

// Where screens differ, what is drawn is fine enough for each.
double QtBackend::Fineness() {
  return qGuiApp->devicePixelRatio();
}

std::unique_ptr<Peer> QtBackend::MakePeer(Control& control) {
  if (control.GetKind() == Kind::Form) return std::make_unique<FormPeer>(*this, static_cast<Form&>(control));
  return MakeNativePeer(*this, control);
}

struct QtBackend::Popup {
  Watch<MenuItem> Chosen;
  bool Replaced = false;  // another one has come up since
};

// A helper can ask for a menu while another one is up. That one was opened for something else, and its items would act
// on what this one is for.
void QtBackend::PopupMenu(Form& form, MenuItem& menu) {
  pending_.RunAll();
  if (popup_ != nullptr) popup_->Replaced = true;
  ClosePopups();
  QWidget* window = FormPeerOf(form) != nullptr ? &FormPeerOf(form)->Window() : nullptr;
  const QPointer<MenuView> view = new MenuView(*this, menu, MenuView::Raises::Below, window);
  view->Fill();
  // A chosen item runs when the menu is gone: what it asks may come up in its place.
  const auto popup = std::make_shared<Popup>();
  // One that is pressed over the accessibility bus leaves the menu up.
  view->OnChosen([popup, view](MenuItem& item) {
    popup->Chosen = Watch<MenuItem>(item);
    if (view != nullptr) view->close();
  });
  {
    const AtExit closed([this, outer = std::exchange(popup_, popup)] { popup_ = outer; });
    view->exec(PlaceForMenu(*toolkit_, form));
  }
  if (view != nullptr) view->deleteLater();
  if (popup->Chosen && !popup->Replaced && !toolkit_->Ended()) popup->Chosen->UserClicked();
}

bool QtBackend::IsMenuUp() {
  return (popup_ != nullptr && !popup_->Replaced) || QApplication::activePopupWidget() != nullptr;
}

void QtBackend::DragChanged() {
  const Toolkit::DragShown drag = toolkit_->Drag();
  for (Form* form : toolkit_->Forms()) {
    if (FormPeer* peer = FormPeerOf(*form)) peer->ShowDrag(drag);
  }
}

void QtBackend::PointerChanged(Form& form) {
  if (FormPeer* peer = FormPeerOf(form)) peer->ShowPointer(toolkit_->PointerFor(form));
}

void QtBackend::SetErrorHandler(std::function<void(int, const std::string&)> handler) {
  onError_ = std::move(handler);
}

void QtBackend::Dispatch(const std::function<void()>& act) {
  const auto stir = [this] {
    onlyTimersRan_ = false;
    if (toolkit_ != nullptr) toolkit_->Stirred();
  };
  stir();
  const AtExit after(stir);
  Guarded(act);
}

void QtBackend::Guarded(const std::function<void()>& act) {
  if (!onError_) {
    act();
    return;
  }
  try {
    act();
  } catch (const RuntimeError& e) {
    onError_(e.Number(), e.Description());
  } catch (const std::bad_alloc&) {
    onError_(error::OutOfMemory, ErrorDescription(error::OutOfMemory));
  } catch (const std::exception& e) {
    onError_(error::None, e.what());
  }
}

void QtBackend::DropWaitingRepeats() {
  dropsRepeats_ = true;
  repeatsWanted_.Post();
}

QWidget* QtBackend::WindowForBoxes() {
  pending_.RunAll();
  if (toolkit_ == nullptr) return nullptr;
  Form* form = toolkit_->ActiveForm();
  // A box would close with the window that it belongs to, unanswered.
  while (form != nullptr && FormPeerOf(*form) != nullptr && FormPeerOf(*form)->IsNotice()) form = form->Owner();
  if (form == nullptr || FormPeerOf(*form) == nullptr || !FormPeerOf(*form)->Window().isVisible()) return nullptr;
  return &FormPeerOf(*form)->Window();
}

}  // namespace pixorra
