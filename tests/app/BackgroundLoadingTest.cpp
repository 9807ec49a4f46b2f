// Loading by turns: one thumbnail a tick, the strip and the open folder one after the other.
#include <gtest/gtest.h>

#include "app/BackgroundLoading.h"
#include "filmstrip/Listing.h"
#include "tests/filmstrip/StripTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

class BackgroundLoadingTest : public StripTest {
 protected:
  void WriteOpenFolder(int count) {
    for (int i = 1; i <= count; ++i) drive.Write("C:\\One\\" + NumberedName(i), "");
  }
};

TEST_F(BackgroundLoadingTest, TheStripGetsASlotAtEverySecondTick) {
  WriteEmpty(4);
  ProgramRun& run = StartedOnStrip();
  std::vector<int> counts;
  for (int tick = 1; tick <= 9; ++tick) {
    run.Wait(ThumbsTick);
    counts.push_back(run.main.strip.SrcSlotCount);
  }
  EXPECT_EQ(counts, (std::vector<int>{1, 1, 2, 2, 3, 3, 4, 4, 4}));
}

TEST_F(BackgroundLoadingTest, StripAndOpenFolderTakeTurns) {
  WriteEmpty(3);
  WriteOpenFolder(3);
  ProgramRun& run = StartedOnStrip({"C:\\One"});
  std::vector<std::string> steps;
  for (int tick = 1; tick <= 6; ++tick) {
    run.Wait(ThumbsTick);
    steps.push_back(std::to_string(run.main.strip.SrcSlotCount) + std::to_string(run.main.desk.DestSlotCount) +
                    run.main.strip.ThumbsTimer.Tag());
  }
  EXPECT_EQ(steps, (std::vector<std::string>{"10*", "11", "21*", "22", "32*", "33"}));
}

TEST_F(BackgroundLoadingTest, TheOpenFoldersTurnIsNotGivenToTheStrip) {
  WriteEmpty(2);
  WriteOpenFolder(5);
  ProgramRun& run = StartedOnStrip({"C:\\One"});
  run.Wait(10 * ThumbsTick);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 2);
  EXPECT_EQ(run.main.desk.DestSlotCount, 5);
}

TEST_F(BackgroundLoadingTest, PhotosComeInTheListsOrder) {
  for (const char* name : {"c.bmp", "a.bmp", "B.bmp"}) drive.Write(PathOf(name), "");
  EXPECT_EQ(SlotNames(LoadedStrip()), (std::vector<std::string>{"a.bmp", "B.bmp", "c.bmp"}));
}

TEST_F(BackgroundLoadingTest, AFolderChangedInMidLoadIsClearedAtTheStripsNextTurn) {
  WriteEmpty(10);
  drive.Write("C:\\Next\\x.bmp", "");
  drive.Write("C:\\Next\\y.bmp", "");
  ProgramRun& run = StartedOnStrip();
  run.Wait(5 * ThumbsTick);
  ASSERT_EQ(run.main.strip.SrcSlotCount, 3);
  run.main.strip.SrcFileList.SetPath("C:\\Next");
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3);
  run.Wait(ThumbsTick);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3) << "the open folder's turn";
  run.Wait(ThumbsTick);
  EXPECT_EQ(SlotNames(run), std::vector<std::string>{"x.bmp"});
  EXPECT_EQ(run.main.strip.SrcLoadedPath, "C:\\Next");
  EXPECT_EQ(run.main.strip.SrcThumbnail.UBound(), 1);
  run.LoadAll();
  EXPECT_EQ(SlotNames(run), (std::vector<std::string>{"x.bmp", "y.bmp"}));
}

TEST_F(BackgroundLoadingTest, AnEmptiedLoadedPathReloadsTheSameFolder) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  run.main.strip.SrcLoadedPath.clear();
  run.Wait(2 * ThumbsTick);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 1);
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3);
}

TEST_F(BackgroundLoadingTest, WithNoFilmStripNothingLoadsButAChangedPathClearsTheSlots) {
  WriteEmpty(3);
  drive.Write("C:\\Next\\x.bmp", "");
  ProgramRun& run = LoadedStrip();
  run.main.strip.NoFilmStrip = true;
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3);
  run.main.strip.SrcFileList.SetPath("C:\\Next");
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
  EXPECT_EQ(run.main.strip.SrcLoadedPath, "C:\\Next");
}

