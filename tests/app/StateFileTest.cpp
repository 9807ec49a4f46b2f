// How the file of the saved state is replaced: what a full disk, a folder that takes nothing new, a link, left-overs
// and other people's files beside it do to it.
#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "app/INIfile.h"
#include "app/Shutdown.h"
#include "platform/runtime/Errors.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

class StateFileTest : public ProgramTest {
 protected:
  static constexpr const char* Place = "C:\\Windows\\Pixorra.sav";
  static constexpr const char* Linked = "C:\\stick\\state";
  static std::string Beside(const std::string& place = Place) { return place + ".pixorra-new"; }
  static std::string Kept(const std::string& number = "", const std::string& place = Place) {
    return place + ".old" + number;
  }

  StateFileTest() {
    drive.MakeFolder("C:\\Strip");
    WriteSavedState(StateLines("C:\\Strip", {}));
    before_ = drive.Read(Place);
  }
  // A run with something to write that differs from the file before.
  ProgramRun& Changed(ProgramRun& run) {
    run.main.core.CompanyNameLabel.SetCaption("Changed");
    return run;
  }
  ProgramRun& ChangedRun() { return Changed(Started()); }
  // The same where the file could not be read at the start.
  ProgramRun& UnreadRun() {
    ProgramRun& run = NewRun();
    run.files.FailNth(FileCall::Read, 1, error::DeviceIO, Place);
    run.Start();
    EXPECT_TRUE(run.main.strip.NoFilmStrip) << "nothing was read";
    return Changed(run);
  }
  void LinkToStick() {
    drive.MakeFolder("C:\\stick");
    drive.Remove(Place);
    drive.MakeLink(Place, "../stick/state");
  }
  // The whole file of a run that was changed.
  bool IsNew(const std::string& path) const {
    const std::string bytes = drive.Read(path);
    return bytes.find("\"Changed\"") != std::string::npos && bytes.ends_with("\r\n0\r\n");
  }
  bool IsOld(const std::string& path) const { return drive.Exists(path) && drive.Read(path) == before_; }
  unsigned ModeOf(const std::string& path) const {
    struct stat entry {};
    EXPECT_EQ(stat(drive.HostPath(path).c_str(), &entry), 0) << path;
    return entry.st_mode & 0777U;
  }
  std::vector<std::string> NamesBeside(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().CompleteNames(folder, "*", attribute::Hidden);
    std::erase_if(names, [](const std::string& name) { return name.ends_with(".scr"); });
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string before_;
};

// --- failures --------------------------------------------------------------------------------------------------------

TEST_F(StateFileTest, ADiskThatFillsLeavesTheStateBeforeAndTheWindowClosesWithoutAWord) {
  ProgramRun& run = ChangedRun();
  run.files.FillDiskAfter(20);
  run.Close();
  EXPECT_FALSE(run.main.Window.IsLoaded());
  EXPECT_TRUE(IsOld(Place));
  EXPECT_FALSE(drive.Exists(Beside()));
}

TEST_F(StateFileTest, ADiskThatTakesNoNewFileLeavesTheStateBeforeAndIsTold) {
  ProgramRun& run = ChangedRun();
  run.files.FailAlways(FileCall::OpenToWrite, error::DiskFull, Beside());
  run.person.ExpectBox("Pixorra", "Error 61: Disk full");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
}

TEST_F(StateFileTest, InAFolderThatTakesNoNewFileTheFileItselfIsWritten) {
  ProgramRun& run = ChangedRun();
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, Beside());
  run.Close();
  EXPECT_TRUE(IsNew(Place));
}

TEST_F(StateFileTest, AStateThatCannotBePutInPlaceLeavesTheOneBefore) {
  for (const FileCall call : {FileCall::Flush, FileCall::Rename}) {
    ProgramRun& run = ChangedRun();
    run.files.FailNth(call, 1, error::DeviceIO);
    run.Close();
    EXPECT_TRUE(IsOld(Place));
    EXPECT_FALSE(drive.Exists(Beside()));
  }
}

