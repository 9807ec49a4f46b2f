// What ships with the program is in its folder after the start.
#include <gmock/gmock.h>

#include "app/Seeding.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/support/headless/ProgramTest.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class SeedingTest : public ProgramTest {
 protected:
  std::vector<std::string> InProgramFolder() {
    constexpr int all = attribute::Hidden | attribute::System;
    return drive.DriveFiles().Names("C:\\Program", "", all);
  }
};

TEST_F(SeedingTest, FirstStartPutsPictureAndTextIntoTheProgramsFolder) {
  ProgramRun& run = Started();
  EXPECT_EQ(drive.Read("C:\\Program\\Clouds.jpg"), run.host.shipped.Bytes("Clouds.jpg"));
  EXPECT_EQ(drive.Read("C:\\Program\\Readme.txt"), run.host.shipped.Bytes("Readme.txt"));
  EXPECT_THAT(InProgramFolder(), UnorderedElementsAre("Clouds.jpg", "Readme.txt"));
  EXPECT_EQ(run.pictures.Load("C:\\Program\\Clouds.jpg").Width(), 16);
}

TEST_F(SeedingTest, WhatIsThereStaysAsItIs) {
  drive.Write("C:\\Program\\Clouds.jpg", "mine");
  drive.MakeLink("C:\\Program\\Readme.txt", "nowhere");
  ProgramRun& run = Started();
  EXPECT_TRUE(run.main.Window.Visible());
  EXPECT_EQ(drive.Read("C:\\Program\\Clouds.jpg"), "mine");
  EXPECT_FALSE(drive.Exists("C:\\Program\\nowhere"));
}

TEST_F(SeedingTest, FolderThatCannotBeWrittenDoesNotStopTheStart) {
  drive.MakeFolder("C:\\Program\\Trashcan");
  drive.MakeFolder("C:\\Windows");
  drive.MakeFolder("C:\\Temp");
  ProgramRun& run = NewRun();
  drive.SetMode("C:\\Program", 0500);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "root stays root here";
  run.Start();
  EXPECT_TRUE(run.main.Window.Visible());
  EXPECT_THAT(InProgramFolder(), IsEmpty());
}

TEST_F(SeedingTest, FullDiskLeavesNoPartOfAFileAndTheNextStartTriesAgain) {
  ProgramRun& run = NewRun();
  run.files.FillDiskAfter(10);
  SeedShippedFiles(run.files, run.places, run.host.shipped);
  EXPECT_THAT(InProgramFolder(), IsEmpty());
  run.files.Heal();
  SeedShippedFiles(run.files, run.places, run.host.shipped);
  EXPECT_THAT(InProgramFolder(), UnorderedElementsAre("Clouds.jpg", "Readme.txt"));
}

// Whatever call fails: a file under its own name is whole.
TEST_F(SeedingTest, EachFailureLeavesAWholeFileOrNone) {
  for (const FileCall call : {FileCall::OpenToWrite, FileCall::Write, FileCall::Flush, FileCall::Rename,
                              FileCall::FlushFolder, FileCall::Delete}) {
    for (int n = 1; n <= 2; ++n) {
      ProgramRun& run = NewRun();
      run.files.FailNth(call, n, error::DeviceIO);
      SeedShippedFiles(run.files, run.places, run.host.shipped);
      for (const std::string& name : InProgramFolder())
        EXPECT_EQ(drive.Read("C:\\Program\\" + name), run.host.shipped.Bytes(name)) << static_cast<int>(call) << name;
      EndRun();
      drive.Remove("C:\\Program");
    }
  }
}

// What an earlier start left when it was killed is no obstacle, and is gone then.
TEST_F(SeedingTest, PartOfAnEarlierStartIsWrittenAnew) {
  drive.Write("C:\\Program\\Clouds.jpg.part", std::string(1000, 'x'));
  ProgramRun& run = Started();
  EXPECT_EQ(drive.Read("C:\\Program\\Clouds.jpg"), run.host.shipped.Bytes("Clouds.jpg"));
  EXPECT_THAT(InProgramFolder(), UnorderedElementsAre("Clouds.jpg", "Readme.txt"));
}

}  // namespace
}  // namespace pixorra
