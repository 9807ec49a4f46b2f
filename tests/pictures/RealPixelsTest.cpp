// What real picture files show on their way through the program: the direct route the decoder's own pixels, the fast
// route and the thumbnail the same photo, smaller. Without them there is nothing to try. The decoder's
// pixels are held against known sums elsewhere.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

#include "pictures/PaintPhoto.h"
#include "pictures/PictureLoader.h"
#include "platform/pixels/Fit.h"
#include "tests/pictures/RealPhotosRun.h"
#include "tests/support/RealPhotos.h"

namespace pixorra {
namespace {

namespace fs = std::filesystem;

// The files that a decoder must show, by expected.tsv.
std::vector<fs::path> ShownPhotos() {
  std::ifstream in(PhotosFolder() / "expected.tsv");
  std::vector<fs::path> photos;
  for (std::string line; std::getline(in, line);) {
    std::istringstream cells(line);
    std::string set, path, sum, format, verdict;
    for (std::string* cell : {&set, &path, &sum, &format, &verdict}) std::getline(cells, *cell, '\t');
    if (verdict == "decode") photos.push_back(PhotosFolder() / path);
  }
  return photos;
}

bool SamePixels(const Bitmap& a, const Bitmap& b) {
  if (a.Width() != b.Width() || a.Height() != b.Height() || a.Format() != b.Format()) return false;
  const auto bytes = static_cast<std::size_t>(a.Width() * a.BytesPerPixel());
  for (int y = 0; y < a.Height(); ++y) {
    if (std::memcmp(a.Row(y), b.Row(y), bytes) != 0) return false;
  }
  return true;
}

// A part of a picture, in its own pixels.
struct Area {
  double left, top, right, bottom;
};

// The mean of a channel over that part, to whole pixels; of a large part so many of its rows and columns.
double Mean(const Bitmap& bitmap, const Area& area, int channel) {
  const auto first = [](double edge, int size) { return std::clamp(static_cast<int>(edge), 0, size - 1); };
  const int left = first(area.left, bitmap.Width());
  const int top = first(area.top, bitmap.Height());
  const int right = std::max(left + 1, std::min(bitmap.Width(), static_cast<int>(std::ceil(area.right))));
  const int bottom = std::max(top + 1, std::min(bitmap.Height(), static_cast<int>(std::ceil(area.bottom))));
  constexpr int MostLines = 24;
  const int across = 1 + (right - left - 1) / MostLines;
  const int down = 1 + (bottom - top - 1) / MostLines;
  double sum = 0;
  int count = 0;
  for (int y = top; y < bottom; y += down) {
    for (int x = left; x < right; x += across, ++count) sum += bitmap.Row(y)[x * bitmap.BytesPerPixel() + channel];
  }
  return sum / count;
}

// How far a picture is from another one that it shows smaller, within this rectangle: the mean over a grid of 8 by 8.
double Distance(const Bitmap& small, const FittedRect& where, const Bitmap& large) {
  constexpr int Grid = 8;
  double sum = 0;
  for (int row = 0; row < Grid; ++row) {
    for (int column = 0; column < Grid; ++column) {
      const auto part = [&](double left, double top, double width, double height) {
        return Area{left + width * column / Grid, top + height * row / Grid, left + width * (column + 1) / Grid,
                    top + height * (row + 1) / Grid};
      };
      const Area here = part(where.X, where.Y, where.Width, where.Height);
      const Area there = part(0, 0, large.Width(), large.Height());
      for (int channel = 0; channel < 3; ++channel)
        sum += std::abs(Mean(small, here, channel) - Mean(large, there, channel));
    }
  }
  return sum / (Grid * Grid * 3);
}

// Levels of 255. Small ones are coarse: a reduced JPEG of a few blocks is compressed once more.
constexpr double Most = 14;

using RealPixelsTest = RealPhotosRun;

TEST_F(RealPixelsTest, TheRoutesAndTheThumbnailShowWhatTheDecoderShows) {
  const std::vector<fs::path> photos = ShownPhotos();
  if (photos.empty()) GTEST_SKIP() << "no photos at hand";
  int directly = 0;
  int small = 0;
  for (const fs::path& photo : photos) {
    SCOPED_TRACE(photo.string());
    std::ifstream in(photo, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    const std::string path = "C:\\Photos\\a" + photo.extension().string();
    drive.Write(path, bytes);
    if (PictureFileFormat(run.files, path) == 0) continue;
    ASSERT_TRUE(LoadPictureFile(main, path, direct, false));
    const Bitmap& whole = direct.GetPicture().Pixels();
    const Bitmap decoded = DecodePicture({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    EXPECT_TRUE(SamePixels(whole, decoded));
    ++directly;
    // What shines through is another colour in each place.
    if (!LoadPictureFile(main, path, fast, true) || whole.Format() != PixelFormat::Bgr24) continue;
    const Picture& reduced = fast.GetPicture();
    const FittedRect all{0, 0, 1.0 * reduced.Width(), 1.0 * reduced.Height(), true};
    if (reduced.Width() >= 24 && reduced.Height() >= 18) {
      EXPECT_LT(Distance(reduced.Pixels(), all, whole), Most);
    }
    bool bDragged = true;
    PaintThumbnail(main, thumbnail, path, bDragged);
    const FittedRect inside = Fit(80, 60, reduced.Width(), reduced.Height());
    if (whole.Width() >= 32 && whole.Height() >= 24) {
      EXPECT_LT(Distance(thumbnail.GetPicture().Pixels(), inside, whole), Most);
    }
    ++small;
    drive.Remove("C:\\Photos");
  }
  // Some are pictures whose first bytes name none of the kinds.
  EXPECT_GT(directly, static_cast<int>(photos.size()) * 9 / 10);
  EXPECT_GT(small, directly * 9 / 10);
}

}  // namespace
}  // namespace pixorra