// One that is mounted by itself has a name that no other file may take.
TEST_F(StateFileTest, AStateThatNoOtherFileMayReplaceIsItselfWritten) {
  ProgramRun& run = ChangedRun();
  run.files.FailAlways(FileCall::Rename, error::PermissionDenied, ".pixorra-new");
  run.Close();
  EXPECT_TRUE(IsNew(Place));
  EXPECT_EQ(NamesBeside("C:\\Windows"), std::vector<std::string>{"Pixorra.sav"});
}

// --- links -----------------------------------------------------------------------------------------------------------

TEST_F(StateFileTest, AStateThatIsALinkStaysOneAndWhatItLeadsToIsReplaced) {
  LinkToStick();
  drive.Write(Linked, before_);
  ProgramRun& run = ChangedRun();
  EXPECT_EQ(run.main.strip.SrcFileList.Path(), "C:\\Strip");
  run.Close();
  EXPECT_TRUE(run.files.IsLink(Place));
  EXPECT_TRUE(IsNew(Linked));
  EXPECT_FALSE(drive.Exists(Beside(Linked)));
  EXPECT_FALSE(drive.Exists(Beside()));
}

TEST_F(StateFileTest, ALinkThatLeadsNowhereIsToldAndStays) {
  LinkToStick();
  ProgramRun& run = Started();
  run.person.ExpectBox("Pixorra", "Error 76: Path not found");
  run.Close();
  EXPECT_TRUE(run.files.IsLink(Place));
}

// --- other people's files beside it ----------------------------------------------------------------------------------

TEST_F(StateFileTest, WhatAPersonHasBesideTheTargetOfALinkStays) {
  LinkToStick();
  drive.Write(Linked, before_);
  drive.Write("C:\\stick\\state.new", "mine");
  ChangedRun().Close();
  EXPECT_TRUE(IsNew(Linked));
  EXPECT_EQ(drive.Read("C:\\stick\\state.new"), "mine");
  EXPECT_EQ(NamesBeside("C:\\stick"), (std::vector<std::string>{"state", "state.new"}));
}

TEST_F(StateFileTest, AnEmptyFolderBesideTheTargetOfALinkStays) {
  LinkToStick();
  drive.Write(Linked, before_);
  for (const std::string& name : {std::string("C:\\stick\\state.new"), Beside(Linked)}) {
    drive.MakeFolder(name);
    ChangedRun().Close();
    EXPECT_TRUE(IsNew(Linked));
    EXPECT_TRUE(drive.Exists(name)) << name;
  }
}

TEST_F(StateFileTest, WhatIsNoFileOfTheProgramKeepsItsNameAndTheStateIsStillReplacedAsAWhole) {
  const auto folder = [this] { drive.MakeFolder(Beside()); };
  const auto fullFolder = [this] { drive.Write(Beside() + "\\a.txt", "kept"); };
  const auto link = [this] { drive.MakeLink(Beside(), "elsewhere"); };
  const auto otherCase = [this] { drive.Write("C:\\Windows\\PIXORRA.SAV.PIXORRA-NEW", "kept"); };
  for (const std::function<void()>& leave : {std::function<void()>(folder), {fullFolder}, {link}, {otherCase}}) {
    leave();
    const std::vector<std::string> names = NamesBeside("C:\\Windows");
    const std::vector<std::string> folders = drive.DriveFiles().Folders("C:\\Windows", attribute::Hidden);
    ProgramRun& full = ChangedRun();
    full.files.FillDiskAfter(20);
    full.Close();
    EXPECT_TRUE(IsOld(Place)) << "cut short in its place";
    ChangedRun().Close();
    EXPECT_TRUE(IsNew(Place));
    EXPECT_EQ(NamesBeside("C:\\Windows"), names);
    EXPECT_EQ(drive.DriveFiles().Folders("C:\\Windows", attribute::Hidden), folders);
    for (const std::string& name : {Beside(), std::string("C:\\Windows\\PIXORRA.SAV.PIXORRA-NEW")})
      if (drive.Exists(name)) drive.Remove(name);
    drive.Write(Place, before_);
  }
  EXPECT_FALSE(drive.Exists("C:\\Windows\\elsewhere"));
}

