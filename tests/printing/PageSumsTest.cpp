// Where photos of all shapes lie on a page, and what is seen of one that is larger than it.
#include <gtest/gtest.h>
#include <ostream>

#include "platform/runtime/Errors.h"
#include "printing/PageSums.h"

namespace pixorra {

void PrintTo(const PageRect& rect, std::ostream* out) {
  *out << rect.X << ", " << rect.Y << ", " << rect.W << " x " << rect.H;
}

namespace {

constexpr float PageWidth = 15000;
constexpr float PageHeight = 11000;

TEST(PageSumsTest, ALandscapePhotoIsScaledByItsWidth) {
  EXPECT_EQ(PlaceOnPage(PageWidth, PageHeight, 0.78F, 1600.0F / 1200), (PageRect{1650, 1112, 11700, 8775}));
}

TEST(PageSumsTest, AnUprightPhotoIsScaledByItsHeight) {
  EXPECT_EQ(PlaceOnPage(PageWidth, PageHeight, 0.5F, 0.75F), (PageRect{5438, 2750, 4125, 5500}));
}

TEST(PageSumsTest, ASquarePhotoIsScaledByItsWidth) {
  EXPECT_EQ(PlaceOnPage(PageWidth, PageHeight, 0.5F, 1), (PageRect{3750, 1750, 7500, 7500}));
}

TEST(PageSumsTest, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(PlaceOnPage(15, 11, 1, 1.25F).Y, 0) << "of -0.5";
  EXPECT_EQ(PlaceOnPage(18, 11, 0.5F, 1).X, 4) << "of 4.5";
  EXPECT_EQ(PlaceOnPage(22, 11, 0.5F, 1).X, 6) << "of 5.5";
}

TEST(PageSumsTest, AtFullSizeTheLongSideIsThePages) {
  EXPECT_EQ(PlaceOnPage(PageWidth, PageHeight, 1, 1.5F), (PageRect{0, 500, 15000, 10000}));
  EXPECT_EQ(PlaceOnPage(PageWidth, PageHeight, 1, 0.5F), (PageRect{4750, 0, 5500, 11000}));
}

TEST(PageSumsTest, APhotoOnThePageIsSeenWhole) {
  PageRect place{0, 0, 15000, 10000};
  EXPECT_EQ(CutAtPageEdges(place, 24000, 16000), (PageRect{0, 0, 24000, 16000}));
  EXPECT_EQ(place, (PageRect{0, 0, 15000, 10000}));
}

TEST(PageSumsTest, AWidePhotoIsCutAlikeAtBothSidesAndItsPlaceStaysOffThePage) {
  PageRect place = PlaceOnPage(PageWidth, PageHeight, 1.5F, 3);
  EXPECT_EQ(place, (PageRect{-3750, 1750, 22500, 7500}));
  EXPECT_EQ(CutAtPageEdges(place, 45000, 15000), (PageRect{7500, 0, 30000, 15000}));
  EXPECT_EQ(place, (PageRect{-3750, 1750, 15000, 7500}));
}

TEST(PageSumsTest, WhatIsCutOffTheHeightFollowsTheWidth) {
  PageRect place = PlaceOnPage(PageWidth, PageHeight, 1.5F, 4.0F / 3);
  EXPECT_EQ(place, (PageRect{-3750, -2938, 22500, 16875}));
  // 4000 of the width at each side; 2938 / 16875 of the 16000 that are left of it, not of the height.
  EXPECT_EQ(CutAtPageEdges(place, 24000, 18000), (PageRect{4000, 2785, 16000, 12430}));
  EXPECT_EQ(place, (PageRect{-3750, -2938, 15000, 10999}));
  PageRect upright = PlaceOnPage(PageWidth, PageHeight, 1.5F, 0.5F);
  EXPECT_EQ(upright, (PageRect{3375, -2750, 8250, 16500}));
  EXPECT_EQ(CutAtPageEdges(upright, 12000, 24000), (PageRect{0, 2000, 12000, 20000}));
}

TEST(PageSumsTest, WhatIsCutIsRoundedDown) {
  PageRect place{-1, 0, 3, 3};
  EXPECT_EQ(CutAtPageEdges(place, 100, 100), (PageRect{33, 0, 34, 100}));
}

TEST(PageSumsTest, APlaceBeyond32BitsIsAnOverflow) {
  EXPECT_EQ(ErrorsIgnored([] { PlaceOnPage(PageWidth, PageHeight, 1, 0.0F / 0.0F); }), error::Overflow);
  EXPECT_EQ(ErrorsIgnored([] { PlaceOnPage(PageWidth, PageHeight, 1.5F, 1e-9F); }), error::None);
  EXPECT_EQ(ErrorsIgnored([] { PlaceOnPage(3e9F, PageHeight, 1, 1); }), error::Overflow);
}

}  // namespace
}  // namespace pixorra
