// Photos decoded only as large as they are going to be painted: that they look the same, and what is not decoded.
#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr const char* Photo = "C:\\photo";

class LoadToPaintTest : public ::testing::Test {
 protected:
  Picture LoadFor(const std::vector<PixelSize>& sizes) {
    return pictures.LoadToPaint(*drive.DriveFiles().Open(Photo, OpenMode::Read), [sizes](int, int) { return sizes; });
  }
  int ErrorOf(const std::string& bytes) {
    drive.Write(Photo, bytes);
    return ErrorsIgnored([&] { LoadFor({{10, 10}}); });
  }
  static Bitmap Stretched(const Picture& picture, PixelSize size) {
    Bitmap target(size.Width, size.Height, PixelFormat::Bgr24);
    Stretch(picture, target, 0, 0, size.Width, size.Height);
    return target;
  }
  // How far the two differ where they differ most, in levels of a colour.
  static int LargestDifference(const Bitmap& a, const Bitmap& b) {
    int largest = 0;
    for (int y = 0; y < a.Height(); ++y) {
      for (int i = 0; i < a.Width() * 3; ++i) largest = std::max(largest, std::abs(a.Row(y)[i] - b.Row(y)[i]));
    }
    return largest;
  }

  TemporaryDrive drive;
  CodecPictures pictures{drive.DriveFiles()};
};

TEST_F(LoadToPaintTest, ItLooksAsTheWholePhotoDoesAndHasItsSize) {
  for (const JpegFile& file :
       {JpegFile{}, JpegFile{.channels = 1}, JpegFile{.channels = 4}, JpegFile{.progressive = true},
        JpegFile{.exif = true, .exifOrientation = 6}, JpegFile{.fullColour = true}}) {
    drive.Write(Photo, JpegPhoto(403, 301, file));
    const Picture whole = pictures.Load(Photo);
    // An eighth of the photo and less, between two reductions, half of it, nearly all, and more than all.
    for (const PixelSize size : {PixelSize{37, 28}, {51, 38}, {150, 112}, {201, 151}, {390, 290}, {500, 375}}) {
      const Picture loaded = LoadFor({size});
      EXPECT_EQ(loaded.Width(), whole.Width());
      EXPECT_EQ(loaded.Height(), whole.Height());
      ASSERT_NE(loaded.Reduction(size.Width, size.Height), nullptr) << size.Width;
      EXPECT_LE(LargestDifference(Stretched(loaded, size), Stretched(whole, size)), 5) << size.Width;
    }
  }
}

TEST_F(LoadToPaintTest, PaintedInASizeNotSpokenOfItIsTheWholePhotoToTheLastByte) {
  drive.Write(Photo, JpegPhoto(400, 300));
  const Picture loaded = LoadFor({{50, 30}});
  EXPECT_EQ(LargestDifference(Stretched(loaded, {61, 44}), Stretched(pictures.Load(Photo), {61, 44})), 0);
}

TEST_F(LoadToPaintTest, ALinePairThatOnlyTheWholePhotoHasIsNotLostWhereItIsPaintedLarge) {
  Bitmap lines(1600, 80, PixelFormat::Bgr24);
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 1600; ++x) std::fill_n(lines.Row(y) + 3 * x, 3, static_cast<std::uint8_t>(x % 4 < 2 ? 0 : 255));
  }
  drive.Write(Photo, JpegOf(lines, {.quality = 100}));
  const Bitmap shown = Stretched(LoadFor({{1400, 70}}), {1400, 70});
  EXPECT_GT(std::abs(shown.Row(35)[3 * 700] - shown.Row(35)[3 * 702]), 60) << "decoded at half its size it were grey";
}

TEST_F(LoadToPaintTest, WithoutSizesItHasThePhotosSizeAndRaisesForNoPhoto) {
  drive.Write(Photo, JpegPhoto(640, 480));
  EXPECT_EQ(LoadFor({}).Width(), 640);
  EXPECT_EQ(ErrorOf("\xFF\xD8 and nothing of a photo"), error::BadPicture);
}

TEST_F(LoadToPaintTest, BitmapsAndGifsAreLoadedWhole) {
  drive.Write(Photo, BmpPhoto(64, 48));
  EXPECT_EQ(LargestDifference(Stretched(LoadFor({{8, 6}}), {8, 6}), Stretched(pictures.Load(Photo), {8, 6})), 0);
  drive.Write(Photo, GifPhoto(64, 48));
  EXPECT_EQ(LoadFor({{8, 6}}).Height(), 48);
}

TEST_F(LoadToPaintTest, ItRaisesWhatALoadDoes) {
  EXPECT_EQ(ErrorOf("a text file"), error::BadPicture);
  EXPECT_EQ(ErrorOf(""), error::BadPicture);
  EXPECT_EQ(ErrorOf(WithJpegSize(JpegPhoto(16, 16), 30000, 30000)), error::BadPicture);
}

TEST_F(LoadToPaintTest, OfAPhotoThatIsCutShortWhatCameFirstShows) {
  const std::string photo = JpegPhoto(800, 600, {.quality = 95});
  drive.Write(Photo, photo.substr(0, photo.size() / 2));
  const Bitmap shown = Stretched(LoadFor({{100, 75}}), {100, 75});
  EXPECT_GT(shown.Row(5)[2] + shown.Row(5)[1] + shown.Row(5)[0], 60);
  EXPECT_EQ(LoadFor({{100, 75}}).Height(), 600);
}

}  // namespace
}  // namespace pixorra