TEST_F(StateFileTest, WhatARunThatWasKilledHasLeftIsRemoved) {
  drive.Write(Beside(), "11730,90");
  ChangedRun().Close();
  EXPECT_TRUE(IsNew(Place));
  EXPECT_EQ(NamesBeside("C:\\Windows"), std::vector<std::string>{"Pixorra.sav"});
}

TEST_F(StateFileTest, WhereAllNamesBesideItAreTakenTheStateBeforeStaysAndItIsTold) {
  drive.MakeFolder(Beside());
  for (int i = 2; i <= 99; ++i) drive.MakeFolder(Beside() + std::to_string(i));
  ProgramRun& run = ChangedRun();
  run.person.ExpectBox("Pixorra", "Error 58: File already exists");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
}

// --- one that was not read is kept -----------------------------------------------------------------------------------

TEST_F(StateFileTest, AStateThatCouldNotBeReadIsKeptBesideTheNewOne) {
  for (const std::string number : {"", "2", "3"}) {
    drive.Write(Place, before_);
    UnreadRun().Close();
    EXPECT_TRUE(IsOld(Kept(number))) << number;
    EXPECT_TRUE(IsNew(Place));
  }
  Started().Close();
  EXPECT_FALSE(drive.Exists(Kept("4"))) << "one that was read is not kept";
}

TEST_F(StateFileTest, AStateThatCouldNotBeReadStaysInAFolderThatTakesNoNewFile) {
  ProgramRun& run = UnreadRun();
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, Beside());
  run.person.ExpectBox("Pixorra", "Error 75: The settings of this run are not saved.");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
}

TEST_F(StateFileTest, AStateThatWasAwayAtTheStartAndIsBackAtTheEndIsKept) {
  LinkToStick();
  ProgramRun& run = Changed(Started());
  EXPECT_TRUE(run.main.strip.NoFilmStrip) << "nothing was read";
  drive.Write(Linked, before_);
  run.Close();
  EXPECT_TRUE(IsNew(Linked));
  EXPECT_TRUE(IsOld(Kept("", Linked)));
}

TEST_F(StateFileTest, AStateThatAPersonPutsInPlaceInAFirstRunIsKept) {
  drive.Remove(Place);
  ProgramRun& run = ChangedRun();
  drive.Write(Place, before_);
  run.Close();
  EXPECT_TRUE(IsNew(Place));
  EXPECT_TRUE(IsOld(Kept()));
}

TEST_F(StateFileTest, AFirstRunThatWritesTwiceKeepsNothingOfItsOwn) {
  drive.Remove(Place);
  ProgramRun& run = Started();
  SaveForSession(run.main);
  EXPECT_TRUE(drive.Exists(Place));
  Changed(run).Close();
  EXPECT_TRUE(IsNew(Place));
  EXPECT_EQ(NamesBeside("C:\\Windows"), std::vector<std::string>{"Pixorra.sav"});
}

TEST_F(StateFileTest, TheNewStateAndTheOneThatIsKeptAreForWhomTheOldOneWasFor) {
  drive.SetMode(Place, 0600);
  UnreadRun().Close();
  EXPECT_TRUE(IsNew(Place));
  EXPECT_TRUE(IsOld(Kept()));
  EXPECT_EQ(ModeOf(Place), 0600U);
  EXPECT_EQ(ModeOf(Kept()), 0600U);
}

TEST_F(StateFileTest, AStateThatCannotBeKeptStaysAndThisIsTold) {
  ProgramRun& run = UnreadRun();
  run.files.FailAlways(FileCall::LinkOrCopy, error::DiskFull);
  run.person.ExpectBox("Pixorra",
                       "Error 61: The settings of this run are not saved. \"C:\\Windows\\Pixorra.sav\" could not be "
                       "read at the start, and cannot be kept under another name now: Disk full");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
  EXPECT_EQ(NamesBeside("C:\\Windows"), std::vector<std::string>{"Pixorra.sav"});
}

