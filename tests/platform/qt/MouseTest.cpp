// The mouse over a form: presses, drags and what follows the pointer, pointers, tool tips.
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/qt/DragOverlay.h"
#include "platform/qt/QtArtwork.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class MouseTest : public QtTest {
 protected:
  MouseTest() {
    form.SetClientSize(300, 200);
    source.Move(10, 10, 40, 30);
    target.Move(100, 100, 60, 60);
    form.Show();
    Settle();
  }
  DragOverlay* Overlay() {
    const auto overlays = WindowOf(form).findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* widget : overlays) {
      if (auto* overlay = dynamic_cast<DragOverlay*>(widget)) return overlay;
    }
    return nullptr;
  }
  Form form{toolkit, "MouseForm"};
  ImageBox source{form, "Source"};
  ImageBox target{form, "Target"};
};

TEST_F(MouseTest, AClickReachesTheLightControlUnderIt) {
  std::vector<std::string> events;
  target.On().MouseDown = [&](Control&, const MouseArgs& args) {
    events.push_back("down " + std::to_string(args.X) + " " + std::to_string(args.Y));
  };
  target.On().MouseUp = [&](Control&, const MouseArgs&) { events.push_back("up"); };
  target.On().Click = [&](Control&) { events.push_back("click"); };
  Click(ClientOf(form), QPoint(105, 107));
  EXPECT_EQ(events, (std::vector<std::string>{"down 5.000000 7.000000", "up", "click"}));
}

TEST_F(MouseTest, ButtonsAndKeysAreTold) {
  MouseArgs got;
  target.On().MouseDown = [&](Control&, const MouseArgs& args) { got = args; };
  QMouseEvent event(QEvent::MouseButtonPress, QPointF(105, 107), QPointF(105, 107), Qt::RightButton, Qt::RightButton,
                    Qt::ShiftModifier | Qt::AltModifier);
  QApplication::sendEvent(&ClientOf(form), &event);
  EXPECT_EQ(got.Button, button::Right);
  EXPECT_EQ(got.Shift, shift::Shift + shift::Alt);
}

// A driver that gives pixels for a plain wheel gives them in units of its own.
TEST_F(MouseTest, PixelsCountOnlyFromADeviceThatSaysWhenItIsStroked) {
  WheelArgs got;
  target.On().MouseWheel = [&](Control&, const WheelArgs& turn) { got = turn; };
  const auto turn = [this](Qt::ScrollPhase phase) {
    QWheelEvent event(QPointF(105, 107), QPointF(105, 107), QPoint(0, -15), QPoint(0, -30), Qt::NoButton,
                      Qt::NoModifier, phase, false);
    QApplication::sendEvent(&ClientOf(form), &event);
  };
  turn(Qt::NoScrollPhase);
  EXPECT_EQ(got.NotchesY, 0.25);
  EXPECT_EQ(got.PixelsY, 0);
  turn(Qt::ScrollUpdate);
  EXPECT_EQ(got.NotchesY, 0);
  EXPECT_EQ(got.PixelsY, 15);
}

TEST_F(MouseTest, ADoubleClickTakesThePlaceOfTheSecondPress) {
  std::vector<std::string> events;
  target.On().MouseDown = [&](Control&, const MouseArgs&) { events.emplace_back("down"); };
  target.On().Click = [&](Control&) { events.emplace_back("click"); };
  target.On().DblClick = [&](Control&) { events.emplace_back("double"); };
  const QPointF at(110, 110);
  Click(ClientOf(form), at.toPoint());
  QMouseEvent second(QEvent::MouseButtonDblClick, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&ClientOf(form), &second);
  Release(ClientOf(form), at.toPoint());
  EXPECT_EQ(events, (std::vector<std::string>{"down", "click", "double"}));
}

TEST_F(MouseTest, TheOutlineOfTheSourceFollowsADragWithoutAnIcon) {
  source.SetAutomaticDrag(true);
  Press(ClientOf(form), QPoint(20, 15));
  Move(ClientOf(form), QPoint(70, 65), Qt::LeftButton);
  ASSERT_NE(Overlay(), nullptr);
  EXPECT_TRUE(Overlay()->isVisible());
  EXPECT_EQ(Overlay()->geometry(), QRect(60, 60, 40, 30));
  EXPECT_TRUE(Overlay()->testAttribute(Qt::WA_TransparentForMouseEvents));
  Release(ClientOf(form), QPoint(70, 65));
  Settle();
  EXPECT_EQ(Overlay(), nullptr);
}

