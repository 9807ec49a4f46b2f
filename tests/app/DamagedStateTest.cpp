// Saved state files that are cut short, full of noise, or out of range: what can be read is taken, the rest keeps its
// own value, and the program starts and ends as ever.
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* SavedStateFile = "C:\\Windows\\Pixorra.sav";

class DamagedStateTest : public ProgramTest {
 protected:
  DamagedStateTest() {
    // A path that is cut short names another folder, which stands there too.
    for (const char* folder :
         {"C:\\Pictures of us", "C:\\Pictures of", "C:\\Pictures", "C:\\Sorted\\Best", "C:\\Cam"}) {
      drive.MakeFolder(folder);
    }
  }
  std::string WholeFile() const {
    SavedState saved;
    saved.Window = "12000,9600,450,600,0";
    saved.ShopTitle = "Our photos";
    saved.Rename = 2;
    saved.Duplicates = 3;
    saved.EmptyTrashcan = false;
    saved.CameraLocation = "C:\\Cam";
    saved.FilmStrip = "C:\\Pictures of us";
    saved.Folders = {"C:\\Sorted\\Best"};
    std::vector<std::string> lines = saved.Lines();
    lines.back() = "2";
    lines.insert(lines.end(), {"\"C:\\Pictures of us\"", "\"C:\\Sorted\\Best\""});
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return bytes;
  }
  // A run from these bytes. Boxes about folders may come up; anything else that is told is a failure.
  ProgramRun& StartedFromBytes(const std::string& bytes) {
    drive.Write(SavedStateFile, bytes);
    ProgramRun& run = NewRun();
    run.platform.failures.OnFailure = [](const std::string& text) {
      const bool aboutFolder = text.starts_with("unexpected box \"WARNING: Can't display the folder\"") ||
                               text.starts_with("unexpected box \"Show a Folder - ");
      EXPECT_TRUE(aboutFolder) << text;
    };
    run.Start();
    return run;
  }
  static void ExpectFactorySettings(const MainForm& main) {
    EXPECT_EQ(main.Window.TwipsWidth(), 11730);
    EXPECT_EQ(main.Window.TwipsHeight(), 9090);
    EXPECT_EQ(main.Window.WindowState(), windowstate::Normal);
    EXPECT_EQ(main.core.CompanyNameLabel.Caption(), "Pixorra - Kestrelia Corp");
    EXPECT_TRUE(main.preferences.RenameAlwaysOption.Value());
    EXPECT_TRUE(main.preferences.DuplicatesAskOption.Value());
    for (const CheckBox* box :
         {&main.preferences.RememberFilmStripCheckbox, &main.preferences.RememberFoldersCheckbox,
          &main.preferences.EmptyTrashcanCheckbox, &main.preferences.JpegCheckbox, &main.preferences.BitmapCheckbox,
          &main.preferences.GifCheckbox, &main.preferences.KeepDateCheckBox}) {
      EXPECT_EQ(box->Value(), 1) << box->Name();
    }
    EXPECT_EQ(main.preferences.AutoPreviewCheckBox.Value(), 0);
    EXPECT_EQ(main.strip.CameraLocation, "");
    EXPECT_TRUE(main.strip.NoFilmStrip);
    EXPECT_EQ(main.desk.FoldersShown, 0);
    EXPECT_EQ(main.strip.PreviousList.ListCount(), 0);
  }
};

TEST_F(DamagedStateTest, AnEmptyFileLeavesTheFactorySettings) {
  ExpectFactorySettings(StartedFromBytes("").main);
}

TEST_F(DamagedStateTest, AFileThatCannotBeReadLeavesTheFactorySettings) {
  drive.Write(SavedStateFile, WholeFile());
  ProgramRun& denied = NewRun();
  denied.files.FailAlways(FileCall::OpenToRead, error::PathAccess, "Pixorra.sav");
  denied.Start();
  ExpectFactorySettings(denied.main);

  ProgramRun& broken = NewRun();
  broken.files.FailAlways(FileCall::Read, error::DeviceIO, "Pixorra.sav");
  broken.Start();
  ExpectFactorySettings(broken.main);
}

