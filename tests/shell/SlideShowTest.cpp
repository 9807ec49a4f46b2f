// The menu of the slide show: what it starts, and what it leaves for the screen saver.
#include <gtest/gtest.h>

#include "platform/runtime/Errors.h"
#include "shell/SlideShow.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "utility/MyMsgBoxForm.h"
#include "window/CoreState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

constexpr const char* Companion = "C:\\Windows\\\\Pixorra SlideShow.scr";

class SlideShowTest : public ProgramTest {
 protected:
  SlideShowTest() { drive.Write("C:\\My  Photos \\a.bmp", BmpPhoto(8, 8)); }

  ProgramRun& WithStripAndFolder(const std::string& strip, const std::string& folder) {
    WriteSavedState(StateLines(strip, {folder}));
    ProgramRun& run = NewRun();
    run.platform.shell.AddInstalled("pixorra-slideshow");
    run.Start();
    run.Wait(0.3);
    if (run.main.desk.OpenFolderIndex != 1) run.person.Click(run.main.desk.DestFolderName(1));
    return run;
  }
  static std::string LastCommand(ProgramRun& run) {
    return run.platform.shell.AllRun().empty() ? "nothing" : run.platform.shell.AllRun().back();
  }
  static std::string Kept(ProgramRun& run, const std::string& key) {
    return run.platform.settings.GetSetting("Pixorra", "ScreenSaver", key, "none");
  }
  static void PlayFilmStrip(ProgramRun& run) { run.person.ChooseMenu(run.main.menu.SlideShowPlayFilmStripMenuItem); }
};

// --- the menu's state ------------------------------------------------------------------------------------------------

TEST_F(SlideShowTest, WithoutAStripAndAnOpenFolderNothingCanBePlayed) {
  ProgramRun& run = Started();
  const MenuBar& menu = run.main.menu;
  run.Wait(0.2);
  run.main.menu.SlideShowMenu.UserClicked();
  run.main.menu.SlideShowPlayMenuItem.UserClicked();
  EXPECT_FALSE(menu.SlideShowPlayFilmStripMenuItem.CanBeChosen());
  EXPECT_FALSE(menu.SlideShowPlayOpenFolderMenuItem.CanBeChosen());
  EXPECT_FALSE(menu.SlideShowScreenSaverMenuItem.CanBeChosen());
  run.person.Key(key::F1 + 7);
  run.person.Key(key::F1 + 8);
  run.person.Key(key::F1 + 4, shift::Ctrl);
  EXPECT_TRUE(run.platform.shell.AllRun().empty());
  EXPECT_EQ(Kept(run, "SourceLocation"), "none");
}

TEST_F(SlideShowTest, OnlyWhatIsOnShowCanBePlayed) {
  WriteSavedState(StateLines("C:\\My  Photos ", {}));
  ProgramRun& run = Started();
  const MenuBar& menu = run.main.menu;
  run.main.menu.SlideShowPlayMenuItem.UserClicked();
  EXPECT_TRUE(menu.SlideShowPlayFilmStripMenuItem.CanBeChosen());
  EXPECT_FALSE(menu.SlideShowPlayOpenFolderMenuItem.CanBeChosen());
}

TEST_F(SlideShowTest, AShowThatWasPlayedCanBecomeTheScreenSaver) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\My  Photos ");
  MenuBar& menu = run.main.menu;
  menu.SlideShowMenu.UserClicked();
  EXPECT_FALSE(menu.SlideShowScreenSaverMenuItem.CanBeChosen());
  PlayFilmStrip(run);
  menu.SlideShowMenu.UserClicked();
  EXPECT_TRUE(menu.SlideShowScreenSaverMenuItem.CanBeChosen());
  EXPECT_EQ(run.main.core.SlideShowFolder, "C:\\My  Photos ");
}

TEST_F(SlideShowTest, OfTheSpeedsOneIsTickedAndTheTitleIsTickedAndCleared) {
  ProgramRun& run = Started();
  MenuBar& menu = run.main.menu;
  const auto ticks = [&menu] {
    std::string text;
    for (const MenuItem* item : {&menu.SlideShowSpeedFastMenuItem, &menu.SlideShowSpeedMediumMenuItem,
                                 &menu.SlideShowSpeedSlowMenuItem, &menu.SlideShowTitleCounterMenuItem})
      text += item->Checked() ? '1' : '0';
    return text;
  };
  EXPECT_EQ(ticks(), "0101");
  run.person.ChooseMenu(menu.SlideShowSpeedFastMenuItem);
  EXPECT_EQ(ticks(), "1001");
  run.person.ChooseMenu(menu.SlideShowSpeedFastMenuItem);
  EXPECT_EQ(ticks(), "1001");
  run.person.ChooseMenu(menu.SlideShowSpeedSlowMenuItem);
  run.person.ChooseMenu(menu.SlideShowTitleCounterMenuItem);
  EXPECT_EQ(ticks(), "0010");
  run.person.ChooseMenu(menu.SlideShowSpeedMediumMenuItem);
  run.person.ChooseMenu(menu.SlideShowTitleCounterMenuItem);
  EXPECT_EQ(ticks(), "0101");
  run.person.Key(key::F1 + 2, shift::Ctrl);
  run.person.Key(key::F1 + 3, shift::Ctrl);
  EXPECT_EQ(ticks(), "0010");
}

