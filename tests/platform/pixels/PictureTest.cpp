// Pixel blocks and picture objects.
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <sys/resource.h>

#include "platform/pixels/Picture.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

TEST(Bitmap, RowsArePaddedToFourBytes) {
  EXPECT_EQ(Bitmap(1, 1, PixelFormat::Bgr24).Stride(), 4U);
  EXPECT_EQ(Bitmap(2, 1, PixelFormat::Bgr24).Stride(), 8U);
  EXPECT_EQ(Bitmap(4, 1, PixelFormat::Bgr24).Stride(), 12U);
  EXPECT_EQ(Bitmap(5, 1, PixelFormat::Bgr24).Stride(), 16U);
  EXPECT_EQ(Bitmap(5, 1, PixelFormat::Bgra32).Stride(), 20U);
}

TEST(Bitmap, RowsFollowOneAnotherFromTheTop) {
  Bitmap bitmap(3, 4, PixelFormat::Bgr24);
  EXPECT_EQ(bitmap.Width(), 3);
  EXPECT_EQ(bitmap.Height(), 4);
  EXPECT_EQ(bitmap.Row(3) - bitmap.Row(0), 36);
  std::memset(bitmap.Row(0), 0x5A, 4 * bitmap.Stride());
  const Bitmap& reading = bitmap;
  EXPECT_EQ(reading.Row(3)[11], 0x5A);
}

TEST(Bitmap, WithoutWidthOrHeightIsEmpty) {
  for (const Bitmap& bitmap : {Bitmap(), Bitmap(0, 5, PixelFormat::Bgr24), Bitmap(5, 0, PixelFormat::Bgr24),
                               Bitmap(-5, -5, PixelFormat::Bgra32)}) {
    EXPECT_TRUE(bitmap.IsEmpty());
    EXPECT_EQ(bitmap.Width(), 0);
    EXPECT_EQ(bitmap.Height(), 0);
    EXPECT_TRUE(bitmap.Clone().IsEmpty());
  }
  Bitmap nothing;
  nothing.Fill(0);
  EXPECT_TRUE(nothing.IsEmpty());
}

TEST(Bitmap, RaisesOverflowWhereItsSizeLeavesThirtyTwoBits) {
  constexpr int Most = std::numeric_limits<int>::max();
  EXPECT_EQ(ErrorOf([] { Bitmap(Most, Most, PixelFormat::Bgra32); }), 6);
  EXPECT_EQ(ErrorOf([] { Bitmap(Most, 1, PixelFormat::Bgr24); }), 6);
  // 46,344 bytes a row, 46,341 rows: little more than 31 bits hold.
  EXPECT_EQ(ErrorOf([] { Bitmap(46344 / 4, 46341, PixelFormat::Bgra32); }), 6);
}

#ifndef __SANITIZE_ADDRESS__
TEST(Bitmap, RaisesOutOfMemoryWhereTheBlockCannotBeHad) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_AS, &before), 0);
  const rlimit tight{512UL * 1024 * 1024, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_AS, &tight), 0);
  const int raised = ErrorOf([] { Bitmap(20000, 20000, PixelFormat::Bgra32); });
  ASSERT_EQ(setrlimit(RLIMIT_AS, &before), 0);
  EXPECT_EQ(raised, 7);
}
#endif

TEST(Bitmap, FillSetsBlueGreenAndRed) {
  Bitmap bitmap(3, 2, PixelFormat::Bgr24);
  bitmap.Fill(0x00112233);  // blue 0x11, green 0x22, red 0x33
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) {
      EXPECT_EQ(bitmap.Row(y)[x * 3], 0x11);
      EXPECT_EQ(bitmap.Row(y)[x * 3 + 1], 0x22);
      EXPECT_EQ(bitmap.Row(y)[x * 3 + 2], 0x33);
    }
    for (int x = 9; x < 12; ++x) EXPECT_EQ(bitmap.Row(y)[x], 0) << "padding";
  }
}

TEST(Bitmap, FillIsOpaqueInABitmapWithAlpha) {
  Bitmap bitmap(2, 2, PixelFormat::Bgra32);
  bitmap.Fill(0x00112233);
  const std::uint8_t expected[8] = {0x11, 0x22, 0x33, 0xFF, 0x11, 0x22, 0x33, 0xFF};
  EXPECT_EQ(std::memcmp(bitmap.Row(0), expected, 8), 0);
  EXPECT_EQ(std::memcmp(bitmap.Row(1), expected, 8), 0);
}

