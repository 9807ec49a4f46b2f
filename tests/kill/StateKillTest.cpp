// The end of a run, killed right before each change that it makes on the disk and half-way through each write, or cut
// off from its power: the saved state is the old one or the new one, whole, and an old one that was not read is kept.
#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/DiskRecorder.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

enum class DeathPoint { BeforeChange, InWrite };

// Whether the run could read the state at its start.
class StateKillTest : public ProgramTest, public ::testing::WithParamInterface<bool> {
 protected:
  static constexpr const char* Place = "C:\\Windows\\Pixorra.sav";
  static constexpr const char* KeptPlace = "C:\\Windows\\Pixorra.sav.old";

  StateKillTest() {
    LayOut();
    before_ = drive.Read(Place);
    Begun().Close();
    after_ = drive.Read(Place);
    EXPECT_NE(before_, after_);
    LayOut();
  }
  ~StateKillTest() override { EndRun(); }

  void LayOut() {
    EndRun();
    drive.Remove("C:\\");
    drive.MakeFolder("C:\\Strip");
    WriteSavedState(StateLines("C:\\Strip", {}));
  }
  // A run that has something to write.
  ProgramRun& Begun() {
    ProgramRun& run = NewRun();
    if (!GetParam()) run.files.FailNth(FileCall::Read, 1, error::DeviceIO, Place);
    run.Start();
    run.main.core.CompanyNameLabel.SetCaption("Changed");
    return run;
  }
  [[noreturn]] void EndAndExit(DeathPoint point, int n) {
    ProgramRun& run = Begun();
    if (point == DeathPoint::BeforeChange) {
      run.files.DieBeforeChange(n);
    } else {
      run.files.DieInWrite(n);
    }
    run.Close();
    _exit(0);
  }
  // False when the run came to its end before that point.
  bool Dies(DeathPoint point, int n) {
    const pid_t child = fork();
    if (child < 0) {
      ADD_FAILURE() << "no process: " << errno;
      return false;
    }
    if (child == 0) EndAndExit(point, n);
    int status = 0;
    waitpid(child, &status, 0);
    const bool died = WIFSIGNALED(status);
    EXPECT_TRUE(died ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0) << status;
    return died;
  }

  void ExpectOldOrNew(const DiskState& disk) const {
    const auto state = disk.find(Place);
    ASSERT_NE(state, disk.end()) << "there is no state";
    EXPECT_TRUE(state->second == before_ || state->second == after_) << state->second;
    if (GetParam() || state->second == before_) return;
    const auto kept = disk.find(KeptPlace);
    EXPECT_TRUE(kept != disk.end() && kept->second == before_) << "the old state is lost";
  }
  DiskState Disk() const {
    DiskState disk;
    for (const char* path : {Place, KeptPlace})
      if (drive.Exists(path)) disk[path] = drive.Read(path);
    return disk;
  }
  // The next run reads it, and removes what the death has left.
  void ExpectAWholeRun() {
    const bool isOld = drive.Read(Place) == before_;
    ProgramRun& run = Started();
    EXPECT_EQ(run.main.core.CompanyNameLabel.Caption() == "Changed", !isOld);
    run.Close();
    for (const std::string& name : drive.DriveFiles().CompleteNames("C:\\Windows", "*", attribute::Hidden))
      EXPECT_EQ(name.find("pixorra-new"), std::string::npos) << name;
  }
  void DieAtEachPoint(DeathPoint point) {
    int deaths = 0;
    for (int n = 1; !HasFailure(); ++n) {
      SCOPED_TRACE("killed at " + std::to_string(n));
      LayOut();
      const bool died = Dies(point, n);
      ExpectOldOrNew(Disk());
      if (!died) break;
      ++deaths;
      if (!HasFailure()) ExpectAWholeRun();
    }
    EXPECT_GT(deaths, 0);
    RecordProperty("deaths", deaths);
  }

  std::string before_;
  std::string after_;
};

TEST_P(StateKillTest, KilledBeforeAnyChangeOfTheDiskTheStateIsTheOldOneOrTheNewOne) {
  DieAtEachPoint(DeathPoint::BeforeChange);
}

TEST_P(StateKillTest, KilledHalfWayThroughAnyWriteTheStateIsTheOldOneOrTheNewOne) {
  DieAtEachPoint(DeathPoint::InWrite);
}

TEST_P(StateKillTest, WhenThePowerGoesTheStateIsTheOldOneOrTheNewOne) {
  ProgramRun& run = Begun();
  DiskRecorder recorder(drive);
  run.files.PassOnTo(recorder);
  run.Close();
  int states = 0;
  recorder.ForEachState([&](const DiskState& disk, const std::string& words) {
    SCOPED_TRACE(words);
    ExpectOldOrNew(disk);
    ++states;
  });
  EXPECT_GT(states, recorder.Changes());
  run.files.PassOnTo(drive.DriveFiles());
}

INSTANTIATE_TEST_SUITE_P(Where, StateKillTest, ::testing::Bool(),
                         [](const auto& read) { return read.param ? "ItWasRead" : "ItWasNotRead"; });

}  // namespace
}  // namespace pixorra
