// The selected photo on the clipboard.
#include <gmock/gmock.h>

#include "platform/runtime/Errors.h"
#include "tests/drop/UndoTest.h"
#include "utility/ConfirmForm.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

class CopyPhotoTest : public UndoTest {
 protected:
  void Select(const std::string& name, const std::string& bytes) {
    LoadStrip({"a.bmp"});
    drive.Write(Photo(name), bytes);
    strip.SrcFileList.Refresh();
    run.LoadAll();
    person.Click(strip.SrcThumbnail(2));
    ASSERT_EQ(SelectedPhoto(main.preview), Photo(name));
  }
  void Copy() { person.ChooseMenu(main.menu.CopyMenuItem); }
  Picture Copied() { return run.platform.clipboard.GetBitmap(); }
  bool NoticeIsUp() const {
    const ConfirmForm* notice = main.modeless.Find<ConfirmForm>();
    return notice != nullptr && notice->Window.Visible();
  }
  static std::vector<int> PixelAt(const Picture& picture, int x, int y) {
    const std::uint8_t* pixel = picture.Pixels().Row(y) + x * picture.Pixels().BytesPerPixel();
    return {pixel[0], pixel[1], pixel[2]};
  }
};

TEST_F(CopyPhotoTest, TheWholePhotoComesOnTheClipboardWithANotice) {
  const Bitmap photo = SmoothBitmap(301, 203);
  Select("b.bmp", BmpOf(photo));
  Copy();
  EXPECT_TRUE(NoticeIsUp());
  EXPECT_EQ(ConfirmForm::Of(main).Label2.Caption(), "Copied to Clipboard");
  const Picture copied = Copied();
  ASSERT_EQ(copied.Width(), 301);
  ASSERT_EQ(copied.Height(), 203);
  for (const auto& [x, y] : {std::pair{0, 0}, {300, 0}, {150, 100}, {0, 202}, {300, 202}}) {
    const std::uint8_t* pixel = photo.Row(y) + 3 * x;
    EXPECT_EQ(PixelAt(copied, x, y), (std::vector<int>{pixel[0], pixel[1], pixel[2]})) << x << " " << y;
  }
  EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
  EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
}

TEST_F(CopyPhotoTest, TheShortcutCopiesToo) {
  Select("b.jpg", JpegPhoto(320, 240));
  person.Key('C', shift::Ctrl);
  EXPECT_EQ(Copied().Width(), 320);
}

TEST_F(CopyPhotoTest, APhotoComesUprightOnTheClipboard) {
  Select("b.jpg", JpegPhoto(320, 240, {.exif = true, .exifOrientation = 6}));
  Copy();
  EXPECT_EQ(Copied().Width(), 240);
  EXPECT_EQ(Copied().Height(), 320);
}

TEST_F(CopyPhotoTest, WhatIsTransparentIsCopiedOnWhite) {
  Select("b.gif",
         GifOf(60, 40, [](int x, int) { return static_cast<std::uint8_t>(x < 30 ? 7 : 200); }, {.transparent = 7}));
  Copy();
  EXPECT_EQ(PixelAt(Copied(), 10, 10), (std::vector<int>{255, 255, 255}));
  EXPECT_EQ(PixelAt(Copied(), 50, 10), (std::vector<int>{100, 55, 200}));
}

TEST_F(CopyPhotoTest, APhotoOfTheOpenFolderIsCopiedAsWell) {
  PrepareOpen();
  drive.Write(Folder("F") + "\\big.bmp", BmpPhoto(123, 45));
  desk.DestFileList.Refresh();
  run.LoadAll();
  person.Click(desk.DestThumbnail(2));
  Copy();
  EXPECT_EQ(Copied().Width(), 123);
}

