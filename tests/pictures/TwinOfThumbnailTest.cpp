// Thumbnails as the program makes them, and what is made of their photos with more pixels: every twin shows what its
// thumbnail does.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "pictures/PaintPhoto.h"
#include "pictures/Shading.h"
#include "platform/codecs/TwinDecoder.h"
#include "platform/pixels/Stretch.h"
#include "tests/support/RealPhotos.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"

namespace pixorra {
namespace {

class TwinOfThumbnailTest : public ProgramTest {
 protected:
  TwinOfThumbnailTest() {
    thumbnail.SetStretch(true);
    thumbnail.Move(0, 0, 80, 60);
  }
  // Each under a name of its own: the cache knows photos by name, length and second.
  void Paint(const std::string& file) {
    photo = "C:\\Photos\\" + std::to_string(++photos) + ".jpg";
    drive.Write(photo, file);
    bool bDragged = false;
    PaintThumbnail(run.main, thumbnail, photo, bDragged);
  }
  Bitmap Twin(double fineness) {
    const PixelSize size{static_cast<int>(80 * fineness), static_cast<int>(60 * fineness)};
    const std::atomic<bool> stop = false;
    return DecodeTwin(*drive.DriveFiles().Open(photo, OpenMode::Read), thumbnail.GetPicture().Pixels(), size, stop);
  }
  // The farthest that a pixel of the thumbnail is from what the twin shows there; of 255.
  int Farthest(const Bitmap& twin) { return Farthest(twin, thumbnail.GetPicture().Pixels()); }
  static int Farthest(const Bitmap& twin, const Bitmap& shown) {
    Bitmap small(shown.Width(), shown.Height(), PixelFormat::Bgr24);
    Stretch(twin, small, 0, 0, small.Width(), small.Height());
    int farthest = 0;
    for (int y = 0; y < small.Height(); ++y) {
      for (int x = 0; x < 3 * small.Width(); ++x)
        farthest = std::max(farthest, std::abs(small.Row(y)[x] - shown.Row(y)[x]));
    }
    return farthest;
  }

  ProgramRun& run = Started();
  ImageBox thumbnail{run.main.Window, "thumbnail"};
  std::string photo;
  int photos = 0;
};

TEST_F(TwinOfThumbnailTest, PhotosOfEveryShapeLieWhereTheThumbnailHasThem) {
  for (const PixelSize size : {PixelSize{800, 600}, {750, 500}, {960, 540}, {540, 960}, {1200, 200}, {300, 300}}) {
    for (const int orientation : {1, 6}) {
      Paint(JpegPhoto(size.Width, size.Height, {.exif = true, .exifOrientation = orientation}));
      for (const double fineness : {1.25, 1.75, 2.0, 3.0}) {
        SCOPED_TRACE(std::to_string(size.Width) + " x " + std::to_string(size.Height) + " turned " +
                     std::to_string(orientation) + ", " + std::to_string(fineness));
        const Bitmap twin = Twin(fineness);
        ASSERT_FALSE(twin.IsEmpty());
        EXPECT_LE(Farthest(twin), 40);  // edges of bars lie between the pixels
      }
    }
  }
}

TEST_F(TwinOfThumbnailTest, AMarkedPhotoHasOneToo) {
  Paint(JpegPhoto(800, 600));
  const Bitmap plain = Twin(2);
  ShadeThumbnail(thumbnail);
  const Bitmap shaded = Twin(2);
  ASSERT_FALSE(shaded.IsEmpty());
  EXPECT_LE(Farthest(shaded), 14);
  EXPECT_EQ(shaded.Row(62)[3 * 62], plain.Row(62)[3 * 62]);
  EXPECT_EQ(shaded.Row(60)[3 * 62], 0);
}

TEST_F(TwinOfThumbnailTest, ThePreviewPanesPictureHasOneWithAllOfTheScreensPixels) {
  constexpr int Fineness = 2;
  for (const PixelSize pane : {PixelSize{249, 185}, PixelSize{700, 520}}) {
    for (const PixelSize size : {PixelSize{1600, 1200}, {1200, 1600}, {2400, 600}}) {
      SCOPED_TRACE(std::to_string(size.Width) + " x " + std::to_string(size.Height));
      ImageBox box{run.main.Window, "pane"};
      box.Move(0, 0, pane.Width, pane.Height);
      drive.Write("C:\\Photos\\p.jpg", JpegPhoto(size.Width, size.Height));
      ASSERT_TRUE(PaintImage(run.main, "C:\\Photos\\p.jpg", box, ButtonFace).ok);
      const Bitmap& shown = box.GetPicture().Pixels();
      const std::atomic<bool> stop = false;
      const Bitmap twin = DecodeTwin(*drive.DriveFiles().Open("C:\\Photos\\p.jpg", OpenMode::Read), shown,
                                     {Fineness * pane.Width, Fineness * pane.Height}, stop);
      ASSERT_FALSE(twin.IsEmpty());
      EXPECT_LE(Farthest(twin, shown), 110);  // edges of bars lie up to half a pixel apart
    }
  }
}

TEST_F(TwinOfThumbnailTest, RealPhotosHaveThem) {
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(PhotosFolder() / "card", none)) {
    std::ifstream in(entry.path(), std::ios::binary);
    Paint(std::string(std::istreambuf_iterator<char>(in), {}));
    if (!thumbnail.GetPicture().ArtName().empty()) continue;  // no photo
    EXPECT_FALSE(Twin(2).IsEmpty()) << entry.path();
  }
  if (photos == 0) GTEST_SKIP() << "there are no real photos here";
}

}  // namespace
}  // namespace pixorra
