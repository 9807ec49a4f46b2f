// The timers' idle ticks are left out: nobody may be able to tell. Each session is run twice, once with every tick, and
// both must look the same at every moment.
#include <array>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <sstream>

#include "app/BackgroundLoading.h"
#include "app/GivenPath.h"
#include "desktop/OpenFolder.h"
#include "filmstrip/Scrolling.h"
#include "platform/controls/Container.h"
#include "platform/controls/Timer.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/Dialogs.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr int SessionPhotos = 23;

std::string SessionPhoto(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number) + ".bmp";
}

// One program on a drive of its own.
class Session {
 public:
  explicit Session(bool everyTick) {
    for (int i = 1; i <= SessionPhotos; ++i) drive.Write("C:\\Card\\" + SessionPhoto(i), BmpPhoto(8 + i, 8));
    for (int i = 1; i <= 9; ++i) drive.Write("C:\\More\\" + SessionPhoto(i), BmpPhoto(8, 8 + i));
    for (int i = 1; i <= 12; ++i) drive.Write("C:\\One\\" + SessionPhoto(i), BmpPhoto(8, 8));
    drive.MakeFolder("C:\\Two");
    SavedState state;
    state.FilmStrip = "C:\\Card";
    state.Folders = {"C:\\One", "C:\\Two"};
    state.Duplicates = 3;
    std::string bytes;
    for (const std::string& line : state.Lines()) bytes += line + "\r\n";
    drive.Write("C:\\Windows\\Pixorra.sav", bytes);
    run = std::make_unique<ProgramRun>(drive);
    if (everyTick) run->platform.toolkit.GetTimers().LeaveNoneOut();
    run->platform.volumes.Set({{"Card", VolumeKind::Removable, "C:\\Card\\", "1"}});
    run->Start();
  }

  // All that there is to be seen, and what handlers go by.
  std::string Look() {
    std::string look;
    for (Form* form : run->platform.toolkit.Forms()) Add(look, *form);
    const FilmStripState& strip = run->main.strip;
    look += strip.ThumbsPaused + strip.SrcLoadedPath + run->main.desk.DestLoadedPath;
    for (const int number : {strip.SrcSlotCount, strip.SrcShownCount, strip.SrcPageBase, run->main.desk.DestSlotCount,
                             run->main.core.LayoutCountdown, static_cast<int>(strip.AutoScrollPending)})
      look += ' ' + std::to_string(number);
    return look;
  }

  TemporaryDrive drive;
  std::unique_ptr<ProgramRun> run;

 private:
  static void Add(std::string& look, Control& control) {
    look += control.Name() + '(' + std::to_string(control.Index()) + ')';
    for (const int number : {control.Left(), control.Top(), control.Width(), control.Height(),
                             static_cast<int>(control.Visible()), static_cast<int>(control.Enabled())})
      look += ' ' + std::to_string(number);
    // Whose turn it is in the background loading is told in the timer's next tick, and a file's stamp is each disk's
    // own.
    if (control.Tag().find('|') != std::string::npos) {
      look += "stamped";
    } else if (control.GetKind() != Kind::Timer) {
      look += control.Tag();
    }
    if (auto* label = dynamic_cast<Label*>(&control)) look += label->Caption();
    if (auto* bar = dynamic_cast<ScrollBar*>(&control)) look += std::to_string(bar->Value());
    look += control.ToolTipText() + '\n';
    if (Container* container = AsContainer(control)) {
      std::vector<Control*> within = container->Controls();
      std::ranges::sort(within, {}, [](const Control* each) { return std::pair(each->Name(), each->Index()); });
      for (Control* each : within) Add(look, *each);
    }
  }
};

// The folder is not there for so long. What was to be loaded from it meanwhile is loaded afterwards, after a look or
// two of a second each.
void TakeAway(TemporaryDrive& drive, ProgramRun& run, const std::string& folder, double seconds) {
  const std::string here = drive.HostPath(folder);
  std::filesystem::rename(here, here + ".away");
  run.Wait(seconds);
  std::filesystem::rename(here + ".away", here);
  run.Wait(6);
}

