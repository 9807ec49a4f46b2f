// What is mounted, and the letters that media get.
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/Mounts.h"
#include "platform/posix/VolumeLetters.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

std::vector<Mount> MountsAt(const std::string& point) {
  std::vector<Mount> mounts = AllMounts();
  std::erase_if(mounts, [&point](const Mount& mount) { return mount.Point != point; });
  return mounts;
}

TEST(Mounts, AMountIsListedByItsPlaceWhateverItsName) {
  TemporaryDrive drive;
  const std::string point = drive.HostRoot() + "/MY \tCARD\\040 \xC3\xA4";
  std::filesystem::create_directory(point);
  EXPECT_TRUE(MountsAt(point).empty());
  const MemoryDisk disk(point, "size=16k");
  if (!disk.Mounted()) GTEST_SKIP() << "this user may not mount";
  const std::vector<Mount> mounts = MountsAt(point);
  ASSERT_EQ(mounts.size(), 1U);
  EXPECT_EQ(mounts[0].FileSystem, "tmpfs");
  EXPECT_EQ(mounts[0].Source, "test");
}

TEST(Mounts, OfTwoMountsAtOnePointOneCounts) {
  TemporaryDrive drive;
  const MemoryDisk below(drive.HostRoot(), "size=16k");
  const MemoryDisk above(drive.HostRoot(), "size=16k");
  if (!above.Mounted()) GTEST_SKIP() << "this user may not mount";
  EXPECT_EQ(MountsAt(drive.HostRoot()).size(), 1U);
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

TEST(Mounts, ALabelIsReadAsItsOwnerWroteIt) {
  EXPECT_EQ(LabelOfLink("EOS_DIGITAL"), "EOS_DIGITAL");
  EXPECT_EQ(LabelOfLink("Mum\\x27s\\x20card"), "Mum's card");
  EXPECT_EQ(LabelOfLink("odd\\xzz\\x4"), "odd\\xzz\\x4");
  EXPECT_EQ(LabelOfLink(""), "");
}

TEST(Mounts, AMediumWithoutALabelIsCalledByItsSize) {
  EXPECT_EQ(VolumeOfSize(640'000'000), "640 MB Volume");
  EXPECT_EQ(VolumeOfSize(31'914'983'424), "32 GB Volume");
  EXPECT_EQ(VolumeOfSize(2'000'398'934'016), "2 TB Volume");
  EXPECT_EQ(MediumLabel({"/mnt/a", "tmpfs", "tmpfs"}), "");
  EXPECT_EQ(MediumIdentity({"/mnt/a", "tmpfs", "tmpfs"}), "");
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
