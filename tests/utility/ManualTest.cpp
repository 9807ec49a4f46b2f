// The way to the manual.
#include <gtest/gtest.h>

#include "tests/support/headless/ProgramTest.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

class ManualTest : public ProgramTest {
 protected:
  ManualTest() { drive.Write(page, "<p>How to sort</p>"); }
  void AskForIt() {
    run.person.ChooseMenu(run.main.menu.ManualMenuItem);
    run.Wait(0.1);
  }
  void ExpectMessage(const std::string& text) {
    ASSERT_EQ(run.platform.dialogs.Boxes().size(), 1U);
    EXPECT_EQ(run.platform.dialogs.Boxes()[0].Text, text);
    EXPECT_TRUE(run.platform.shell.AllOpened().empty());
  }

  ProgramRun& run = Started();
  const std::string page = "C:\\manual\\index.html";
};

TEST_F(ManualTest, ItIsOpenedInTheDesktopsBrowser) {
  run.platform.shell.SetManual(page);
  run.platform.shell.RegisterProgram(".html", "C:\\bin\\browser");
  AskForIt();
  ASSERT_EQ(run.platform.shell.AllOpened().size(), 1U);
  EXPECT_EQ(run.platform.shell.AllOpened()[0].Target, page);
}

TEST_F(ManualTest, WhereItIsNotInstalledAMessageNamesTheTips) {
  run.person.ExpectBox("Pixorra", "The manual is not installed");
  AskForIt();
  ExpectMessage("The manual is not installed with this copy of Pixorra.\nA page on each topic is in 'Help', 'Tips'.");
}

TEST_F(ManualTest, WithoutABrowserAMessageSaysWhereItIs) {
  run.platform.shell.SetManual(page);
  run.person.ExpectBox("Pixorra", "There is no web browser");
  AskForIt();
  ExpectMessage("There is no web browser to show the manual. Its first page is\nC:\\manual\\index.html");
}

}  // namespace
}  // namespace pixorra
