// Thumbnails and larger pictures as they are painted: shapes, bars, temporary files, scratch elements, and failures.
#include <gtest/gtest.h>

#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr Colour Red = 0x000000FF;
constexpr Colour White = 0x00FFFFFF;
constexpr Colour Face = 0x00C0C0C0;
constexpr const char* Photo = "C:\\Photos\\photo.bmp";
constexpr const char* Broken = "C:\\Photos\\broken.jpg";
constexpr const char* CodecTitle = "Intel(R) JPEG Library";

class PaintingTest : public ProgramTest {
 protected:
  PaintingTest() {
    drive.MakeFolder("C:\\Program");
    thumbnail.SetStretch(true);
    thumbnail.Move(0, 0, 80, 60);
  }

  ImageBox& Image(int width, int height) {
    ImageBox& image = main.strip.SrcThumbnail.Load(2);
    image.SetStretch(true);
    image.Move(0, 0, width, height);
    return image;
  }
  void WritePlain(int width, int height, Colour colour) {
    drive.Write(Photo, BmpOf(PlainBitmap(width, height, colour)));
  }
  // A file that only the codec finds to be broken; each painting of a thumbnail tells it.
  void WriteBroken() { drive.Write(Broken, JpegPhoto(40, 30).substr(0, 20)); }
  void ExpectNoScratch() {
    EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
    EXPECT_EQ(main.pictures.TempPic.UBound(), 0);
  }
  std::vector<std::string> ProgramFiles() { return run.files.Names("C:\\Program", "*.*", attribute::Hidden); }

  ProgramRun& run = NewRun();
  MainForm& main = run.main;
  ImageBox& thumbnail = main.strip.SrcThumbnail.Load(1);
  bool bDragged = false;
};

