#include <gtest/gtest.h>

#include "platform/qt/printing/PaperCodes.h"

namespace pixorra {
namespace {

TEST(PaperCodesTest, EachCodeIsAPaperAndBackAgain) {
  for (int code = 1; code <= 41; ++code) {
    const QPageSize paper = PaperOfCode(code);
    EXPECT_TRUE(paper.isValid()) << code;
    EXPECT_EQ(PaperCodeOf(paper), code == 17 ? 3 : code) << "a tabloid sheet has two codes";
  }
}

TEST(PaperCodesTest, CodesHaveTheirUsualSizes) {
  EXPECT_EQ(PaperOfCode(1).size(QPageSize::Inch), QSizeF(8.5, 11));
  EXPECT_EQ(PaperOfCode(4).size(QPageSize::Inch), QSizeF(17, 11));
  EXPECT_EQ(PaperOfCode(7).size(QPageSize::Inch), QSizeF(7.25, 10.5));
  EXPECT_EQ(PaperOfCode(9).size(QPageSize::Millimeter), QSizeF(210, 297));
  EXPECT_EQ(PaperOfCode(13).size(QPageSize::Millimeter), QSizeF(182, 257));
  EXPECT_EQ(PaperOfCode(27).size(QPageSize::Millimeter), QSizeF(110, 220));
}

TEST(PaperCodesTest, SizesThatShareACodeWithAnotherHaveIt) {
  EXPECT_EQ(PaperCodeOf(QPageSize(QPageSize::Executive)), 7);
  EXPECT_EQ(PaperCodeOf(QPageSize(QPageSize::JisB4)), 12);
  EXPECT_EQ(PaperCodeOf(QPageSize(QPageSize::B5)), 34);
  EXPECT_EQ(PaperCodeOf(QPageSize(QPageSize::B6)), 35);
}

TEST(PaperCodesTest, OtherPapersAreUserDefined) {
  EXPECT_EQ(PaperCodeOf(QPageSize(QSizeF(100, 150), QPageSize::Millimeter)), UserDefinedPaper);
  EXPECT_EQ(PaperCodeOf(QPageSize(QPageSize::A6)), UserDefinedPaper);
  EXPECT_FALSE(PaperOfCode(0).isValid());
  EXPECT_FALSE(PaperOfCode(42).isValid());
  EXPECT_FALSE(PaperOfCode(UserDefinedPaper).isValid());
}

}  // namespace
}  // namespace pixorra
