// The kernel's list of mounts, and the letters that media get.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/Mounts.h"
#include "platform/posix/VolumeLetters.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

TEST(Mounts, LinesAreReadWithTheirEscapesAndOptionalFields) {
  const std::vector<Mount> mounts = ParseMountInfo(
      "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
      "36 22 8:17 / /media/anna/MY\\040CARD\\134x rw,nosuid shared:1 master:2 - vfat /dev/sdb1 rw,uid=1000\n"
      "37 22 0:5 / /proc rw - proc proc rw\n");
  ASSERT_EQ(mounts.size(), 3U);
  EXPECT_EQ(mounts[1].Point, "/media/anna/MY CARD\\x");
  EXPECT_EQ(mounts[1].FileSystem, "vfat");
  EXPECT_EQ(mounts[1].Source, "/dev/sdb1");
  EXPECT_EQ(mounts[2].Source, "proc");
}

TEST(Mounts, LinesThatMakeNoSenseArePassedOver) {
  EXPECT_TRUE(ParseMountInfo("").empty());
  EXPECT_TRUE(ParseMountInfo("nonsense\n\n- - - - - -\n22 1 8:1 / / rw\n22 1 8:1 / / rw - ext4\n").empty());
  EXPECT_TRUE(ParseMountInfo("22 1 8:1 / relative rw - ext4 x rw\n").empty());
}

TEST(Mounts, OfTwoMountsAtOnePointTheLastCounts) {
  const std::vector<Mount> mounts = ParseMountInfo(
      "22 1 8:1 / /mnt/a rw - ext4 /dev/sda1 rw\n"
      "23 1 8:2 / /mnt/a rw - vfat /dev/sdb1 rw\n");
  ASSERT_EQ(mounts.size(), 1U);
  EXPECT_EQ(mounts[0].FileSystem, "vfat");
}

TEST(Mounts, MediaOfTheUserAreToldFromTheSystemsMounts) {
  const auto isMedium = [](const char* point, const char* type) { return IsUserMedium({point, type, "x"}, "anna"); };
  for (const char* point : {"/media/anna/CARD", "/media/usb0", "/run/media/anna/CARD", "/mnt", "/mnt/disk"})
    EXPECT_TRUE(isMedium(point, "vfat")) << point;
  for (const char* point : {"/", "/home", "/media", "/media/", "/mediator/x", "/run/media/otto/CARD", "/run/user/1000"})
    EXPECT_FALSE(isMedium(point, "vfat")) << point;
  EXPECT_FALSE(isMedium("/mnt/disk", "autofs"));
  EXPECT_FALSE(IsUserMedium({"/run/media/CARD", "vfat", "x"}, ""));
}

TEST(Mounts, AMediumWithoutAnIdentityIsKnownByItsPlace) {
  EXPECT_EQ(MediumKey({"/mnt/a", "tmpfs", "tmpfs"}), "at:/mnt/a");
  EXPECT_EQ(MediumKey({"/mnt/a", "ext4", "/dev/null"}), "at:/mnt/a");
}

TEST(VolumeLetters, NewMediaGetLettersFromDOn) {
  std::vector<RememberedLetter> remembered;
  EXPECT_THAT(GiveLetters({"id:a", "id:b"}, remembered), ElementsAre('D', 'E'));
  EXPECT_THAT(remembered, ElementsAre(RememberedLetter{'D', "id:a"}, RememberedLetter{'E', "id:b"}));
}

TEST(VolumeLetters, AMediumComesBackUnderItsLetter) {
  std::vector<RememberedLetter> remembered{{'D', "id:a"}, {'E', "id:b"}};
  EXPECT_THAT(GiveLetters({"id:new", "id:b"}, remembered), ElementsAre('F', 'E'));
  EXPECT_THAT(GiveLetters({"id:a"}, remembered), ElementsAre('D'));
}

TEST(VolumeLetters, TwoMediaWithOneIdentityGetTwoLetters) {
  std::vector<RememberedLetter> remembered{{'D', "id:a"}};
  EXPECT_THAT(GiveLetters({"id:a", "id:a"}, remembered), ElementsAre('D', 'E'));
}

TEST(VolumeLetters, WhenAllAreKnownTheLetterOfAnAbsentMediumIsGivenAnew) {
  std::vector<RememberedLetter> remembered;
  for (char letter = 'D'; letter <= 'Z'; ++letter) remembered.push_back({letter, std::string("id:") + letter});
  EXPECT_THAT(GiveLetters({"id:D", "id:new"}, remembered), ElementsAre('D', 'E'));
  EXPECT_EQ(remembered.size(), 23U);
  EXPECT_THAT(remembered, ::testing::Contains(RememberedLetter{'E', "id:new"}));
}

TEST(VolumeLetters, AMediumBeyondTheLastLetterGetsNone) {
  std::vector<RememberedLetter> remembered;
  std::vector<std::string> keys;
  for (int i = 0; i < 24; ++i) keys.push_back("id:" + std::to_string(i));
  const std::vector<char> letters = GiveLetters(keys, remembered);
  EXPECT_EQ(letters[22], 'Z');
  EXPECT_EQ(letters[23], 0);
}

TEST(VolumeLetters, TheListIsReadBackAsItWasWritten) {
  const std::vector<RememberedLetter> letters{{'D', "id:1A2B-3C4D"}, {'F', "at:/mnt/with blank"}};
  EXPECT_EQ(ParseLetters(LettersText(letters)), letters);
  EXPECT_EQ(LettersText({{'D', "at:/mnt/a\nb"}}), "");
  EXPECT_TRUE(ParseLetters("C id:a\nd id:a\nDid:a\nD \n\nE").empty());
  EXPECT_THAT(ParseLetters("D id:a\nD id:b\n"), ElementsAre(RememberedLetter{'D', "id:a"}));
}

}  // namespace
}  // namespace pixorra
