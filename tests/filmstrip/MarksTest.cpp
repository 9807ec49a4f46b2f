// Marks of dragged photos: the dot screen, the double click, and what outlives the run.
#include <gtest/gtest.h>

#include "base/Palette.h"
#include "filmstrip/Marks.h"
#include "tests/filmstrip/StripTest.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr int RecordLength = 14776;
constexpr int MarkOffset = 14567;

// Blue, green, red of a pixel as one number, 0xRRGGBB.
int PixelOf(const Bitmap& bitmap, int x, int y) {
  const std::uint8_t* pixel = bitmap.Row(y) + x * bitmap.BytesPerPixel();
  return pixel[2] << 16 | pixel[1] << 8 | pixel[0];
}

class MarksTest : public StripTest {
 protected:
  // The marks of the cache file's records: 0 or -1 each, empty records included.
  std::vector<int> CachedMarks() const {
    const std::string bytes = drive.Read(PathOf("Thumbnails.tmp"));
    std::vector<int> marks;
    for (std::size_t at = MarkOffset; at < bytes.size(); at += RecordLength) {
      const auto low = static_cast<unsigned char>(bytes[at]);
      const auto high = static_cast<unsigned char>(bytes[at + 1]);
      marks.push_back(static_cast<std::int16_t>(low | high << 8));
    }
    return marks;
  }
  static void ExpectShaded(const Picture& picture, int rgb) {
    const Bitmap& pixels = picture.Pixels();
    ASSERT_EQ(pixels.Width(), 80);
    ASSERT_EQ(pixels.Height(), 60);
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 80; ++x) {
        ASSERT_EQ(PixelOf(pixels, x, y), x % 2 == 1 && y % 2 == 1 ? rgb : 0) << x << "," << y;
      }
    }
  }
  static void ExpectClean(const Picture& picture, int rgb) {
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 80; ++x) ASSERT_EQ(PixelOf(picture.Pixels(), x, y), rgb) << x << "," << y;
    }
  }
};

TEST_F(MarksTest, ADoubleClickOnTheFilmMarksAndASecondRecovers) {
  WritePhoto("a.bmp", 0x000000FF);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  ExpectClean(strip.SrcThumbnail(1).GetPicture(), 0xFF0000);

  run.person.DoubleClick(strip.SrcBackground(1));
  EXPECT_EQ(strip.SrcThumbName(1).Tag(), "MARK");
  EXPECT_EQ(strip.SrcThumbName(1).ForeColor(), 0x808080U);
  ExpectShaded(strip.SrcThumbnail(1).GetPicture(), 0xFF0000);
  EXPECT_EQ(CachedMarks(), std::vector<int>{-1});

  run.person.DoubleClick(strip.SrcBackground(1));
  EXPECT_EQ(strip.SrcThumbName(1).Tag(), "");
  EXPECT_EQ(strip.SrcThumbName(1).ForeColor(), strip.SrcThumbName(0).ForeColor());
  ExpectClean(strip.SrcThumbnail(1).GetPicture(), 0xFF0000);
  EXPECT_EQ(CachedMarks(), std::vector<int>{0});
}

TEST_F(MarksTest, ADoubleClickOnTheNameDoesTheSame) {
  WritePhotos(2);
  ProgramRun& run = LoadedStrip();
  run.person.DoubleClick(run.main.strip.SrcThumbName(2));
  EXPECT_FALSE(IsMarked(run, 1));
  EXPECT_TRUE(IsMarked(run, 2));
  run.person.DoubleClick(run.main.strip.SrcThumbName(2));
  EXPECT_FALSE(IsMarked(run, 2));
}

TEST_F(MarksTest, AMarkSurvivesTheProgramsEnd) {
  WritePhoto("a.bmp", 0x0000FF00);
  WritePhoto("b.bmp", 0x00FF0000);
  ProgramRun& first = LoadedStrip();
  first.person.DoubleClick(first.main.strip.SrcBackground(2));
  first.Close();
  ProgramRun& second = LoadedStrip();
  EXPECT_FALSE(IsMarked(second, 1));
  EXPECT_TRUE(IsMarked(second, 2));
  EXPECT_EQ(second.main.strip.SrcThumbName(2).ForeColor(), palette::DraggedText);
  ExpectClean(second.main.strip.SrcThumbnail(1).GetPicture(), 0x00FF00);
  ExpectShaded(second.main.strip.SrcThumbnail(2).GetPicture(), 0x0000FF);
  second.person.DoubleClick(second.main.strip.SrcBackground(2));
  ExpectClean(second.main.strip.SrcThumbnail(2).GetPicture(), 0x0000FF);
  second.Close();
  EXPECT_FALSE(IsMarked(LoadedStrip(), 2));
}

