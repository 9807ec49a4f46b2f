// A form's window: when it is seen, where it stands, and what a person does with its frame.
#include <QWindow>

#include "platform/controls/Label.h"
#include "platform/controls/Menu.h"
#include "platform/controls/Timer.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

// Counts how often a window comes to the screen and leaves it.
class MapCounter final : public QObject {
 public:
  explicit MapCounter(QWidget& window) { window.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Show) ++Shown;
    if (event->type() == QEvent::Hide) ++Hidden;
    return false;
  }
  int Shown = 0;
  int Hidden = 0;
};

class WindowTest : public QtTest {
 protected:
  WindowTest() {
    form.SetSizable(true);
    form.SetClientSize(300, 200);
    form.On().Resize = [this](Control&) { ++resizes; };
    resizes = 0;
  }
  Form form{toolkit, "WindowForm"};
  int resizes = 0;
};

TEST_F(WindowTest, AFormIsSeenWhenTheTurnEnds) {
  form.Show();
  EXPECT_FALSE(WindowOf(form).isVisible());
  Settle();
  EXPECT_TRUE(WindowOf(form).isVisible());
  form.Hide();
  EXPECT_TRUE(WindowOf(form).isVisible());
  Settle();
  EXPECT_FALSE(WindowOf(form).isVisible());
}

TEST_F(WindowTest, HidingAndShowingInOneTurnLeavesTheWindowOnTheScreen) {
  form.Show();
  Settle();
  MapCounter counter(WindowOf(form));
  form.Hide();
  form.SetTwipsWidth(form.TwipsWidth() + 300);
  form.Show();
  Settle();
  EXPECT_EQ(counter.Hidden, 0);
  EXPECT_EQ(counter.Shown, 0);
  EXPECT_EQ(ClientOf(form).width(), 320);
}

TEST_F(WindowTest, TheClientAreaHasTheModelsSizeBelowTheMenuBar) {
  MenuItem file(form, "FileMenu", "&File");
  MenuItem open(file, "OpenItem", "&Open");
  form.SetClientSize(300, 200);
  form.Show();
  Settle();
  EXPECT_EQ(ClientOf(form).size(), QSize(300, 200));
  EXPECT_EQ(ClientOf(form).y(), toolkit.MenuBarHeight());
  EXPECT_EQ(WindowOf(form).height(), 200 + toolkit.MenuBarHeight());
}

// The nominal frame is 4 pixels wide at the left and 23 at the top.
TEST_F(WindowTest, TitleAndPlaceComeTogetherAtTheTurnsEnd) {
  form.SetTwipsLeft(1500);
  form.SetTwipsTop(750);
  form.SetCaption("One");
  form.Show();
  Settle();
  EXPECT_EQ(WindowOf(form).windowTitle(), "One");
  EXPECT_EQ(WindowOf(form).geometry().topLeft(), QPoint(104, 73));
  form.SetCaption("Two & three");
  form.SetTwipsLeft(3000);
  EXPECT_EQ(WindowOf(form).windowTitle(), "One");
  Settle();
  EXPECT_EQ(WindowOf(form).windowTitle(), "Two & three");
  EXPECT_EQ(WindowOf(form).geometry().topLeft(), QPoint(204, 73));
}

TEST_F(WindowTest, OwnSizesDoNotComeBackAsAPersonsActs) {
  form.Show();
  Settle();
  resizes = 0;
  form.SetTwipsWidth((400 + Form::FrameWidth) * TwipsPerPixel + 7);
  EXPECT_EQ(resizes, 1);
  Settle();
  EXPECT_EQ(resizes, 1);
  EXPECT_EQ(form.TwipsWidth(), (400 + Form::FrameWidth) * TwipsPerPixel + 7);
}

TEST_F(WindowTest, APersonsResizeIsToldOnceWithTheNominalFrame) {
  form.Show();
  Settle();
  resizes = 0;
  WindowOf(form).resize(350, 260);
  Settle();
  EXPECT_EQ(resizes, 1);
  EXPECT_EQ(form.ScaleWidth(), 350);
  EXPECT_EQ(form.ScaleHeight(), 260);
  EXPECT_EQ(form.TwipsWidth(), (350 + 8) * 15);
  EXPECT_EQ(form.TwipsHeight(), (260 + 27) * 15);
}

TEST_F(WindowTest, WhatTheModelWishesInTheSameTurnGoesBeforeAPersonsResize) {
  form.Show();
  Settle();
  WindowOf(form).resize(350, 260);
  form.SetClientSize(500, 400);
  Settle();
  EXPECT_EQ(form.ScaleWidth(), 500);
  EXPECT_EQ(ClientOf(form).size(), QSize(500, 400));
}