// The first lines that differ; empty where all is alike.
std::string Difference(const std::string& one, const std::string& two) {
  if (one == two) return {};
  std::istringstream first(one);
  std::istringstream second(two);
  std::string a;
  std::string b;
  while (std::getline(first, a) && std::getline(second, b) && a == b) {
  }
  return a + " | " + b;
}

// What a person, the disk or the machine may do; the same in both sessions.
void Do(Session& session, int what, int number) {
  ProgramRun& run = *session.run;
  MainForm& main = run.main;
  FilmStripState& strip = main.strip;
  const int slot = strip.SrcSlotCount > 0 ? 1 + number % strip.SrcSlotCount : 0;
  const bool reachable = slot > 0 && strip.SrcBackground(slot).Visible() && IsInView(strip, slot);
  const std::array options = {&strip.AllOption, &strip.RemainingOption, &strip.AutoScrollOption};
  switch (what) {
    case 0:
      if (reachable) run.person.Click(strip.SrcThumbnail(slot));
      break;
    case 1:
      if (reachable) run.person.DoubleClick(strip.SrcThumbName(slot));
      break;
    case 2: {
      const int folder = 1 + number % 2;
      ImageBox& preview = main.desk.DestFolderPreview(folder);
      if (reachable)
        run.person.Drag(strip.SrcThumbnail(slot), preview.Visible() ? preview : main.desk.DestFolder(folder));
      break;
    }
    case 3:
      run.person.Click(*options.at(static_cast<std::size_t>(number % 3)));
      break;
    case 4:
      run.person.TurnWheel(strip.SrcScrollbar, {.NotchesY = number % 7 - 3.0});
      break;
    case 5:
      run.person.Resize(main.Window, 800 + number % 5 * 60, 620 + number % 3 * 70);
      break;
    case 6:
      if (number % 2 == 0 || strip.ThumbsPaused == "True") break;
      run.platform.memory.SetAvailable(std::int64_t{1} << 20);
      run.person.ExpectBox("Pixorra - Resource Warning", "");
      run.Wait(0.75);
      run.platform.memory.SetAvailable(std::int64_t{4} << 30);
      break;
    case 7:
      session.drive.Write("C:\\Card\\" + SessionPhoto(30 + number % 40), BmpPhoto(9, 9));
      strip.SrcFileList.Refresh();
      break;
    case 8:
      main.preview.bPicEdited = number % 2 == 0;
      break;
    case 9:
      strip.SrcFileList.SetPath(number % 4 == 0 ? "C:\\More" : "C:\\Card");
      break;
    case 10:
      Select_a_Folder(main, number % 3);
      break;
    case 11:
      run.platform.volumes.Set({{"Card", VolumeKind::Removable, "C:\\Card\\", std::to_string(number % 3)}});
      break;
    case 12:
      run.person.MoveTo(main.preview.PicPreview);
      break;
    case 13:
      run.platform.backend.Post([&main, number] { RefreshFolder(main, 1 + number % 2); });
      break;
    case 14:
      TakeAway(session.drive, run, number % 2 == 0 ? "C:\\Card" : "C:\\One", 0.03 + number % 3);
      break;
    default:
      run.platform.toolkit.DoEvents();
      break;
  }
}

class IdleTicksTest : public ::testing::TestWithParam<unsigned> {};

