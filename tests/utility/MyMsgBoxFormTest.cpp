// The message that is not waited for.
#include <gtest/gtest.h>

#include "tests/support/headless/ProgramTest.h"
#include "utility/MyMsgBoxForm.h"

namespace pixorra {
namespace {

class MyMsgBoxFormTest : public ProgramTest {
 protected:
  ProgramRun& run = Started();
  MainForm& main = run.main;
  MyMsgBoxForm& box = MyMsgBoxForm::Of(main);
};

TEST_F(MyMsgBoxFormTest, ItReturnsAtOnceIsOnTopOfOtherWindowsAndBeeps) {
  const int beeps = run.platform.dialogs.Beeps();
  box.ShowIt("First line\nSecond line", "Pixorra - ScreenSaver");
  EXPECT_TRUE(box.Window.Visible());
  EXPECT_FALSE(box.Window.IsModal());
  EXPECT_TRUE(box.Window.StaysOnTop());
  EXPECT_EQ(box.Window.Caption(), "Pixorra - ScreenSaver");
  EXPECT_EQ(box.MessageLabel.Caption(), "First line\nSecond line");
  EXPECT_EQ(run.platform.dialogs.Beeps(), beeps + 1);
  EXPECT_TRUE(run.host.toolkit.TakesInput(main.Window));
}

TEST_F(MyMsgBoxFormTest, ItGoesByItselfAfterHalfAMinuteAndNotBefore) {
  box.ShowIt("Text", "Title");
  run.Wait(29.9);
  EXPECT_TRUE(box.Window.Visible());
  run.Wait(0.2);
  EXPECT_FALSE(box.Window.Visible());
  EXPECT_FALSE(box.Window.IsLoaded());
}

TEST_F(MyMsgBoxFormTest, ShownAgainItHasTheNewTextAndTheWholeTime) {
  box.ShowIt("Text", "Title");
  run.Wait(20);
  box.ShowIt("Other text", "Other title");
  EXPECT_EQ(box.MessageLabel.Caption(), "Other text");
  run.Wait(29.9);
  EXPECT_TRUE(box.Window.Visible());
  run.Wait(0.2);
  EXPECT_FALSE(box.Window.Visible());
}

TEST_F(MyMsgBoxFormTest, ItsButtonClosesItAndItCanBeShownAgain) {
  box.ShowIt("Text", "Title");
  run.person.Activate(box.Window);
  run.person.Click(box.OKButton);
  EXPECT_FALSE(box.Window.IsLoaded());
  box.ShowIt("Text", "Title");
  EXPECT_TRUE(box.Window.Visible());
}

// Twips: the text and 200 beside it; below, the button with 200 above and below, in the window's frame.
TEST_F(MyMsgBoxFormTest, ItsSizeFollowsItsText) {
  box.ShowIt("A line that is longer than the other one\nshort", "Title");
  const Label& text = box.MessageLabel;
  EXPECT_EQ(box.Window.TwipsWidth(), (text.Left() + text.Width()) * TwipsPerPixel + 200);
  EXPECT_EQ(box.OKButton.Top(), text.Bounds().Bottom() + 200 / TwipsPerPixel);
  EXPECT_EQ(box.Window.TwipsHeight(), (box.OKButton.Bounds().Bottom() + Form::FrameHeight) * TwipsPerPixel + 200);
  EXPECT_LE(std::abs(2 * box.OKButton.Left() + box.OKButton.Width() - box.Window.ScaleWidth()), 1);
  EXPECT_GE(box.Window.ScaleWidth(), text.Bounds().Right());
}

TEST_F(MyMsgBoxFormTest, ItGoesWithTheMainWindow) {
  box.ShowIt("Text", "Title");
  run.Close();
  EXPECT_TRUE(run.host.toolkit.Ended());
}

}  // namespace
}  // namespace pixorra