TEST_F(CopyPhotoTest, APhotoThatHasGoneLeavesTheClipboardAsItIsAndIsTold) {
  Select("b.bmp", BmpPhoto(100, 80));
  run.platform.clipboard.CopyElsewhere(Picture(PlainBitmap(7, 5, 0)));
  drive.Remove(Photo("b.bmp"));
  person.ExpectBox("Can't Copy Photo to Clipboard.", "C:\\Strip\\b.bmp\n\nThis photo cannot be read.");
  Copy();
  EXPECT_EQ(Copied().Width(), 7);
  EXPECT_FALSE(NoticeIsUp());
}

TEST_F(CopyPhotoTest, APhotoThatTheMemoryIsTooSmallForIsToldOnce) {
  Select("b.bmp", BmpPhoto(100, 80));
  run.files.FailNth(FileCall::Read, 2, error::OutOfMemory, "b.bmp");
  person.ExpectBox("Pixorra - Out of Memory", "");
  Copy();
  EXPECT_EQ(run.platform.dialogs.Boxes().size(), 1U);
  EXPECT_FALSE(NoticeIsUp());
}

TEST_F(CopyPhotoTest, APhotoThatTheClipboardDoesNotTakeIsToldAsThat) {
  Select("b.bmp", BmpPhoto(100, 80));
  run.platform.clipboard.FailNextSet(error::OutOfMemory);
  person.ExpectBox("Can't Copy Photo to Clipboard.",
                   "C:\\Strip\\b.bmp\n\nThe Clipboard cannot take this photo.\nIt maybe too large for the memory.");
  Copy();
  EXPECT_FALSE(NoticeIsUp());
}

TEST_F(CopyPhotoTest, WithNoPhotoSelectedNothingIsCopied) {
  LoadStrip({"a.bmp"});
  person.Key('C', shift::Ctrl);
  EXPECT_TRUE(Copied().IsNothing());
  EXPECT_FALSE(NoticeIsUp());
}

TEST_F(CopyPhotoTest, TheNoticeIsUpBeforeThePhotoIsReadAndGoesAfterTwoSeconds) {
  Select("b.bmp", BmpPhoto(100, 80));
  bool seen = false;
  run.files.BeforeNth(
      FileCall::OpenToRead, 1, [&] { seen = NoticeIsUp(); }, "b.bmp");
  Copy();
  EXPECT_TRUE(seen);
  run.Wait(1.8);
  EXPECT_TRUE(NoticeIsUp());
  run.Wait(0.2);
  EXPECT_FALSE(NoticeIsUp());
}

TEST_F(CopyPhotoTest, AProgramThatEndsWhileTheNoticeIsPaintedCopiesNothing) {
  Select("b.bmp", BmpPhoto(100, 80));
  person.During([this] { return NoticeIsUp(); }, [this] { main.Window.Unload(); });
  Copy();
  EXPECT_TRUE(run.host.toolkit.Ended());
  EXPECT_TRUE(Copied().IsNothing());
}

TEST_F(CopyPhotoTest, OfTwoCopiesSoonAfterOneAnotherTheLastOneCounts) {
  Select("b.bmp", BmpPhoto(100, 80));
  person.During([this] { return NoticeIsUp(); },
                [this] {
                  person.Click(strip.SrcThumbnail(1));
                  Copy();
                });
  Copy();
  EXPECT_EQ(Copied().Width(), 80);
}

// One copies, and goes on by key while the notice is up.
TEST_F(CopyPhotoTest, WhileTheNoticeIsUpKeysAreTheMainWindowsAndAClickOnItDoesNothing) {
  Select("b.bmp", BmpPhoto(100, 80));
  Copy();
  ConfirmForm& notice = ConfirmForm::Of(main);
  person.Activate(notice.Window);
  person.Click(notice.Label2);
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty());
  person.Activate(notice.Window);
  person.Click(strip.SrcThumbnail(1));
  person.Activate(notice.Window);
  person.Key('C', shift::Ctrl);
  EXPECT_EQ(Copied().Width(), 80);
}

}  // namespace
}  // namespace pixorra
