// Drops where the disk says no, as an ordinary user and on real media: folders and cards that take nothing, photos that
// cannot be written or not even read, a disk that is full.
#include <filesystem>
#include <gmock/gmock.h>
#include <map>
#include <sys/stat.h>

#include "tests/drop/DropTest.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/platform/posix/PrivateMounts.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

class ReadOnlyDropTest : public DropTest {
 protected:
  // Whatever lies in a host's folder, by name, with its bytes.
  std::map<std::string, std::string> Everything(const std::string& folder) const {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(drive.HostPath(folder))) {
      const std::string name = entry.path().filename().string();
      found[name] = drive.Read(folder + "\\" + name);
    }
    return found;
  }
  std::vector<std::string> PhotosIn(const std::string& folder) {
    return drive.DriveFiles().Names(folder, "*.bmp", attribute::Normal);
  }
  unsigned ModeOf(const std::string& path) const {
    struct stat entry {};
    EXPECT_EQ(stat(drive.HostPath(path).c_str(), &entry), 0) << path;
    return entry.st_mode & 0777U;
  }
  void ExpectCopyFailure(const std::string& shownFolder) {
    person.ExpectBox(CopyFailed, shownFolder +
                                     "\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\n"
                                     "disk drive maybe full.");
  }
};

TEST_F(ReadOnlyDropTest, AFolderThatTakesNothingIsToldAndStaysAsItIs) {
  LoadStrip({"a.bmp", "b.bmp"});
  MakePhoto(Folder("F") + "\\old.bmp", 0x00ABCDEF);
  Show("F");
  const std::map<std::string, std::string> before = Everything(Folder("F"));
  drive.SetMode(Folder("F"), 0555);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  ExpectCopyFailure(Folder("F"));
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_FALSE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, "");
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
  // The whole strip tells it photo by photo.
  ExpectCopyFailure(Folder("F"));
  ExpectCopyFailure(Folder("F"));
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  EXPECT_TRUE(Everything(Folder("F")) == before);
  EXPECT_THAT(PhotosIn("C:\\Strip"), UnorderedElementsAre("a.bmp", "b.bmp"));
}

TEST_F(ReadOnlyDropTest, AReadOnlyFolderThatIsOpenShowsItsPhotosAndTakesNone) {
  LoadStrip({"a.bmp"});
  MakePhoto(Folder("F") + "\\old.bmp", 0x00ABCDEF);
  Show("F");
  drive.Remove(Folder("F") + "\\Thumbnails.tmp");
  drive.SetMode(Folder("F"), 0555);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  Select_a_Folder(main, 1);
  run.LoadAll();
  ASSERT_EQ(desk.DestSlotCount, 1);
  EXPECT_FALSE(desk.DestThumbnail(1).GetPicture() == main.pictures.InvalidPicture);
  ExpectCopyFailure(Folder("F"));
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  run.Wait(0.2);
  EXPECT_EQ(desk.DestSlotCount, 1);
  EXPECT_THAT(PhotosIn(Folder("F")), ElementsAre("old.bmp"));
  EXPECT_FALSE(Has("F", "Thumbnails.tmp"));
}

TEST_F(ReadOnlyDropTest, AReadOnlyPhotoIsCopiedUnderTheTimeOfCopyingAndStaysReadOnly) {
  main.preferences.KeepDateCheckBox.SetValue(1);
  LoadStrip({"a.bmp"});
  drive.SetTime(Photo("a.bmp"), {2001, 5, 6, 13, 14, 15, 0});
  const std::string bytes = drive.Read(Photo("a.bmp"));
  const CalendarTime taken = drive.WriteTime(Photo("a.bmp"));
  Show("F");
  drive.SetMode(Photo("a.bmp"), 0444);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(BytesIn("F", "a.bmp"), bytes);
  EXPECT_GE(drive.WriteTime(Folder("F") + "\\a.bmp").Year, 2024);
  EXPECT_EQ(ModeOf(Folder("F") + "\\a.bmp") & 0200U, 0200U) << "the copy is the user's own";
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(drive.Read(Photo("a.bmp")), bytes);
  EXPECT_EQ(drive.WriteTime(Photo("a.bmp")), taken);
  EXPECT_EQ(ModeOf(Photo("a.bmp")), 0444U);
}