TEST_P(IdleTicksTest, NobodyCanTell) {
  Session all(true);
  Session some(false);
  std::mt19937 random(GetParam());
  const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  ASSERT_EQ(Difference(all.Look(), some.Look()), "");
  for (int step = 0; step < 80; ++step) {
    const int what = any(16);
    const int number = any(1000);
    Do(all, what, number);
    Do(some, what, number);
    ASSERT_EQ(Difference(all.Look(), some.Look()), "") << "step " << step << ", " << what << " by " << number;
    const double seconds = std::array{0.01, 0.02, 0.05, 0.3, 0.013, 1.0, 7.0}.at(static_cast<std::size_t>(any(7)));
    for (int moment = 1 + any(2); moment > 0; --moment) {
      all.run->Wait(seconds);
      some.run->Wait(seconds);
      ASSERT_EQ(Difference(all.Look(), some.Look()), "") << "after step " << step << ", " << what << " by " << number;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sessions, IdleTicksTest, ::testing::Range(1U, 5U));

class IdleProgramTest : public ProgramTest {
 protected:
  // In so many seconds. One turn is one moment that the clock stops at.
  static int TurnsIn(ProgramRun& run, double seconds) {
    int turns = 0;
    const double end = run.platform.clock.Seconds() + seconds;
    while (true) {
      const double next = run.platform.toolkit.NextDeadline().value_or(end);
      if (next >= end) return turns;
      run.platform.clock.AdvanceTo(next);
      run.platform.toolkit.RunDueTimers();
      ++turns;
    }
  }
};

TEST_F(IdleProgramTest, AProgramOfWhichNothingIsWantedAsksForFewerThanFiveTurnsASecond) {
  if (std::getenv("PIXORRA_EVERY_TICK") != nullptr) GTEST_SKIP() << "every tick is wanted";
  for (int i = 1; i <= 30; ++i) drive.Write("C:\\Card\\" + SessionPhoto(i), BmpPhoto(8, 8));
  for (const bool autoScroll : {false, true}) {
    WriteSavedState(StateLines("C:\\Card", {"C:\\Card"}));
    ProgramRun& run = Started();
    run.LoadAll();
    if (autoScroll) run.person.Click(run.main.strip.AutoScrollOption);
    run.Wait(3);
    EXPECT_LT(TurnsIn(run, 10), 5 * 10) << "auto scroll: " << autoScroll;
  }
}

TEST_F(IdleProgramTest, FoldersThatHaveGoneWhileTheyWereLoadedAreLookedForOnceInAWhileAndLoadedWhenTheyAreBack) {
  if (std::getenv("PIXORRA_EVERY_TICK") != nullptr) GTEST_SKIP() << "every tick is wanted";
  for (int i = 1; i <= 60; ++i) {
    drive.Write("C:\\Card\\" + SessionPhoto(i), BmpPhoto(8, 8));
    drive.Write("C:\\One\\" + SessionPhoto(i), BmpPhoto(8, 8));
  }
  WriteSavedState(StateLines("C:\\Card", {"C:\\One"}));
  ProgramRun& run = Started();
  GivenPath given(run.main);
  given.Give("C:\\Card\\" + SessionPhoto(60));
  Select_a_Folder(run.main, 1);
  run.Wait(0.5);
  const int loaded = run.main.strip.SrcSlotCount;
  ASSERT_GT(loaded, 0);
  ASSERT_LT(loaded, 60);
  ASSERT_LT(run.main.desk.DestSlotCount, 60);
  for (const char* folder : {"C:\\Card", "C:\\One"})
    std::filesystem::rename(drive.HostPath(folder), drive.HostPath(folder) + ".away");
  run.Wait(3);
  EXPECT_EQ(run.main.strip.SrcSlotCount, loaded);
  EXPECT_LT(TurnsIn(run, 10), 5 * 10);
  EXPECT_FALSE(given.IsDone());
  for (const char* folder : {"C:\\Card", "C:\\One"})
    std::filesystem::rename(drive.HostPath(folder) + ".away", drive.HostPath(folder));
  run.Wait(6);
  EXPECT_EQ(run.main.strip.SrcSlotCount, 60);
  EXPECT_EQ(run.main.desk.DestSlotCount, 60);
  EXPECT_TRUE(given.IsDone());
}

}  // namespace
}  // namespace pixorra
