// The about window, and the same window while the program starts.
#include <gmock/gmock.h>

#include "platform/runtime/Errors.h"
#include "tests/support/headless/ProgramTest.h"
#include "utility/frmAbout.h"
#include "window/CoreState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class frmAboutTest : public ProgramTest {
 protected:
  ProgramRun& run = Started();
  MainForm& main = run.main;
};

CommandButton& ButtonOf(Form& form, const std::string& name) {
  for (Control* control : form.Controls()) {
    if (control->Name() == name) return static_cast<CommandButton&>(*control);
  }
  throw RuntimeError(error::FileNotFound);
}

TEST_F(frmAboutTest, ItNamesTheProgramItsVersionTheLicences) {
  frmAbout about(run.host);
  about.Window.Load();
  EXPECT_EQ(about.lblTitle.Caption(), "Pixorra V" + std::to_string(VersionMajor) + "." + std::to_string(VersionMinor) +
                                          "." + std::to_string(VersionRevision));
  for (const char* word : {"Kestrelia Corp", "MIT licence", "no warranty", "Qt", "GLib", "libjpeg-turbo", "CUPS",
                           "libxcb", "libX11", "libXss", "Independent JPEG Group"})
    EXPECT_THAT(about.lblDisclaimer.Caption(), HasSubstr(word));
  EXPECT_THAT(about.lblDisclaimer.Caption(), EndsWith("Group."));
  EXPECT_FALSE(about.ProgressBar1.Visible());
  EXPECT_FALSE(about.BarTimer.Enabled());
  EXPECT_TRUE(about.SystemInfoButton.Visible());
  EXPECT_TRUE(about.OKButton.Visible());
}

TEST_F(frmAboutTest, WithoutAHomePageThereIsNoneToVisit) {
  EXPECT_FALSE(main.menu.VisitKestreliaMenuItem.Enabled());
}

TEST_F(frmAboutTest, TheHomePageThatIsSetIsShownAndOpened) {
  run.platform.settings.SaveSetting("Pixorra", "About", "WebAddress", "https://photos.example/pixorra");
  frmAbout about(run.host);
  about.Window.Load();
  EXPECT_THAT(about.lblDisclaimer.Caption(), EndsWith("\nhttps://photos.example/pixorra"));
  run.person.ChooseMenu(main.menu.VisitKestreliaMenuItem);
  ASSERT_EQ(run.platform.shell.AllOpened().size(), 1U);
  EXPECT_EQ(run.platform.shell.AllOpened()[0].Target, "https://photos.example/pixorra");
}

TEST_F(frmAboutTest, F1AndTheMenuShowItAndItHoldsUpTheMainWindowUntilItIsClosed) {
  int shown = 0;
  const auto close = [&](int key) {
    run.person.ExpectForm("frmAbout", [&shown, key, this](Person& hand, Form& form) {
      ++shown;
      EXPECT_EQ(form.Caption(), "About Pixorra");
      EXPECT_TRUE(form.IsModal());
      EXPECT_FALSE(run.host.toolkit.TakesInput(main.Window));
      hand.Key(key);
    });
  };
  close(key::Escape);
  run.person.Key(key::F1);
  run.Wait(0.1);
  close(key::Return);
  run.person.ChooseMenu(main.menu.AboutMenuItem);
  run.Wait(0.1);
  run.person.ExpectForm("frmAbout", [&shown](Person& hand, Form& form) {
    ++shown;
    hand.Click(ButtonOf(form, "OKButton"));
  });
  run.person.Key(key::F1);
  run.Wait(0.1);
  EXPECT_EQ(shown, 3);
  EXPECT_EQ(run.person.Window("frmAbout"), nullptr);
  EXPECT_TRUE(run.host.toolkit.TakesInput(main.Window));
}

