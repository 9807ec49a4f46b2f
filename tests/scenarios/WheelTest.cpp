// The mouse wheel and the touch pad over the strip, the open folder and their bars.
#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class WheelTest : public ProgramTest {
 protected:
  static constexpr int Photos = 30;

  WheelTest() {
    for (int i = 1; i <= Photos; ++i) {
      const std::string name = (i < 10 ? "0" : "") + std::to_string(i) + ".bmp";
      drive.Write("C:\\Strip\\" + name, BmpPhoto(8, 8));
      drive.Write("C:\\Folder\\" + name, BmpPhoto(8, 8));
    }
    WriteSavedState(StateLines("C:\\Strip", {"C:\\Folder"}));
    Started().LoadAll();
    strip().AllOption.SetValue(true);
    strip().AutoScrollPending = false;
    strip().SrcScrollbar.SetValue(0);
  }
  ProgramRun& run() { return *current_; }
  FilmStripState& strip() { return run().main.strip; }
  DesktopState& desk() { return run().main.desk; }
  // The left edge of a photo in the strip's window, and the top edge of one in the open folder's, pixels.
  int LeftOf(int slot) { return strip().SrcCanvas.Left() + strip().SrcBackground(slot).Left(); }
  int TopOf(int cell) { return desk().DestCanvas.Top() + desk().DestBackground(cell).Top(); }
  ProgramRun& Started() { return *(current_ = &ProgramTest::Started()); }

 private:
  ProgramRun* current_ = nullptr;
};

TEST_F(WheelTest, ANotchOverAPhotoOfTheStripMovesItByOneFrame) {
  ASSERT_EQ(LeftOf(1), 0);
  run().person.TurnWheel(strip().SrcThumbnail(2), {.NotchesY = 1});
  EXPECT_NEAR(LeftOf(2), 0, 1);
  run().person.TurnWheel(strip().SrcThumbnail(3), {.NotchesY = 2});
  EXPECT_NEAR(LeftOf(4), 0, 1);
  run().person.TurnWheel(strip().SrcThumbnail(5), {.NotchesY = -3});
  EXPECT_EQ(LeftOf(1), 0);
  run().person.TurnWheel(strip().SrcThumbnail(2), {.NotchesY = -1});
  EXPECT_EQ(LeftOf(1), 0) << "it stops at its end";
}

TEST_F(WheelTest, TheStripMovesWhicheverWayTheWheelTurnsAndOverItsBarToo) {
  run().person.TurnWheel(strip().SrcThumbnail(2), {.NotchesX = 1});
  EXPECT_NEAR(LeftOf(2), 0, 1);
  run().person.TurnWheel(strip().SrcThumbnail(3), {.NotchesY = 1, .Shift = shift::Shift});
  EXPECT_NEAR(LeftOf(3), 0, 1);
  run().person.TurnWheel(strip().SrcScrollbar, {.NotchesY = 1});
  EXPECT_NEAR(LeftOf(4), 0, 1);
}

TEST_F(WheelTest, ATouchPadMovesTheStripPixelByPixelAlongItsMainDirection) {
  for (int i = 0; i < 20; ++i) run().person.TurnWheel(strip().SrcThumbnail(2), {.PixelsX = 3, .PixelsY = -1});
  EXPECT_NEAR(LeftOf(1), -60, 1);
  for (int i = 0; i < 20; ++i) run().person.TurnWheel(strip().SrcThumbnail(2), {.PixelsX = 1, .PixelsY = -2});
  EXPECT_NEAR(LeftOf(1), -20, 1);
}

TEST_F(WheelTest, ANotchOverTheOpenFolderOrItsBarMovesItByOneRow) {
  const int columns = desk().DestColumns;
  const int top = TopOf(1);
  run().person.TurnWheel(desk().DestThumbnail(1), {.NotchesY = 1});
  EXPECT_NEAR(TopOf(1 + columns), top, 1);
  run().person.TurnWheel(desk().DestScrollbar, {.NotchesY = 2});
  EXPECT_NEAR(TopOf(1 + 3 * columns), top, 1);
  run().person.TurnWheel(desk().DestScrollbar, {.NotchesX = 2});
  EXPECT_NEAR(TopOf(1 + 3 * columns), top, 1) << "it has no way to the side";
  run().person.TurnWheel(desk().DestScrollbar, {.PixelsY = -20});
  EXPECT_NEAR(TopOf(1 + 3 * columns), top + 20, 1);
}

TEST_F(WheelTest, ElsewhereTheWheelMovesNothing) {
  const int strip = LeftOf(1);
  const int folder = TopOf(1);
  run().person.TurnWheel(desk().DesktopImage, {.NotchesY = 3});
  run().person.TurnWheel(run().main.preview.PicPreview, {.NotchesY = 3});
  EXPECT_EQ(LeftOf(1), strip);
  EXPECT_EQ(TopOf(1), folder);
}

TEST_F(WheelTest, TurningTheWheelStopsAPendingAutoScroll) {
  strip().AutoScrollPending = true;
  run().person.TurnWheel(strip().SrcScrollbar, {.NotchesY = 1});
  EXPECT_FALSE(strip().AutoScrollPending);
}

}  // namespace
}  // namespace pixorra
