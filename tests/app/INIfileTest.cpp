// The saved state file against texts made by hand: written at the end of a run, read at the start of the next.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "app/INIfile.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* StateFile = "C:\\Windows\\Pixorra.sav";

// Everything other than a new installation's state.
const std::vector<std::string> OtherLines = {"12000,9600,450,600,0",
                                             "\"Anna, photos\"",
                                             "3",
                                             "1",
                                             "1",
                                             "1",
                                             "0",
                                             "1",
                                             "0",
                                             "1",
                                             "0",
                                             "1",
                                             "\"C:\\Camera\"",
                                             "\"C:\\Strip\"",
                                             "\"C:\\One\"",
                                             "\"C:\\Two\"",
                                             "\"\"",
                                             "\"\"",
                                             "\"\"",
                                             "\"\"",
                                             "\"\"",
                                             "\"\"",
                                             "2",
                                             "\"C:\\Strip\"",
                                             "\"C:\\One\""};

class INIfileTest : public ProgramTest {
 protected:
  INIfileTest() {
    for (const char* folder : {"C:\\Camera", "C:\\Strip", "C:\\One", "C:\\Two"}) drive.MakeFolder(folder);
  }
  // A run that starts from these lines.
  ProgramRun& StartedFrom(const std::vector<std::string>& lines) {
    WriteSavedState(lines);
    return Started();
  }
  static std::vector<std::string> With(std::vector<std::string> lines, std::size_t number, const std::string& line) {
    lines[number - 1] = line;
    return lines;
  }
  // What the run leaves behind, line by line.
  std::vector<std::string> LinesAfter(ProgramRun& run) {
    run.Close();
    std::vector<std::string> lines;
    const std::string bytes = drive.Read(StateFile);
    std::size_t at = 0;
    for (std::size_t end = bytes.find("\r\n"); end != std::string::npos; end = bytes.find("\r\n", at)) {
      lines.push_back(bytes.substr(at, end - at));
      at = end + 2;
    }
    EXPECT_EQ(at, bytes.size()) << "the last line is ended too";
    return lines;
  }
  static std::vector<std::string> PreviousEntries(const ProgramRun& run) {
    std::vector<std::string> entries;
    const ComboBox& list = run.main.strip.PreviousList;
    for (int i = 0; i < list.ListCount(); ++i) entries.push_back(list.List(i));
    return entries;
  }
};

// --- writing ---------------------------------------------------------------------------------------------------------

TEST_F(INIfileTest, ANewInstallationLeavesTheFactorySettingsByteForByte) {
  Started().Close();
  EXPECT_EQ(drive.Read(StateFile),
            "11730,9090,0,0,0\r\n"
            "\"Pixorra - Kestrelia Corp\"\r\n"
            "1\r\n2\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n0\r\n"
            "\"\"\r\n\"\"\r\n"
            "\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n"
            "0\r\n");
}

TEST_F(INIfileTest, EveryControlAndFieldComesToItsOwnLine) {
  ProgramRun& run = StartedFrom(With(StateLines("", {}), 1, OtherLines[0]));
  MainForm& main = run.main;
  main.core.CompanyNameLabel.SetCaption("Anna, photos");
  main.preferences.RenameAskOption.SetValue(true);
  main.preferences.DuplicatesAutoOption.SetValue(true);
  for (CheckBox* box : {&main.preferences.EmptyTrashcanCheckbox, &main.preferences.BitmapCheckbox,
                        &main.preferences.KeepDateCheckBox}) {
    box->SetValue(0);
  }
  main.preferences.AutoPreviewCheckBox.SetValue(1);
  main.strip.CameraLocation = "C:\\Camera";
  main.strip.SrcFileList.SetPath("C:\\Strip");
  main.strip.NoFilmStrip = false;
  Display_a_New_Folder(main, "C:\\One");
  Display_a_New_Folder(main, "C:\\Two");
  main.strip.PreviousList.AddItem("C:\\Strip");
  main.strip.PreviousList.AddItem("C:\\One");
  EXPECT_EQ(LinesAfter(run), OtherLines);
}

TEST_F(INIfileTest, EachOptionWritesItsNumber) {
  const auto linesWith = [this](const std::function<void(PreferencesForm&)>& choose) {
    ProgramRun& run = Started();
    choose(run.main.preferences);
    std::vector<std::string> lines = LinesAfter(run);
    drive.Remove(StateFile);
    return lines[2] + " " + lines[3];
  };
  EXPECT_EQ(linesWith([](PreferencesForm& form) { form.RenameAlwaysOption.SetValue(true); }), "1 2");
  EXPECT_EQ(linesWith([](PreferencesForm& form) { form.RenameExistsOption.SetValue(true); }), "2 2");
  EXPECT_EQ(linesWith([](PreferencesForm& form) { form.RenameAskOption.SetValue(true); }), "3 2");
  EXPECT_EQ(linesWith([](PreferencesForm& form) { form.DuplicatesAutoOption.SetValue(true); }), "1 1");
  EXPECT_EQ(linesWith([](PreferencesForm& form) { form.DuplicatesAllowOption.SetValue(true); }), "1 3");
}