TEST(Bitmap, FillTakesColoursOfTheSystem) {
  Bitmap bitmap(1, 1, PixelFormat::Bgr24);
  bitmap.Fill(ButtonFace);
  EXPECT_EQ(bitmap.Row(0)[0], 0xC0);
  bitmap.Fill(WindowBackground);
  EXPECT_EQ(bitmap.Row(0)[1], 0xFF);
  bitmap.Fill(ButtonText);
  EXPECT_EQ(bitmap.Row(0)[2], 0);
}

TEST(Bitmap, ACloneHasTheSamePixelsAndItsOwnMemory) {
  Bitmap bitmap(3, 2, PixelFormat::Bgra32);
  bitmap.Fill(0x00112233);
  Bitmap copy = bitmap.Clone();
  EXPECT_EQ(copy.Width(), 3);
  EXPECT_EQ(copy.Height(), 2);
  EXPECT_EQ(copy.Format(), PixelFormat::Bgra32);
  EXPECT_EQ(std::memcmp(copy.Row(0), bitmap.Row(0), 2 * bitmap.Stride()), 0);
  copy.Row(1)[0] = 0x99;
  EXPECT_EQ(bitmap.Row(1)[0], 0x11);
}

TEST(Picture, NothingHasNoSizeAndNoName) {
  const Picture nothing;
  EXPECT_TRUE(nothing.IsNothing());
  EXPECT_EQ(nothing.Width(), 0);
  EXPECT_EQ(nothing.Height(), 0);
  EXPECT_EQ(nothing.ArtName(), "");
  EXPECT_EQ(nothing, Picture(Bitmap()));
}

TEST(Picture, TellsItsSizeItsPixelsAndItsArtName) {
  Bitmap pixels(7, 5, PixelFormat::Bgr24);
  pixels.Fill(0x00112233);
  const Picture picture(std::move(pixels), "ClosedFolder");
  EXPECT_FALSE(picture.IsNothing());
  EXPECT_EQ(picture.Width(), 7);
  EXPECT_EQ(picture.Height(), 5);
  EXPECT_EQ(picture.Pixels().Row(4)[0], 0x11);
  EXPECT_EQ(picture.ArtName(), "ClosedFolder");
}

TEST(Picture, CopiesShareThePixelsAndAreEqual) {
  const Picture first(Bitmap(2, 2, PixelFormat::Bgr24));
  const Picture copy = first;
  EXPECT_EQ(copy, first);
  EXPECT_EQ(&copy.Pixels(), &first.Pixels());
  EXPECT_FALSE(first == Picture(first.Pixels().Clone()));
}

TEST(Picture, ADrawingsPixelsAreMadeOnceAndNotBeforeTheyAreAskedFor) {
  int made = 0;
  const Picture drawing(3, 2, "Logo", [&made] {
    ++made;
    return Bitmap(3, 2, PixelFormat::Bgra32);
  });
  const Picture copy = drawing;
  EXPECT_EQ(copy.Width(), 3);
  EXPECT_EQ(copy.Height(), 2);
  EXPECT_EQ(copy.ArtName(), "Logo");
  EXPECT_EQ(made, 0);
  EXPECT_EQ(drawing.Pixels().Width(), 3);
  EXPECT_EQ(&copy.Pixels(), &drawing.Pixels());
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(Picture(0, 2, "Logo", [] { return Bitmap(); }).IsNothing());
}

TEST(Picture, ReductionsAreFoundByTheirSizeAndThePixelsAreNotMadeForThem) {
  int made = 0;
  std::vector<Bitmap> reductions;
  reductions.emplace_back(8, 6, PixelFormat::Bgr24);
  reductions.emplace_back(4, 3, PixelFormat::Bgr24);
  const Picture photo(80, 60, std::move(reductions), [&made] {
    ++made;
    return Bitmap(80, 60, PixelFormat::Bgr24);
  });
  ASSERT_NE(photo.Reduction(4, 3), nullptr);
  EXPECT_EQ(photo.Reduction(4, 3)->Width(), 4);
  EXPECT_EQ(photo.Reduction(4, 6), nullptr);
  EXPECT_EQ(photo.Reduction(80, 60), nullptr);
  EXPECT_EQ(Picture().Reduction(0, 0), nullptr);
  EXPECT_EQ(made, 0);
  EXPECT_EQ(photo.Pixels().Width(), 80);
  EXPECT_EQ(made, 1);
}

}  // namespace
}  // namespace pixorra
