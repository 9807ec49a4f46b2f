// The names of papers by the printer's code.
#include <gtest/gtest.h>

#include "printing/PaperNames.h"

namespace pixorra {
namespace {

TEST(PaperNamesTest, APaperHasAShortNameAndALongOneWithItsSize) {
  EXPECT_EQ(ShortPaperName(1), "Letter");
  EXPECT_EQ(LongPaperName(1), "Letter, 8 1/2 x 11 in.");
  EXPECT_EQ(ShortPaperName(9), "A4");
  EXPECT_EQ(LongPaperName(9), "A4, 210 x 297 mm");
  EXPECT_EQ(ShortPaperName(16), "10x14\"");
  EXPECT_EQ(LongPaperName(16), "10 x 14 in.");
  EXPECT_EQ(ShortPaperName(256), "User");
  EXPECT_EQ(LongPaperName(256), "User-defined");
}

TEST(PaperNamesTest, EnvelopesOfDifferentSizesAreToldApart) {
  EXPECT_EQ(ShortPaperName(28), "Envelope C5");
  EXPECT_EQ(ShortPaperName(29), "Envelope C3");
  EXPECT_EQ(ShortPaperName(30), "Envelope C4");
  EXPECT_EQ(ShortPaperName(36), ShortPaperName(38));
  EXPECT_EQ(LongPaperName(36), "Envelope, 110 x 230 mm");
  EXPECT_EQ(LongPaperName(38), "Envelope, 3 5/8 x 6 1/2 in.");
}

TEST(PaperNamesTest, EveryCodeFrom1To41HasBothNames) {
  for (int code = 1; code <= 41; ++code) {
    EXPECT_NE(ShortPaperName(code), "Unknown") << code;
    EXPECT_NE(LongPaperName(code), "Unknown") << code;
  }
}

TEST(PaperNamesTest, AnyOtherCodeIsUnknown) {
  for (const int code : {-1, 0, 42, 255, 257}) {
    EXPECT_EQ(ShortPaperName(code), "Unknown") << code;
    EXPECT_EQ(LongPaperName(code), "Unknown") << code;
  }
}

}  // namespace
}  // namespace pixorra
