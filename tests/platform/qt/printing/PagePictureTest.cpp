// How fine a page holds a picture, and whether exactly or as a photo.
#include <QBuffer>
#include <QImageWriter>
#include <functional>
#include <gtest/gtest.h>

#include "platform/qt/printing/PagePicture.h"

namespace pixorra {
namespace {

class PagePictureTest : public ::testing::Test {
 protected:
  static Picture Drawn(int width, int height, const std::function<Colour(int, int)>& colourAt) {
    Bitmap bitmap(width, height, PixelFormat::Bgr24);
    for (int y = 0; y < height; ++y) {
      std::uint8_t* pixel = bitmap.Row(y);
      for (int x = 0; x < width; ++x, pixel += 3) {
        const Colour colour = colourAt(x, y);
        pixel[0] = static_cast<std::uint8_t>(colour >> 16);
        pixel[1] = static_cast<std::uint8_t>(colour >> 8);
        pixel[2] = static_cast<std::uint8_t>(colour);
      }
    }
    return Picture(std::move(bitmap));
  }
  // At 300 dots to the inch it keeps its pixels.
  static PagePicture OnPage(const Picture& picture) {
    const QRectF part(0, 0, picture.Width(), picture.Height());
    return MakePagePicture(picture, QRectF(0, 0, part.width() * 4.8, part.height() * 4.8), part, 300);
  }
  static qint64 BytesOf(const PagePicture& made) {
    if (!made.IsPhoto) {
      const QImage pixels = made.Image.convertToFormat(QImage::Format_RGB888);
      return qCompress(pixels.constBits(), pixels.sizeInBytes()).size();
    }
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(94);
    writer.write(made.Image);
    return buffer.size();
  }
  std::uint8_t Noise() { return static_cast<std::uint8_t>((seed_ = seed_ * 1103515245 + 12345) >> 16); }

 private:
  unsigned seed_ = 1;
};

TEST_F(PagePictureTest, BlackAndWhitePhotoIsAPhoto) {
  const PagePicture made = OnPage(Drawn(1200, 900, [this](int x, int y) {
    const int grey = (x + y) / 10 + Noise() % 32;
    return static_cast<Colour>(grey * 0x010101);
  }));
  EXPECT_TRUE(made.IsPhoto);
  EXPECT_EQ(made.Image.size(), QSize(1200, 900));
}

TEST_F(PagePictureTest, DrawingOfGreysStaysExact) {
  const PagePicture made =
      OnPage(Drawn(2000, 1500, [](int x, int y) { return static_cast<Colour>((x / 50 + y / 50) % 256 * 0x010101); }));
  EXPECT_FALSE(made.IsPhoto);
  EXPECT_EQ(made.Image.size(), QSize(2000, 1500));
}

TEST_F(PagePictureTest, NoPictureTakesTwoMegabytes) {
  const PagePicture greys =
      OnPage(Drawn(1800, 1300, [this](int, int) { return static_cast<Colour>(Noise() * 0x010101); }));
  EXPECT_LT(BytesOf(greys), 2'000'000) << "of many greys";
  const PagePicture few = OnPage(Drawn(1900, 1310, [this](int, int) {
    const int kind = Noise();
    return static_cast<Colour>((kind & 3) * 0x50 + (kind >> 2 & 3) * 0x5000 + (kind >> 4 & 3) * 0x500000);
  }));
  EXPECT_LT(BytesOf(few), 2'000'000) << "of 64 colours";
  // Each pixel with a colour of its own.
  for (const int height : {1310, 735}) {
    const PagePicture noise = OnPage(
        Drawn(1900, height, [this](int, int) { return static_cast<Colour>(Noise() | Noise() << 8 | Noise() << 16); }));
    EXPECT_LT(BytesOf(noise), 2'000'000) << height;
  }
  // Each of red, green and blue there or not, and a little beside that.
  for (const int height : {850, 735}) {
    const PagePicture noise = OnPage(Drawn(1900, height, [this](int, int) {
      const auto strong = [this] { return Noise() < 128 ? Noise() % 8 : 255 - Noise() % 8; };
      return static_cast<Colour>(strong() | strong() << 8 | strong() << 16);
    }));
    EXPECT_LT(BytesOf(noise), 2'000'000) << height << " strong";
  }
}

}  // namespace
}  // namespace pixorra
