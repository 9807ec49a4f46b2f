// Drops onto a card.
#include "platform/runtime/Errors.h"
#include "tests/drop/DropTest.h"
#include "tests/support/FatDisk.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* CopyFailed = "Pixorra - Unable to Drop Photo";

class FatDropTest : public DropTest {
 protected:
  void SetUp() override {
    if (!disk_.Mounted()) GTEST_SKIP() << disk_.WhyNot();
    Show("Card");
  }
  // The bytes of all photos of the card.
  std::vector<std::string> Arrived() {
    std::vector<std::string> photos;
    for (const std::string& name : drive.DriveFiles().Names(Folder("Card"), "*.bmp", attribute::Normal))
      photos.push_back(BytesIn("Card", name));
    return photos;
  }
  bool HasArrived(const std::string& photo) {
    const std::vector<std::string> photos = Arrived();
    return std::find(photos.begin(), photos.end(), drive.Read(photo)) != photos.end();
  }

  FatDisk disk_{drive.HostPath(Folder("Card")), 1024};
};

TEST_F(FatDropTest, ADateIsKeptToTwoSecondsAndTheThumbnailIsFoundByItAgain) {
  LoadStrip({"a.bmp"});
  drive.SetTime(Photo("a.bmp"), {2001, 5, 6, 13, 14, 15, 0});
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_EQ(drive.WriteTime(Folder("Card") + "\\a.bmp"), (CalendarTime{2001, 5, 6, 13, 14, 14, 0}));
  Select_a_Folder(main, 1);
  run.LoadAll();
  const std::string cache = BytesIn("Card", "Thumbnails.tmp");
  EXPECT_FALSE(cache.empty());
  Select_a_Folder(main, 0);
  Select_a_Folder(main, 1);
  run.LoadAll();
  EXPECT_EQ(desk.DestSlotCount, 1);
  EXPECT_TRUE(BytesIn("Card", "Thumbnails.tmp") == cache) << "it was decoded once more";
}

TEST_F(FatDropTest, ADropOnACardIsTakenBackAlsoWhenTheCardHasBeenListedAndFilledSince) {
  LoadStrip({"a.bmp", "b.bmp"});
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  for (int i = 0; i < 20; ++i) drive.Write(Folder("Card") + "\\other" + std::to_string(i) + ".txt", "x");
  Select_a_Folder(main, 1);
  run.LoadAll();
  person.Click(strip.UndoButton);
  EXPECT_EQ(Arrived().size(), 0U);
  EXPECT_EQ(CountOf(1), " Empty");
  EXPECT_FALSE(IsMarked(1));
}

TEST_F(FatDropTest, PhotosWhoseNamesDifferInCaseAloneBothArrive) {
  LoadStrip({"a.bmp", "A.bmp"});
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_TRUE(HasArrived(Photo("a.bmp")));
  EXPECT_TRUE(HasArrived(Photo("A.bmp")));
}

TEST_F(FatDropTest, ANameThatTheCardRefusesIsToldAndTheRunGoesOn) {
  LoadStrip({"a.bmp", "what?.bmp", "z.bmp"});
  person.ExpectBox(CopyFailed, "This folder cannot be written to.");
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "2 pics");
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(IsMarked(i), PhotoOf(strip, i) != Photo("what?.bmp")) << PhotoOf(strip, i);
}

TEST_F(FatDropTest, WhenTheCardIsFullOnlyPhotosThatAreThereWholeAreMarked) {
  LoadStrip({"a.bmp"});
  for (const char* name : {"b.bmp", "c.bmp", "d.bmp"})
    drive.Write(Photo(name), BmpOf(PlainBitmap(400, 300, static_cast<Colour>(name[0] << 4))));
  strip.SrcFileList.Refresh();
  run.LoadAll();
  ASSERT_EQ(strip.SrcSlotCount, 4);
  person.ExpectBox(CopyFailed, "This folder cannot be written to.", BoxAnswer::Cancel);
  person.Drag(strip.AllButton, desk.DestFolder(1));
  int marked = 0;
  for (int i = 1; i <= 4; ++i) {
    if (!IsMarked(i)) continue;
    ++marked;
    EXPECT_TRUE(HasArrived(PhotoOf(strip, i))) << PhotoOf(strip, i);
  }
  EXPECT_GT(marked, 0);
  EXPECT_LT(marked, 4);
}

TEST_F(FatDropTest, ADuplicateIsFoundAndDeletedThereToo) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  LoadStrip({"a.bmp", "b.bmp"});
  drive.Write(Folder("Card") + "\\older.bmp", drive.Read(Photo("a.bmp")));
  person.Drag(strip.AllButton, desk.DestFolder(1));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_FALSE(Has("Card", "a.bmp"));
  EXPECT_TRUE(IsMarked(1));
}

}  // namespace
}  // namespace pixorra