Colour At(const Picture& picture, int x, int y) {
  const std::uint8_t* pixel = picture.Pixels().Row(y) + x * picture.Pixels().BytesPerPixel();
  return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

// The columns, or rows, of one colour along the picture's middle.
int ColumnsOf(const Picture& picture, Colour colour) {
  int count = 0;
  for (int x = 0; x < picture.Width(); ++x) count += At(picture, x, picture.Height() / 2) == colour;
  return count;
}
int RowsOf(const Picture& picture, Colour colour) {
  int count = 0;
  for (int y = 0; y < picture.Height(); ++y) count += At(picture, picture.Width() / 2, y) == colour;
  return count;
}

TEST_F(PaintingTest, AFourToThreePhotoFillsTheThumbnailExactly) {
  WritePlain(400, 300, Red);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  const Picture& picture = thumbnail.GetPicture();
  ASSERT_EQ(picture.Width(), 80);
  ASSERT_EQ(picture.Height(), 60);
  EXPECT_EQ(ColumnsOf(picture, Red), 80);
  EXPECT_EQ(RowsOf(picture, Red), 60);
  ExpectNoScratch();
}

TEST_F(PaintingTest, AThreeToTwoPhotoIsSqueezedAndFillsTheThumbnail) {
  WritePlain(600, 400, Red);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_EQ(ColumnsOf(thumbnail.GetPicture(), Red), 80);
  EXPECT_EQ(RowsOf(thumbnail.GetPicture(), Red), 60);
}

TEST_F(PaintingTest, ASixteenToNinePhotoHasButtonFaceBarsAboveAndBelow) {
  WritePlain(640, 360, Red);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  const Picture& picture = thumbnail.GetPicture();
  EXPECT_EQ(ColumnsOf(picture, Red), 80);
  // 75 of the canvas's 600 rows above and below: seven rows and a half.
  EXPECT_EQ(RowsOf(picture, Face), 14);
  EXPECT_EQ(RowsOf(picture, Red), 44);
  EXPECT_EQ(At(picture, 40, 6), Face);
  EXPECT_EQ(At(picture, 40, 7), 0x006060E0U);
  EXPECT_EQ(At(picture, 40, 8), Red);
}

TEST_F(PaintingTest, APortraitPhotoIs45PixelsWideBetweenBars) {
  WritePlain(300, 400, Red);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  const Picture& picture = thumbnail.GetPicture();
  EXPECT_EQ(RowsOf(picture, Red), 60);
  // From 17.5 to 62.5, so that one column at each side is half photo, half bar.
  EXPECT_EQ(ColumnsOf(picture, Face), 34);
  EXPECT_EQ(ColumnsOf(picture, Red), 44);
  EXPECT_EQ(At(picture, 16, 30), Face);
  EXPECT_EQ(At(picture, 18, 30), Red);
  EXPECT_EQ(At(picture, 61, 30), Red);
  EXPECT_EQ(At(picture, 63, 30), Face);
}

TEST_F(PaintingTest, ThumbnailsArePaintedInTheSizesThatAreSaidAhead) {
  const auto size = [](int width, int height) {
    const std::vector<PixelSize> sizes = ThumbnailSizes(width, height);
    return sizes.size() == 1 ? std::pair(sizes[0].Width, sizes[0].Height) : std::pair(0, 0);
  };
  EXPECT_EQ(size(1500, 1000), std::pair(800, 600));
  EXPECT_EQ(size(40, 30), std::pair(800, 600));
  EXPECT_EQ(size(1600, 900), std::pair(800, 450));
  EXPECT_EQ(size(300, 400), std::pair(450, 600));
  EXPECT_TRUE(ThumbnailSizes(5, 0).empty());
}

TEST_F(PaintingTest, AThumbnailLeavesNoTemporaryFileBehind) {
  WritePlain(400, 300, Red);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_TRUE(ProgramFiles().empty());
}

TEST_F(PaintingTest, AJpegThumbnailGoesThroughTheFastRoute) {
  drive.Write("C:\\Photos\\photo.jpg", JpegPhoto(640, 480));
  PaintThumbnail(main, thumbnail, "C:\\Photos\\photo.jpg", bDragged);
  EXPECT_EQ(thumbnail.GetPicture().Width(), 80);
  EXPECT_TRUE(drive.Exists("C:\\Temp\\$temp.tmp"));
  EXPECT_EQ(main.pictures.lDecodeScale, 8);
}

TEST_F(PaintingTest, AFreshThumbnailIsNotDraggedAndACachedOneTellsItsStoredMark) {
  WritePlain(400, 300, Red);
  bDragged = true;
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_FALSE(bDragged);
  QuickThumbsOf(main).SetQuickThumbMark(Photo, "MARK");
  ImageBox& second = Image(80, 60);
  PaintThumbnail(main, second, Photo, bDragged);
  EXPECT_TRUE(bDragged);
  EXPECT_EQ(ColumnsOf(second.GetPicture(), Red), 80);
  ExpectNoScratch();
}

TEST_F(PaintingTest, ACachedThumbnailNeedsNoDecodingAndNoScalingFiles) {
  WritePlain(400, 300, Red);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  run.files.FailAlways(FileCall::OpenToRead, error::PathAccess, "photo.bmp");
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "\\$$T$T.$T$");
  ImageBox& second = Image(80, 60);
  PaintThumbnail(main, second, Photo, bDragged);
  EXPECT_EQ(ColumnsOf(second.GetPicture(), Red), 80);
}

TEST_F(PaintingTest, APhotoReplacedWhileItIsPaintedIsNotTakenForTheOldOneAfterwards) {
  const std::string jpeg = "C:\\Photos\\photo.jpg";
  drive.Write(jpeg, JpegOf(PlainBitmap(400, 300, Red), {.quality = 100}));
  // It has been decoded by then.
  run.files.BeforeNth(
      FileCall::OpenToWrite, 1, [&] { drive.Write(jpeg, JpegOf(PlainBitmap(400, 300, White))); }, "$temp.tmp");
  PaintThumbnail(main, thumbnail, jpeg, bDragged);
  EXPECT_EQ(ColumnsOf(thumbnail.GetPicture(), White), 0);
  ImageBox& second = Image(80, 60);
  PaintThumbnail(main, second, jpeg, bDragged);
  EXPECT_EQ(ColumnsOf(second.GetPicture(), White), 80);
}

TEST_F(PaintingTest, APhotoThatCannotBeDecodedShowsInvalidPictureAndIsTriedAgainEachTime) {
  WriteBroken();
  bDragged = true;
  for (int painting = 0; painting < 2; ++painting) {
    thumbnail.SetPicture(Picture());
    run.person.ExpectBox(CodecTitle, "");
    PaintThumbnail(main, thumbnail, Broken, bDragged);
    EXPECT_TRUE(thumbnail.GetPicture() == main.pictures.InvalidPicture);
    EXPECT_TRUE(bDragged) << "it stays as it was";
  }
  EXPECT_EQ(run.platform.dialogs.Boxes().size(), 2U);
  EXPECT_EQ(drive.Read("C:\\Photos\\Thumbnails.tmp"), "");
  ExpectNoScratch();
}

