// How large a window may be, windows above others, and one that covers the screen.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

// --- sizes, in twips -------------------------------------------------------------------------------------------------

class SizeContract : public FormContract {};

TEST_F(SizeContract, SmallestWindowIs85By86Pixels) {
  form.SetTwipsWidth(84 * 15);
  form.SetTwipsHeight(0);
  EXPECT_EQ(form.TwipsWidth(), 85 * 15);
  EXPECT_EQ(form.TwipsHeight(), 86 * 15);
  form.SetTwipsWidth(-15);
  EXPECT_EQ(form.TwipsWidth(), 85 * 15);
  form.SetClientSize(10, 10);
  EXPECT_EQ(form.ScaleWidth(), 85 - Form::FrameWidth);
  EXPECT_EQ(form.ScaleHeight(), 86 - Form::FrameHeight);
  Show();
  EXPECT_EQ(platform->Look(form).At, (Rect{0, 0, 85 - Form::FrameWidth, 86 - Form::FrameHeight}));
}

TEST_F(SizeContract, SizesAreComparedInWholePixels) {
  form.SetTwipsHeight(86 * 15 - 5);
  EXPECT_EQ(form.TwipsHeight(), 86 * 15 - 5) << "which is 86 pixels nearly";
  form.SetTwipsHeight(86 * 15 - 8);
  EXPECT_EQ(form.TwipsHeight(), 86 * 15);
}

TEST_F(SizeContract, LargestWindowIsTheScreen) {
  const Screen screen = toolkit.GetScreen();
  form.SetTwipsWidth(screen.Width);
  form.SetTwipsHeight(screen.Height - 15);
  EXPECT_EQ(form.TwipsWidth(), screen.Width);
  EXPECT_EQ(form.TwipsHeight(), screen.Height - 15);
  form.SetTwipsWidth(screen.Width + 1);
  form.SetTwipsHeight(1e9);
  EXPECT_EQ(form.TwipsWidth(), screen.Width);
  EXPECT_EQ(form.TwipsHeight(), screen.Height);
}

TEST_F(SizeContract, AskingForMoreOfALargestWindowResizesNothing) {
  form.SetTwipsWidth(1e9);
  Show();
  int resizes = 0;
  form.On().Resize = [&](Control&) { ++resizes; };
  form.SetTwipsWidth(2e9);
  EXPECT_EQ(resizes, 0);
}

TEST_F(SizeContract, PersonMayMakeAWindowLargerThanCodeMay) {
  form.SetSizable(true);
  Show();
  const int width = static_cast<int>(toolkit.GetScreen().Width / 15) + 100;
  platform->ResizeWindow(form, width, 300);
  platform->Settle();
  EXPECT_EQ(form.ScaleWidth(), width);
}

// --- windows above others --------------------------------------------------------------------------------------------

class StackContract : public FormContract {};

TEST_F(StackContract, WindowThatStaysOnTopIsAboveTheActiveOne) {
  Form top(toolkit, "TopForm");
  top.SetStaysOnTop(true);
  top.Show();
  Show();
  EXPECT_TRUE(platform->Look(top).OnTop);
  EXPECT_FALSE(platform->Look(form).OnTop);
  EXPECT_TRUE(platform->IsAbove(top, form));
  EXPECT_EQ(toolkit.ActiveForm(), &form);
  top.SetStaysOnTop(false);
  form.SetStaysOnTop(true);
  platform->Settle();
  EXPECT_FALSE(platform->Look(top).OnTop);
  EXPECT_TRUE(platform->IsAbove(form, top));
  EXPECT_TRUE(platform->Look(top).Visible);
}

TEST_F(StackContract, OwnedWindowIsAboveItsOwnerAndLetsItWork) {
  Form owned(toolkit, "OwnedForm");
  owned.SetClientSize(150, 100);
  Listen(form);
  Show();
  owned.ShowOwned(&form);
  platform->Settle();
  EXPECT_TRUE(platform->Look(owned).Visible);
  EXPECT_TRUE(platform->IsAbove(owned, form));
  EXPECT_TRUE(toolkit.TakesInput(form));
  toolkit.Activate(form);
  platform->Settle();
  EXPECT_TRUE(platform->IsAbove(owned, form));
  platform->Press(form, 200, 200, button::Left, 0);
  platform->Release(form, 200, 200, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("ContractForm MouseDown", "ContractForm MouseUp", "ContractForm Click"));
}

TEST_F(StackContract, OwnedWindowGoesWithItsOwner) {
  Form owned(toolkit, "OwnedForm");
  owned.On().Unload = [this](Control&) { Log("owned"); };
  form.On().Unload = [this](Control&) { Log("owner"); };
  Show();
  owned.ShowOwned(&form);
  platform->Settle();
  platform->CloseWindow(form);
  platform->Settle();
  EXPECT_THAT(Heard(), ElementsAre("owner", "owned"));
  EXPECT_FALSE(owned.IsLoaded());
  EXPECT_FALSE(platform->Look(owned).Visible);
}

