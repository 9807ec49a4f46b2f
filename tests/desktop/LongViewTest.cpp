// Open folders that are longer than the bar's 16 bits are in units of 2 pixels, and rows of another length. The photos
// are cells without a file, so that there may be as many as cells have numbers.
#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"

namespace pixorra {
namespace {

constexpr int MostCells = 32767;

class LongViewTest : public DesktopTest {
 protected:
  // The cells 1 to `count`, made while the window is hidden.
  void OpenWith(int count) {
    ShowAndOpen(MakePhotos("A", 0));
    DestinationTick();
    main.Window.Hide();
    Grow(count);
    main.Window.SetVisible(true);
  }
  void Grow(int count) {
    while (desk.DestSlotCount < count)
      AddDestThumbnail(main, Folder("A") + "\\none" + std::to_string(desk.DestSlotCount) + ".bmp");
  }
  int TopOf(int cell) const { return desk.DestCanvas.Top() + desk.DestBackground(cell).Top(); }
  bool IsInView(int cell) const { return TopOf(cell) >= 0 && TopOf(cell) + 89 <= desk.DestThumbsWindow.Height(); }
  int Scrolled() const { return desk.DestScrollbar.Value() * desk.DestBarScale.Unit; }
  // Each cell around the view is where the bar says, and the page is a whole number of 50 rows.
  void ExpectViewAtBar() const {
    const int top = Scrolled() / 89;
    for (int row = std::max(0, top - 3); row <= std::min((desk.DestSlotCount - 1) / desk.DestColumns, top + 6); ++row) {
      const int cell = row * desk.DestColumns + 1;
      ASSERT_EQ(TopOf(cell), 89 * row - Scrolled()) << "cell " << cell;
      ASSERT_EQ(desk.DestBackground(cell).Left(), 0) << "cell " << cell;
    }
    EXPECT_EQ(desk.DestPageBase % (50 * desk.DestColumns), 0);
    EXPECT_NEAR(static_cast<double>(desk.DestPageBase) / desk.DestColumns + 25, Scrolled() / 89.0, 26);
  }
  // Outer pixels.
  void Resize(int width, int height) {
    person.Resize(main.Window, width - 8, height - 47);
    run.Wait(0.2);
  }
};

TEST_F(LongViewTest, TheBarCountsInTwoPixelsWhileTheViewFits) {
  // 738 rows of two columns: (739 x 89 - the window's height) / 2 is the most that fits.
  const int rows = (2 * 32767 + desk.DestThumbsWindow.Height()) / 89 - 1;
  OpenWith(2 * rows - 1);
  EXPECT_EQ(desk.DestBarScale.Unit, 2);
  EXPECT_GT(desk.DestScrollbar.Max(), 32767 - 45);
  Grow(2 * rows + 1);
  EXPECT_EQ(desk.DestBarScale.Unit, 4);
  EXPECT_EQ(desk.DestCountLabel.Caption(), std::to_string(2 * rows + 1));
  EXPECT_NEAR(4.0 * desk.DestScrollbar.Max(), (rows + 2) * 89.0 - desk.DestThumbsWindow.Height(), 4);
}

TEST_F(LongViewTest, ThePhotoInViewStaysInViewWhileTheFolderLoads) {
  OpenWith(1400);
  person.MoveBar(desk.DestScrollbar, 89 * 300 / 2);
  ASSERT_EQ(TopOf(601), 0);
  for (const int count : {1450, 1500, 2000, 3000, 4500, 6000}) {
    Grow(count);
    ASSERT_LE(std::abs(TopOf(601)), desk.DestBarScale.Unit) << count;
    ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar()) << count;
  }
  EXPECT_EQ(desk.DestBarScale.Unit, 10);
}

TEST_F(LongViewTest, TheLastPhotoIsReachedByThumbArrowAndPixels) {
  OpenWith(3000);
  ScrollBar& bar = desk.DestScrollbar;
  for (const int value : {1, 17, 2333, 5551, 9973, 12007, 16001}) {
    person.MoveBar(bar, value);
    ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar()) << value;
  }
  person.DragBar(bar, 32767);
  EXPECT_TRUE(IsInView(3000));
  person.MoveBar(bar, bar.Max() - 500);
  EXPECT_FALSE(IsInView(3000));
  while (bar.Value() < bar.Max()) person.MoveBar(bar, bar.Value() + bar.SmallChange());
  EXPECT_TRUE(IsInView(3000));
  person.MoveBar(bar, 1);
  for (int row = 0; row < 1500; ++row) ScrollDestBy(main, 89);
  EXPECT_TRUE(IsInView(3000));
  ExpectViewAtBar();
}