TEST_F(SlideShowTest, ANewStartIsAtMediumWithTheTitleAndHasNoFolder) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\My  Photos ");
  run.person.ChooseMenu(run.main.menu.SlideShowSpeedSlowMenuItem);
  run.person.ChooseMenu(run.main.menu.SlideShowTitleCounterMenuItem);
  PlayFilmStrip(run);
  run.Close();
  ProgramRun& next = Started();
  EXPECT_EQ(SlideShowSpeed(next.main.menu), 3);
  EXPECT_TRUE(next.main.menu.SlideShowTitleCounterMenuItem.Checked());
  EXPECT_EQ(next.main.core.SlideShowFolder, "");
}

// --- the command -----------------------------------------------------------------------------------------------------

TEST_F(SlideShowTest, EachSpeedAndTitleHasItsDigits) {
  ProgramRun& run = Started();
  MenuBar& menu = run.main.menu;
  const struct {
    MenuItem& Speed;
    bool Title;
    const char* Digits;
  } rows[] = {{menu.SlideShowSpeedFastMenuItem, true, "11"},   {menu.SlideShowSpeedFastMenuItem, false, "10"},
              {menu.SlideShowSpeedMediumMenuItem, true, "31"}, {menu.SlideShowSpeedMediumMenuItem, false, "30"},
              {menu.SlideShowSpeedSlowMenuItem, true, "71"},   {menu.SlideShowSpeedSlowMenuItem, false, "70"}};
  for (const auto& [speed, title, digits] : rows) {
    run.person.ChooseMenu(speed);
    menu.SlideShowTitleCounterMenuItem.SetChecked(title);
    for (const char* folder : {"D:\\Photos", "2004 \\1 \"x\" ", "D:\\", ""})
      EXPECT_EQ(SlideShowCommand(run.host.places, menu, folder), std::string(Companion) + " /S :SS " + digits + folder);
  }
}

TEST_F(SlideShowTest, WithNoSpeedTickedTheShowIsFast) {
  ProgramRun& run = Started();
  run.main.menu.SlideShowSpeedMediumMenuItem.SetChecked(false);
  EXPECT_EQ(SlideShowSpeed(run.main.menu), 1);
}

TEST_F(SlideShowTest, TheFilmStripIsPlayedFromItsFolderAsItIsSpelt) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  PlayFilmStrip(run);
  EXPECT_EQ(LastCommand(run), std::string(Companion) + " /S :SS 31C:\\My  Photos ");
  run.person.Key(key::F1 + 7);
  EXPECT_EQ(run.platform.shell.AllRun().size(), 2U);
}

TEST_F(SlideShowTest, TheOpenFolderIsPlayedAndADrivesRootKeepsItsBackslash) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  run.person.Key(key::F1 + 8);
  EXPECT_EQ(LastCommand(run), std::string(Companion) + " /S :SS 31C:\\");
  EXPECT_EQ(run.main.core.SlideShowFolder, "C:\\");
}

TEST_F(SlideShowTest, TheOpenTrashcanIsPlayedToo) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  run.person.Click(run.main.desk.DestFolder(9));
  ASSERT_EQ(run.main.desk.OpenFolderIndex, 9);
  run.person.ChooseMenu(run.main.menu.SlideShowPlayOpenFolderMenuItem);
  EXPECT_EQ(LastCommand(run), std::string(Companion) + " /S :SS 31C:\\Program\\Trashcan");
}

TEST_F(SlideShowTest, AMissingCompanionIsToldOfInTheHostsWordsAndTheMenuWorksOn) {
  WriteSavedState(StateLines("C:\\My  Photos ", {}));
  ProgramRun& run = Started();
  run.Wait(0.2);
  run.person.ExpectBox("Pixorra - SlideShow", ErrorDescription(error::FileNotFound), BoxAnswer::Ok);
  PlayFilmStrip(run);
  run.main.menu.SlideShowMenu.UserClicked();
  EXPECT_TRUE(run.main.menu.SlideShowScreenSaverMenuItem.CanBeChosen());
  drive.Write("C:\\Windows\\Pixorra SlideShow.scr", "a program");
  PlayFilmStrip(run);
  EXPECT_EQ(LastCommand(run), std::string(Companion) + " /S :SS 31C:\\My  Photos ");
}