TEST_F(INIfileTest, AnOptionGroupWithNoneSetIsWrittenWithItsFactoryNumberAndNoLineMovesUp) {
  ProgramRun& run = StartedFrom(OtherLines);
  PreferencesForm& preferences = run.main.preferences;
  for (const OptionGroup& group : {preferences.RenameOptions(), preferences.DuplicateOptions()}) {
    for (OptionButton* option : group.Options) option->SetValue(false);
  }
  EXPECT_EQ(LinesAfter(run), With(With(OtherLines, 3, "1"), 4, "2"));
}

TEST_F(INIfileTest, EachCheckBoxWritesItsOwnLine) {
  for (int number = 5; number <= 12; ++number) {
    std::vector<std::string> lines = StateLines("", {});
    std::string& line = lines[static_cast<std::size_t>(number) - 1];
    line = line == "1" ? "0" : "1";
    EXPECT_EQ(LinesAfter(StartedFrom(lines)), lines) << "line " << number;
  }
}

TEST_F(INIfileTest, AFolderWithADoubleQuoteInItsNameComesBack) {
  drive.MakeFolder("C:\\Home");
  ASSERT_EQ(mkdir((drive.HostPath("C:\\Home") + "/the \"best\" of").c_str(), 0777), 0);
  ProgramRun& run = Started();
  const std::vector<std::string> names = run.files.Names("C:\\Home", "*", attribute::Directory);
  ASSERT_EQ(names.size(), 1U);
  Display_a_New_Folder(run.main, "C:\\Home\\" + names[0]);
  run.Close();
  ProgramRun& next = Started();
  EXPECT_TRUE(next.main.desk.DestFolder(1).Visible());
  EXPECT_EQ(next.main.desk.DestFolderFiles(1).Path(), "C:\\Home\\" + names[0]);
}

TEST_F(INIfileTest, AFolderSlotWritesItsOwnLineAndAnEmptyOneAnEmptyText) {
  ProgramRun& run = StartedFrom(StateLines("", {"C:\\One", "C:\\Two", "C:\\Strip"}));
  Select_a_Folder(run.main, 2);
  Remove_Open_Folder(run.main);
  const std::vector<std::string> lines = LinesAfter(run);
  EXPECT_EQ(lines[14], "\"C:\\One\"");
  EXPECT_EQ(lines[15], "\"\"");
  EXPECT_EQ(lines[16], "\"C:\\Strip\"");
}

TEST_F(INIfileTest, TwentyPreviousEntriesFillLines24To43) {
  ProgramRun& run = Started();
  for (int i = 0; i < 20; ++i) run.main.strip.PreviousList.AddItem("C:\\F" + std::to_string(i));
  const std::vector<std::string> lines = LinesAfter(run);
  ASSERT_EQ(lines.size(), 43U);
  EXPECT_EQ(lines[22], "20");
  for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(lines[23 + i], "\"C:\\F" + std::to_string(i) + "\"");
}

TEST_F(INIfileTest, ALongerFileOfTheRunBeforeLeavesNothingBehind) {
  std::vector<std::string> lines = StateLines("", {});
  lines.back() = "20";
  for (int i = 0; i < 20; ++i) lines.push_back("\"C:\\Folder" + std::to_string(i) + "\"");
  ProgramRun& run = StartedFrom(lines);
  run.main.strip.PreviousList.Clear();
  EXPECT_EQ(LinesAfter(run), StateLines("", {}));
}

TEST_F(INIfileTest, TextsAreUtf8) {
  drive.MakeFolder("C:\\Fotos für Žofie");
  const std::vector<std::string> lines = With(StateLines("C:\\Fotos für Žofie", {}), 2, "\"Žofie & Jürgen 写真\"");
  ProgramRun& run = StartedFrom(lines);
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Žofie & Jürgen 写真");
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "Fotos für Žofie");
  EXPECT_EQ(LinesAfter(run), lines);
}

// --- reading ---------------------------------------------------------------------------------------------------------