TEST_F(WindowTest, APersonsMoveIsTold) {
  form.SetTwipsLeft(0);
  form.SetTwipsTop(0);
  form.Show();
  Settle();
  WindowOf(form).move(70, 80);
  Settle();
  EXPECT_NE(form.TwipsLeft(), 0);
  EXPECT_EQ(form.TwipsLeft(), (WindowOf(form).geometry().x() - 4) * 15);
  EXPECT_EQ(form.TwipsTop(), (WindowOf(form).geometry().y() - 23) * 15);
}

TEST_F(WindowTest, MaximisingAndRestoringGoBothWays) {
  form.Show();
  Settle();
  form.SetWindowState(windowstate::Maximised);
  Settle();
  EXPECT_TRUE(WindowOf(form).isMaximized());
  EXPECT_EQ(form.ScaleWidth(), WindowOf(form).width());
  EXPECT_GT(form.ScaleWidth(), 300);
  WindowOf(form).showNormal();
  Settle();
  EXPECT_EQ(form.WindowState(), windowstate::Normal);
  EXPECT_EQ(form.ScaleWidth(), 300);
  WindowOf(form).showMinimized();
  Settle();
  EXPECT_EQ(form.WindowState(), windowstate::Minimised);
  EXPECT_EQ(form.ScaleWidth(), 300);
}

TEST_F(WindowTest, APersonsMaximiseIsNotUndoneByWhatWasPutOff) {
  form.Show();
  Settle();
  form.InvalidateAll();
  WindowOf(form).showMaximized();
  backend.AtEndOfTurn().RunAll();
  Settle();
  EXPECT_EQ(form.WindowState(), windowstate::Maximised);
  EXPECT_TRUE(WindowOf(form).isMaximized());
}

TEST_F(WindowTest, ADialogIsOnTheScreenOfItsMaximisedOwner) {
  if (QGuiApplication::screens().size() < 2) {
    RunAgainOn(R"({"screens": [
      {"name": "One", "x": 0, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
      {"name": "Two", "x": 1280, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}
    ]})",
               1);
    return;
  }
  form.SetTwipsLeft((1280 + 460) * 15);
  form.SetTwipsTop(300 * 15);
  form.Show();
  Settle();
  form.SetWindowState(windowstate::Maximised);
  Settle();
  constexpr double Frame = 5 * 15;
  const double middle = (1280 + 640) * 15;
  ASSERT_GE(WindowOf(form).geometry().left(), 1280);
  Form dialog(toolkit, "DialogForm");
  dialog.SetClientSize(200, 100);
  dialog.CentreOn(&form);
  EXPECT_NEAR(dialog.TwipsLeft() + dialog.TwipsWidth() / 2, middle, Frame);
  EXPECT_EQ(form.TwipsLeft(), (1280 + 460) * 15) << "which is saved";
  dialog.ShowOwned(&form);
  Settle();
  EXPECT_NEAR(WindowOf(dialog).geometry().center().x() * 15, middle, Frame);
  WindowOf(form).showMinimized();
  Settle();
  dialog.CentreOn(&form);
  EXPECT_NEAR(dialog.TwipsLeft() + dialog.TwipsWidth() / 2, middle, Frame) << "it comes back there";
}

// What a program arranges for the size that it finds after Show is what its user sees first.
TEST_F(WindowTest, AFormThatIsShownMaximisedIsFirstPaintedAtThatSize) {
  form.SetWindowState(windowstate::Maximised);
  form.Load();
  form.MakePeer();
  PaintCounter painted(ClientOf(form));
  form.Show();
  EXPECT_EQ(painted.Count, 0);
  EXPECT_EQ(resizes, 1);
  EXPECT_TRUE(WindowOf(form).isMaximized());
  EXPECT_EQ(form.ScaleWidth(), ClientOf(form).width());
  Settle();
  EXPECT_EQ(painted.Count, 1);
  EXPECT_EQ(painted.Last, ClientOf(form).rect());
  EXPECT_EQ(resizes, 1);
}

TEST_F(WindowTest, AFormThatIsNotSizableHasAFixedSize) {
  form.SetSizable(false);
  form.Show();
  Settle();
  EXPECT_EQ(WindowOf(form).minimumSize(), QSize(300, 200));
  EXPECT_EQ(WindowOf(form).maximumSize(), QSize(300, 200));
}

TEST_F(WindowTest, ClosingUnloadsTheForm) {
  form.Show();
  Settle();
  bool unloaded = false;
  form.On().Unload = [&](Control&) { unloaded = true; };
  EXPECT_TRUE(WindowOf(form).close()) << "nothing may hold up the end of a session";
  EXPECT_TRUE(unloaded);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.GetPeer(), nullptr);
  Settle();
  form.Show();
  Settle();
  EXPECT_TRUE(WindowOf(form).isVisible());
}