TEST_F(SlideShowTest, ItIsToldOfWithAnExclamationMark) {
  WriteSavedState(StateLines("C:\\My  Photos ", {}));
  ProgramRun& run = Started();
  run.Wait(0.2);
  run.person.ExpectBox("Pixorra - SlideShow", "", BoxAnswer::Ok);
  PlayFilmStrip(run);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
}

TEST_F(SlideShowTest, TheStartPutsTheInstalledCompanionIntoTheWindowsFolder) {
  ProgramRun& run = NewRun();
  run.platform.shell.AddInstalled("pixorra-slideshow");
  run.Start();
  ASSERT_EQ(run.platform.shell.AllOffered().size(), 1U);
  EXPECT_EQ(run.platform.shell.AllOffered().begin()->first, "C:\\Windows\\Pixorra SlideShow.scr");
}

// --- the screen saver ------------------------------------------------------------------------------------------------

TEST_F(SlideShowTest, TheLastShowsFolderAndSpeedAreLeftForTheScreenSaver) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  run.platform.shell.SetHasOwnWindows(true);
  run.person.Key(key::F1 + 8);
  PlayFilmStrip(run);
  run.person.ChooseMenu(run.main.menu.SlideShowSpeedSlowMenuItem);
  run.person.ChooseMenu(run.main.menu.SlideShowScreenSaverMenuItem);
  EXPECT_EQ(Kept(run, "SourceLocation"), "C:\\My  Photos ");
  EXPECT_EQ(Kept(run, "Duration"), "7");
  EXPECT_EQ(run.platform.shell.ScreenSaverSettingsOpened(), 1);
}

TEST_F(SlideShowTest, WhatToDoThereIsShownAMomentAfterTheDesktopsWindow) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  run.platform.shell.SetHasOwnWindows(true);
  PlayFilmStrip(run);
  const double start = run.platform.clock.Seconds();
  run.person.ChooseMenu(run.main.menu.SlideShowScreenSaverMenuItem);
  EXPECT_NEAR(run.platform.clock.Seconds() - start, 0.7, 0.05);
  const MyMsgBoxForm& hints = MyMsgBoxForm::Of(run.main);
  EXPECT_TRUE(hints.Window.Visible());
  EXPECT_EQ(hints.Window.Caption(), "Pixorra - ScreenSaver");
  EXPECT_EQ(hints.MessageLabel.Caption(),
            "To enable the Screen Saver you must first select\n'Pixorra SlideShow' from the drop-down list of\n"
            "available screen savers. Then click on the <APPLY>\nbutton and you're ready to go.\n\n"
            "You can test the screen saver using the <PREVIEW>\nbutton and make changes using the <SETTINGS> button.");
  EXPECT_EQ(run.main.Window.MousePointer(), pointer::Default) << "the folders' hand must not be hidden";
}

TEST_F(SlideShowTest, ADesktopWithoutSuchAWindowGetsTheHintsAlone) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  PlayFilmStrip(run);
  run.person.ChooseMenu(run.main.menu.SlideShowScreenSaverMenuItem);
  EXPECT_TRUE(MyMsgBoxForm::Of(run.main).Window.Visible());
  EXPECT_EQ(Kept(run, "Duration"), "3");
}

TEST_F(SlideShowTest, ChosenAgainWhileItWaitsItOpensNoSecondWindow) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  run.platform.shell.SetHasOwnWindows(true);
  PlayFilmStrip(run);
  bool chosen = false;
  run.person.During([&run, &chosen] {
    chosen = true;
    run.main.menu.SlideShowScreenSaverMenuItem.UserClicked();
  });
  run.person.ChooseMenu(run.main.menu.SlideShowScreenSaverMenuItem);
  EXPECT_TRUE(chosen);
  EXPECT_EQ(run.platform.shell.ScreenSaverSettingsOpened(), 1);
  run.person.ChooseMenu(run.main.menu.SlideShowScreenSaverMenuItem);
  EXPECT_EQ(run.platform.shell.ScreenSaverSettingsOpened(), 2);
}

TEST_F(SlideShowTest, AProgramThatEndsWhileItWaitsShowsNoHints) {
  ProgramRun& run = WithStripAndFolder("C:\\My  Photos ", "C:\\");
  PlayFilmStrip(run);
  const int beeps = run.platform.dialogs.Beeps();
  run.person.During([&run] { run.Close(); });
  run.person.ChooseMenu(run.main.menu.SlideShowScreenSaverMenuItem);
  EXPECT_TRUE(run.host.toolkit.Ended());
  EXPECT_EQ(run.platform.dialogs.Beeps(), beeps) << "the hints would beep";
}

}  // namespace
}  // namespace pixorra