TEST_F(INIfileTest, EveryLineReachesItsControlOrField) {
  ProgramRun& run = StartedFrom(OtherLines);
  const MainForm& main = run.main;
  EXPECT_EQ(main.Window.TwipsWidth(), 12000);
  EXPECT_EQ(main.Window.TwipsHeight(), 9600);
  EXPECT_EQ(main.Window.TwipsTop(), 450);
  EXPECT_EQ(main.Window.TwipsLeft(), 600);
  EXPECT_EQ(main.Window.WindowState(), windowstate::Normal);
  EXPECT_EQ(main.core.CompanyNameLabel.Caption(), "Anna, photos");
  EXPECT_TRUE(main.preferences.RenameAskOption.Value());
  EXPECT_FALSE(main.preferences.RenameAlwaysOption.Value());
  EXPECT_TRUE(main.preferences.DuplicatesAutoOption.Value());
  EXPECT_EQ(main.preferences.RememberFilmStripCheckbox.Value(), 1);
  EXPECT_EQ(main.preferences.RememberFoldersCheckbox.Value(), 1);
  EXPECT_EQ(main.preferences.EmptyTrashcanCheckbox.Value(), 0);
  EXPECT_EQ(main.preferences.JpegCheckbox.Value(), 1);
  EXPECT_EQ(main.preferences.BitmapCheckbox.Value(), 0);
  EXPECT_EQ(main.preferences.GifCheckbox.Value(), 1);
  EXPECT_EQ(main.preferences.KeepDateCheckBox.Value(), 0);
  EXPECT_EQ(main.preferences.AutoPreviewCheckBox.Value(), 1);
  EXPECT_EQ(main.strip.CameraLocation, "C:\\Camera");
  EXPECT_FALSE(main.strip.NoFilmStrip);
  EXPECT_EQ(main.strip.SrcFileList.Path(), "C:\\Strip");
  EXPECT_EQ(main.desk.FoldersShown, 2);
  EXPECT_EQ(main.desk.DestFolderFiles(1).Path(), "C:\\One");
  EXPECT_EQ(main.desk.DestFolderFiles(2).Path(), "C:\\Two");
  EXPECT_EQ(main.desk.OpenFolderIndex, 2);
  EXPECT_EQ(PreviousEntries(run), (std::vector<std::string>{"C:\\Strip", "C:\\One"}));
}

TEST_F(INIfileTest, WhatWasReadIsWrittenBackByteForByte) {
  EXPECT_EQ(LinesAfter(StartedFrom(OtherLines)), OtherLines);
}

TEST_F(INIfileTest, LinesWithoutQuotesOrWithBareLineFeedsAreReadAsWell) {
  std::string bytes;
  for (const std::string& line : StateLines("C:\\Strip", {"C:\\One"})) bytes += line + "\n";
  std::erase(bytes, '"');
  drive.Write(StateFile, bytes);
  ProgramRun& run = Started();
  EXPECT_EQ(run.main.core.CompanyNameLabel.Caption(), "Pixorra - Kestrelia Corp");
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Strip");
  EXPECT_EQ(run.main.desk.FoldersShown, 1);
}

TEST_F(INIfileTest, TheCamerasFolderAsFilmStripIsCalledCameraPhotos) {
  ProgramRun& run = StartedFrom(With(StateLines("C:\\Camera", {}), 13, "\"C:\\Camera\""));
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "Camera Photos");
  EXPECT_EQ(run.main.strip.SrcFolderPath.ToolTipText(), "C:\\Camera");
}

TEST_F(INIfileTest, FoldersCloseUpOverEmptyLines) {
  ProgramRun& run = StartedFrom(StateLines("", {"", "C:\\One", "", "", "C:\\Two"}));
  EXPECT_EQ(run.main.desk.DestFolderFiles(1).Path(), "C:\\One");
  EXPECT_EQ(run.main.desk.DestFolderFiles(2).Path(), "C:\\Two");
  EXPECT_FALSE(run.main.desk.DestFolder(3).Visible());
}

TEST_F(INIfileTest, TheLastRestoredFolderIsOpened) {
  ProgramRun& run = StartedFrom(StateLines("", {"C:\\One", "C:\\Two"}));
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 2);
  EXPECT_EQ(run.main.desk.DestFileList.Path(), "C:\\Two");
}

TEST_F(INIfileTest, WithNoFoldersNoneIsOpened) {
  EXPECT_EQ(StartedFrom(StateLines("C:\\Strip", {})).main.desk.OpenFolderIndex, 0);
}

TEST_F(INIfileTest, AFolderThatHasGoneIsToldAndTheOthersComeUp) {
  WriteSavedState(StateLines("", {"C:\\Gone", "C:\\One"}));
  ProgramRun& run = NewRun();
  run.person.ExpectBox("WARNING: Can't display the folder", "C:\\Gone");
  run.Start();
  EXPECT_EQ(run.main.desk.FoldersShown, 1);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 1);
}