TEST_F(frmAboutTest, TheSystemsInformationIsOpenedWhereThereIsSuchAWindow) {
  run.platform.shell.SetHasOwnWindows(true);
  run.person.ExpectForm("frmAbout", [](Person& hand, Form& form) {
    hand.Click(ButtonOf(form, "SystemInfoButton"));
    hand.Key(key::Escape);
  });
  run.person.ChooseMenu(main.menu.AboutMenuItem);
  run.Wait(0.1);
  EXPECT_EQ(run.platform.shell.SystemInformationOpened(), 1);
}

TEST_F(frmAboutTest, WhereThereIsNoSystemInformationAMessageSaysSo) {
  run.person.ExpectBox("Pixorra", "System Information Is Unavailable At This Time");
  run.person.ExpectForm("frmAbout", [](Person& hand, Form& form) {
    hand.Click(ButtonOf(form, "SystemInfoButton"));
    hand.Key(key::Escape);
  });
  run.person.ChooseMenu(main.menu.AboutMenuItem);
  run.Wait(0.1);
  ASSERT_EQ(run.platform.dialogs.Boxes().size(), 1U);
  EXPECT_EQ(run.platform.dialogs.Boxes()[0].Text, "System Information Is Unavailable At This Time");
}

TEST_F(frmAboutTest, AFasterMachineHasASlowerBarWithinLimits) {
  EXPECT_EQ(BarIntervalOf(0), 10);
  EXPECT_EQ(BarIntervalOf(499), 10);
  EXPECT_EQ(BarIntervalOf(500), 5);
  EXPECT_EQ(BarIntervalOf(599), 5);
  EXPECT_EQ(BarIntervalOf(2000), 20);
  EXPECT_EQ(BarIntervalOf(6'500'099), 65'000);
  EXPECT_EQ(BarIntervalOf(6'500'100), 65'000);
  EXPECT_EQ(BarIntervalOf(900'000'000'000), 65'000);
}

TEST_F(frmAboutTest, AsSplashItHasABarAndNoButtonsAndDoesNotHoldAnythingUp) {
  frmAbout splash(run.host);
  const double before = run.host.toolkit.Seconds();
  splash.ShowSplash(main.Window);
  EXPECT_NEAR(run.host.toolkit.Seconds() - before, 0.2, 1e-6);
  EXPECT_TRUE(splash.Window.Visible());
  EXPECT_FALSE(splash.Window.IsModal());
  EXPECT_TRUE(run.host.toolkit.TakesInput(main.Window));
  EXPECT_FALSE(splash.SystemInfoButton.Visible());
  EXPECT_FALSE(splash.OKButton.Visible());
  EXPECT_TRUE(splash.ProgressBar1.Visible());
  EXPECT_EQ(splash.ProgressBar1.Value(), 0);
  EXPECT_EQ(splash.BarTimer.Interval(), 20);
  EXPECT_TRUE(splash.BarTimer.Enabled());
}

TEST_F(frmAboutTest, TheBarFillsStepByStepAndStopsAtItsMaximum) {
  frmAbout splash(run.host);
  splash.ShowSplash(main.Window);
  run.Wait(0.21);
  EXPECT_EQ(splash.ProgressBar1.Value(), 10);
  run.Wait(10);
  EXPECT_EQ(splash.ProgressBar1.Value(), splash.ProgressBar1.Max());
}

TEST_F(frmAboutTest, ShownAgainAfterASplashItHasItsButtonsBack) {
  frmAbout about(run.host);
  about.ShowSplash(main.Window);
  run.Wait(1);
  about.Window.Unload();
  about.Window.Show();
  EXPECT_TRUE(about.OKButton.Visible());
  EXPECT_TRUE(about.SystemInfoButton.Visible());
  EXPECT_FALSE(about.ProgressBar1.Visible());
  EXPECT_EQ(about.Window.Caption(), "About Pixorra");
  run.Wait(1);
  EXPECT_EQ(about.ProgressBar1.Value(), 0);
}

}  // namespace
}  // namespace pixorra
