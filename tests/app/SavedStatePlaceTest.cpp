// Where the saved state is written, and what happens to what is in its place and beside it.
#include <gtest/gtest.h>

#include "app/INIfile.h"
#include "platform/runtime/Errors.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"

namespace pixorra {
namespace {

class SavedStatePlaceTest : public ProgramTest {
 protected:
  static constexpr const char* State = "C:\\Windows\\Pixorra.sav";
  static constexpr const char* Beside = "C:\\Windows\\Pixorra.sav.pixorra-new";
  static constexpr const char* Kept = "C:\\Windows\\Pixorra.sav.old";

  ProgramRun& StartedFrom(const std::string& company) {
    std::vector<std::string> lines = StateLines("C:\\Strip", {});
    lines[1] = '"' + company + '"';
    WriteSavedState(lines);
    return Started();
  }
  // One whose saved state is there and could not be read.
  ProgramRun& StartedUnread() {
    WriteSavedState(StateLines("C:\\Strip", {}));
    ProgramRun& run = NewRun();
    run.files.FailNth(FileCall::Read, 1, error::DeviceIO);
    run.Start();
    return run;
  }
  static void Change(ProgramRun& run) { run.main.core.CompanyNameLabel.SetCaption("Changed"); }
  bool IsChanged(const std::string& file) { return drive.Read(file).find("\"Changed\"") != std::string::npos; }
};

TEST_F(SavedStatePlaceTest, WhatCannotBeRemovedBesideItIsNeverWrittenThrough) {
  ProgramRun& run = StartedFrom("Before");
  drive.Write("C:\\Elsewhere.txt", "somebody's");
  drive.MakeLink(Beside, "../Elsewhere.txt");
  run.files.FailAlways(FileCall::Delete, error::PathAccess, "Pixorra.sav.pixorra-new");
  Change(run);
  run.Close();
  EXPECT_EQ(drive.Read("C:\\Elsewhere.txt"), "somebody's");
  EXPECT_TRUE(run.files.IsLink(Beside));
  EXPECT_FALSE(run.files.IsLink(State));
  EXPECT_TRUE(IsChanged(State));
}

TEST_F(SavedStatePlaceTest, AFileBesideItThatCannotBeRemovedStaysAsItIs) {
  ProgramRun& run = StartedFrom("Before");
  drive.Write(Beside, "somebody's");
  run.files.FailAlways(FileCall::Delete, error::PathAccess, "Pixorra.sav.pixorra-new");
  Change(run);
  run.Close();
  EXPECT_EQ(drive.Read(Beside), "somebody's");
  EXPECT_TRUE(IsChanged(State));
}

TEST_F(SavedStatePlaceTest, WhereAnotherProgramHoldsTheNewFileTheStateItselfIsWritten) {
  ProgramRun& run = StartedFrom("Before");
  run.files.FailAlways(FileCall::OpenToWrite, error::PermissionDenied, "Pixorra.sav.pixorra-new");
  Change(run);
  run.Close();
  EXPECT_TRUE(IsChanged(State));
}

TEST_F(SavedStatePlaceTest, OneThatCouldNotBeReadAndHasGoneSinceIsWrittenAnew) {
  ProgramRun& run = StartedUnread();
  drive.Remove(State);
  Change(run);
  run.Close();
  EXPECT_TRUE(IsChanged(State));
  EXPECT_FALSE(drive.Exists(Kept));
}

TEST_F(SavedStatePlaceTest, OneThatCouldNotBeReadIsKeptOnceHoweverOftenItIsWritten) {
  ProgramRun& run = StartedUnread();
  const std::string before = drive.Read(State);
  for (int i = 0; i < 3; ++i) {
    Change(run);
    pixorra::WriteSavedState(run.main);
  }
  EXPECT_EQ(drive.Read(Kept), before);
  EXPECT_FALSE(drive.Exists(std::string(Kept) + "2"));
  EXPECT_TRUE(IsChanged(State));
}

TEST_F(SavedStatePlaceTest, TheFolderThatALinkLeadsToIsFlushed) {
  StartedFrom("Before").Close();
  drive.Write("C:\\dotfiles\\state", drive.Read(State));
  drive.Remove(State);
  drive.MakeLink(State, "../dotfiles/state");
  ProgramRun& run = Started();
  int flushed = 0;
  run.files.BeforeNth(
      FileCall::FlushFolder, 1, [&] { ++flushed; }, "dotfiles");
  run.Close();
  EXPECT_EQ(flushed, 1);
}

}  // namespace
}  // namespace pixorra
