// Forms as windows.
#include <gmock/gmock.h>
#include <memory>
#include <utility>

#include "platform/controls/Buttons.h"
#include "platform/controls/Menu.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WindowContract : public FormContract {};

TEST_F(WindowContract, ShownWindowHasTheTitleAndTheSizeInside) {
  EXPECT_FALSE(platform->Look(form).Visible);
  Show();
  const Seen seen = platform->Look(form);
  EXPECT_TRUE(seen.Visible);
  EXPECT_EQ(seen.Text, "Contract");
  EXPECT_EQ(seen.At, (Rect{0, 0, 400, 300}));
  EXPECT_EQ(toolkit.ActiveForm(), &form);
}

TEST_F(WindowContract, TitleAndSizeFollowTheModel) {
  Show();
  form.SetCaption("Another & title");
  form.SetClientSize(320, 240);
  platform->Settle();
  EXPECT_EQ(platform->Look(form).Text, "Another & title");
  EXPECT_EQ(platform->Look(form).At, (Rect{0, 0, 320, 240}));
}

TEST_F(WindowContract, MenuBarStandsAboveWhatIsInside) {
  MenuItem file(form, "FileMenu", "&File");
  MenuItem open(file, "OpenItem", "&Open");
  form.SetClientSize(400, 300);
  Show();
  EXPECT_EQ(form.ScaleHeight(), 300);
  EXPECT_EQ(platform->Look(form).At.Height, 300);
}

TEST_F(WindowContract, HiddenAndUnloadedWindowsAreNotSeen) {
  Show();
  form.Hide();
  platform->Settle();
  EXPECT_FALSE(platform->Look(form).Visible);
  form.Show();
  platform->Settle();
  EXPECT_TRUE(platform->Look(form).Visible);
  form.Unload();
  platform->Settle();
  EXPECT_FALSE(platform->Look(form).Visible);
  form.Show();
  platform->Settle();
  EXPECT_TRUE(platform->Look(form).Visible);
}

TEST_F(WindowContract, PersonsResizeReachesTheModel) {
  form.SetSizable(true);
  Show();
  int resizes = 0;
  form.On().Resize = [&](Control&) { ++resizes; };
  platform->ResizeWindow(form, 500, 350);
  platform->Settle();
  EXPECT_EQ(form.ScaleWidth(), 500);
  EXPECT_EQ(form.ScaleHeight(), 350);
  EXPECT_EQ(resizes, 1);
}

