// Stretching: what each target pixel is made of, clipping, alpha.
#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>
#include <random>

#include "platform/pixels/Stretch.h"

namespace pixorra {
namespace {

using Pixel = std::array<int, 3>;

Pixel At(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* p = bitmap.Row(y) + x * bitmap.BytesPerPixel();
  return {p[0], p[1], p[2]};
}

Bitmap Filled(int width, int height, PixelFormat format, Colour colour) {
  Bitmap bitmap(width, height, format);
  bitmap.Fill(colour);
  return bitmap;
}

Bitmap Noise(int width, int height, PixelFormat format, unsigned seed) {
  Bitmap bitmap(width, height, format);
  std::mt19937 random(seed);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* p = bitmap.Row(y) + x * bitmap.BytesPerPixel();
      const unsigned alpha = format == PixelFormat::Bgra32 ? random() % 256 : 255;
      for (int c = 0; c < 3; ++c) p[c] = static_cast<std::uint8_t>(random() % (alpha + 1));
      if (format == PixelFormat::Bgra32) p[3] = static_cast<std::uint8_t>(alpha);
    }
  }
  return bitmap;
}

// The mean colour that target pixel (x, y) of a reduction covers, by plain arithmetic.
std::array<double, 3> CoveredMean(const Bitmap& source, int w, int h, int x, int y) {
  const double left = static_cast<double>(x) * source.Width() / w;
  const double right = static_cast<double>(x + 1) * source.Width() / w;
  const double top = static_cast<double>(y) * source.Height() / h;
  const double bottom = static_cast<double>(y + 1) * source.Height() / h;
  std::array<double, 3> sum{};
  for (int j = 0; j < source.Height(); ++j) {
    const double tall = std::min(bottom, j + 1.0) - std::max(top, static_cast<double>(j));
    if (tall <= 0) continue;
    for (int i = 0; i < source.Width(); ++i) {
      const double wide = std::min(right, i + 1.0) - std::max(left, static_cast<double>(i));
      if (wide <= 0) continue;
      for (std::size_t c = 0; c < 3; ++c) sum[c] += wide * tall * source.Row(j)[static_cast<std::size_t>(i) * 3 + c];
    }
  }
  for (double& s : sum) s /= (right - left) * (bottom - top);
  return sum;
}

TEST(Stretch, TenToOneAveragesExactlyWithHalvesUpwards) {
  Bitmap source = Filled(20, 10, PixelFormat::Bgr24, 0);
  // 50 of the 100 pixels under the first target pixel hold 1, 49 of those under the second.
  for (int i = 0; i < 50; ++i) source.Row(i / 10)[(i % 10) * 3] = 1;
  for (int i = 0; i < 49; ++i) source.Row(i / 10)[(10 + i % 10) * 3] = 1;
  Bitmap target = Filled(2, 1, PixelFormat::Bgr24, 0x777777);
  Stretch(source, target, 0, 0, 2, 1);
  EXPECT_EQ(At(target, 0, 0), (Pixel{1, 0, 0}));
  EXPECT_EQ(At(target, 1, 0), (Pixel{0, 0, 0}));
}

TEST(Stretch, ReductionByAnyRatioIsTheMeanOfWhatIsCovered) {
  const Bitmap source = Noise(61, 47, PixelFormat::Bgr24, 1);
  for (const auto& [w, h] : {std::pair{60, 46}, {31, 47}, {7, 5}, {1, 1}, {40, 3}, {61, 9}}) {
    Bitmap target(w, h, PixelFormat::Bgr24);
    Stretch(source, target, 0, 0, w, h);
    for (int y = 0; y < h; ++y) {
      for (int x = 0; x < w; ++x) {
        const auto expected = CoveredMean(source, w, h, x, y);
        for (std::size_t c = 0; c < 3; ++c) ASSERT_NEAR(At(target, x, y)[c], expected[c], 0.501) << w << 'x' << h;
      }
    }
  }
}

TEST(Stretch, ManyRowsToOneDoNotOverflow) {
  for (const auto& [w, h] : {std::pair{3, 70000}, {70000, 3}, {1000, 999}, {257, 257}, {514, 514}, {516, 516}}) {
    const Bitmap source = Filled(w, h, PixelFormat::Bgr24, 0xFFFEFD);
    Bitmap target = Filled(2, 2, PixelFormat::Bgr24, 0);
    Stretch(source, target, 0, 0, 2, 2);
    EXPECT_EQ(At(target, 1, 1), (Pixel{0xFF, 0xFE, 0xFD}));
  }
}

TEST(Stretch, SameSizeCopies) {
  const Bitmap source = Noise(33, 21, PixelFormat::Bgr24, 2);
  Bitmap target(33, 21, PixelFormat::Bgr24);
  Stretch(source, target, 0, 0, 33, 21);
  for (int y = 0; y < 21; ++y) {
    for (int x = 0; x < 33; ++x) ASSERT_EQ(At(target, x, y), At(source, x, y));
  }
}