TEST_F(INIfileTest, AFilmStripThatHasGoneLeavesNoneAndNoWord) {
  for (const char* gone : {"C:\\Gone", "Q:\\Photos", "\\\\server\\share\\photos", "Q:\\", "photos", "?:*", "C:"}) {
    ProgramRun& run = StartedFrom(StateLines(gone, {}));
    if (std::string(gone) == "C:") continue;  // a spelling of the root, if any
    EXPECT_TRUE(run.main.strip.NoFilmStrip) << gone;
    EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "Select a Film Strip") << gone;
    EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\") << gone;
    run.Close();
  }
}

TEST_F(INIfileTest, TheFolderThatTheListStandsInAnywayIsAFilmStripToo) {
  drive.Write("C:\\a.jpg", "");
  ProgramRun& run = StartedFrom(StateLines("C:\\", {}));
  EXPECT_FALSE(run.main.strip.NoFilmStrip);
  EXPECT_EQ(run.main.strip.SrcFolderPath.Caption(), "C:\\");
  EXPECT_EQ(run.main.strip.SrcPicsTotal.Caption(), "1 Total");
}

TEST_F(INIfileTest, WithoutRememberFilmStripTheStoredOneIsIgnoredAndLost) {
  const std::vector<std::string> lines = With(StateLines("C:\\Strip", {}), 5, "0");
  ProgramRun& run = StartedFrom(lines);
  EXPECT_TRUE(run.main.strip.NoFilmStrip);
  EXPECT_EQ(LinesAfter(run), With(lines, 14, "\"\""));
}

TEST_F(INIfileTest, WithoutRememberFilmStripOneChosenInThisRunIsStillWritten) {
  const std::vector<std::string> lines = With(StateLines("C:\\Strip", {}), 5, "0");
  ProgramRun& run = StartedFrom(lines);
  run.main.strip.SrcFileList.SetPath("C:\\Camera");
  run.main.strip.NoFilmStrip = false;
  EXPECT_EQ(LinesAfter(run), With(lines, 14, "\"C:\\Camera\""));
}

TEST_F(INIfileTest, WithoutRememberFoldersTheStoredOnesAreIgnored) {
  ProgramRun& run = StartedFrom(With(StateLines("", {"C:\\One", "C:\\Two"}), 6, "0"));
  EXPECT_EQ(run.main.desk.FoldersShown, 0);
  EXPECT_EQ(run.main.desk.OpenFolderIndex, 0);
}

TEST_F(INIfileTest, TenThousandPreviousEntriesComeBackInTheirOrder) {
  std::vector<std::string> lines = StateLines("", {});
  lines.back() = "10000";
  for (int i = 0; i < 10000; ++i) lines.push_back("\"C:\\Folder " + std::to_string(i) + "\"");
  ProgramRun& run = StartedFrom(lines);
  ASSERT_EQ(run.main.strip.PreviousList.ListCount(), 10000);
  EXPECT_EQ(run.main.strip.PreviousList.List(0), "C:\\Folder 0");
  EXPECT_EQ(run.main.strip.PreviousList.List(9999), "C:\\Folder 9999");
  EXPECT_EQ(LinesAfter(run), lines);
}

TEST_F(INIfileTest, ThePreviousListHoldsAsManyEntriesAsItsCountTells) {
  std::vector<std::string> lines = StateLines("", {});
  lines.insert(lines.end(), {"\"C:\\a\"", "\"C:\\b\"", "\"C:\\c\""});
  const auto entriesWithCount = [&](const std::string& count) {
    return PreviousEntries(StartedFrom(With(lines, 23, count)));
  };
  EXPECT_EQ(entriesWithCount("2"), (std::vector<std::string>{"C:\\a", "C:\\b"}));
  EXPECT_EQ(entriesWithCount("5"), (std::vector<std::string>{"C:\\a", "C:\\b", "C:\\c"}));
  for (const char* none : {"0", "-1", "32768", "4294967297", "many"}) {
    EXPECT_EQ(entriesWithCount(none), std::vector<std::string>()) << none;
  }
}

TEST_F(INIfileTest, EntriesThatAreReadTakeThePlaceOfThoseThatStoodThere) {
  ProgramRun& run = Started();
  run.main.strip.PreviousList.AddItem("C:\\old");
  WriteSavedState(StateLines("", {}));
  ReadSavedState(run.main);
  EXPECT_EQ(PreviousEntries(run), std::vector<std::string>{"C:\\old"}) << "no entries: the list stays";
  std::vector<std::string> lines = With(StateLines("", {}), 23, "1");
  lines.push_back("\"C:\\new\"");
  WriteSavedState(lines);
  ReadSavedState(run.main);
  EXPECT_EQ(PreviousEntries(run), std::vector<std::string>{"C:\\new"});
}

}  // namespace
}  // namespace pixorra