TEST_F(BackgroundLoadingTest, AnEmptyFolderAddsNoSlot) {
  ProgramRun& run = StartedOnStrip();
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
  EXPECT_EQ(run.main.strip.SrcLoadedPath, "C:\\Strip");
  EXPECT_TRUE(run.main.strip.ThumbsTimer.Enabled());
  EXPECT_EQ(run.main.strip.ThumbsTimerGuard, 0);
}

TEST_F(BackgroundLoadingTest, AFileAddedAheadInTheListTakesTheNextSlotAtTheEnd) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  drive.Write(PathOf("00000.bmp"), "");
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3) << "nobody has read the folder again";
  run.main.strip.SrcFileList.Refresh();
  run.Wait(2 * ThumbsTick);
  EXPECT_EQ(SlotNames(run), (std::vector<std::string>{"00001.bmp", "00002.bmp", "00003.bmp", "00000.bmp"}));
}

TEST_F(BackgroundLoadingTest, AFileAddedAheadInMidLoadComesNext) {
  for (const char* name : {"b.bmp", "c.bmp", "d.bmp"}) drive.Write(PathOf(name), "");
  ProgramRun& run = StartedOnStrip();
  run.Wait(3 * ThumbsTick);
  drive.Write(PathOf("a.bmp"), "");
  run.main.strip.SrcFileList.Refresh();
  run.LoadAll();
  EXPECT_EQ(SlotNames(run), (std::vector<std::string>{"b.bmp", "c.bmp", "a.bmp", "d.bmp"}));
}

TEST_F(BackgroundLoadingTest, AFileRemovedInMidLoadStopsTheLoadByTheCounts) {
  WriteEmpty(4);
  ProgramRun& run = StartedOnStrip();
  run.Wait(5 * ThumbsTick);
  ASSERT_EQ(run.main.strip.SrcSlotCount, 3);
  drive.Remove(PathOf(NumberedName(1)));
  run.main.strip.SrcFileList.Refresh();
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 3) << "as many slots as files, and one photo is still missing";
  EXPECT_EQ(NextSrcPhoto(run.main.strip), PathOf(NumberedName(4)));
}

TEST_F(BackgroundLoadingTest, TheNextPhotoOfAnEmptyListIsNone) {
  EXPECT_EQ(NextSrcPhoto(StartedOnStrip().main.strip), "");
}

TEST_F(BackgroundLoadingTest, AFolderPathThatEndsInABackslashGetsNoSecondOne) {
  drive.Write("C:\\a.bmp", "");
  ProgramRun& run = Started();
  run.main.strip.NoFilmStrip = false;
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcThumbnail(1).Tag(), "C:\\a.bmp");
}

TEST_F(BackgroundLoadingTest, PausedLoadingWaitsAndGoesOn) {
  WriteEmpty(4);
  WriteOpenFolder(4);
  ProgramRun& run = StartedOnStrip({"C:\\One"});
  run.main.core.SystemResourceStatusTimer.SetEnabled(false);  // it would look for itself
  run.Wait(2 * ThumbsTick);
  for (const char* paused : {"True", "true"}) {
    run.main.strip.ThumbsPaused = paused;
    run.Wait(1);
    EXPECT_EQ(run.main.strip.SrcSlotCount, 1);
    EXPECT_EQ(run.main.desk.DestSlotCount, 1);
  }
  run.main.strip.ThumbsPaused = "False";
  run.Wait(2 * ThumbsTick);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 2);
  EXPECT_EQ(run.main.desk.DestSlotCount, 2);
}

TEST_F(BackgroundLoadingTest, ThePausedStripStillClearsForANewFolder) {
  WriteEmpty(2);
  drive.Write("C:\\Next\\x.bmp", "");
  ProgramRun& run = LoadedStrip();
  run.main.core.SystemResourceStatusTimer.SetEnabled(false);  // it would look for itself
  run.main.strip.ThumbsPaused = "True";
  run.main.strip.SrcFileList.SetPath("C:\\Next");
  run.Wait(1);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
}

