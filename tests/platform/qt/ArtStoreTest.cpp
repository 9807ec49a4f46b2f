// What is kept of pictures that were made smaller, so that a repaint does not make them again.
#include <gtest/gtest.h>

#include "platform/qt/ArtStore.h"
#include "platform/qt/Drawn.h"

namespace pixorra {
namespace {

class ArtStoreTest : public ::testing::Test {
 protected:
  static Picture Black(int width, int height) { return Picture(Bitmap::Cleared(width, height, PixelFormat::Bgr24)); }
  // Whether it was not made again since `before`.
  static bool IsSame(const QImage& image, const QImage& before) { return image.cacheKey() == before.cacheKey(); }

  ArtStore art;
};

TEST_F(ArtStoreTest, APhotoOfAnySizeIsMadeSmallerOnceForManyRepaints) {
  for (const PixelSize size : {PixelSize{600, 400}, PixelSize{6000, 4000}, PixelSize{8000, 6000}}) {
    const Picture photo = Black(size.Width, size.Height);
    const QImage first = DrawnAt(photo, QSize(300, 200), art);
    EXPECT_EQ(first.size(), QSize(300, 200));
    EXPECT_TRUE(IsSame(DrawnAt(photo, QSize(300, 200), art), first)) << size.Width;
  }
}

TEST_F(ArtStoreTest, ALargePhotoLeavesWhatWasMadeOfSmallOnesInPlace) {
  const Picture thumbnail = Black(160, 120);
  const Picture photo = Black(6000, 4000);
  const QImage small = DrawnAt(thumbnail, QSize(80, 60), art);
  const QImage large = DrawnAt(photo, QSize(300, 200), art);
  EXPECT_TRUE(IsSame(DrawnAt(thumbnail, QSize(80, 60), art), small));
  EXPECT_TRUE(IsSame(DrawnAt(photo, QSize(300, 200), art), large));
}

TEST_F(ArtStoreTest, APictureThatIsMadeNarrowerAndTallerIsMadeOnceToo) {
  const Picture photo = Black(1000, 100);
  const QImage first = DrawnAt(photo, QSize(300, 200), art);
  EXPECT_EQ(first.size(), QSize(300, 200));
  EXPECT_TRUE(IsSame(DrawnAt(photo, QSize(300, 200), art), first));
}

TEST_F(ArtStoreTest, APictureThatIsMadeLargerIsLeftToThePainter) {
  EXPECT_EQ(DrawnAt(Black(100, 100), QSize(300, 200), art).size(), QSize(100, 100));
}

}  // namespace
}  // namespace pixorra
