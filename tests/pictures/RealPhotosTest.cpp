// Real picture files, whole and broken, through the loader and the thumbnails' painting. Without them there is
// nothing to try.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <vector>

#include "pictures/PaintPhoto.h"
#include "pictures/PictureLoader.h"
#include "tests/pictures/RealPhotosRun.h"
#include "tests/support/RealPhotos.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> AllPhotos() {
  std::vector<fs::path> photos;
  std::error_code none;
  for (const auto& entry : fs::recursive_directory_iterator(PhotosFolder(), none)) {
    const std::string kind = entry.path().extension();
    if (entry.is_regular_file() && kind != ".tsv" && kind != ".md") photos.push_back(entry.path());
  }
  std::sort(photos.begin(), photos.end());
  return photos;
}

// As many as manifest.tsv lists, a line each behind its first one; without a list, however many there are.
std::size_t Listed(const std::vector<fs::path>& photos) {
  std::error_code none;
  for (fs::path folder = photos.front().parent_path(); folder != folder.root_path(); folder = folder.parent_path()) {
    if (!fs::exists(folder / "manifest.tsv", none)) continue;
    std::ifstream in(folder / "manifest.tsv");
    const auto lines = std::count(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>(), '\n');
    return static_cast<std::size_t>(lines) - 1;
  }
  return photos.size();
}

using RealPhotosTest = RealPhotosRun;

TEST_F(RealPhotosTest, EveryFileIsShownOrRefusedByBothRoutesAndNoneIsTouched) {
  const std::vector<fs::path> photos = AllPhotos();
  if (photos.empty()) GTEST_SKIP() << "no photos at hand";
  EXPECT_EQ(photos.size(), Listed(photos));
  int shown = 0;
  for (const fs::path& photo : photos) {
    SCOPED_TRACE(photo.string());
    std::ifstream in(photo, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    const std::string path = "C:\\Photos\\" + std::to_string(shown % 2) + photo.extension().string();
    drive.Write(path, bytes);
    const int format = PictureFileFormat(run.files, path);
    direct.SetPicture(Picture());
    fast.SetPicture(Picture());
    const bool directly = LoadPictureFile(main, path, direct, false);
    const bool quickly = LoadPictureFile(main, path, fast, true);
    EXPECT_FALSE(format == 0 && (directly || quickly));
    EXPECT_EQ(directly, !direct.GetPicture().IsNothing());
    EXPECT_EQ(quickly, !fast.GetPicture().IsNothing());
    // Only JPEG files have a road of their own.
    EXPECT_TRUE(directly || !quickly || format == 3);
    bool bDragged = true;
    PaintThumbnail(main, thumbnail, path, bDragged);
    EXPECT_FALSE(thumbnail.GetPicture().IsNothing());
    // Thumbnails come by the fast route.
    EXPECT_EQ(thumbnail.GetPicture() == main.pictures.InvalidPicture, !quickly);
    EXPECT_EQ(bDragged, !quickly);
    if (quickly) ++shown;
    EXPECT_TRUE(drive.Read(path) == bytes);
    drive.Remove("C:\\Photos");
  }
  EXPECT_GT(shown, static_cast<int>(photos.size()) / 3);
}

}  // namespace
}  // namespace pixorra