TEST_F(StackContract, OwnersUnloadMayDestroyTheOwnedWindow) {
  auto owned = std::make_unique<Form>(toolkit, "OwnedForm");
  form.On().Unload = [&](Control&) { owned.reset(); };
  Show();
  owned->ShowOwned(&form);
  platform->Settle();
  form.Unload();
  EXPECT_FALSE(form.IsLoaded());
}

// --- a window that covers the screen ---------------------------------------------------------------------------------

class FullScreenContract : public FormContract {
 protected:
  Rect WholeScreen() {
    const Screen screen = toolkit.GetScreen();
    return {0, 0, static_cast<int>(screen.Width / 15), static_cast<int>(screen.Height / 15)};
  }
};

TEST_F(FullScreenContract, CoversTheScreenWithoutAFrameAndOnTop) {
  form.SetFullScreen(true);
  Show();
  const Seen seen = platform->Look(form);
  EXPECT_TRUE(seen.Visible);
  EXPECT_FALSE(seen.Framed);
  EXPECT_TRUE(seen.OnTop);
  EXPECT_EQ(seen.At, WholeScreen());
  EXPECT_EQ(form.ScaleWidth(), WholeScreen().Width);
  EXPECT_EQ(form.ScaleHeight(), WholeScreen().Height);
  EXPECT_EQ(toolkit.ActiveForm(), &form);
}

TEST_F(FullScreenContract, AScreenThatIsNotThereStandsForTheMainOne) {
  form.SetFullScreenOn(toolkit.ScreenCount());
  form.SetFullScreen(true);
  Show();
  EXPECT_EQ(platform->Look(form).At, WholeScreen());
  EXPECT_GE(toolkit.ScreenCount(), 1);
  EXPECT_GE(toolkit.ScreenOfPointer(), 0);
  EXPECT_LT(toolkit.ScreenOfPointer(), toolkit.ScreenCount());
  EXPECT_EQ(toolkit.GetScreen(0).Width, toolkit.GetScreen().Width);
  EXPECT_EQ(toolkit.GetScreen(0).Fineness, toolkit.Fineness());
}

TEST_F(FullScreenContract, GoesBackToItsOwnBounds) {
  form.SetTwipsLeft(600);
  form.SetTwipsTop(450);
  Show();
  EXPECT_TRUE(platform->Look(form).Framed);
  form.On().Resize = [this](Control&) { Log(std::to_string(form.ScaleWidth())); };
  form.SetFullScreen(true);
  platform->Settle();
  EXPECT_EQ(platform->Look(form).At, WholeScreen());
  form.SetFullScreen(false);
  platform->Settle();
  EXPECT_EQ(platform->Look(form).At, (Rect{0, 0, 400, 300}));
  EXPECT_TRUE(platform->Look(form).Framed);
  EXPECT_FALSE(platform->Look(form).OnTop);
  EXPECT_EQ(form.TwipsLeft(), 600);
  EXPECT_EQ(form.TwipsTop(), 450);
  EXPECT_THAT(Heard(), ElementsAre(std::to_string(WholeScreen().Width), "400"));
}

TEST_F(FullScreenContract, MenuBarIsNotShownMeanwhile) {
  MenuItem file(form, "FileMenu", "&File");
  MenuItem open(file, "OpenItem", "&Open");
  form.SetClientSize(400, 300);
  Show();
  form.SetFullScreen(true);
  platform->Settle();
  EXPECT_EQ(platform->Look(form).At, WholeScreen());
  form.SetFullScreen(false);
  platform->Settle();
  EXPECT_EQ(platform->Look(form).At, (Rect{0, 0, 400, 300}));
}

TEST_F(FullScreenContract, TakesTheMouseUpToItsLastPixel) {
  Listen(form);
  form.SetFullScreen(true);
  Show();
  platform->Press(form, WholeScreen().Width - 1, WholeScreen().Height - 1, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("ContractForm MouseDown"));
  platform->Release(form, 0, 0, button::Left, 0);
}

TEST_F(FullScreenContract, PointerIsHiddenAndShownAgain) {
  form.SetFullScreen(true);
  Show();
  EXPECT_FALSE(platform->IsPointerHidden(form));
  form.SetMousePointer(pointer::Hidden);
  platform->Settle();
  EXPECT_TRUE(platform->IsPointerHidden(form));
  form.SetMousePointer(pointer::Default);
  platform->Settle();
  EXPECT_FALSE(platform->IsPointerHidden(form));
}

TEST_F(FullScreenContract, PointerIsHiddenOverOneControlAlone) {
  PictureBox box(form, "Box");
  box.Move(10, 10, 100, 100);
  box.SetMousePointer(pointer::Hidden);
  Show();
  platform->Move(form, 50, 50);
  EXPECT_TRUE(platform->IsPointerHidden(form));
  platform->Move(form, 200, 200);
  EXPECT_FALSE(platform->IsPointerHidden(form));
}

}  // namespace
}  // namespace pixorra
