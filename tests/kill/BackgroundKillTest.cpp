// A program that dies while it changes the picture behind the Desktop: whatever the point, the file that keeps the
// picture is whole, the old one or the new one, and so after a power cut.
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "desktop/Background.h"
#include "tests/support/DiskRecorder.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"

namespace pixorra {
namespace {

constexpr const char* BackgroundKept = "C:\\Program\\Background.pic";
constexpr const char* NewBackground = "C:\\Home\\new.bmp";
constexpr Colour ChosenColour = 0x00A0B0C0;

class BackgroundKillTest : public ProgramTest {
 protected:
  using Change = std::function<void(MainForm&)>;

  void LayOut() {
    drive.Remove("C:\\");
    drive.MakeFolder("C:\\");
    drive.Write(BackgroundKept, old_);
    drive.Write(NewBackground, new_);
  }
  // False where the program ran to its end before that point. Files are set to die right before the change alone.
  bool Dies(const Change& change, const std::function<void(FaultyFiles&)>& arm) {
    const pid_t child = fork();
    if (child < 0) {
      ADD_FAILURE() << "no process: " << errno;
      return false;
    }
    if (child == 0) {
      ProgramRun& run = Started();
      arm(run.files);
      change(run.main);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFSIGNALED(status)) {
      EXPECT_EQ(WEXITSTATUS(status), 0);
      return false;
    }
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    return true;
  }
  void ExpectAWholeOne(const std::string& wanted) {
    ASSERT_TRUE(drive.Exists(BackgroundKept));
    const std::string kept = drive.Read(BackgroundKept);
    EXPECT_TRUE(kept == old_ || kept == wanted) << kept.size() << " bytes are neither the old nor the new one";
    EXPECT_NE(Started().main.desk.DesktopImage.GetPicture().ArtName(), "Clouds") << "it cannot be shown";
    EndRun();
  }
  // At each point; returns how many there were.
  int DieAtEachPoint(const Change& change, const std::string& wanted) {
    int deaths = 0;
    for (const bool inWrite : {false, true}) {
      for (int n = 1; !HasFatalFailure(); ++n) {
        LayOut();
        const bool died = Dies(change, [&](FaultyFiles& files) {
          if (inWrite) {
            files.DieInWrite(n);
          } else {
            files.DieBeforeChange(n);
          }
        });
        ExpectAWholeOne(wanted);
        if (!died) break;
        ++deaths;
      }
    }
    return deaths;
  }

  std::string old_ = BmpOf(PlainBitmap(60, 40, 0x00112233));
  std::string new_ = BmpOf(PlainBitmap(80, 60, 0x00998877));
};

TEST_F(BackgroundKillTest, KilledAtAnyPointOfTakingAPhotoABackgroundIsLeftWhole) {
  EXPECT_GT(DieAtEachPoint([](MainForm& main) { UsePhotoAsBackground(main, NewBackground); }, new_), 4);
}

TEST_F(BackgroundKillTest, KilledAtAnyPointOfTakingAColourABackgroundIsLeftWhole) {
  std::string wanted;
  {
    LayOut();
    UseColour(Started().main, ChosenColour);
    wanted = drive.Read(BackgroundKept);
    EndRun();
  }
  ASSERT_NE(wanted, old_);
  EXPECT_GT(DieAtEachPoint([](MainForm& main) { UseColour(main, ChosenColour); }, wanted), 4);
}

TEST_F(BackgroundKillTest, WhateverAPowerCutLeavesABackgroundIsWhole) {
  LayOut();
  ProgramRun& run = Started();
  DiskRecorder recorder(drive);
  run.files.PassOnTo(recorder);
  UsePhotoAsBackground(run.main, NewBackground);
  run.files.PassOnTo(drive.DriveFiles());
  int states = 0;
  bool isNew = false;
  recorder.ForEachState([&](const DiskState& disk, const std::string& words) {
    SCOPED_TRACE(words);
    const auto kept = disk.find(BackgroundKept);
    ASSERT_NE(kept, disk.end());
    EXPECT_TRUE(kept->second == old_ || kept->second == new_);
    isNew = isNew || kept->second == new_;
    ++states;
  });
  EXPECT_GT(states, 4);
  EXPECT_TRUE(isNew);
  EXPECT_EQ(drive.Read(BackgroundKept), new_);
}

}  // namespace
}  // namespace pixorra
