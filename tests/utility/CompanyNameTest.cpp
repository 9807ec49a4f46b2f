// The company name, as its user enters it.
#include <gtest/gtest.h>

#include "platform/runtime/Text.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

constexpr const char* Title = "Pixorra - Enter Company Name";
constexpr const char* Prompt =
    "The Company Name entered below is printed on\n"
    "the bottom of every page. It is also displayed\n"
    "at the top of the screen when Pixorra is\n"
    "Maximised. (enter spaces to leave blank)";

class CompanyNameTest : public ProgramTest {
 protected:
  void Enter(ProgramRun& run, const std::string& name) {
    run.person.ExpectInput(Title, Prompt, name);
    run.person.ChooseMenu(run.main.menu.CompanyNameMenuItem);
    run.Wait(0.1);
  }
};

TEST_F(CompanyNameTest, WhatIsEnteredIsShownAndIsThereAgainAfterARestart) {
  ProgramRun& run = Started();
  Enter(run, "Žofie & Co., photographs");
  EXPECT_EQ(run.platform.dialogs.PresentInput(), "Pixorra - Kestrelia Corp");
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Žofie & Co., photographs");
  run.Close();
  ProgramRun& next = Started();
  EXPECT_EQ(next.main.core.CompanyNameLabel.Caption(), "Žofie & Co., photographs");
  Enter(next, "Other");
  EXPECT_EQ(next.platform.dialogs.PresentInput(), "Žofie & Co., photographs");
}

TEST_F(CompanyNameTest, CancelLeavesTheNameAsItWas) {
  ProgramRun& run = Started();
  Enter(run, "");
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Pixorra - Kestrelia Corp");
}

TEST_F(CompanyNameTest, BlanksLeaveANameThatShowsAsNothingAndStaysSo) {
  ProgramRun& run = Started();
  Enter(run, "   ");
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "   ");
  EXPECT_EQ(Trim(run.main.core.CompanyNameLabel.Caption()), "");
  run.Close();
  EXPECT_EQ(Started().main.core.CompanyNameLabel.Caption(), "   ");
}

TEST_F(CompanyNameTest, ADoubleClickOnTheNameAsksToo) {
  ProgramRun& run = Started();
  run.person.Maximise(run.main.Window);
  run.Wait(1);
  ASSERT_TRUE(run.main.core.CompanyNameLabel.Visible());
  run.person.ExpectInput(Title, Prompt, "Anna");
  run.person.DoubleClick(run.main.core.CompanyNameLabel);
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Anna");
}

// A quotation mark ends a text of the saved state: what follows would be taken for the next settings.
TEST_F(CompanyNameTest, QuotationMarksInItLeaveTheOtherSettingsAsTheyAre) {
  drive.MakeFolder("C:\\One");
  WriteSavedState(StateLines("", {"C:\\One"}));
  ProgramRun& run = Started();
  Enter(run, "Anna \"Lens\", 3, Berlin");
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Anna \"Lens\", 3, Berlin");
  run.Close();
  const MainForm& main = Started().main;
  EXPECT_EQ(main.core.CompanyNameLabel.Caption(), "Anna 'Lens', 3, Berlin");
  EXPECT_EQ(main.desk.FoldersShown, 1);
}

}  // namespace
}  // namespace pixorra