TEST_F(DamagedStateTest, AFolderInTheFilesPlaceLeavesTheFactorySettings) {
  drive.MakeFolder(SavedStateFile);
  ProgramRun& run = Started();
  ExpectFactorySettings(run.main);
  run.person.ExpectBox("Pixorra", "");
  run.Close();
  EXPECT_FALSE(run.main.Window.IsLoaded());
}

TEST_F(DamagedStateTest, CutAtEveryByteItKeepsWholeValuesAndNothingElse) {
  const std::string whole = WholeFile();
  const std::set<std::string> lists = {"", "C:\\Pictures of us|", "C:\\Pictures of us|C:\\Sorted\\Best|"};
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    SCOPED_TRACE("cut at " + std::to_string(cut));
    ProgramRun& run = StartedFromBytes(whole.substr(0, cut));
    const MainForm& main = run.main;
    const auto reached = [&](const std::string& text) { return cut >= whole.find(text) + text.size(); };
    EXPECT_EQ(main.core.CompanyNameLabel.Caption(),
              reached("\"Our photos\"") ? "Our photos" : "Pixorra - Kestrelia Corp");
    EXPECT_EQ(main.preferences.RenameExistsOption.Value(), reached("photos\"\r\n2"));
    EXPECT_EQ(main.preferences.DuplicatesAllowOption.Value(), reached("photos\"\r\n2\r\n3"));
    EXPECT_EQ(main.preferences.EmptyTrashcanCheckbox.Value(), reached("\r\n2\r\n3\r\n1\r\n1\r\n0") ? 0 : 1);
    EXPECT_EQ(main.strip.CameraLocation, reached("\"C:\\Cam\"") ? "C:\\Cam" : "");
    EXPECT_EQ(main.strip.NoFilmStrip, !reached("\"C:\\Pictures of us\""));
    EXPECT_EQ(main.strip.SrcFileList.Path(), main.strip.NoFilmStrip ? "C:\\" : "C:\\Pictures of us");
    EXPECT_EQ(main.desk.OpenFolderIndex, reached("\"C:\\Sorted\\Best\"") ? 1 : 0);
    std::string entries;
    for (int i = 0; i < main.strip.PreviousList.ListCount(); ++i) entries += main.strip.PreviousList.List(i) + "|";
    EXPECT_TRUE(lists.contains(entries)) << entries;
    EXPECT_GE(main.Window.TwipsWidth(), 782 * 15) << "the layout sees to it";
    EXPECT_GE(main.Window.TwipsHeight(), 606 * 15);
  }
}

TEST_F(DamagedStateTest, NoiseNeitherStopsTheStartNorTheEnd) {
  std::mt19937 random(15);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    std::string bytes(random() % 2000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    ProgramRun& run = StartedFromBytes(bytes);
    run.Wait(0.2);
    EXPECT_TRUE(run.main.Window.Visible());
    run.Close();
    EXPECT_FALSE(run.main.Window.IsLoaded());
  }
}

TEST_F(DamagedStateTest, AFewWrongBytesNeitherStopTheStartNorTheEnd) {
  std::mt19937 random(16);
  const std::string signs = "\"\r\n,-0123456789.E&H \\:x\xff";
  for (int round = 0; round < 150; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    std::string bytes = WholeFile();
    for (int i = 0; i < 4; ++i) bytes[random() % bytes.size()] = signs[random() % signs.size()];
    ProgramRun& run = StartedFromBytes(bytes);
    run.Wait(0.2);
    run.Close();
    EXPECT_FALSE(run.main.Window.IsLoaded()) << bytes;
  }
}

TEST_F(DamagedStateTest, NumbersOutsideTheirRangeLeaveTheirTargetsAsTheyWere) {
  std::vector<std::string> lines = StateLines("", {});
  for (std::size_t number = 3; number <= 12; ++number) lines[number - 1] = "70000";
  WriteSavedState(lines);
  ExpectFactorySettings(Started().main);
  for (std::size_t number = 3; number <= 12; ++number) lines[number - 1] = "-1";
  WriteSavedState(lines);
  ExpectFactorySettings(Started().main);
  for (std::size_t number = 3; number <= 12; ++number) lines[number - 1] = number < 5 ? "4" : "2";
  WriteSavedState(lines);
  ExpectFactorySettings(Started().main);
}

