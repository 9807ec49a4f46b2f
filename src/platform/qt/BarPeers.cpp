// Scroll bars, sliders and progress bars as widgets.
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QProgressBar>
#include <QScrollBar>
#include <QSlider>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "platform/qt/NativePeer.h"
#include "platform/qt/NativePeers.h"

namespace pixorra {

namespace {

// A scroll bar that shows when the keyboard acts on it.
class FocusedScrollBar final : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = rect().adjusted(1, 1, -1, -1);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
};

QAbstractSlider* MakeBar(const ScrollBar& control) {
  const auto direction = control.GetOrientation() == Orientation::Horizontal ? Qt::Horizontal : Qt::Vertical;
  if (control.IsSlider()) {
    auto* slider = new QSlider(direction);
    // Its smallest value is at the top, as a bar's is.
    slider->setInvertedAppearance(direction == Qt::Vertical);
    return slider;
  }
  return new FocusedScrollBar(direction);
}

class BarPeer final : public PeerOf<QAbstractSlider, ScrollBar> {
 public:
  BarPeer(QtBackend& backend, ScrollBar& control) : PeerOf(backend, control, MakeBar(control)) {
    // The widget's own menu moves it without telling that a person did.
    Widget().setContextMenuPolicy(Qt::NoContextMenu);
    // A click on a bar leaves the focus where it is.
    Widget().setFocusPolicy(control.IsSlider() ? Qt::StrongFocus : Qt::TabFocus);
    QObject::connect(&Widget(), &QAbstractSlider::sliderMoved, Context(),
                     [this](int position) { Act([this, position] { Model().UserScrolledTo(Turned(position)); }); });
    QObject::connect(&Widget(), &QAbstractSlider::sliderReleased, Context(),
                     [this] { Act([this] { Model().UserLetGo(); }); });
    // Arrows, pages and the wheel; what the thumb does while it is held is told by sliderMoved.
    QObject::connect(&Widget(), &QAbstractSlider::actionTriggered, Context(), [this](int) {
      if (Widget().isSliderDown()) return;
      Act([this, position = Widget().sliderPosition()] { Model().UserMovedTo(Turned(position)); });
    });
  }

 private:
  // Upwards is back for a slider too, as it is for a bar.
  bool OwnKey(const QKeyEvent& event) override {
    if (!Model().IsSlider() || event.modifiers() != Qt::NoModifier) return false;
    switch (event.key()) {
      case Qt::Key_Up:
        Widget().triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
      case Qt::Key_Down:
        Widget().triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
      case Qt::Key_PageUp:
        Widget().triggerAction(QAbstractSlider::SliderPageStepSub);
        return true;
      case Qt::Key_PageDown:
        Widget().triggerAction(QAbstractSlider::SliderPageStepAdd);
        return true;
      default:
        return false;
    }
  }
  // A range from a larger number to a smaller one runs the other way round.
  int Turned(int value) const { return Model().Min() <= Model().Max() ? value : Model().Min() + Model().Max() - value; }
  void Mirror() override {
    const int low = std::min(Model().Min(), Model().Max());
    const int high = std::max(Model().Min(), Model().Max());
    Widget().setRange(low, high);
    Widget().setSingleStep(std::max(1, Model().SmallChange()));
    Widget().setPageStep(std::max(1, Model().LargeChange()));
    Widget().setValue(Turned(Model().Value()));
  }
};

class ProgressPeer final : public PeerOf<QProgressBar, ProgressBar> {
 public:
  ProgressPeer(QtBackend& backend, ProgressBar& control) : PeerOf(backend, control, new QProgressBar) {
    Widget().setTextVisible(false);
  }
  // Progress is of use while the work goes on: it is shown at once.
  void Update(Change change) override {
    NativePeer::Update(change);
    if (change != Change::Refresh) return;
    Flush();
    if (Widget().isVisible()) Widget().repaint();
  }

 private:
  void Mirror() override {
    Widget().setRange(0, std::max(1, Model().Max()));
    Widget().setValue(Model().Value());
  }
};

}  // namespace

std::unique_ptr<Peer> MakeBarPeer(QtBackend& backend, ScrollBar& bar) {
  return std::make_unique<BarPeer>(backend, bar);
}

std::unique_ptr<Peer> MakeProgressPeer(QtBackend& backend, ProgressBar& bar) {
  return std::make_unique<ProgressPeer>(backend, bar);
}

}  // namespace pixorra
