// Moving the selection through the open folder by key.
#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

// At the smallest window two cells stand in a row.
class OpenFolderKeysTest : public DesktopTest {
 protected:
  void Open(int photos) {
    ShowAndOpen(MakePhotos("A", photos));
    run.LoadAll();
  }
  int Beeps() const { return run.platform.dialogs.Beeps(); }
  int Cell() const { return desk.DestThumbFrame.Visible() ? SelectedCell(desk) : 0; }
  int TopOf(int cell) const { return desk.DestBackground(cell).Top() + desk.DestCanvas.Top(); }
  // Of the room around the thumbnail and its name some may be cut off: the view moves by whole rows and a unit of its
  // bar.
  bool InView(int cell) const {
    constexpr int room = 9;  // pixels
    return TopOf(cell) >= -room && TopOf(cell) + 89 <= desk.DestThumbsWindow.Height() + room;
  }
};

TEST_F(OpenFolderKeysTest, WithNothingSelectedUpAndDownBeginInTheOpenFolder) {
  Open(3);
  person.Key(key::Down);
  EXPECT_EQ(Cell(), 1);
  EXPECT_EQ(desk.DestScrollbar.Value(), main.strip.SrcScrollbar.LargeChange());
  EXPECT_EQ(SelectedPhoto(main.preview), Folder("A") + "\\p001.bmp");
  EXPECT_FALSE(main.strip.SrcThumbFrame.Visible());
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(OpenFolderKeysTest, WithNoFolderOpenTheyBeepAndLeaveTheKeysToTheStrip) {
  person.Key(key::Up);
  EXPECT_EQ(Beeps(), 1);
  EXPECT_EQ(Cell(), 0);
  EXPECT_FALSE(desk.DestThumbFrame.Visible());
}

TEST_F(OpenFolderKeysTest, EachArrowMovesByItsStepAndBeepsAtItsEdge) {
  Open(5);
  ASSERT_EQ(desk.DestColumns, 2);
  struct Move {
    int From;
    int Key;
    int To;  // 0: a beep, and the selection stays
  };
  for (const Move& move : {Move{1, key::Left, 0}, Move{2, key::Left, 1}, Move{3, key::Left, 2}, Move{4, key::Right, 5},
                           Move{5, key::Right, 0}, Move{1, key::Up, 0}, Move{2, key::Up, 0}, Move{3, key::Up, 1},
                           Move{5, key::Up, 3}, Move{1, key::Down, 3}, Move{3, key::Down, 5},
                           // Five cells: beyond the third the last row is near, short as it is.
                           Move{4, key::Down, 0}, Move{5, key::Down, 0}}) {
    person.Click(desk.DestThumbnail(move.From));
    const int before = Beeps();
    person.Key(move.Key);
    EXPECT_EQ(Cell(), move.To == 0 ? move.From : move.To) << move.From << " by " << move.Key;
    EXPECT_EQ(Beeps() - before, move.To == 0 ? 1 : 0) << move.From << " by " << move.Key;
  }
}

TEST_F(OpenFolderKeysTest, ASelectionThatLeavesTheViewTakesItAlong) {
  Open(30);
  const int rows = (desk.DestThumbsWindow.Height() + 2) / 89;  // wholly in view at value 1
  for (int i = 0; i < rows; ++i) person.Key(key::Down);
  EXPECT_EQ(desk.DestScrollbar.Value(), 1);
  person.Key(key::Down);
  // (2 x 1 + 89) / 2 is 46 (to the even neighbour), (2 x 46 + 178) / 2 is 135.
  EXPECT_EQ(desk.DestScrollbar.Value(), 135);
  EXPECT_TRUE(InView(Cell()));
  while (Cell() > 2) {
    person.Key(key::Up);
    ASSERT_TRUE(InView(Cell())) << Cell();
  }
  EXPECT_EQ(Cell(), 1);
}

TEST_F(OpenFolderKeysTest, FromEndToEndOfAFolderOfSeveralPagesTheSelectionStaysInView) {
  Open(220);
  person.Key(key::Down);
  for (int cell = 3; cell <= 219; cell += 2) {
    person.Key(key::Down);
    ASSERT_EQ(Cell(), cell);
    ASSERT_TRUE(InView(cell)) << cell;
  }
  person.Key(key::Right);
  for (int cell = 219; cell >= 1; --cell) {
    person.Key(key::Left);
    ASSERT_EQ(Cell(), cell);
    ASSERT_TRUE(InView(cell)) << cell;
  }
}

TEST_F(OpenFolderKeysTest, ACellThatWasScrolledFarAwayComesBackIntoView) {
  Open(60);
  person.Key(key::Down);
  person.MoveBar(desk.DestScrollbar, desk.DestScrollbar.Max());
  person.Key(key::Right);
  EXPECT_EQ(Cell(), 2);
  EXPECT_TRUE(InView(2));
}

}  // namespace
}  // namespace pixorra
