// The shares that are free, and where they run low.
#include <gtest/gtest.h>

#include "platform/headless/HeadlessMemory.h"
#include "utility/MemStats.h"

namespace pixorra {
namespace {

constexpr std::int64_t Gibibyte = std::int64_t{1} << 30;

TEST(MemStatsTest, TheShareOfOneGibibyteThatIsLeftIsTold) {
  HeadlessMemory memory;
  const struct {
    std::optional<std::int64_t> Available;
    int Share;
  } cases[] = {{0, 0},
               {-5, 0},
               {Gibibyte / 2, 50},
               {Gibibyte / 100 * 99, 98},
               {Gibibyte, 100},
               {64 * Gibibyte, 100},
               {std::nullopt, 90}};
  for (const auto& [available, share] : cases) {
    memory.SetAvailable(available);
    EXPECT_EQ(FreeGraphicResources(memory), share);
  }
}

TEST(MemStatsTest, TheOtherTwoAreNeverLow) {
  EXPECT_EQ(FreeSystemResources(), 90);
  EXPECT_EQ(FreeUserResources(), 90);
}

TEST(MemStatsTest, TwentyIsHealthyAndNineteenIsLow) {
  HeadlessMemory memory;
  memory.SetAvailable((Gibibyte * 20 + 99) / 100);
  EXPECT_EQ(FreeGraphicResources(memory), 20);
  EXPECT_TRUE(ResourcesOk(memory));
  memory.SetAvailable(Gibibyte * 20 / 100);
  EXPECT_EQ(FreeGraphicResources(memory), 19);
  EXPECT_FALSE(ResourcesOk(memory));
  memory.SetAvailable(std::nullopt);
  EXPECT_TRUE(ResourcesOk(memory));
}

}  // namespace
}  // namespace pixorra