TEST_F(WindowContract, PersonsCloseUnloads) {
  form.On().QueryUnload = [this](Control&) { Log("query"); };
  form.On().Unload = [this](Control&) { Log("unload"); };
  Show();
  platform->CloseWindow(form);
  platform->Settle();
  EXPECT_THAT(Heard(), ElementsAre("query", "unload"));
  EXPECT_FALSE(platform->Look(form).Visible);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(WindowContract, WindowThatHidesWhenClosedStaysLoadedAndCanBeShownAgain) {
  form.SetHidesWhenClosed(true);
  form.On().QueryUnload = [this](Control&) { Log("query"); };
  CheckBox box(form, "Box");
  box.Move(10, 10, 80, 25);
  Show();
  platform->Click(box);
  platform->CloseWindow(form);
  platform->Settle();
  EXPECT_FALSE(platform->Look(form).Visible);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_THAT(Heard(), IsEmpty());
  Show();
  EXPECT_TRUE(platform->Look(form).Visible);
  EXPECT_EQ(platform->Look(box).Value, 1);
  // Asked for by name it goes all the same.
  form.Unload();
  EXPECT_THAT(Heard(), ElementsAre("query"));
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(WindowContract, WindowShownMaximisedHasItsSizeAtOnce) {
  form.SetSizable(true);
  form.SetWindowState(windowstate::Maximised);
  const double width = form.TwipsWidth();
  form.Show();
  const double maximised = form.TwipsWidth();
  EXPECT_GT(maximised, width);
  platform->Settle();
  EXPECT_EQ(form.TwipsWidth(), maximised);
  EXPECT_EQ(form.WindowState(), windowstate::Maximised);
}

TEST_F(WindowContract, WindowShownMinimisedStaysSoWithItsSizeKept) {
  form.SetSizable(true);
  form.SetWindowState(windowstate::Minimised);
  const double width = form.TwipsWidth();
  Show();
  EXPECT_EQ(form.WindowState(), windowstate::Minimised);
  EXPECT_EQ(form.TwipsWidth(), width);
}

TEST_F(WindowContract, MaximisedWindowIsLargeAndGoesBackToItsBounds) {
  form.SetSizable(true);
  form.SetTwipsLeft(600);
  form.SetTwipsTop(450);
  Show();
  const double width = form.TwipsWidth();
  const double height = form.TwipsHeight();
  int resizes = 0;
  form.On().Resize = [&](Control&) { ++resizes; };
  form.SetWindowState(windowstate::Maximised);
  platform->Settle();
  EXPECT_GT(form.TwipsWidth(), width);
  EXPECT_GT(form.TwipsHeight(), height);
  EXPECT_GE(resizes, 1);
  form.SetWindowState(windowstate::Normal);
  platform->Settle();
  EXPECT_EQ(form.WindowState(), windowstate::Normal);
  EXPECT_EQ(form.TwipsWidth(), width);
  EXPECT_EQ(form.TwipsHeight(), height);
}

// That place is the one that is saved.
TEST_F(WindowContract, MaximisedWindowKeepsItsOwnPlaceAndADialogIsCentredWhereTheWindowNowIs) {
  form.SetSizable(true);
  form.SetTwipsLeft(460 * 15);
  form.SetTwipsTop(300 * 15);
  Show();
  form.SetWindowState(windowstate::Maximised);
  platform->Settle();
  EXPECT_EQ(form.TwipsLeft(), 460 * 15);
  EXPECT_EQ(form.TwipsTop(), 300 * 15);
  Form dialog(toolkit, "Dialog");
  dialog.SetClientSize(200, 100);
  const auto middle = [&] {
    dialog.CentreOn(&form);
    return std::pair(dialog.TwipsLeft() + dialog.TwipsWidth() / 2, dialog.TwipsTop() + dialog.TwipsHeight() / 2);
  };
  const Screen screen = toolkit.GetScreen();
  constexpr double Frame = 30 * 15;
  EXPECT_NEAR(middle().first, screen.Width / 2, Frame);
  EXPECT_NEAR(middle().second, screen.Height / 2, Frame);
  form.SetWindowState(windowstate::Normal);
  platform->Settle();
  EXPECT_EQ(form.TwipsLeft(), 460 * 15);
  EXPECT_EQ(form.TwipsTop(), 300 * 15);
  EXPECT_NEAR(middle().first, form.TwipsLeft() + form.TwipsWidth() / 2, 15);
  EXPECT_NEAR(middle().second, form.TwipsTop() + form.TwipsHeight() / 2, 15);
}

TEST_F(WindowContract, WindowMaximisedBeforeItIsShownComesUpSo) {
  form.SetSizable(true);
  form.SetWindowState(windowstate::Maximised);
  const double width = form.TwipsWidth();
  Show();
  EXPECT_GT(form.TwipsWidth(), width);
  EXPECT_EQ(form.WindowState(), windowstate::Maximised);
}

TEST_F(WindowContract, ScreenHasASizeAndFifteenTwipsToAPixel) {
  const Screen screen = toolkit.GetScreen();
  EXPECT_GE(screen.Width, 640 * 15);
  EXPECT_GE(screen.Height, 480 * 15);
  EXPECT_EQ(screen.TwipsPerPixelX, 15);
  EXPECT_EQ(screen.TwipsPerPixelY, 15);
  EXPECT_GT(toolkit.MenuBarHeight(), 0);
}

TEST_F(WindowContract, ModalWindowReturnsWhenItIsHidden) {
  Show();
  Form ask(toolkit, "AskForm");
  ask.SetClientSize(200, 100);
  CommandButton yes(ask, "YesButton");
  yes.Move(10, 10, 80, 25);
  yes.On().Click = [&](Control&) { ask.Hide(); };
  platform->Meanwhile([&] { return platform->Look(ask).Visible; },
                      [&] {
                        EXPECT_FALSE(toolkit.TakesInput(form));
                        platform->Click(yes);
                      });
  ask.ShowModal(&form);
  platform->Settle();
  EXPECT_FALSE(platform->Look(ask).Visible);
  EXPECT_TRUE(toolkit.TakesInput(form));
  EXPECT_EQ(toolkit.ActiveForm(), &form);
}

TEST_F(WindowContract, WindowBelowAModalOneTakesNoInput) {
  Listen(form);
  CommandButton button(form, "Button");
  button.Move(10, 10, 80, 25);
  Listen(button);
  Show();
  Form ask(toolkit, "AskForm");
  ask.SetClientSize(200, 100);
  platform->Meanwhile([&] { return platform->Look(ask).Visible; },
                      [&] {
                        platform->Press(form, 200, 200, button::Left, 0);
                        platform->Release(form, 200, 200, button::Left, 0);
                        platform->CloseWindow(form);
                        ask.Unload();
                      });
  ask.ShowModal(&form);
  platform->Settle();
  EXPECT_THAT(Heard(), IsEmpty());
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(WindowContract, ModalWindowsNest) {
  Show();
  Form outer(toolkit, "Outer");
  Form inner(toolkit, "Inner");
  platform->Meanwhile([&] { return platform->Look(outer).Visible; },
                      [&] {
                        platform->Meanwhile([&] { return platform->Look(inner).Visible; }, [&] { inner.Unload(); });
                        inner.ShowModal(&outer);
                        Log("inner");
                        outer.Unload();
                      });
  outer.ShowModal(&form);
  Log("outer");
  EXPECT_THAT(Heard(), ElementsAre("inner", "outer"));
}

TEST_F(WindowContract, ModalWindowMayBeDestroyedWhileItIsUp) {
  Show();
  auto ask = std::make_unique<Form>(toolkit, "AskForm");
  platform->Meanwhile([&] { return platform->Look(*ask).Visible; }, [&] { ask.reset(); });
  ask->ShowModal(&form);
  EXPECT_EQ(ask, nullptr);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(WindowContract, WindowMayUnloadInItsButtonsClick) {
  CommandButton button(form, "Button");
  button.Move(10, 10, 80, 25);
  button.On().Click = [&](Control&) { form.Unload(); };
  Show();
  platform->Click(button);
  platform->Settle();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_FALSE(platform->Look(form).Visible);
}

}  // namespace
}  // namespace pixorra
