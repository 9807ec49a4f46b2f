// What the host's files say of its memory, and of the limits of control groups.
#include <ctime>
#include <gtest/gtest.h>

#include "platform/posix/PosixMemory.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

constexpr std::int64_t Mebibyte = std::int64_t{1} << 20;

class PosixMemoryTest : public ::testing::Test {
 protected:
  PosixMemoryTest() {
    drive.Write("C:\\proc\\meminfo", "MemTotal: 9999 kB\nMemAvailable:  1048576 kB\nSwapFree: 5 kB\n");
  }
  void InGroups(const std::string& lines) { drive.Write("C:\\proc\\self\\cgroup", lines); }
  // A file of a group, by its path below the folder of all groups.
  void Write(const std::string& file, const std::string& text) { drive.Write("C:\\sys\\fs\\cgroup\\" + file, text); }

  TemporaryDrive drive;
  PosixMemory memory{drive.HostRoot()};
};

TEST_F(PosixMemoryTest, WithoutGroupsItIsWhatTheHostHasLeft) {
  EXPECT_EQ(memory.Available(), 1024 * Mebibyte);
}

TEST_F(PosixMemoryTest, AGroupsLimitCountsWithWhatIsUsedOfIt) {
  InGroups("0::/session/app\n");
  Write("session\\app\\memory.max", std::to_string(300 * Mebibyte) + "\n");
  Write("session\\app\\memory.current", std::to_string(120 * Mebibyte) + "\n");
  EXPECT_EQ(memory.Available(), 180 * Mebibyte);
}

TEST_F(PosixMemoryTest, ALimitAboveWhichAGroupIsOnlySlowedCountsAsWell) {
  InGroups("0::/app\n");
  Write("app\\memory.max", "max\n");
  Write("app\\memory.high", std::to_string(200 * Mebibyte) + "\n");
  Write("app\\memory.current", std::to_string(50 * Mebibyte) + "\n");
  EXPECT_EQ(memory.Available(), 150 * Mebibyte);
}

TEST_F(PosixMemoryTest, TheLimitOfAGroupAboveCountsWhereItLeavesLess) {
  InGroups("0::/session/app\n");
  Write("session\\app\\memory.max", std::to_string(800 * Mebibyte) + "\n");
  Write("session\\app\\memory.current", "0\n");
  Write("session\\memory.max", std::to_string(500 * Mebibyte) + "\n");
  Write("session\\memory.current", std::to_string(400 * Mebibyte) + "\n");
  EXPECT_EQ(memory.Available(), 100 * Mebibyte);
}

// As it is seen from within a container.
TEST_F(PosixMemoryTest, TheLimitOfTheTopmostGroupCounts) {
  InGroups("0::/\n");
  Write("memory.max", std::to_string(64 * Mebibyte) + "\n");
  Write("memory.current", std::to_string(4 * Mebibyte) + "\n");
  EXPECT_EQ(memory.Available(), 60 * Mebibyte);
}

TEST_F(PosixMemoryTest, PagesOfFilesDoNotCountAsUsed) {
  InGroups("0::/app\n");
  Write("app\\memory.max", std::to_string(300 * Mebibyte) + "\n");
  Write("app\\memory.current", std::to_string(290 * Mebibyte) + "\n");
  Write("app\\memory.stat", "anon 5\nfile 7\ninactive_file " + std::to_string(150 * Mebibyte) + "\nactive_file " +
                                std::to_string(40 * Mebibyte) + "\n");
  EXPECT_EQ(memory.Available(), 200 * Mebibyte);
}

TEST_F(PosixMemoryTest, GroupsOfTheFirstVersionCountAsWell) {
  InGroups("5:cpu,memory:/box/one\n4:pids:/else\n0::/\n");
  Write("memory\\box\\one\\memory.limit_in_bytes", std::to_string(300 * Mebibyte) + "\n");
  Write("memory\\box\\one\\memory.usage_in_bytes", std::to_string(250 * Mebibyte) + "\n");
  Write("memory\\box\\one\\memory.stat", "inactive_file 1\nactive_file 1\ntotal_inactive_file " +
                                             std::to_string(30 * Mebibyte) + "\ntotal_active_file " +
                                             std::to_string(20 * Mebibyte) + "\n");
  Write("memory\\memory.limit_in_bytes", "9223372036854771712\n");
  Write("memory\\memory.usage_in_bytes", "9999999999999\n");
  EXPECT_EQ(memory.Available(), 100 * Mebibyte);
}

TEST_F(PosixMemoryTest, AGroupThatHasGoneOverItsLimitLeavesNothing) {
  InGroups("0::/app\n");
  Write("app\\memory.max", "1000\n");
  Write("app\\memory.current", "1001\n");
  EXPECT_EQ(memory.Available(), 0);
}

TEST_F(PosixMemoryTest, FilesThatSayNothingSensibleAreNoLimits) {
  for (const char* lines : {"", "\n", "0\n", "0:\n", "0::\n", "0::app\n", "::::\n"}) {
    SCOPED_TRACE(lines);
    InGroups(lines);
    Write("memory.max", "much\n");
    EXPECT_EQ(memory.Available(), 1024 * Mebibyte);
  }
}

TEST_F(PosixMemoryTest, ThisHostHasSomeLeftAndTellsSoAtLittleCost) {
  PosixMemory own;
  const std::optional<std::int64_t> available = own.Available();
  ASSERT_TRUE(available);
  EXPECT_GT(*available, Mebibyte);
  const std::clock_t before = std::clock();
  for (int i = 0; i < 100; ++i) static_cast<void>(own.Available());
  // Three readings a second are to be lost among what else a program does: two milliseconds each are a thousand times
  // more than they take, and a sanitizer slows them.
  EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 0.2);
}

}  // namespace
}  // namespace pixorra
