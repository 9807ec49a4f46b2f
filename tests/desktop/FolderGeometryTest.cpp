// Places of folder slots and of the open folder's cells, by numbers alone.
#include <gtest/gtest.h>

#include "desktop/FolderGeometry.h"

namespace pixorra {
namespace {

// The Desktop as the window is first defined.
constexpr FolderGrid Grid{{8, 192, 528, 360}, 138, 95};

TEST(FolderGeometryTest, StepsFollowFromTheDesktopAndTheIcon) {
  EXPECT_EQ(ColumnStepOf(Grid), 175);  // 174.67
  EXPECT_EQ(RowStepOf(Grid), 119);     // 118.75
}

TEST(FolderGeometryTest, StepsHalfWayGoToTheEvenNumber) {
  EXPECT_EQ(RowStepOf({{0, 0, 528, 287}, 138, 95}), 100);  // 100.5
  EXPECT_EQ(RowStepOf({{0, 0, 528, 291}, 138, 95}), 102);  // 101.5
}

TEST(FolderGeometryTest, ADesktopSmallerThanItsIconsLetsThemOverlap) {
  EXPECT_EQ(ColumnStepOf({{0, 0, 104, 360}, 138, 95}), 33);
  EXPECT_EQ(RowStepOf({{0, 0, 528, 85}, 138, 95}), 50);
}

TEST(FolderGeometryTest, SlotOneStandsAtTheTopLeft) {
  EXPECT_EQ(FolderIconPlace(Grid, 1), (Spot{23, 199}));
  EXPECT_EQ(FolderCountPlace(Grid, 1), (Spot{55, 199}));
  EXPECT_EQ(FolderNamePlace(Grid, 1, 40), (Spot{82, 295}));
  EXPECT_EQ(FolderPreviewPlace(Grid, 1, false), (Spot{62, 221}));
}

TEST(FolderGeometryTest, SlotsRunRowByRowInThreeColumns) {
  EXPECT_EQ(FolderIconPlace(Grid, 3), (Spot{373, 199}));
  EXPECT_EQ(FolderIconPlace(Grid, 4), (Spot{23, 318}));
  EXPECT_EQ(FolderIconPlace(Grid, 8), (Spot{198, 437}));
}

TEST(FolderGeometryTest, AnOpenFoldersPreviewLeans) {
  EXPECT_EQ(FolderPreviewPlace(Grid, 1, true), (Spot{52, 226}));
}

TEST(FolderGeometryTest, ANameOfOddWidthIsCentredToHalfAPixel) {
  EXPECT_EQ(FolderNamePlace(Grid, 1, 41), (Spot{81.5, 295}));
}

TEST(FolderGeometryTest, TheTrashcanHasTheNinthPlace) {
  const TrashcanPlaces places = PlacesAtTrashcan(Grid, 89);
  EXPECT_EQ(places.Icon, (Spot{463, 439}));
  EXPECT_EQ(places.Count, (Spot{473, 528}));
  EXPECT_EQ(places.Show, (Spot{375, 439}));
  EXPECT_EQ(places.Hide, (Spot{375, 528}));
}

TEST(FolderGeometryTest, CellsFillRowsFromTheSecondRowOfTheCanvas) {
  EXPECT_EQ(CellPlace(1, 0, 2), (Spot{0, 89}));
  EXPECT_EQ(CellPlace(2, 0, 2), (Spot{97, 89}));
  EXPECT_EQ(CellPlace(3, 0, 2), (Spot{0, 178}));
  EXPECT_EQ(CellPlace(8, 0, 3), (Spot{97, 267}));
}

TEST(FolderGeometryTest, OnALaterPageCellsCountFromItsBase) {
  EXPECT_EQ(CellPlace(101, 100, 2), (Spot{0, 89}));
  EXPECT_EQ(CellPlace(104, 100, 2), (Spot{97, 178}));
}

TEST(FolderGeometryTest, TheRowAheadOfThePageStandsWholeAboveIt) {
  EXPECT_EQ(CellPlace(99, 100, 2), (Spot{0, 0}));
  EXPECT_EQ(CellPlace(100, 100, 2), (Spot{97, 0}));
  EXPECT_EQ(CellPlace(1, 100, 2), (Spot{0, -49 * 89}));
}

TEST(FolderGeometryTest, ThePageTurnsEveryFiftyRows) {
  // Row 50 begins at 4450 pixels, 2225 units; the cell on top is rounded.
  EXPECT_EQ(PageBaseFor(2 * 1, 3), 0);
  EXPECT_EQ(PageBaseFor(2 * 2217, 3), 0);    // 149.46
  EXPECT_EQ(PageBaseFor(2 * 2218, 3), 150);  // 149.53
  EXPECT_EQ(PageBaseFor(2 * 4449, 3), 300);  // 299.93
  EXPECT_EQ(PageBaseFor(2 * 2225, 1), 50);
}

TEST(FolderGeometryTest, NothingJumpsWhenThePageTurns) {
  constexpr int scrolled = 4450;
  const double onFirstPage = CellPlace(151, 0, 3).Top + CanvasTopFor(scrolled, 0, 3);
  const double onSecondPage = CellPlace(151, 150, 3).Top + CanvasTopFor(scrolled, 150, 3);
  EXPECT_EQ(onFirstPage, onSecondPage);
  EXPECT_EQ(onSecondPage, 0);
}

TEST(FolderGeometryTest, TheCanvasMovesWithTheView) {
  EXPECT_EQ(CanvasTopFor(0, 0, 2), -89);
  EXPECT_EQ(CanvasTopFor(20, 0, 2), -109);
}

TEST(FolderGeometryTest, TheViewScrollsFurtherWithMoreRows) {
  EXPECT_EQ(ScrollLengthFor(20, 2, 348), 631);
  EXPECT_EQ(ScrollLengthFor(1, 2, 348), -170);  // fits the window
  EXPECT_EQ(ScrollLengthFor(32767, 4, 348), 728829);
}

TEST(FolderGeometryTest, AWideNameStaysOnTheDesktopAndOffItsNeighbours) {
  for (const int desktop : {534, 528, 800, 1500}) {
    const FolderGrid grid{{8, 100, desktop, 400}, 138, 95};
    const int width = FolderNameWidth(grid);
    EXPECT_GE(FolderNamePlace(grid, 1, width).Left, 8) << desktop;
    EXPECT_LE(FolderNamePlace(grid, 3, width).Left + width, 8 + desktop) << desktop;
    EXPECT_GT(FolderNamePlace(grid, 2, width).Left, FolderNamePlace(grid, 1, width).Left + width) << desktop;
  }
}

}  // namespace
}  // namespace pixorra