TEST_F(ReadOnlyDropTest, AReadOnlyDuplicateThatWasThereIsFoundAndTheNewFileGoes) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  LoadStrip({"a.bmp"});
  const std::string bytes = drive.Read(Photo("a.bmp"));
  drive.Write(Folder("F") + "\\old.bmp", bytes);
  drive.SetMode(Folder("F") + "\\old.bmp", 0444);
  drive.SetMode(Photo("a.bmp"), 0444);
  Show("F");
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_THAT(PhotosIn(Folder("F")), ElementsAre("old.bmp"));
  EXPECT_EQ(BytesIn("F", "old.bmp"), bytes);
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(ReadOnlyDropTest, ACardThatTakesNothingIsSortedAllTheSame) {
  drive.MakeFolder("C:\\Strip");
  MemoryDisk card(drive.HostPath("C:\\Strip"), "size=256k");
  if (!card.Mounted()) GTEST_SKIP() << "this user may not mount";
  for (const char* name : {"a.bmp", "b.bmp"}) MakePhoto(Photo(name), name[0] == 'a' ? 0x00102030 : 0x00302010);
  const std::map<std::string, std::string> before = Everything("C:\\Strip");
  ASSERT_TRUE(card.MakeReadOnly());
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath("C:\\Strip");
  run.Wait(0.04);
  run.LoadAll();
  Show("F");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "2 pics");
  for (int i = 1; i <= 2; ++i) EXPECT_TRUE(IsMarked(i)) << i;
  EXPECT_EQ(BytesIn("F", "a.bmp"), before.at("a.bmp"));
  EXPECT_EQ(BytesIn("F", "b.bmp"), before.at("b.bmp"));
  EXPECT_TRUE(Everything("C:\\Strip") == before);
}

TEST_F(ReadOnlyDropTest, APhotoThatCannotBeReadComesUpInvalidAndDoesNotCopy) {
  drive.MakeFolder("C:\\Strip");
  MakePhoto(Photo("a.bmp"));
  MakePhoto(Photo("b.bmp"), 0x00405060);
  drive.SetMode(Photo("a.bmp"), 0000);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  main.strip.NoFilmStrip = false;
  main.strip.SrcFileList.SetPath("C:\\Strip");
  run.Wait(0.04);
  run.LoadAll();
  ASSERT_EQ(strip.SrcSlotCount, 2);
  EXPECT_TRUE(strip.SrcThumbnail(1).GetPicture() == main.pictures.InvalidPicture);
  EXPECT_FALSE(strip.SrcThumbnail(2).GetPicture() == main.pictures.InvalidPicture);
  Show("F");
  ExpectCopyFailure(Folder("F"));
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_FALSE(IsMarked(1));
  EXPECT_TRUE(IsMarked(2));
  EXPECT_EQ(BytesIn("F", "a.bmp"), "") << "the destination is made before the photo is opened";
  EXPECT_EQ(BytesIn("F", "b.bmp"), drive.Read(Photo("b.bmp")));
}

TEST_F(ReadOnlyDropTest, ADiskThatFillsUpIsToldAndLosesNothing) {
  LoadStrip({"a.bmp", "b.bmp"});
  drive.MakeFolder(Folder("F"));
  const MemoryDisk full(drive.HostPath(Folder("F")), "size=24k");
  if (!full.Mounted()) GTEST_SKIP() << "this user may not mount";
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  const std::string first = BytesIn("F", "a.bmp");
  EXPECT_EQ(first, drive.Read(Photo("a.bmp")));
  ExpectCopyFailure(Folder("F"));
  person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(1));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_FALSE(IsMarked(2));
  EXPECT_EQ(BytesIn("F", "a.bmp"), first);
  const std::string part = BytesIn("F", "b.bmp");
  EXPECT_LT(part.size(), drive.Read(Photo("b.bmp")).size());
  EXPECT_EQ(part, drive.Read(Photo("b.bmp")).substr(0, part.size()));
  EXPECT_THAT(PhotosIn("C:\\Strip"), ElementsAre("a.bmp", "b.bmp"));
}

}  // namespace
}  // namespace pixorra