TEST_F(StateFileTest, AStateForWhichNoNameIsLeftStaysAndThisIsTold) {
  drive.Write(Kept(), "kept");
  for (int i = 2; i <= 99; ++i) drive.Write(Kept(std::to_string(i)), "kept");
  ProgramRun& run = UnreadRun();
  run.person.ExpectBox("Pixorra", "File already exists");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
  EXPECT_FALSE(drive.Exists(Beside()));
}

TEST_F(StateFileTest, AStateThatIsKeptAndCannotBeReplacedIsThereAllTheSame) {
  ProgramRun& run = UnreadRun();
  run.files.FailNth(FileCall::Rename, 1, error::DeviceIO, ".pixorra-new");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
  EXPECT_FALSE(drive.Exists(Beside()));
}

TEST_F(StateFileTest, OneThatIsKeptIsKeptOnceAndIsNotWrittenWhereItIs) {
  ProgramRun& run = UnreadRun();
  run.files.FailAlways(FileCall::Rename, error::PermissionDenied, ".pixorra-new");
  for (int i = 0; i < 3; ++i) SaveForSession(run.main);
  EXPECT_EQ(NamesBeside("C:\\Windows"), (std::vector<std::string>{"Pixorra.sav", "Pixorra.sav.old"}));
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, Beside());
  run.person.ExpectBox("Pixorra", "Error 75: The settings of this run are not saved.");
  run.Close();
  EXPECT_TRUE(IsOld(Place));
  EXPECT_TRUE(IsOld(Kept()));
}

TEST_F(StateFileTest, OneWhoseSecondNameIsNotYetOnTheDiskIsKeptOnce) {
  ProgramRun& run = UnreadRun();
  run.files.FailNth(FileCall::FlushFolder, 1, error::DeviceIO, "C:\\Windows");
  EXPECT_NE(ErrorsIgnored([&] { pixorra::WriteSavedState(run.main); }), error::None);
  run.Close();
  EXPECT_TRUE(IsNew(Place));
  EXPECT_TRUE(IsOld(Kept()));
  EXPECT_FALSE(drive.Exists(Kept("2")));
}

// --- each call fails once --------------------------------------------------------------------------------------------

TEST_F(StateFileTest, WhicheverCallFailsTheStateIsTheOldOneOrTheNewOneAndOneThatWasNotReadIsKept) {
  int failures = 0;
  const auto endWith = [&](FileCall call, int n, int number, bool unread) {
    EndRun();
    for (const std::string& name : NamesBeside("C:\\Windows")) drive.Remove("C:\\Windows\\" + name);
    drive.Write(Place, before_);
    ProgramRun& run = unread ? UnreadRun() : ChangedRun();
    // A box that says so is right, and not every failure has one.
    run.platform.failures.OnFailure = [](const std::string& text) {
      EXPECT_TRUE(text.starts_with("unexpected box \"Pixorra\"")) << text;
    };
    const int count = run.files.Count(call);
    run.files.FailNth(call, n, number, "C:\\Windows");
    run.Close();
    EXPECT_TRUE(IsOld(Place) || IsNew(Place)) << drive.Read(Place);
    EXPECT_TRUE(!unread || IsOld(Place) || IsOld(Kept()) || IsOld(Kept("2"))) << "the old one is lost";
    ++failures;
    return run.files.Count(call) - count >= n;
  };
  for (const FileCall call : {FileCall::NameTaken, FileCall::Attributes, FileCall::OpenToRead, FileCall::OpenToWrite,
                              FileCall::Read, FileCall::Write, FileCall::Flush, FileCall::Delete, FileCall::LinkOrCopy,
                              FileCall::Rename, FileCall::FlushFolder}) {
    for (const int number : {error::PathAccess, error::FileExists, error::DiskFull}) {
      for (const bool unread : {false, true}) {
        SCOPED_TRACE(testing::Message() << "call " << static_cast<int>(call) << ", error " << number
                                        << (unread ? ", not read" : ", read"));
        for (int n = 1; n < 20 && endWith(call, n, number, unread); ++n) continue;
      }
    }
  }
  EXPECT_GT(failures, 100);
}

}  // namespace
}  // namespace pixorra