TEST_F(PaintingTest, AnErrorWhileScalingLeavesTheTargetAsItWasAndGivesTheScratchBack) {
  WritePlain(400, 300, Red);
  thumbnail.SetPicture(main.preview.Logo);
  run.files.FailNth(FileCall::OpenToWrite, 1, error::DiskFull, "\\$$T$T.$T$");
  bDragged = true;
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_TRUE(thumbnail.GetPicture() == main.preview.Logo);
  EXPECT_TRUE(bDragged);
  ExpectNoScratch();
  run.files.FailNth(FileCall::OpenToWrite, 1, error::DiskFull, "\\$W$$.$W$");
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_TRUE(thumbnail.GetPicture() == main.preview.Logo);
  ExpectNoScratch();
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_EQ(ColumnsOf(thumbnail.GetPicture(), Red), 80);
}

TEST_F(PaintingTest, APaintingInsideAPaintingTakesHigherElementsAndShowsTheSubstitute) {
  WriteBroken();
  WritePlain(400, 300, Red);
  ImageBox& second = Image(80, 60);
  run.person.ExpectBox(CodecTitle, "", BoxAnswer::Ok, [&] {
    EXPECT_EQ(main.pictures.TempPic.UBound(), 1);
    PaintThumbnail(main, second, Photo, bDragged);
    EXPECT_EQ(main.pictures.TempPic.UBound(), 1);
    EXPECT_EQ(main.pictures.TempImage.UBound(), 1);
  });
  PaintThumbnail(main, thumbnail, Broken, bDragged);
  EXPECT_TRUE(second.GetPicture() == main.pictures.InvalidPicture);
  ExpectNoScratch();
}

TEST_F(PaintingTest, AnImageElementInUseBySomebodyElseIsNotTakenTwice) {
  WritePlain(400, 300, Red);
  main.pictures.TempImage.Load(1);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  EXPECT_EQ(ColumnsOf(thumbnail.GetPicture(), Red), 80);
  EXPECT_TRUE(main.pictures.TempImage.IsLoaded(1));
  EXPECT_EQ(main.pictures.TempImage.UBound(), 1);
}

TEST_F(PaintingTest, ASlotThatGoesWhileAMessageIsUpIsLeftAlone) {
  WriteBroken();
  run.person.ExpectBox(CodecTitle, "", BoxAnswer::Ok, [&] { main.strip.SrcThumbnail.Unload(1); });
  PaintThumbnail(main, thumbnail, Broken, bDragged);
  ExpectNoScratch();
}

TEST_F(PaintingTest, AnImageTellsThePhotosOwnSize) {
  WritePlain(640, 480, Red);
  ImageBox& image = Image(249, 185);
  const PaintedImage painted = PaintImage(main, Photo, image, ButtonFace);
  EXPECT_TRUE(painted.ok);
  EXPECT_EQ(painted.width, 640);
  EXPECT_EQ(painted.height, 480);
  EXPECT_EQ(image.GetPicture().Width(), 249);
  EXPECT_EQ(image.GetPicture().Height(), 185);
  EXPECT_EQ(ProgramFiles(), std::vector<std::string>{"preview.tmp"});
  ExpectNoScratch();
}

TEST_F(PaintingTest, APhotoOfNearlyTheTargetsShapeIsStretchedOverItWhole) {
  Bitmap halves = PlainBitmap(600, 400, Red);
  for (int y = 0; y < 400; ++y) std::fill_n(halves.Row(y) + 900, 900, std::uint8_t{255});
  drive.Write(Photo, BmpOf(halves));
  ImageBox& image = Image(200, 150);
  ASSERT_TRUE(PaintImage(main, Photo, image, ButtonFace).ok);
  EXPECT_EQ(ColumnsOf(image.GetPicture(), Red), 100);
  EXPECT_EQ(ColumnsOf(image.GetPicture(), White), 100);
}