TEST_F(BackgroundLoadingTest, TheThousandthPhotoCostsTheDiskNoMoreThanTheTenth) {
  WriteEmpty(1000);
  ProgramRun& run = StartedOnStrip();
  run.main.Window.Hide();
  const auto callsOfOneSlot = [&run] {
    const auto calls = [&run] {
      int sum = 0;
      for (const FileCall call :
           {FileCall::Names, FileCall::Attributes, FileCall::NameTaken, FileCall::Length, FileCall::OpenToRead,
            FileCall::OpenToWrite, FileCall::Read, FileCall::Write, FileCall::LastWriteTime, FileCall::FolderPath}) {
        sum += run.files.Count(call);
      }
      return sum;
    };
    const int slots = run.main.strip.SrcSlotCount;
    const int before = calls();
    run.Wait(2 * ThumbsTick);
    EXPECT_EQ(run.main.strip.SrcSlotCount, slots + 1);
    return calls() - before;
  };
  const int listings = run.files.Count(FileCall::Names);
  run.Wait(2 * ThumbsTick * 9);
  const int tenth = callsOfOneSlot();
  run.Wait(2 * ThumbsTick * 989);
  const int thousandth = callsOfOneSlot();
  EXPECT_EQ(thousandth, tenth);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 1000);
  EXPECT_EQ(run.files.Count(FileCall::Names), listings) << "the folder is not read again";
}

TEST_F(BackgroundLoadingTest, ATickInsideATickDoesNothing) {
  WriteEmpty(4);
  ProgramRun& run = StartedOnStrip();
  run.main.strip.ThumbsTimerGuard = 12345;
  run.main.core.LayoutCountdown = 3;
  ThumbsTimer_Timer(run.main);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0);
  EXPECT_EQ(run.main.strip.ThumbsTimer.Tag(), "");
  EXPECT_EQ(run.main.core.LayoutCountdown, 3);
  EXPECT_TRUE(run.main.strip.ThumbsTimer.Enabled());
  EXPECT_EQ(run.main.strip.ThumbsTimerGuard, 12345);
}

TEST_F(BackgroundLoadingTest, WhileAPhotosBoxIsUpNoOtherSlotIsLoaded) {
  // A box comes up in the middle of the tick, and events run meanwhile.
  drive.Write(PathOf("a.jpg"), JpegPhoto(64, 64).substr(0, 300));
  drive.Write(PathOf("b.bmp"), "");
  ProgramRun& run = StartedOnStrip();
  const FilmStripState& strip = run.main.strip;
  run.person.ExpectBox("", "", BoxAnswer::Ok, [&] {
    EXPECT_FALSE(strip.ThumbsTimer.Enabled());
    EXPECT_EQ(strip.ThumbsTimerGuard, 12345);
    EXPECT_TRUE(strip.SrcBackground(1).Visible()) << "the film is there, and the photo comes";
    EXPECT_FALSE(strip.SrcThumbnail(1).Visible());
    run.Wait(1);
    EXPECT_EQ(strip.SrcSlotCount, 0);
    ThumbsTimer_Timer(run.main);
    EXPECT_EQ(strip.SrcSlotCount, 0);
    EXPECT_TRUE(strip.ThumbsTimer.Enabled()) << "a tick inside a tick enables the timer and goes";
    run.Wait(1);
    EXPECT_EQ(strip.SrcSlotCount, 0);
  });
  run.Wait(ThumbsTick);
  EXPECT_EQ(strip.SrcSlotCount, 1);
  EXPECT_TRUE(strip.SrcThumbnail(1).Visible());
  EXPECT_EQ(strip.ThumbsTimerGuard, 0);
  EXPECT_TRUE(strip.ThumbsTimer.Enabled());
  run.LoadAll();
  EXPECT_EQ(SlotNames(run), (std::vector<std::string>{"a.jpg", "b.bmp"}));
}

TEST_F(BackgroundLoadingTest, TheCountdownReachesTheLayoutOnce) {
  ProgramRun& run = Started();
  run.main.core.LayoutCountdown = 3;
  run.main.core.LastWidth = 0;
  run.main.strip.CameraButton.SetLeft(5);
  run.Wait(2 * ThumbsTick);
  EXPECT_EQ(run.main.core.LayoutCountdown, 1);
  EXPECT_EQ(run.main.strip.CameraButton.Left(), 5);
  run.Wait(ThumbsTick);
  EXPECT_EQ(run.main.core.LayoutCountdown, 0);
  EXPECT_NE(run.main.strip.CameraButton.Left(), 5);
  run.Wait(1);
  EXPECT_EQ(run.main.core.LayoutCountdown, 0);
}

}  // namespace
}  // namespace pixorra
