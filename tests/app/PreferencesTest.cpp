// The preferences: captions, groups and factory values, the command that shows them, and the pattern that follows.
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

#include "app/Preferences.h"
#include "desktop/FolderSlots.h"
#include "platform/services/Registry.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* FolderVerbKey = "Folder\\Shell\\SlideShow by Pixorra";

class PreferencesTest : public ProgramTest {
 protected:
  // Ticks and unticks in the dialog, as a person does, and closes it.
  void InTheDialog(ProgramRun& run, const std::vector<Control*>& clicked) {
    run.person.ExpectForm("PreferencesForm", [&run, clicked](Person& person, Form&) {
      for (Control* control : clicked) person.Click(*control);
      person.Click(run.main.preferences.CloseButton);
    });
    run.person.ChooseMenu(run.main.menu.PreferenceMenuItem);
  }
};

TEST_F(PreferencesTest, TheDialogIsTitledAndCaptioned) {
  const PreferencesForm& form = NewRun().main.preferences;
  EXPECT_EQ(form.Window.Caption(), " Pixorra - Preferences");
  const std::vector<std::pair<std::string, std::vector<const Button*>>> frames = {
      {"Rename dragged photo", {&form.RenameAlwaysOption, &form.RenameExistsOption, &form.RenameAskOption}},
      {"Duplicate Photos", {&form.DuplicatesAutoOption, &form.DuplicatesAskOption, &form.DuplicatesAllowOption}},
      {"On Program Exit",
       {&form.RememberFilmStripCheckbox, &form.RememberFoldersCheckbox, &form.EmptyTrashcanCheckbox}},
      {"More Things", {&form.KeepDateCheckBox, &form.AutoPreviewCheckBox, &form.AddFolderShortcutCheckbox}},
      {"Types of Picture Files", {&form.JpegCheckbox, &form.BitmapCheckbox, &form.GifCheckbox}},
  };
  const std::vector<std::string> captions = {
      "Always [eg. PXR00001)",
      "Auto, if name exists   [eg. OriginalName2]",
      "Ask before renaming",
      "Auto Resolve",
      "Ask when dropped into a folder",
      "Allow duplicates",
      "Remember Film Strip",
      "Remember Folders",
      "Empty Trashcan",
      "Keep original date of dragged photo",
      "Auto Preview Film Strip photo on Click",
      "Add 'SlideShow' shortcut to Window's Folder Pop-up Menu",
      "Jpeg",
      "Bitmap",
      "GIF",
  };
  std::size_t next = 0;
  for (const auto& [title, buttons] : frames) {
    for (const Button* button : buttons) {
      EXPECT_EQ(static_cast<const Frame*>(button->GetContainer())->Caption(), title) << button->Name();
      EXPECT_EQ(button->Caption(), captions[next++]) << button->Name();
    }
  }
  EXPECT_EQ(form.CloseButton.Caption(), "&Close");
  EXPECT_EQ(form.HelpButton.Caption(), "&Help");
}

TEST_F(PreferencesTest, OptionsOfOneFrameAreOneGroup) {
  PreferencesForm& form = NewRun().main.preferences;
  form.RenameAskOption.SetValue(true);
  EXPECT_FALSE(form.RenameAlwaysOption.Value());
  EXPECT_TRUE(form.DuplicatesAskOption.Value());
  form.DuplicatesAllowOption.SetValue(true);
  EXPECT_FALSE(form.DuplicatesAskOption.Value());
  EXPECT_TRUE(form.RenameAskOption.Value());
}

TEST_F(PreferencesTest, DefaultSettingsBringEveryControlBack) {
  PreferencesForm& form = NewRun().main.preferences;
  const std::vector<std::pair<CheckBox*, int>> boxes = {
      {&form.RememberFilmStripCheckbox, 1},
      {&form.RememberFoldersCheckbox, 1},
      {&form.EmptyTrashcanCheckbox, 1},
      {&form.KeepDateCheckBox, 1},
      {&form.AutoPreviewCheckBox, 0},
      {&form.AddFolderShortcutCheckbox, 0},
      {&form.JpegCheckbox, 1},
      {&form.BitmapCheckbox, 1},
      {&form.GifCheckbox, 1},
  };
  form.RenameExistsOption.SetValue(true);
  form.DuplicatesAutoOption.SetValue(true);
  for (const auto& [box, value] : boxes) {
    EXPECT_EQ(box->Value(), value) << box->Name() << " as it comes";
    box->SetValue(1 - value);
  }
  form.Default_Settings();
  for (const auto& [box, value] : boxes) EXPECT_EQ(box->Value(), value) << box->Name();
  EXPECT_TRUE(form.RenameAlwaysOption.Value());
  EXPECT_TRUE(form.DuplicatesAskOption.Value());
}