TEST_F(LongViewTest, TheFirstRowIsSeenWholeHoweverLongTheFolder) {
  OpenWith(10000);
  ASSERT_EQ(desk.DestBarScale.Unit, 14);
  EXPECT_GE(TopOf(1), 0) << "as it has been loaded";
  person.MoveBar(desk.DestScrollbar, 300);
  ASSERT_LT(TopOf(1), 0);
  person.MoveBar(desk.DestScrollbar, desk.DestScrollbar.Min());
  EXPECT_EQ(TopOf(1), 0);
  ScrollDestBy(main, 500);
  ScrollDestBy(main, -600);
  EXPECT_EQ(TopOf(1), 0);
  ExpectViewAtBar();
}

TEST_F(LongViewTest, TheLeastValueIsOneAgainWhereTheViewFitsUnitsOfTwoPixels) {
  OpenWith(1800);
  ASSERT_EQ(desk.DestBarScale.Unit, 4);
  person.MoveBar(desk.DestScrollbar, 0);
  Resize(980, 606);
  ASSERT_EQ(desk.DestBarScale.Unit, 2);
  EXPECT_EQ(desk.DestScrollbar.Min(), 1);
  EXPECT_EQ(desk.DestScrollbar.Value(), 1);
  ExpectViewAtBar();
  Resize(782, 606);
  ASSERT_EQ(desk.DestBarScale.Unit, 4);
  EXPECT_EQ(desk.DestScrollbar.Min(), 0);
  EXPECT_EQ(TopOf(1), 0);
}

TEST_F(LongViewTest, TheLastOfAllCellsIsReached) {
  OpenWith(MostCells);
  EXPECT_EQ(desk.DestBarScale.Unit, 46);  // 16,384 rows of 89 pixels
  AddDestThumbnail(main, Folder("A") + "\\oneMore.bmp");
  EXPECT_EQ(desk.DestSlotCount, MostCells);
  for (const int value : {101, 3001, 17011, 31013}) {
    person.MoveBar(desk.DestScrollbar, value);
    ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar()) << value;
  }
  person.DragBar(desk.DestScrollbar, 32767);
  EXPECT_TRUE(IsInView(MostCells));
}

TEST_F(LongViewTest, AnotherFolderBeginsInTwoPixelsAtItsTop) {
  OpenWith(3000);
  person.MoveBar(desk.DestScrollbar, 16000);
  ShowAndOpen(MakePhotos("B", 3));
  DestinationTick();
  run.LoadAll();
  EXPECT_EQ(desk.DestBarScale.Unit, 2);
  EXPECT_EQ(desk.DestPageBase, 0);
  EXPECT_EQ(TopOf(1), -2) << "the bar's least value is 1";
}

// --- rows of another length ------------------------------------------------------------------------------------------

TEST_F(LongViewTest, AWiderWindowKeepsTheRowsPhotoAtTheTopOnEveryPage) {
  OpenWith(900);
  ASSERT_EQ(desk.DestColumns, 2);
  for (const int cell : {1, 85, 101, 333, 601}) {
    Resize(782, 606);
    person.MoveBar(desk.DestScrollbar, std::max(1, (cell - 1) / 2 * 89 / 2));
    const int top = TopOf(cell);
    for (const int width : {880, 980, 782}) {
      Resize(width, 606);
      EXPECT_NEAR(TopOf(cell), top, 2) << cell << " in " << desk.DestColumns << " columns";
      ASSERT_NO_FATAL_FAILURE(ExpectViewAtBar()) << cell << " in " << desk.DestColumns << " columns";
    }
    ASSERT_EQ(desk.DestColumns, 2);
  }
}

TEST_F(LongViewTest, AWiderWindowKeepsTheSelectedPhotoInItsPlace) {
  OpenWith(900);
  person.MoveBar(desk.DestScrollbar, 201 * 89 / 2);
  person.Click(desk.DestThumbnail(407));
  const int top = TopOf(407);
  ASSERT_TRUE(IsInView(407));
  for (const int width : {880, 980, 782}) {
    Resize(width, 606);
    EXPECT_NEAR(TopOf(407), top, 2) << desk.DestColumns << " columns";
    EXPECT_EQ(desk.DestThumbFrame.Top(), desk.DestThumbnail(407).Top());
    ExpectViewAtBar();
  }
}

TEST_F(LongViewTest, AnEmptyViewTakesAnyNumberOfColumns) {
  Resize(980, 606);
  EXPECT_EQ(desk.DestColumns, 4);
  EXPECT_EQ(desk.DestPageBase, 0);
  EXPECT_EQ(desk.DestScrollbar.Max(), 50);
}

}  // namespace
}  // namespace pixorra