TEST(Stretch, EnlargementBlendsNeighboursAndKeepsTheEdges) {
  Bitmap source = Filled(2, 2, PixelFormat::Bgr24, 0);
  for (int y = 0; y < 2; ++y) source.Row(y)[3] = source.Row(y)[4] = source.Row(y)[5] = 200;
  Bitmap target(8, 8, PixelFormat::Bgr24);
  Stretch(source, target, 0, 0, 8, 8);
  const std::array<int, 8> expected{0, 0, 25, 75, 125, 175, 200, 200};
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) EXPECT_EQ(At(target, x, y)[1], expected[static_cast<std::size_t>(x)]) << x << ' ' << y;
  }
  // The same, turned.
  Bitmap turned = Filled(2, 2, PixelFormat::Bgr24, 0);
  for (int i = 0; i < 6; ++i) turned.Row(1)[i] = 200;
  Stretch(turned, target, 0, 0, 8, 8);
  for (int y = 0; y < 8; ++y) EXPECT_EQ(At(target, 3, y)[1], expected[static_cast<std::size_t>(y)]);
}

TEST(Stretch, EveryPixelOfAnEnlargementLiesBetweenItsNeighboursWhateverTheSizes) {
  // The place of a target pixel's middle among the source's middles, in 256ths.
  const auto place = [](int i, int from, int to) { return std::max(0, ((2 * i + 1) * from - to) * 128 / to); };
  const auto blend = [](int a, int b, int part) { return (a * (256 - part) + b * part + 128) >> 8; };
  for (const PixelFormat format : {PixelFormat::Bgr24, PixelFormat::Bgra32}) {
    const int channels = format == PixelFormat::Bgr24 ? 3 : 4;
    for (int from = 1; from <= 12; ++from) {
      for (const int to : {from, from + 1, 2 * from + 1, 5 * from + 3}) {
        const Bitmap source = Noise(from, 1, format, static_cast<unsigned>(from));
        Bitmap target(to, 1, format);
        std::fill_n(target.Row(0), to * channels, std::uint8_t{0});  // laid over nothing, it stays as it is
        Stretch(source, target, 0, 0, to, 1);
        for (int i = 0; i < to * channels; ++i) {
          const int at = place(i / channels, from, to);
          const int first = std::min(at >> 8, from - 1), second = std::min(first + 1, from - 1);
          const int a = source.Row(0)[first * channels + i % channels];
          const int b = source.Row(0)[second * channels + i % channels];
          ASSERT_EQ(target.Row(0)[i], blend(a, b, first == second ? 0 : at & 255)) << from << ' ' << to << ' ' << i;
        }
      }
    }
  }
}

TEST(Stretch, EnlargedOneWayAndReducedTheOther) {
  Bitmap source = Filled(2, 4, PixelFormat::Bgr24, 0);
  for (int y = 0; y < 4; ++y) source.Row(y)[3] = y % 2 == 0 ? 100 : 200;  // the right column's blue averages 150
  Bitmap target(4, 2, PixelFormat::Bgr24);
  Stretch(source, target, 0, 0, 4, 2);
  for (int y = 0; y < 2; ++y) {
    EXPECT_EQ(At(target, 0, y)[0], 0);
    EXPECT_NEAR(At(target, 1, y)[0], 37.5, 0.6);
    EXPECT_NEAR(At(target, 2, y)[0], 112.5, 0.6);
    EXPECT_EQ(At(target, 3, y)[0], 150);
  }
}

TEST(Stretch, PaintsOnlyInsideItsRectangle) {
  const Bitmap source = Filled(5, 5, PixelFormat::Bgr24, 0xFFFFFF);
  Bitmap target = Filled(10, 10, PixelFormat::Bgr24, 0x102030);
  Stretch(source, target, 3, 2, 4, 7);
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 10; ++x) {
      const bool inside = x >= 3 && x < 7 && y >= 2 && y < 9;
      EXPECT_EQ(At(target, x, y), inside ? (Pixel{255, 255, 255}) : (Pixel{0x10, 0x20, 0x30})) << x << ' ' << y;
    }
  }
}

TEST(Stretch, WhatLeavesTheTargetIsCutAndNotSqueezed) {
  const Bitmap source = Noise(40, 30, PixelFormat::Bgr24, 3);
  for (const auto& [w, h] : {std::pair{80, 60}, {20, 15}, {33, 90}}) {
    Bitmap whole(w, h, PixelFormat::Bgr24);
    Stretch(source, whole, 0, 0, w, h);
    for (const auto& [x, y] : {std::pair{-7, -9}, {5, 6}, {-7, 6}}) {
      Bitmap part = Filled(18, 14, PixelFormat::Bgr24, 0);
      Stretch(source, part, x, y, w, h);
      for (int j = std::max(0, y); j < std::min(14, y + h); ++j) {
        for (int i = std::max(0, x); i < std::min(18, x + w); ++i) ASSERT_EQ(At(part, i, j), At(whole, i - x, j - y));
      }
    }
  }
}