TEST_F(PreferencesTest, DefaultSettingsTouchNeitherRegistryNorPattern) {
  ProgramRun& run = Started();
  run.main.preferences.GifCheckbox.SetValue(0);
  ApplyPicturePattern(run.main);
  run.platform.registry.SetKeyValue(registry::ClassesRoot, FolderVerbKey, "", "");
  run.main.preferences.Default_Settings();
  EXPECT_EQ(run.main.core.PicturePattern, "*.jpg;*.jpeg;*.bmp");
  EXPECT_TRUE(run.platform.registry.KeyExists(registry::ClassesRoot, FolderVerbKey));
}

TEST_F(PreferencesTest, CloseHidesTheDialogAndItsValuesStayReadable) {
  ProgramRun& run = Started();
  InTheDialog(run, {&run.main.preferences.RenameAskOption, &run.main.preferences.KeepDateCheckBox});
  EXPECT_FALSE(run.main.preferences.Window.Visible());
  EXPECT_TRUE(run.main.preferences.Window.IsLoaded());
  EXPECT_TRUE(run.main.preferences.RenameAskOption.Value());
  EXPECT_EQ(run.main.preferences.KeepDateCheckBox.Value(), 0);
}

TEST_F(PreferencesTest, TheDialogsFrameHidesItAsWellAndItCanBeOpenedAgain) {
  ProgramRun& run = Started();
  run.person.ExpectForm("PreferencesForm", [&run](Person& person, Form& form) {
    EXPECT_TRUE(form.IsModal());
    EXPECT_EQ(form.Owner(), &run.main.Window);
    person.Click(run.main.preferences.GifCheckbox);
    person.Close(form);
  });
  run.person.ChooseMenu(run.main.menu.PreferenceMenuItem);
  EXPECT_FALSE(run.main.preferences.Window.Visible());
  EXPECT_TRUE(run.main.preferences.Window.IsLoaded());
  EXPECT_EQ(run.main.core.PicturePattern, "*.jpg;*.jpeg;*.bmp");
  InTheDialog(run, {&run.main.preferences.GifCheckbox});
  EXPECT_EQ(run.main.core.PicturePattern, "*.jpg;*.jpeg;*.bmp;*.gif");
  run.Close();
  EXPECT_FALSE(run.main.preferences.Window.IsLoaded()) << "it goes with the program";
}

TEST_F(PreferencesTest, TheShortcutBoxShowsTheRegistrysState) {
  ProgramRun& run = Started();
  run.main.preferences.AddFolderShortcutCheckbox.SetValue(0);
  run.platform.registry.SetKeyValue(registry::ClassesRoot, FolderVerbKey, "", "");
  InTheDialog(run, {});
  EXPECT_EQ(run.main.preferences.AddFolderShortcutCheckbox.Value(), 1);
  run.platform.registry.DeleteKey(registry::ClassesRoot, FolderVerbKey);
  InTheDialog(run, {});
  EXPECT_EQ(run.main.preferences.AddFolderShortcutCheckbox.Value(), 0);
}

// --- the pattern -----------------------------------------------------------------------------------------------------

TEST_F(PreferencesTest, EachSetOfTypesHasItsPattern) {
  ProgramRun& run = Started();
  PreferencesForm& form = run.main.preferences;
  const auto patternOf = [&](int jpeg, int bitmap, int gif) {
    form.JpegCheckbox.SetValue(jpeg);
    form.BitmapCheckbox.SetValue(bitmap);
    form.GifCheckbox.SetValue(gif);
    ApplyPicturePattern(run.main);
    EXPECT_EQ(run.main.strip.SrcFileList.Pattern(), run.main.core.PicturePattern);
    EXPECT_EQ(run.main.desk.DestFileList.Pattern(), run.main.core.PicturePattern);
    EXPECT_EQ(run.main.desk.DestFolderFiles(9).Pattern(), run.main.core.PicturePattern);
    return run.main.core.PicturePattern;
  };
  EXPECT_EQ(patternOf(1, 1, 0), "*.jpg;*.jpeg;*.bmp");
  EXPECT_EQ(patternOf(1, 0, 1), "*.jpg;*.jpeg;*.gif");
  EXPECT_EQ(patternOf(1, 0, 0), "*.jpg;*.jpeg");
  EXPECT_EQ(patternOf(0, 1, 1), "*.bmp;*.gif");
  EXPECT_EQ(patternOf(0, 1, 0), "*.bmp");
  EXPECT_EQ(patternOf(0, 0, 1), "*.gif");
  EXPECT_EQ(patternOf(0, 0, 0), "");
  EXPECT_EQ(patternOf(1, 1, 1), "*.jpg;*.jpeg;*.bmp;*.gif");
}

