// Photos made ready to cover a screen.
#include <gmock/gmock.h>
#include <set>

#include "platform/controls/Toolkit.h"
#include "tests/platform/contract/ContractTest.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr PixelSize WideScreen{120, 60};
constexpr Colour FrameRed = 0x000000FF;

class FramesContract : public ContractTest {
 protected:
  PhotoFrame Made(const std::string& path, PixelSize screen = WideScreen, const PhotoFrame& known = {}) {
    PhotoFrame result;
    bool came = false;
    const auto making = frames->Make(path, screen, known, [&](const PhotoFrame& frame) {
      result = frame;
      came = true;
    });
    EXPECT_FALSE(came) << "not before the loop has run";
    EXPECT_TRUE(toolkit.WaitUntil([&] { return came; }));
    return result;
  }
  PhotoFrame MadeOf(const std::string& bytes, PixelSize screen = WideScreen) {
    drive.Write("C:\\photo.jpg", bytes);
    return Made("C:\\photo.jpg", screen);
  }
  // Of an opaque frame.
  static Colour At(const PhotoFrame& frame, int x, int y) {
    const Bitmap& pixels = frame.Shown.Pixels();
    const std::uint8_t* pixel = pixels.Row(y) + std::ptrdiff_t{4} * x;
    EXPECT_EQ(pixel[3], 255);
    return static_cast<Colour>(pixel[2] | pixel[1] << 8 | pixel[0] << 16);
  }
  // The photo's own part of the frame, by what is not black.
  static PixelSize PhotoIn(const PhotoFrame& frame) {
    std::set<int> columns, rows;
    for (int y = 0; y < frame.Shown.Height(); ++y) {
      for (int x = 0; x < frame.Shown.Width(); ++x) {
        if (At(frame, x, y) == 0) continue;
        columns.insert(x);
        rows.insert(y);
      }
    }
    return {static_cast<int>(columns.size()), static_cast<int>(rows.size())};
  }

  TemporaryDrive drive;
  std::unique_ptr<PhotoFrames> frames = platform->MakeFrames(drive);
};

TEST_F(FramesContract, APhotoIsWholeInTheMiddleOfBlack) {
  const PhotoFrame frame = MadeOf(BmpOf(PlainBitmap(300, 300, FrameRed)));
  ASSERT_EQ(frame.Shown.Width(), 120);
  ASSERT_EQ(frame.Shown.Height(), 60);
  EXPECT_EQ(frame.Shown.Pixels().Format(), PixelFormat::Bgra32);
  EXPECT_EQ(PhotoIn(frame), (PixelSize{60, 60}));
  EXPECT_EQ(At(frame, 29, 30), 0U);
  EXPECT_EQ(At(frame, 30, 0), FrameRed);
  EXPECT_EQ(At(frame, 89, 59), FrameRed);
  EXPECT_EQ(At(frame, 90, 30), 0U);
}

TEST_F(FramesContract, ASmallPhotoIsAtMostTwiceItsSize) {
  EXPECT_EQ(PhotoIn(MadeOf(BmpOf(PlainBitmap(20, 10, FrameRed)))), (PixelSize{40, 20}));
  EXPECT_EQ(PhotoIn(MadeOf(BmpOf(PlainBitmap(80, 10, FrameRed)))), (PixelSize{120, 15}));
  EXPECT_EQ(PhotoIn(MadeOf(BmpOf(PlainBitmap(1, 1, FrameRed)))), (PixelSize{2, 2}));
}

TEST_F(FramesContract, AVeryLongPhotoIsStillSeen) {
  EXPECT_EQ(PhotoIn(MadeOf(BmpOf(PlainBitmap(4000, 1, FrameRed)))), (PixelSize{120, 1}));
}

TEST_F(FramesContract, AJpegPhotoStandsUprightAndHasThePicturesColours) {
  // Twice as wide as high in the file, and turned.
  const PhotoFrame frame = MadeOf(JpegOf(SmoothBitmap(640, 320), {.exif = true, .exifOrientation = 6}), {90, 90});
  EXPECT_EQ(PhotoIn(frame), (PixelSize{45, 90}));
  EXPECT_EQ(At(frame, 21, 45), 0U);
  // What is at the left in the file is at the top: there is little blue, which grows to the right there.
  EXPECT_LT(At(frame, 45, 2) >> 16U, 30U);
  EXPECT_GT(At(frame, 45, 87) >> 16U, 200U);
}

TEST_F(FramesContract, AJpegPhotoLooksAsItsPixelsDoAtAnySize) {
  const std::string photo = JpegPhoto(900, 600, {.quality = 95});
  for (const PixelSize screen : {PixelSize{900, 600}, {500, 400}, {225, 150}, {60, 60}, {2000, 1500}}) {
    const PhotoFrame frame = MadeOf(photo, screen);
    const PhotoFrame plain = MadeOf(BmpOf(SmoothBitmap(900, 600)), screen);
    ASSERT_EQ(frame.Shown.Width(), screen.Width);
    int farthest = 0;
    for (int y = 0; y < screen.Height; ++y) {
      const std::uint8_t* a = frame.Shown.Pixels().Row(y);
      const std::uint8_t* b = plain.Shown.Pixels().Row(y);
      for (int i = 0; i < 4 * screen.Width; ++i) farthest = std::max(farthest, std::abs(a[i] - b[i]));
    }
    EXPECT_LE(farthest, 12) << screen.Width;
  }
}