TEST(Stretch, NothingToPaintPaintsNothing) {
  const Bitmap source = Filled(5, 5, PixelFormat::Bgr24, 0xFFFFFF);
  Bitmap target = Filled(4, 4, PixelFormat::Bgr24, 0x112233);
  Stretch(source, target, 0, 0, 0, 4);
  Stretch(source, target, 0, 0, 4, -1);
  Stretch(source, target, 4, 0, 3, 3);
  Stretch(source, target, -3, 0, 3, 3);
  Stretch(source, target, INT_MIN, INT_MIN, 3, 3);
  Stretch(source, target, INT_MAX, INT_MAX, INT_MAX, INT_MAX);
  Stretch(Bitmap(), target, 0, 0, 4, 4);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 4; ++x) EXPECT_EQ(At(target, x, y), (Pixel{0x11, 0x22, 0x33}));
  }
  Bitmap none;
  Stretch(source, none, 0, 0, 4, 4);
  EXPECT_TRUE(none.IsEmpty());
}

TEST(Stretch, AlphaIsLaidOverTheTarget) {
  Bitmap source(3, 1, PixelFormat::Bgra32);
  const std::array<std::uint8_t, 12> pixels{0, 0, 0, 0, 100, 0, 50, 128, 10, 20, 30, 255};
  std::copy(pixels.begin(), pixels.end(), source.Row(0));
  Bitmap target = Filled(3, 1, PixelFormat::Bgr24, 0xC8C8C8);
  Stretch(source, target, 0, 0, 3, 1);
  EXPECT_EQ(At(target, 0, 0), (Pixel{200, 200, 200}));
  EXPECT_EQ(At(target, 1, 0), (Pixel{200, 100, 150}));  // 200 * 127 / 255 rounds to 100
  EXPECT_EQ(At(target, 2, 0), (Pixel{10, 20, 30}));
}

TEST(Stretch, AlphaOverAlphaAndOpaqueOverAlpha) {
  Bitmap half(1, 1, PixelFormat::Bgra32);
  const std::array<std::uint8_t, 4> pixel{64, 64, 64, 128};
  std::copy(pixel.begin(), pixel.end(), half.Row(0));
  Bitmap target(2, 2, PixelFormat::Bgra32);
  for (int y = 0; y < 2; ++y) std::fill_n(target.Row(y), 8, std::uint8_t{0});
  Stretch(half, target, 0, 0, 1, 1);
  EXPECT_EQ(target.Row(0)[0], 64);
  EXPECT_EQ(target.Row(0)[3], 128);
  Stretch(half, target, 0, 0, 1, 1);
  EXPECT_EQ(target.Row(0)[3], 192);
  Stretch(Filled(1, 1, PixelFormat::Bgr24, 0x010203), target, 1, 1, 1, 1);
  EXPECT_EQ(At(target, 1, 1), (Pixel{1, 2, 3}));
  EXPECT_EQ(target.Row(1)[7], 255);
  EXPECT_EQ(target.Row(1)[3], 0);
}

TEST(Stretch, OpaqueAlphaStaysOpaqueThroughEveryKindOfStretch) {
  const Bitmap source = Filled(9, 9, PixelFormat::Bgra32, 0x0A0B0C);
  for (const auto& [w, h] : {std::pair{3, 3}, {4, 4}, {20, 20}, {4, 20}, {20, 4}, {9, 9}}) {
    Bitmap target = Filled(w, h, PixelFormat::Bgr24, 0xFFFFFF);
    Stretch(source, target, 0, 0, w, h);
    for (int y = 0; y < h; ++y) {
      for (int x = 0; x < w; ++x) ASSERT_EQ(At(target, x, y), (Pixel{0x0A, 0x0B, 0x0C})) << w << 'x' << h;
    }
  }
}

TEST(Stretch, APictureMadeSmallerBeforehandIsPaintedFromThatWhereTheSizeIsTheSame) {
  std::vector<Bitmap> reductions;
  reductions.emplace_back(2, 2, PixelFormat::Bgr24);
  reductions.back().Fill(0x000000FF);
  const Picture photo(8, 8, std::move(reductions), [] {
    Bitmap pixels(8, 8, PixelFormat::Bgr24);
    pixels.Fill(0x0000FF00);
    return pixels;
  });
  Bitmap target(10, 10, PixelFormat::Bgr24);
  target.Fill(0);
  Stretch(photo, target, 9, -1, 2, 2);  // half of it outside
  Stretch(photo, target, 0, 0, 3, 3);
  EXPECT_EQ(target.Row(0)[9 * 3 + 2], 0xFF);
  EXPECT_EQ(target.Row(1)[9 * 3 + 2], 0);
  EXPECT_EQ(target.Row(0)[1], 0xFF);
  EXPECT_EQ(target.Row(0)[2], 0);
}

}  // namespace
}  // namespace pixorra
