// The notice of what has been done, and of a print job's progress.
#include <gtest/gtest.h>

#include "base/Palette.h"
#include "tests/support/headless/ProgramTest.h"
#include "utility/ConfirmForm.h"
#include "window/CoreState.h"

namespace pixorra {
namespace {

constexpr const char* AbortTitle = "Abort Printing";

class ConfirmFormTest : public ProgramTest {
 protected:
  ProgramRun& run = Started();
  MainForm& main = run.main;
  ConfirmForm& notice = ConfirmForm::Of(main);
};

TEST_F(ConfirmFormTest, EachNoticeHasItsTextWithAShadowAndItsColour) {
  EXPECT_EQ(notice.Window.Caption(), "Pixorra");
  const struct {
    bool (ConfirmForm::*Show)();
    const char* Text;
    Colour Letters;
  } notices[] = {{&ConfirmForm::ConfirmClipboard, "Copied to Clipboard", 0x00FFFFFF},
                 {&ConfirmForm::ConfirmSave, "Saved to File", 0x0000FFFF}};
  for (const auto& [show, text, letters] : notices) {
    EXPECT_TRUE((notice.*show)());
    EXPECT_TRUE(notice.Window.Visible());
    EXPECT_FALSE(notice.Window.IsModal());
    EXPECT_EQ(notice.Window.Owner(), &main.Window);
    EXPECT_EQ(notice.Label1.Caption(), text);
    EXPECT_EQ(notice.Label2.Caption(), text);
    EXPECT_EQ(notice.Label1.ForeColor(), 0x00000000U);
    EXPECT_EQ(notice.Label2.ForeColor(), letters);
  }
  notice.ConfirmPrint("Printing 1 of 3");
  EXPECT_EQ(notice.Label2.Caption(), "Printing 1 of 3");
  EXPECT_EQ(notice.Label1.Caption(), "Printing 1 of 3");
  EXPECT_EQ(notice.Label2.ForeColor(), 0x00FFA0A0U);
}

TEST_F(ConfirmFormTest, ItGoesByItselfAfterTwoSecondsCountedFromTheLastNotice) {
  notice.ConfirmClipboard();
  run.Wait(1.5);
  notice.ConfirmSave();
  run.Wait(1.8);
  EXPECT_TRUE(notice.Window.Visible());
  run.Wait(0.2);
  EXPECT_FALSE(notice.Window.Visible());
  EXPECT_FALSE(notice.Window.IsLoaded());
}

TEST_F(ConfirmFormTest, APrintNoticeStaysUntilItIsUnloaded) {
  notice.ConfirmClipboard();
  notice.ConfirmPrint("Printing");
  run.Wait(10);
  EXPECT_TRUE(notice.Window.Visible());
  notice.Window.Unload();
  notice.ConfirmClipboard();
  run.Wait(2.1);
  EXPECT_FALSE(notice.Window.Visible());
}

TEST_F(ConfirmFormTest, AClickOnAPrintNoticeAsksWhetherToStop) {
  notice.ConfirmPrint("Printing");
  run.person.ExpectBox(AbortTitle, "Do you want to STOP printing?", BoxAnswer::No);
  run.person.Click(notice.Label2);
  EXPECT_FALSE(main.core.PrintAborted);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Question);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Buttons, BoxButtons::YesNo);
  run.person.ExpectBox(AbortTitle, "", BoxAnswer::Yes);
  run.person.ClickAt(notice.Window, 3, 3);
  EXPECT_TRUE(main.core.PrintAborted);
  EXPECT_TRUE(notice.Window.Visible());
}

TEST_F(ConfirmFormTest, AKeyOnAPrintNoticeAsksAsWellAndGoesNoFurther) {
  notice.ConfirmPrint("Printing");
  run.person.ExpectBox(AbortTitle, "", BoxAnswer::Yes);
  run.person.Activate(notice.Window);
  run.person.Type("x");
  EXPECT_TRUE(main.core.PrintAborted);
}

TEST_F(ConfirmFormTest, AClickOrAKeyOnAnyOtherNoticeDoesNothing) {
  notice.ConfirmClipboard();
  run.person.Click(notice.Label2);
  run.person.ClickAt(notice.Window, 3, 3);
  run.person.Activate(notice.Window);
  run.person.Type("x");
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
  EXPECT_TRUE(notice.Window.Visible());
  EXPECT_FALSE(main.core.PrintAborted);
}

TEST_F(ConfirmFormTest, AKeyThatIsHeldDownOverANoticeIsHeldDownForTheMainWindowToo) {
  std::vector<KeyStroke> strokes;
  main.Window.On().KeyDown = [&](Control&, int& code, int) {
    strokes.push_back(run.host.toolkit.Stroke());
    code = 0;
  };
  notice.ConfirmClipboard();
  run.person.Activate(notice.Window);
  run.person.Key(key::Right);
  run.person.RepeatKey(key::Right);
  EXPECT_EQ(strokes, (std::vector{KeyStroke::Pressed, KeyStroke::Repeated}));
  EXPECT_EQ(run.host.toolkit.Stroke(), KeyStroke::Pressed) << "no key is handled any more";
}

TEST_F(ConfirmFormTest, ALongTextMakesTheNoticeWiderAndItStaysInTheMiddle) {
  notice.ConfirmPrint("Printing");
  const int narrow = notice.Window.ScaleWidth();
  notice.ConfirmPrint("Printing a photo that has a rather long name, page 12 of 345");
  EXPECT_GT(notice.Window.ScaleWidth(), narrow);
  EXPECT_GE(notice.Window.ScaleWidth(), notice.Label1.Bounds().Right());
  EXPECT_GE(notice.Window.ScaleHeight(), notice.Label1.Bounds().Bottom());
  EXPECT_LE(std::abs(2 * notice.Label2.Left() + notice.Label2.Width() - notice.Window.ScaleWidth()), 1);
}

TEST_F(ConfirmFormTest, ItGoesWithTheMainWindow) {
  notice.ConfirmPrint("Printing");
  run.Close();
  EXPECT_TRUE(run.host.toolkit.Ended());
}

}  // namespace
}  // namespace pixorra