TEST_F(WindowTest, AnOwnedFormStandsAboveItsOwner) {
  Form dialog(toolkit, "DialogForm");
  form.Show();
  dialog.ShowOwned(&form);
  Settle();
  EXPECT_EQ(WindowOf(dialog).windowHandle()->transientParent(), WindowOf(form).windowHandle());
}

TEST_F(WindowTest, AProgressWindowShowsItsTextAtOnceAndLetsNothingIn) {
  Form progress(toolkit, "ProgressForm");
  progress.SetClientSize(100, 50);
  Label text(progress, "Text");
  text.Move(0, 0, 100, 50);
  text.SetOpaque(true);
  text.SetBackColor(0x0000FF);
  Timer timer(form, "Timer", 1);
  int ticks = 0;
  timer.On().Timer = [&](Control&) { ++ticks; };
  form.Show();
  Settle();
  timer.SetEnabled(true);
  progress.ShowOwned(&form);
  PaintCounter painted(ClientOf(progress));
  text.Refresh();
  EXPECT_TRUE(WindowOf(progress).isVisible());
  EXPECT_GE(painted.Count, 1);
  const int before = painted.Count;
  text.SetBackColor(0x00FF00);
  text.Refresh();
  EXPECT_GT(painted.Count, before);
  EXPECT_EQ(ticks, 0);
}

TEST_F(WindowTest, StayingOnTopChangesInPlace) {
  form.Show();
  Settle();
  MapCounter counter(WindowOf(form));
  form.SetStaysOnTop(true);
  Settle();
  EXPECT_TRUE(WindowOf(form).windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
  form.SetStaysOnTop(false);
  Settle();
  EXPECT_FALSE(WindowOf(form).windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(counter.Hidden, 0);
}

TEST_F(WindowTest, AFormThatCodeBringsToTheFrontIsActiveOnTheScreen) {
  Form other(toolkit, "OtherForm");
  form.Show();
  other.Show();
  EXPECT_TRUE(toolkit.WaitUntil([&] { return WindowOf(other).isActiveWindow(); }, 60));
  form.Show();
  EXPECT_TRUE(toolkit.WaitUntil([&] { return WindowOf(form).isActiveWindow(); }, 60));
  other.SetFocus();
  EXPECT_TRUE(toolkit.WaitUntil([&] { return WindowOf(other).isActiveWindow(); }, 60));
  other.Hide();
  EXPECT_TRUE(toolkit.WaitUntil([&] { return WindowOf(form).isActiveWindow(); }, 60));
}

TEST_F(WindowTest, NestedModalFormsEndInTheirOrder) {
  Form outer(toolkit, "OuterForm");
  Form inner(toolkit, "InnerForm");
  std::vector<std::string> ends;
  form.Show();
  Meanwhile([&] {
    EXPECT_TRUE(WindowOf(outer).isModal());
    EXPECT_FALSE(toolkit.TakesInput(form));
    EXPECT_FALSE(WindowOf(form).close()) << "a modal form stands above it";
    EXPECT_TRUE(form.IsLoaded());
    Meanwhile([&] {
      EXPECT_TRUE(WindowOf(inner).isModal());
      EXPECT_FALSE(toolkit.TakesInput(outer));
      inner.Hide();
    });
    inner.ShowModal(&outer);
    ends.push_back("inner");
    outer.Hide();
  });
  outer.ShowModal(&form);
  ends.push_back("outer");
  EXPECT_EQ(ends, (std::vector<std::string>{"inner", "outer"}));
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(WindowTest, AFormMayUnloadWhileItIsModal) {
  Form dialog(toolkit, "DialogForm");
  Meanwhile([&] { WindowOf(dialog).close(); });
  dialog.ShowModal(nullptr);
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(WindowTest, TheEndOfTheProgramEndsAModalWait) {
  Form dialog(toolkit, "DialogForm");
  Meanwhile([&] { toolkit.End(); });
  dialog.ShowModal(nullptr);
  EXPECT_TRUE(toolkit.Ended());
}

TEST_F(WindowTest, AnErrorThatNoHandlerWantedGoesToTheErrorHandlerAndTheProgramGoesOn) {
  int told = 0;
  backend.SetErrorHandler([&](int number, const std::string&) { told = number; });
  form.On().Resize = [](Control&) { throw RuntimeError(error::DiskFull); };
  form.Show();
  Settle();
  WindowOf(form).resize(350, 260);
  Settle();
  EXPECT_EQ(told, error::DiskFull);
  EXPECT_TRUE(WindowOf(form).isVisible());
}

}  // namespace
}  // namespace pixorra
