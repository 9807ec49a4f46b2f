// Photos that the camera took on its side: the note that it leaves, and the pixels turned upright.
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "platform/codecs/JpegReader.h"
#include "platform/codecs/Orientation.h"
#include "tests/platform/codecs/SeenAt.h"
#include "tests/support/TestPictures.h"

namespace pixorra {
namespace {

constexpr int StoredWidth = 45;
constexpr int StoredHeight = 30;

std::span<const std::uint8_t> BytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

int Noted(const std::string& file) {
  return OrientationOf(BytesOf(file));
}

struct Decoded {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;
  const std::uint8_t* At(int x, int y) const { return bytes.data() + (std::ptrdiff_t{y} * width + x) * 3; }
};

Decoded Decode(const std::string& file, int denominator, bool bottomUp = false) {
  JpegReader reader(BytesOf(file));
  EXPECT_EQ(reader.Open(), jpeg::Ok);
  EXPECT_EQ(reader.Reduce(denominator), jpeg::Ok);
  Decoded decoded{reader.ReducedWidth(), reader.ReducedHeight(), {}};
  const std::ptrdiff_t step = std::ptrdiff_t{decoded.width} * 3;
  decoded.bytes.assign(static_cast<std::size_t>(step * decoded.height) + 1, 0xA5);
  std::uint8_t* const top = decoded.bytes.data() + (bottomUp ? step * (decoded.height - 1) : 0);
  EXPECT_EQ(reader.Read(top, bottomUp ? -step : step, 3), jpeg::Ok);
  EXPECT_EQ(decoded.bytes.back(), 0xA5);
  return decoded;
}

std::string Photo(int orientation, int channels = 3) {
  return JpegPhoto(StoredWidth, StoredHeight,
                   {.channels = channels, .quality = 95, .exif = true, .exifOrientation = orientation});
}

TEST(Orientation, EachOfTheEightIsRead) {
  for (int orientation = 1; orientation <= 8; ++orientation) EXPECT_EQ(Noted(Photo(orientation)), orientation);
}

TEST(Orientation, AFileWithoutANoteIsUpright) {
  EXPECT_EQ(Noted(JpegPhoto(8, 8)), 1);
  EXPECT_EQ(Noted(""), 1);
  EXPECT_EQ(Noted("GIF89a"), 1);
}

TEST(Orientation, ADamagedNoteIsUpright) {
  EXPECT_EQ(Noted(Photo(0)), 1);
  EXPECT_EQ(Noted(Photo(9)), 1);
  EXPECT_EQ(Noted(Photo(65535)), 1);
}

TEST(Orientation, EveryCutAndEveryChangedByteIsMetWithoutHarm) {
  const std::string whole = Photo(6).substr(0, 60);
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    // A block of its own, so that a read beyond the cut is seen.
    const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    const int noted = OrientationOf(cut);
    EXPECT_TRUE(noted == 1 || noted == 6) << length;
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const int change : {0x01, 0x55, 0x80, 0xFF}) {
      std::vector<std::uint8_t> changed(whole.begin(), whole.end());
      changed[at] = static_cast<std::uint8_t>(changed[at] ^ change);
      const int noted = OrientationOf(changed);
      EXPECT_TRUE(noted >= 1 && noted <= 8) << at;
    }
  }
}

TEST(Orientation, PixelsComeUprightWholeAndReducedTopDownAndBottomUp) {
  for (const int denominator : {1, 2, 4, 8}) {
    const Decoded stored = Decode(Photo(1), denominator);
    for (int orientation = 1; orientation <= 8; ++orientation) {
      const Decoded upright = Decode(Photo(orientation), denominator);
      const Decoded flipped = Decode(Photo(orientation), denominator, true);
      ASSERT_EQ(upright.width, orientation < 5 ? stored.width : stored.height);
      ASSERT_EQ(upright.height, orientation < 5 ? stored.height : stored.width);
      for (int y = 0; y < stored.height; ++y) {
        for (int x = 0; x < stored.width; ++x) {
          const auto [seenX, seenY] = SeenAt(orientation, x, y, stored.width, stored.height);
          for (int c = 0; c < 3; ++c) {
            ASSERT_EQ(upright.At(seenX, seenY)[c], stored.At(x, y)[c]) << orientation << ": " << x << ',' << y;
            ASSERT_EQ(flipped.At(seenX, upright.height - 1 - seenY)[c], stored.At(x, y)[c]);
          }
        }
      }
    }
  }
}

TEST(Orientation, OfADamagedPhotoTheSameRowsComeTurnedAsUpright) {
  for (const std::size_t sixteenth : {4U, 8U, 12U, 15U}) {
    const auto damaged = [sixteenth](int orientation) {
      std::string file = JpegPhoto(200, 160, {.quality = 95, .exif = true, .exifOrientation = orientation});
      const std::size_t scan = file.find("\xFF\xDA");
      // A marker that no scan may hold.
      file.replace(scan + (file.size() - scan) * sixteenth / 16, 4, std::string("\xFF\xC0\x00\x02", 4));
      return file;
    };
    const Decoded stored = Decode(damaged(1), 1);
    const Decoded upright = Decode(damaged(6), 1);
    for (int y = 0; y < stored.height; ++y) {
      for (int x = 0; x < stored.width; ++x) {
        const auto [seenX, seenY] = SeenAt(6, x, y, stored.width, stored.height);
        ASSERT_EQ(upright.At(seenX, seenY)[1], stored.At(x, y)[1]) << sixteenth << ": " << x << ',' << y;
      }
    }
  }
}

TEST(Orientation, GreyAndInksAreTurnedToo) {
  for (const int channels : {1, 4}) {
    const Decoded stored = Decode(Photo(1, channels), 1);
    const Decoded upright = Decode(Photo(6, channels), 1);
    ASSERT_EQ(upright.width, StoredHeight);
    for (int c = 0; c < 3; ++c) {
      EXPECT_EQ(upright.At(StoredHeight - 1, 0)[c], stored.At(0, 0)[c]);
      EXPECT_EQ(upright.At(StoredHeight - 1, StoredWidth - 1)[c], stored.At(StoredWidth - 1, 0)[c]);
      EXPECT_EQ(upright.At(0, 0)[c], stored.At(0, StoredHeight - 1)[c]);
    }
  }
}

TEST(Orientation, TheSizeIsThatOfTheUprightPicture) {
  const std::string file = Photo(8);
  JpegReader reader(BytesOf(file));
  ASSERT_EQ(reader.Open(), jpeg::Ok);
  EXPECT_EQ(reader.Width(), StoredHeight);
  EXPECT_EQ(reader.Height(), StoredWidth);
}

}  // namespace
}  // namespace pixorra
