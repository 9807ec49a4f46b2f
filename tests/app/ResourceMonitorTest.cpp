// Memory that runs low, and thumbnails that wait until there is more.
#include <gtest/gtest.h>

#include "platform/services/Dialogs.h"
#include "tests/filmstrip/StripTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

constexpr std::int64_t MuchMemory = std::int64_t{2} << 30;
constexpr std::int64_t LittleMemory = std::int64_t{200} << 20;
constexpr double MonitorTick = 0.3;
constexpr const char* ResourceWarning = "Pixorra - Resource Warning";

class ResourceMonitorTest : public StripTest {
 protected:
  static void Leave(ProgramRun& run, std::optional<std::int64_t> bytes) { run.platform.memory.SetAvailable(bytes); }
};

TEST_F(ResourceMonitorTest, WhenMemoryRunsLowLoadingStopsWithOneWarningAndGoesOnByItself) {
  WriteEmpty(40);
  for (int i = 1; i <= 40; ++i) drive.Write("C:\\One\\" + NumberedName(i), "");
  ProgramRun& run = StartedOnStrip({"C:\\One"});
  Leave(run, LittleMemory);
  run.person.ExpectBox(ResourceWarning,
                       "The System Graphic Resources are running low.\r\n"
                       "All thumbnails CANNOT be displayed at this time.\r\n"
                       "\r\n"
                       "Try closing unnecessary programs to free-up\r\n"
                       "memory, or reduce the number of photos contained\r\n"
                       "in the Film-Strip and/or Open-Folder.");
  run.Wait(MonitorTick);
  EXPECT_EQ(run.main.strip.ThumbsPaused, "True");
  ASSERT_EQ(run.platform.dialogs.Boxes().size(), 1U);
  EXPECT_EQ(run.platform.dialogs.Boxes()[0].Icon, BoxIcon::Critical);
  EXPECT_EQ(run.platform.dialogs.Boxes()[0].Buttons, BoxButtons::Ok);
  const int slots = run.main.strip.SrcSlotCount;
  const int cells = run.main.desk.DestSlotCount;
  ASSERT_LT(slots, 40);
  run.Wait(5);
  EXPECT_EQ(run.main.strip.SrcSlotCount, slots);
  EXPECT_EQ(run.main.desk.DestSlotCount, cells);

  Leave(run, MuchMemory);
  run.Wait(MonitorTick);
  EXPECT_EQ(run.main.strip.ThumbsPaused, "False");
  run.LoadAll();
  EXPECT_EQ(run.main.strip.SrcSlotCount, 40);
  EXPECT_EQ(run.main.desk.DestSlotCount, 40);
}

TEST_F(ResourceMonitorTest, EachTimeThatItRunsLowAgainThereIsAWarning) {
  ProgramRun& run = Started();
  for (int i = 1; i <= 2; ++i) {
    Leave(run, LittleMemory);
    run.person.ExpectBox(ResourceWarning, "");
    run.Wait(1);
    Leave(run, MuchMemory);
    run.Wait(1);
    EXPECT_EQ(run.platform.dialogs.Boxes().size(), static_cast<std::size_t>(i));
  }
}

TEST_F(ResourceMonitorTest, UntilTheWarningIsClosedLoadingGoesOnAndNoSecondOneComes) {
  WriteEmpty(40);
  ProgramRun& run = StartedOnStrip();
  Leave(run, LittleMemory);
  run.person.ExpectBox(ResourceWarning, "", BoxAnswer::Ok, [&run] {
    EXPECT_EQ(run.main.strip.ThumbsPaused, "False");
    const int slots = run.main.strip.SrcSlotCount;
    run.Wait(0.9);
    EXPECT_GT(run.main.strip.SrcSlotCount, slots);
  });
  run.Wait(MonitorTick);
  EXPECT_EQ(run.main.strip.ThumbsPaused, "True");
}

TEST_F(ResourceMonitorTest, AHostThatDoesNotSayIsTakenToHaveEnough) {
  ProgramRun& run = Started();
  Leave(run, std::nullopt);
  run.Wait(2);
  EXPECT_EQ(run.main.strip.ThumbsPaused, "False");
}

TEST_F(ResourceMonitorTest, MemoryIsLookedAtThreeTimesASecondFromTheStartToTheEnd) {
  ProgramRun& run = Started();
  const int before = run.platform.memory.Asked();
  run.Wait(3.05);
  EXPECT_EQ(run.platform.memory.Asked() - before, 10);
}

}  // namespace
}  // namespace pixorra
