// Pictures painted from photos that are decoded no larger than the target needs: they look as those of whole decodes
// do.
#include <cstdlib>
#include <gtest/gtest.h>

#include "pictures/PaintPhoto.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr const char* Photo = "C:\\Photos\\a.jpg";

class ReducedPaintTest : public ProgramTest {
 protected:
  Picture Painted(PixelSize size, PhotoDecode decode) {
    ImageBox target(main.Window, "target");
    target.SetWidth(size.Width);
    target.SetHeight(size.Height);
    const PaintedImage painted = PaintImage(main, Photo, target, 0x00FFFFFF, decode);
    EXPECT_TRUE(painted.ok);
    told = {painted.width, painted.height};
    return target.GetPicture();
  }
  static int LargestDifference(const Bitmap& a, const Bitmap& b) {
    int largest = 0;
    for (int y = 0; y < a.Height(); ++y) {
      for (int i = 0; i < a.Width() * 3; ++i) largest = std::max(largest, std::abs(a.Row(y)[i] - b.Row(y)[i]));
    }
    return largest;
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  PixelSize told;
};

TEST_F(ReducedPaintTest, ItLooksTheSameInEveryShapeAndSize) {
  const PixelSize photos[] = {{800, 600}, {800, 450}, {450, 800}, {1500, 200}, {160, 120}};
  for (const PixelSize photo : photos) {
    drive.Write(Photo, JpegPhoto(photo.Width, photo.Height));
    for (const PixelSize size : {PixelSize{301, 225}, {90, 67}, {320, 240}}) {
      const Picture whole = Painted(size, PhotoDecode::Whole);
      const Picture reduced = Painted(size, PhotoDecode::Reduced);
      EXPECT_EQ(told, photo);
      ASSERT_EQ(reduced.Width(), size.Width);
      ASSERT_EQ(reduced.Height(), size.Height);
      EXPECT_LE(LargestDifference(reduced.Pixels(), whole.Pixels()), 6) << photo.Width << ' ' << size.Width;
    }
  }
}

TEST_F(ReducedPaintTest, BitmapsAreTheSameToTheLastByte) {
  drive.Write(Photo, BmpPhoto(1600, 900));
  EXPECT_EQ(LargestDifference(Painted({600, 450}, PhotoDecode::Reduced).Pixels(),
                              Painted({600, 450}, PhotoDecode::Whole).Pixels()),
            0);
}

TEST_F(ReducedPaintTest, APhotoThatCannotBeShownIsClearedWithABeepAsAnyOther) {
  drive.Write(Photo, "no photo");
  ImageBox target(main.Window, "target");
  target.SetWidth(600);
  target.SetHeight(450);
  EXPECT_FALSE(PaintImage(main, Photo, target, 0, PhotoDecode::Reduced).ok);
  EXPECT_TRUE(target.GetPicture().IsNothing());
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
  EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
}

}  // namespace
}  // namespace pixorra