TEST_F(PaintingTest, TheBarsOfAnImageHaveTheColourAskedFor) {
  WritePlain(160, 90, White);
  ImageBox& image = Image(400, 300);
  ASSERT_TRUE(PaintImage(main, Photo, image, 0x00332211).ok);
  EXPECT_EQ(At(image.GetPicture(), 200, 0), 0x00332211U);
  EXPECT_EQ(At(image.GetPicture(), 200, 299), 0x00332211U);
  EXPECT_EQ(At(image.GetPicture(), 200, 150), White);
}

TEST_F(PaintingTest, ATransparentPictureOfTheTargetsShapeLiesOnTheColourAskedFor) {
  drive.Write("C:\\Photos\\a.gif",
              GifOf(160, 120, [](int x, int) { return static_cast<std::uint8_t>(x < 80); }, {.transparent = 1}));
  for (const int width : {200, 400}) {
    ImageBox& image = Image(width, width * 3 / 4);
    ASSERT_TRUE(PaintImage(main, "C:\\Photos\\a.gif", image, 0x00332211).ok);
    EXPECT_EQ(At(image.GetPicture(), width / 4, 50), 0x00332211U);
    EXPECT_EQ(At(image.GetPicture(), width * 3 / 4, 50), 0x0000FF00U);
    main.strip.SrcThumbnail.Unload(2);
  }
}

TEST_F(PaintingTest, APaneOf249By185IsComposedAt747By555) {
  WritePlain(1600, 900, White);
  ImageBox& image = Image(249, 185);
  ASSERT_TRUE(PaintImage(main, Photo, image, 0).ok);
  // The photo begins at composed row 67 of 555, the second of the three that make row 22.
  EXPECT_EQ(At(image.GetPicture(), 100, 21), 0U);
  EXPECT_EQ(At(image.GetPicture(), 100, 22) & 0xFF, 170U);
  EXPECT_EQ(At(image.GetPicture(), 100, 23), White);
}

TEST_F(PaintingTest, ATargetOf301IsComposedAtItsOwnSize) {
  WritePlain(1600, 900, White);
  ImageBox& image = Image(301, 226);
  ASSERT_TRUE(PaintImage(main, Photo, image, 0).ok);
  EXPECT_EQ(At(image.GetPicture(), 100, 27), 0U);
  EXPECT_EQ(At(image.GetPicture(), 100, 28), White);
}

TEST_F(PaintingTest, ATargetOf300IsStillComposedAtThreeTimesItsSize) {
  WritePlain(1600, 900, White);
  ImageBox& image = Image(300, 226);
  ASSERT_TRUE(PaintImage(main, Photo, image, 0).ok);
  // 900 by 678: 506 rows of photo from row 86 on, the third of the three that make row 28.
  EXPECT_EQ(At(image.GetPicture(), 100, 27), 0U);
  EXPECT_EQ(At(image.GetPicture(), 100, 28) & 0xFF, 85U);
}

TEST_F(PaintingTest, AnImageThatCannotBeShownIsClearedWithABeep) {
  drive.Write(Broken, "BM and nothing of a bitmap behind it");
  ImageBox& image = Image(249, 185);
  image.SetPicture(main.preview.Logo);
  const PaintedImage painted = PaintImage(main, Broken, image, ButtonFace);
  EXPECT_FALSE(painted.ok);
  EXPECT_EQ(painted.width, 0);
  EXPECT_EQ(painted.height, 0);
  EXPECT_TRUE(image.GetPicture().IsNothing());
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  ExpectNoScratch();
}

TEST_F(PaintingTest, AnErrorWhileAnImageIsScaledIsAFailureWithoutABeep) {
  WritePlain(640, 480, Red);
  ImageBox& image = Image(249, 185);
  run.files.FailNth(FileCall::OpenToWrite, 1, error::DiskFull, "preview.tmp");
  EXPECT_FALSE(PaintImage(main, Photo, image, ButtonFace).ok);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 0);
  ExpectNoScratch();
}

TEST_F(PaintingTest, ATargetWithoutHeightIsAFailureAndNothingWorse) {
  WritePlain(640, 480, Red);
  EXPECT_FALSE(PaintImage(main, Photo, Image(249, 0), ButtonFace).ok);
  thumbnail.SetHeight(0);
  PaintThumbnail(main, thumbnail, Photo, bDragged);
  ExpectNoScratch();
}

}  // namespace
}  // namespace pixorra