// A camera would hand out the whole file.
TEST_F(MarksTest, AMarkedPhotoThatIsInTheCacheIsNotOpenedToBeLoaded) {
  WritePhoto("a.bmp");
  ProgramRun& first = LoadedStrip();
  first.person.DoubleClick(first.main.strip.SrcBackground(1));
  first.Close();
  ProgramRun& second = StartedOnStrip();
  bool opened = false;
  second.files.BeforeNth(
      FileCall::OpenToRead, 1, [&opened] { opened = true; }, "a.bmp");
  second.LoadAll();
  EXPECT_TRUE(IsMarked(second, 1));
  EXPECT_FALSE(opened);
}

TEST_F(MarksTest, TheNextSlotsOfAMarkedOneComeUpClean) {
  WritePhotos(1);
  ProgramRun& first = LoadedStrip();
  first.person.DoubleClick(first.main.strip.SrcBackground(1));
  first.Close();
  WritePhoto(NumberedName(2));
  WritePhoto(NumberedName(3));
  ProgramRun& second = LoadedStrip();
  EXPECT_TRUE(IsMarked(second, 1));
  EXPECT_FALSE(IsMarked(second, 2));
  EXPECT_EQ(second.main.strip.SrcThumbName(2).ForeColor(), palette::FilmText);
}

TEST_F(MarksTest, APhotoThatCannotBeCachedIsMarkedForThisRun) {
  drive.Write(PathOf("a.bmp"), "");
  ProgramRun& run = LoadedStrip();
  run.person.DoubleClick(run.main.strip.SrcBackground(1));
  EXPECT_TRUE(IsMarked(run, 1));
  EXPECT_NE(run.main.strip.SrcThumbnail(1).GetPicture(), run.main.pictures.InvalidPicture);
  run.person.DoubleClick(run.main.strip.SrcBackground(1));
  EXPECT_FALSE(IsMarked(run, 1));
  EXPECT_EQ(run.main.strip.SrcThumbnail(1).GetPicture(), run.main.pictures.InvalidPicture);
}

TEST_F(MarksTest, APhotoThatHasGoneFromTheDiskCanStillBeMarked) {
  WritePhotos(2);
  ProgramRun& run = LoadedStrip();
  drive.Remove(PathOf(NumberedName(1)));
  run.person.DoubleClick(run.main.strip.SrcBackground(1));
  EXPECT_TRUE(IsMarked(run, 1));
}

TEST_F(MarksTest, OnlyAutoWantsTheScroll) {
  WriteEmpty(3);
  ProgramRun& run = LoadedStrip();
  FilmStripState& strip = run.main.strip;
  strip.AutoScrollPending = false;
  MarkDragged(run.main, strip.SrcThumbnail(1));
  EXPECT_TRUE(strip.AutoScrollPending);
  for (OptionButton* option : {&strip.AllOption, &strip.RemainingOption}) {
    run.person.Click(*option);
    strip.AutoScrollPending = false;
    MarkDragged(run.main, strip.SrcThumbnail(2));
    EXPECT_FALSE(strip.AutoScrollPending) << option->Name();
  }
}

TEST_F(MarksTest, TheFilmsToolTipTellsWhatADoubleClickWouldDo) {
  WriteEmpty(2);
  ProgramRun& run = LoadedStrip();
  const auto toolTip = [&run](int slot) {
    run.person.MoveTo(run.main.strip.SrcBackground(slot));
    return run.person.ToolTip(run.main.strip.SrcBackground(slot));
  };
  EXPECT_EQ(toolTip(1), "Double-Click to Discard Photo");
  run.person.DoubleClick(run.main.strip.SrcBackground(1));
  EXPECT_EQ(toolTip(2), "Double-Click to Discard Photo");
  EXPECT_EQ(toolTip(1), "Double-Click to Recover Photo");
}

TEST_F(MarksTest, MarksAreCounted) {
  WriteEmpty(4);
  ProgramRun& run = LoadedStrip();
  EXPECT_EQ(CheckDraggedPhotos(run.main.strip), 0);
  MarkDragged(run.main, run.main.strip.SrcThumbnail(1));
  MarkDragged(run.main, run.main.strip.SrcThumbnail(4));
  EXPECT_EQ(CheckDraggedPhotos(run.main.strip), 2);
}

}  // namespace
}  // namespace pixorra