TEST_F(FramesContract, AJpegPhotoIsAsSharpAsTheScreen) {
  constexpr Colour White = 0x00FFFFFF;
  Bitmap stripes = PlainBitmap(480, 240, White);
  for (int y = 0; y < stripes.Height(); ++y) {
    for (int x = 0; x < stripes.Width(); ++x) {
      if (x % 8 < 4) std::fill_n(stripes.Row(y) + std::ptrdiff_t{3} * x, 3, std::uint8_t{0});
    }
  }
  // At half of its size each stripe is two pixels wide.
  const PhotoFrame frame = MadeOf(JpegOf(stripes, {.quality = 95}), {240, 120});
  for (int x = 40; x < 80; x += 4) {
    EXPECT_LT(At(frame, x, 60) & 0xFFU, 60U);
    EXPECT_GT(At(frame, x + 2, 60) & 0xFFU, 195U);
  }
}

TEST_F(FramesContract, WhatIsTransparentIsBlack) {
  const auto index = [](int x, int) { return static_cast<std::uint8_t>(x < 5 ? 7 : 200); };
  const PhotoFrame frame = MadeOf(GifOf(10, 10, index, {.transparent = 7}), {10, 10});
  EXPECT_EQ(At(frame, 2, 5), 0U);
  EXPECT_NE(At(frame, 8, 5), 0U);
}

TEST_F(FramesContract, WhatCannotBeShownMakesNothing) {
  EXPECT_TRUE(Made("C:\\none.jpg").Shown.IsNothing());
  EXPECT_TRUE(Made("no path").Shown.IsNothing());
  EXPECT_TRUE(MadeOf("").Shown.IsNothing());
  EXPECT_TRUE(MadeOf("no picture").Shown.IsNothing());
  EXPECT_TRUE(MadeOf("\xFF\xD8").Shown.IsNothing());
  drive.MakeFolder("C:\\folder.jpg");
  EXPECT_TRUE(Made("C:\\folder.jpg").Shown.IsNothing());
}

TEST_F(FramesContract, WhatIsKnownServesAgainForAsLongAsFileAndScreenAreTheSame) {
  const PhotoFrame first = MadeOf(BmpPhoto(30, 20));
  EXPECT_EQ(Made("C:\\photo.jpg", WideScreen, first).Shown, first.Shown);
  EXPECT_EQ(Made("C:\\photo.jpg", {60, 60}, first).Shown.Width(), 60);
  drive.Write("C:\\photo.jpg", BmpOf(PlainBitmap(31, 20, FrameRed)));
  const PhotoFrame changed = Made("C:\\photo.jpg", WideScreen, first);
  EXPECT_NE(changed.Shown, first.Shown);
  EXPECT_EQ(At(changed, 60, 30), FrameRed);
  drive.Remove("C:\\photo.jpg");
  EXPECT_TRUE(Made("C:\\photo.jpg", WideScreen, first).Shown.IsNothing());
}

TEST_F(FramesContract, WhatIsKnownToBeDamagedIsNotDecodedAgainUntilTheFileChanges) {
  const PhotoFrame damaged = MadeOf("no picture");
  EXPECT_NE(damaged.Stamp, FileStamp());
  EXPECT_EQ(Made("C:\\none.jpg").Stamp, FileStamp());
  drive.Write("C:\\good.bmp", BmpPhoto(30, 20));
  const PhotoFrame good = Made("C:\\good.bmp");
  EXPECT_TRUE(Made("C:\\good.bmp", WideScreen, {{}, good.Stamp}).Shown.IsNothing()) << "it is not even looked at";
  EXPECT_FALSE(Made("C:\\good.bmp", WideScreen, {{}, damaged.Stamp}).Shown.IsNothing());
}

TEST_F(FramesContract, AMakingThatHasEndedIsNotHeardOf) {
  drive.Write("C:\\photo.jpg", BmpPhoto(30, 20));
  bool came = false;
  std::unique_ptr<PhotoFrames::Making> making =
      frames->Make("C:\\photo.jpg", WideScreen, {}, [&](const PhotoFrame&) { came = true; });
  making.reset();
  Made("C:\\photo.jpg");
  EXPECT_FALSE(came);
}

TEST_F(FramesContract, AHandlerMayBeginTheNext) {
  drive.Write("C:\\photo.jpg", BmpPhoto(30, 20));
  std::unique_ptr<PhotoFrames::Making> making;
  int came = 0;
  std::function<void(const PhotoFrame&)> handler = [&](const PhotoFrame&) {
    if (++came < 3) making = frames->Make("C:\\photo.jpg", WideScreen, {}, handler);
  };
  making = frames->Make("C:\\photo.jpg", WideScreen, {}, handler);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return came == 3; }));
}

}  // namespace
}  // namespace pixorra