TEST_F(MouseTest, TheDragIconIsCentredAtThePointer) {
  QtArtwork artwork(backend.Art());
  source.SetAutomaticDrag(true);
  source.SetDragIcon(artwork.Drawing("DropIcon", 32, 32));
  Press(ClientOf(form), QPoint(20, 15));
  Move(ClientOf(form), QPoint(150, 120), Qt::LeftButton);
  ASSERT_NE(Overlay(), nullptr);
  EXPECT_EQ(Overlay()->geometry(), QRect(150 - 16, 120 - 16, 32, 32));
  source.SetDragIcon(Picture());
  EXPECT_EQ(Overlay()->size(), QSize(40, 30));
  Release(ClientOf(form), QPoint(150, 120));
}

TEST_F(MouseTest, ADropIsToldWhenTheOverlayIsGone) {
  source.SetAutomaticDrag(true);
  bool dropped = false;
  target.On().DragDrop = [&](Control&, const DragArgs& drag) {
    dropped = &drag.Source == &source;
    EXPECT_EQ(toolkit.Drag().Source, nullptr);
    EXPECT_TRUE(Overlay() == nullptr || !Overlay()->isVisible());
  };
  Press(ClientOf(form), QPoint(20, 15));
  Move(ClientOf(form), QPoint(110, 110), Qt::LeftButton);
  Release(ClientOf(form), QPoint(110, 110));
  EXPECT_TRUE(dropped);
}

TEST_F(MouseTest, AModalFormThatComesUpEndsADrag) {
  source.SetAutomaticDrag(true);
  Press(ClientOf(form), QPoint(20, 15));
  Move(ClientOf(form), QPoint(110, 110), Qt::LeftButton);
  Form dialog(toolkit, "DialogForm");
  Meanwhile([&] {
    Settle();
    EXPECT_EQ(toolkit.Drag().Source, nullptr);
    dialog.Hide();
  });
  dialog.ShowModal(&form);
}

TEST_F(MouseTest, ThePointerFollowsTheControlUnderItAndTheHourglassGoesFirst) {
  QtArtwork artwork(backend.Art());
  target.SetMouseIcon(artwork.Drawing("HandPointer", 32, 32));
  target.SetMousePointer(pointer::Custom);
  Move(ClientOf(form), QPoint(110, 110));
  EXPECT_EQ(WindowOf(form).cursor().shape(), Qt::BitmapCursor);
  EXPECT_EQ(WindowOf(form).cursor().hotSpot(), QPoint(9, 2));
  form.SetMousePointer(pointer::Hourglass);
  EXPECT_EQ(WindowOf(form).cursor().shape(), Qt::WaitCursor);
  form.SetMousePointer(pointer::Default);
  EXPECT_EQ(WindowOf(form).cursor().shape(), Qt::BitmapCursor);
  Move(ClientOf(form), QPoint(5, 5));
  EXPECT_EQ(WindowOf(form).cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MouseTest, ToolTipsAreShownAsTheyStand) {
  target.SetToolTipText("Drag <b>Photo</b> & more");
  const QPoint at(110, 110);
  QHelpEvent event(QEvent::ToolTip, at, ClientOf(form).mapToGlobal(at));
  QApplication::sendEvent(&ClientOf(form), &event);
  EXPECT_TRUE(QToolTip::text().contains("Drag &lt;b&gt;Photo&lt;/b&gt; &amp; more")) << QToolTip::text().toStdString();
  const QPoint elsewhere(5, 190);
  QHelpEvent other(QEvent::ToolTip, elsewhere, ClientOf(form).mapToGlobal(elsewhere));
  QApplication::sendEvent(&ClientOf(form), &other);
  EXPECT_TRUE(toolkit.WaitUntil([] { return !QToolTip::isVisible(); }));
}

TEST_F(MouseTest, AFormMayUnloadInItsOwnMouseEvent) {
  target.On().MouseDown = [&](Control&, const MouseArgs&) { form.Unload(); };
  QWidget& client = ClientOf(form);
  Press(client, QPoint(110, 110));
  EXPECT_EQ(form.GetPeer(), nullptr);
  Release(client, QPoint(110, 110));
  Settle();
}

TEST_F(MouseTest, AClickOnALightControlLeavesTheFocusWhereItIs) {
  EXPECT_EQ(ClientOf(form).focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(WindowOf(form).focusPolicy(), Qt::NoFocus);
}

TEST_F(MouseTest, TheProgramsHandStandsForAnIconOfItsOwn) {
  QtArtwork artwork(backend.Art());
  toolkit.SetHand(artwork.Drawing("HandPointer", 32, 32));
  target.SetMousePointer(pointer::Hand);
  Move(ClientOf(form), QPoint(110, 110));
  EXPECT_EQ(WindowOf(form).cursor().shape(), Qt::BitmapCursor);
  EXPECT_EQ(WindowOf(form).cursor().hotSpot(), QPoint(9, 2));
}

}  // namespace
}  // namespace pixorra
