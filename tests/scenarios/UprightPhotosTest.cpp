// Photos of a camera that was held in each of the eight ways, and one in printing inks, wherever the program shows
// them.
#include <algorithm>
#include <gtest/gtest.h>

#include "filmstrip/Scrolling.h"
#include "tests/platform/codecs/SeenAt.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr int Width = 320;
constexpr int Height = 240;
constexpr int Orientations = 8;

// What was before the camera: a colour in each corner, red and green at the top, blue and white at the bottom.
Bitmap Scene() {
  Bitmap scene = PlainBitmap(Width, Height, 0x00FFFFFF);
  const auto paint = [&scene](int left, int top, Colour colour) {
    for (int y = top; y < top + Height / 2; ++y) {
      for (int x = left; x < left + Width / 2; ++x) {
        std::uint8_t* pixel = scene.Row(y) + 3 * x;
        pixel[0] = static_cast<std::uint8_t>(colour >> 16);
        pixel[1] = static_cast<std::uint8_t>(colour >> 8);
        pixel[2] = static_cast<std::uint8_t>(colour);
      }
    }
  };
  paint(0, 0, 0x000000FF);
  paint(Width / 2, 0, 0x0000FF00);
  paint(0, Height / 2, 0x00FF0000);
  return scene;
}

// The same as the camera stores it.
Bitmap Stored(int orientation) {
  const Bitmap scene = Scene();
  const bool onItsSide = orientation >= 5;
  const int width = onItsSide ? Height : Width;
  const int height = onItsSide ? Width : Height;
  Bitmap stored(width, height, PixelFormat::Bgr24);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto [seenX, seenY] = SeenAt(orientation, x, y, width, height);
      std::copy_n(scene.Row(seenY) + 3 * seenX, 3, stored.Row(y) + 3 * x);
    }
  }
  return stored;
}

// The colours near the four corners, each channel 0 or 1: "R G B W" for the scene upright.
std::string Corners(const Picture& picture) {
  if (picture.IsNothing()) return "nothing";
  const Bitmap& pixels = picture.Pixels();
  std::string corners;
  for (const int y : {pixels.Height() / 10, pixels.Height() * 9 / 10}) {
    for (const int x : {pixels.Width() / 10, pixels.Width() * 9 / 10}) {
      const std::uint8_t* pixel = pixels.Row(y) + x * pixels.BytesPerPixel();
      const int colour = (pixel[2] > 180  ? 4
                          : pixel[2] < 75 ? 0
                                          : 8) +
                         (pixel[1] > 180  ? 2
                          : pixel[1] < 75 ? 0
                                          : 8) +
                         (pixel[0] > 180  ? 1
                          : pixel[0] < 75 ? 0
                                          : 8);
      corners += colour == 4 ? "R" : colour == 2 ? "G" : colour == 1 ? "B" : colour == 7 ? "W" : "?";
    }
  }
  return corners;
}

// With the name of the kind first, as image editors write it: the library begins such a file with another segment.
std::string WithJfifName(std::string jpeg) {
  return jpeg.insert(2, std::string("\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0", 18));
}

class UprightPhotosTest : public ProgramTest {
 protected:
  // The strip and the open folder have the same photos. Wide enough to show them all.
  ProgramRun& Begin() {
    SavedState saved;
    saved.Window = "17500,11000,0,0,0";
    saved.FilmStrip = "C:\\Card";
    saved.Folders = {"C:\\Home\\Family"};
    WriteSavedState(saved);
    ProgramRun& run = Started();
    run.LoadAll();
    return run;
  }
  void WritePhoto(const std::string& name, const std::string& bytes) {
    drive.Write("C:\\Card\\" + name, bytes);
    drive.Write("C:\\Home\\Family\\" + name, bytes);
  }
  // Slot i of the strip and of the open folder, and the pane when each is chosen.
  static void ExpectUpright(ProgramRun& run, int i, const std::string& name) {
    SCOPED_TRACE(name);
    const PreviewState& preview = run.main.preview;
    EXPECT_EQ(Corners(run.main.strip.SrcThumbnail(i).GetPicture()), "RGBW");
    EXPECT_EQ(Corners(run.main.desk.DestThumbnail(i).GetPicture()), "RGBW");
    const std::string caption = " W320 x H240   " + name + " ";
    ScrollStripTo(run.main.strip, i, 1);
    for (ImageBox* thumbnail : {&run.main.strip.SrcThumbnail(i), &run.main.desk.DestThumbnail(i)}) {
      run.person.Click(*thumbnail);
      EXPECT_EQ(preview.PicPreviewSize.Caption(), caption);
      EXPECT_EQ(Corners(preview.PicPreview.GetPicture()), "RGBW");
    }
  }
};

TEST_F(UprightPhotosTest, HoweverTheCameraWasHeldThePhotoStandsUprightEverywhere) {
  for (int way = 1; way <= Orientations; ++way) {
    WritePhoto("way" + std::to_string(way) + ".jpg",
               JpegOf(Stored(way), {.quality = 95, .exif = true, .exifOrientation = way}));
  }
  ProgramRun& run = Begin();
  ASSERT_EQ(run.main.strip.SrcSlotCount, Orientations);
  ASSERT_EQ(run.main.desk.DestSlotCount, Orientations);
  for (int way = 1; way <= Orientations; ++way) ExpectUpright(run, way, "way" + std::to_string(way) + ".jpg");
  run.Close();
}

TEST_F(UprightPhotosTest, APhotoInPrintingInksShowsItsColoursEverywhere) {
  WritePhoto("inks.jpg", WithJfifName(JpegOf(Scene(), {.channels = 4, .quality = 95})));
  WritePhoto("turned.jpg",
             WithJfifName(JpegOf(Stored(6), {.channels = 4, .quality = 95, .exif = true, .exifOrientation = 6})));
  ProgramRun& run = Begin();
  ASSERT_EQ(run.main.strip.SrcSlotCount, 2);
  ASSERT_EQ(run.main.desk.DestSlotCount, 2);
  ExpectUpright(run, 1, "inks.jpg");
  ExpectUpright(run, 2, "turned.jpg");
  run.Close();
}

}  // namespace
}  // namespace pixorra