TEST_F(PreferencesTest, WithNoTypeTickedTheStripListsEveryFile) {
  for (const char* name : {"a.jpg", "b.txt", "c"}) drive.Write(std::string("C:\\Strip\\") + name, "");
  WriteSavedState(StateLines("C:\\Strip", {}));
  ProgramRun& run = Started();
  EXPECT_EQ(run.main.strip.SrcFileList.ListCount(), 1);
  // From here on there is the cache file too, and does not come while the dialog is up.
  run.LoadAll();
  const auto files = std::distance(std::filesystem::directory_iterator(drive.HostPath("C:\\Strip")), {});
  EXPECT_GE(files, 3);
  PreferencesForm& form = run.main.preferences;
  InTheDialog(run, {&form.JpegCheckbox, &form.BitmapCheckbox, &form.GifCheckbox});
  EXPECT_EQ(run.main.core.PicturePattern, "");
  EXPECT_EQ(run.main.strip.SrcFileList.ListCount(), files);
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcSlotCount, files);
}

TEST_F(PreferencesTest, ADialogClosedWithNoChangeReloadsNoList) {
  drive.Write("C:\\One\\a.bmp", BmpPhoto(8, 8));
  WriteSavedState(StateLines("C:\\One", {"C:\\One"}));
  ProgramRun& run = Started();
  run.LoadAll();
  const MainForm& main = run.main;
  const auto generations = [&main] {
    return std::vector<unsigned>{main.strip.SrcFileList.Generation(), main.desk.DestFileList.Generation(),
                                 main.desk.DestFolderFiles(1).Generation(), main.desk.DestFolderFiles(9).Generation()};
  };
  const std::vector<unsigned> before = generations();
  InTheDialog(run, {});
  EXPECT_EQ(generations(), before);
}

TEST_F(PreferencesTest, FoldersAreCountedAndPreviewedAnew) {
  drive.Write("C:\\One\\a.bmp", BmpOf(PlainBitmap(16, 16, 0x0000FF)));
  drive.Write("C:\\One\\b.gif", GifPhoto(16, 16));
  drive.Write("C:\\Two\\a.gif", GifPhoto(16, 16));
  drive.Write("C:\\Program\\Trashcan\\x.gif", "");
  WriteSavedState(StateLines("", {"C:\\One", "C:\\Two"}));
  ProgramRun& run = Started();
  DesktopState& desk = run.main.desk;
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "2 pics");
  EXPECT_EQ(desk.DestPicsCount(2).Caption(), "1 pics");
  EXPECT_EQ(desk.DestPicsCount(9).Caption(), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(2).Visible());

  InTheDialog(run, {&run.main.preferences.GifCheckbox});
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "1 pics");
  EXPECT_EQ(desk.DestPicsCount(2).Caption(), " Empty");
  EXPECT_EQ(desk.DestPicsCount(9).Caption(), " Empty");
  EXPECT_FALSE(desk.DestFolderPreview(2).Visible());
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  // The last file of the list is the red one now.
  const Picture& picture = desk.DestFolderPreview(1).GetPicture();
  ASSERT_FALSE(picture.IsNothing());
  const std::uint8_t* middle = picture.Pixels().Row(30) + 40 * picture.Pixels().BytesPerPixel();
  EXPECT_LT(middle[0], 40);
  EXPECT_GT(middle[2], 215);

  InTheDialog(run, {&run.main.preferences.GifCheckbox});
  EXPECT_EQ(desk.DestPicsCount(2).Caption(), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(2).Visible());
}

TEST_F(PreferencesTest, FoldersBeyondAGapAreCountedAnewAndTheGapStaysEmpty) {
  for (const char* folder : {"One", "Two", "Three"}) {
    drive.Write("C:\\" + std::string(folder) + "\\a.bmp", BmpOf(PlainBitmap(80, 60, 0x00123456)));
    drive.Write("C:\\" + std::string(folder) + "\\b.gif", "");
  }
  WriteSavedState(StateLines("C:\\", {"C:\\One", "C:\\Two", "C:\\Three"}));
  ProgramRun& run = Started();
  DesktopState& desk = run.main.desk;
  run.Wait(0.3);
  run.person.Click(desk.DestFolderName(2));
  if (desk.OpenFolderIndex != 2) run.person.Click(desk.DestFolderName(2));
  run.person.ChooseMenu(run.main.menu.HideFolderMenuItem);
  ASSERT_FALSE(desk.DestFolder(2).Visible());
  ASSERT_EQ(desk.DestPicsCount(3).Caption(), "2 pics");
  InTheDialog(run, {&run.main.preferences.GifCheckbox});
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "1 pics");
  EXPECT_EQ(desk.DestPicsCount(3).Caption(), "1 pics");
  EXPECT_FALSE(desk.DestFolderPreview(2).Visible());
}

}  // namespace
}  // namespace pixorra