TEST_F(DamagedStateTest, ABadValueIsPassedOverAndTheNextOneIsTaken) {
  std::vector<std::string> lines = StateLines("", {});
  lines[0] = "wide,9600,,600,0";
  lines[4] = "yes";
  lines[5] = "0";
  WriteSavedState(lines);
  const MainForm& main = Started().main;
  EXPECT_EQ(main.Window.TwipsWidth(), 11730);
  EXPECT_EQ(main.Window.TwipsHeight(), 9600);
  EXPECT_EQ(main.Window.TwipsLeft(), 600);
  EXPECT_EQ(main.preferences.RememberFilmStripCheckbox.Value(), 1);
  EXPECT_EQ(main.preferences.RememberFoldersCheckbox.Value(), 0);
}

TEST_F(DamagedStateTest, AWindowStateThatIsNoneLeavesPlaceAndState) {
  for (const char* line : {"12000,9600,450,600,3", "12000,9600,450,600,-1"}) {
    std::vector<std::string> lines = StateLines("", {});
    lines[0] = line;
    WriteSavedState(lines);
    const MainForm& main = Started().main;
    EXPECT_EQ(main.Window.TwipsWidth(), 11730);
    EXPECT_EQ(main.Window.WindowState(), windowstate::Normal);
  }
}

TEST_F(DamagedStateTest, SizesBeyondAllReasonAreSurvived) {
  for (const char* line : {"0,0,0,0,0", "-5,-5,-2147483648,-2147483648,0", "1,1,2147483647,2147483647,0",
                           "2147483647,2147483647,0,0,0", "99999999999,99999999999,0,0,0"}) {
    SCOPED_TRACE(line);
    std::vector<std::string> lines = StateLines("", {"C:\\Sorted\\Best"});
    lines[0] = line;
    WriteSavedState(lines);
    ProgramRun& run = Started();
    EXPECT_GE(run.main.Window.TwipsWidth(), 11730);
    EXPECT_GE(run.main.Window.TwipsHeight(), 9090);
    run.Wait(0.2);
    run.Close();
    EXPECT_FALSE(run.main.Window.IsLoaded());
  }
}

TEST_F(DamagedStateTest, TenThousandPreviousEntriesAreReadAndWrittenBack) {
  std::vector<std::string> lines = StateLines("", {});
  lines.back() = "10000";
  for (int i = 1; i <= 10000; ++i) lines.push_back("\"C:\\Card\\" + std::to_string(i) + "\"");
  WriteSavedState(lines);
  ProgramRun& run = Started();
  const ComboBox& previous = run.main.strip.PreviousList;
  ASSERT_EQ(previous.ListCount(), 10000);
  EXPECT_EQ(previous.List(0), "C:\\Card\\1");
  EXPECT_EQ(previous.List(9999), "C:\\Card\\10000");
  run.Close();
  const std::string written = drive.Read(SavedStateFile);
  EXPECT_TRUE(written.find("\r\n10000\r\n\"C:\\Card\\1\"\r\n") != std::string::npos);
  EXPECT_TRUE(written.ends_with("\"C:\\Card\\9999\"\r\n\"C:\\Card\\10000\"\r\n"));
}

TEST_F(DamagedStateTest, ACountOfPreviousEntriesThatTheFileDoesNotHaveEndsWithTheFile) {
  for (const char* count : {"3", "32767"}) {
    std::vector<std::string> lines = StateLines("", {});
    lines.back() = count;
    lines.emplace_back("\"C:\\Card\"");
    WriteSavedState(lines);
    const ComboBox& previous = Started().main.strip.PreviousList;
    ASSERT_EQ(previous.ListCount(), 1) << count;
    EXPECT_EQ(previous.List(0), "C:\\Card");
  }
}

}  // namespace
}  // namespace pixorra
