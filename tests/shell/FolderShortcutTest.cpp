// The command in the menu of every folder: the box in the preferences, and the first start.
#include <gtest/gtest.h>

#include "platform/runtime/Errors.h"
#include "platform/services/Registry.h"
#include "platform/services/Settings.h"
#include "shell/FolderShortcut.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* Verb = "Folder\\Shell\\SlideShow by Pixorra";
constexpr const char* VerbCommand = "Folder\\Shell\\SlideShow by Pixorra\\Command";
constexpr const char* MachineVerb = "Software\\CLASSES\\Folder\\Shell\\SlideShow by Pixorra";
constexpr const char* MachineVerbCommand = "Software\\CLASSES\\Folder\\Shell\\SlideShow by Pixorra\\Command";
constexpr const char* Command = "C:\\Windows\\Pixorra SlideShow.scr 21%L";

// Settings that cannot be written.
class ReadOnlySettings : public Settings {
 public:
  std::string GetSetting(const std::string&, const std::string&, const std::string&,
                         const std::string& otherwise) override {
    return otherwise;
  }
  void SaveSetting(const std::string&, const std::string&, const std::string&, const std::string&) override {
    throw RuntimeError(error::PathAccess);
  }
};

class FolderShortcutTest : public ProgramTest {
 protected:
  // Opens the preferences; `inside` acts there, and they are closed.
  static void InPreferences(ProgramRun& run, const std::function<void(Person&, CheckBox&)>& inside) {
    run.person.ExpectForm("PreferencesForm", [&run, inside](Person& person, Form&) {
      inside(person, run.main.preferences.AddFolderShortcutCheckbox);
      person.Click(run.main.preferences.CloseButton);
    });
    run.person.ChooseMenu(run.main.menu.PreferenceMenuItem);
  }
  static bool IsThere(ProgramRun& run) { return run.platform.registry.KeyExists(registry::ClassesRoot, Verb); }
};

TEST_F(FolderShortcutTest, TheFirstStartAddsItInBothPlaces) {
  ProgramRun& run = Started();
  EXPECT_EQ(run.platform.registry.Value(registry::ClassesRoot, VerbCommand, ""), Command);
  EXPECT_EQ(run.platform.registry.Value(registry::LocalMachine, MachineVerbCommand, ""), Command);
}

TEST_F(FolderShortcutTest, WhatAUserHasRemovedStaysRemoved) {
  ProgramRun& run = Started();
  RemoveFolderShortcut(run.platform.registry);
  AddFolderShortcutAtFirstStart(run.host);
  EXPECT_FALSE(IsThere(run));
  EXPECT_FALSE(run.platform.registry.KeyExists(registry::LocalMachine, MachineVerb));
}

TEST_F(FolderShortcutTest, WhereAStartCannotBeNotedItIsNotAddedAgainAndAgain) {
  ProgramRun& run = NewRun();
  ReadOnlySettings settings;
  const Host& host = run.host;
  Host poor{host.toolkit, host.files,     host.places,   host.clock,        host.pictures, host.artwork,
            host.jpeg,    host.dialogs,   host.printing, host.clipboard,    host.shell,    host.registry,
            settings,     host.readAhead, host.shipped,  host.folderReader, host.volumes,  host.memory};
  AddFolderShortcutAtFirstStart(poor);
  EXPECT_FALSE(IsThere(run));
}

TEST_F(FolderShortcutTest, TheBoxShowsAtEachOpeningWhetherItIsThere) {
  ProgramRun& run = Started();
  InPreferences(run, [](Person&, CheckBox& box) { EXPECT_EQ(box.Value(), 1); });
  run.platform.registry.DeleteKey(registry::ClassesRoot, Verb);
  EXPECT_TRUE(run.platform.registry.KeyExists(registry::LocalMachine, MachineVerb));
  InPreferences(run, [](Person&, CheckBox& box) { EXPECT_EQ(box.Value(), 0) << "the machine's key does not count"; });
}

TEST_F(FolderShortcutTest, ClearingAndTickingTheBoxActsAtOnceAndSaysNothing) {
  ProgramRun& run = Started();
  InPreferences(run, [&run](Person& person, CheckBox& box) {
    person.Click(box);
    EXPECT_FALSE(IsThere(run));
    EXPECT_FALSE(run.platform.registry.KeyExists(registry::LocalMachine, MachineVerb));
    person.Click(box);
    EXPECT_EQ(run.platform.registry.Value(registry::ClassesRoot, VerbCommand, ""), Command);
    EXPECT_EQ(run.platform.registry.Value(registry::LocalMachine, MachineVerbCommand, ""), Command);
    person.Click(box);
  });
  EXPECT_FALSE(IsThere(run));
}

TEST_F(FolderShortcutTest, WhatAUserHasRemovedStaysRemovedWhenAPackageBringsItLater) {
  ProgramRun& run = Started();
  const auto click = [](Person& person, CheckBox& box) { person.Click(box); };
  InPreferences(run, click);
  run.platform.registry.SetKeyValue(registry::ClassesRoot, VerbCommand, "", "pixorra-slideshow 21%L");
  AddFolderShortcutAtFirstStart(run.host);
  EXPECT_FALSE(IsThere(run));
  InPreferences(run, click);
  AddFolderShortcutAtFirstStart(run.host);
  EXPECT_TRUE(IsThere(run)) << "ticked again";
}

TEST_F(FolderShortcutTest, SettingTheBoxByTheProgramTouchesNothing) {
  ProgramRun& run = Started();
  run.main.preferences.AddFolderShortcutCheckbox.SetValue(1);
  run.main.preferences.Default_Settings();
  EXPECT_TRUE(IsThere(run));
}

TEST_F(FolderShortcutTest, TheWindowsFolderIsThatOfTheMomentOfTheTick) {
  ProgramRun& run = Started();
  class Moved : public TestPlaces {
   public:
    using TestPlaces::TestPlaces;
    std::string WindowsFolder() override { return "C:\\New Windows"; }
  } places(run.files);
  const Host& host = run.host;
  Host moved{host.toolkit,  host.files,     places,        host.clock,        host.pictures, host.artwork,
             host.jpeg,     host.dialogs,   host.printing, host.clipboard,    host.shell,    host.registry,
             host.settings, host.readAhead, host.shipped,  host.folderReader, host.volumes,  host.memory};
  AddFolderShortcut(moved);
  EXPECT_EQ(run.platform.registry.Value(registry::ClassesRoot, VerbCommand, ""),
            "C:\\New Windows\\Pixorra SlideShow.scr 21%L");
}

}  // namespace
}  // namespace pixorra
