// Numbers, texts and dates by pictures.
#include <gtest/gtest.h>

#include "platform/runtime/Format.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

DateValue Moment(int hour, int minute, int second) {
  return ToDateValue({2004, 3, 5, hour, minute, second, 0});
}

TEST(FormatNumber, PadsWithZerosToTheLengthOfThePicture) {
  EXPECT_EQ(FormatNumber(1, "00000"), "00001");
  EXPECT_EQ(FormatNumber(99999, "00000"), "99999");
  EXPECT_EQ(FormatNumber(0, "00000"), "00000");
  EXPECT_EQ(FormatNumber(-7, "000"), "-007");
}

TEST(FormatNumber, LongerNumbersStayWhole) {
  EXPECT_EQ(FormatNumber(100000, "00000"), "100000");
  EXPECT_EQ(FormatNumber(2147483648.0, "00000"), "2147483648");
}

TEST(FormatNumber, KeepsTheDecimalsOfThePicture) {
  EXPECT_EQ(FormatNumber(1.001, "0.0"), "1.0");
  EXPECT_EQ(FormatNumber(12, "0.0"), "12.0");
  EXPECT_EQ(FormatNumber(0.26, "0.0"), "0.3");
  EXPECT_EQ(FormatNumber(0.04, "0.0"), "0.0");
  EXPECT_EQ(FormatNumber(0.004, "0.0"), "0.0");
  EXPECT_EQ(FormatNumber(3.14159, "0.00"), "3.14");
}

TEST(FormatNumber, HalvesGoAwayFromZero) {
  EXPECT_EQ(FormatNumber(1.25, "0.0"), "1.3");
  EXPECT_EQ(FormatNumber(-1.25, "0.0"), "-1.3");
  EXPECT_EQ(FormatNumber(2.5, "0"), "3");
  EXPECT_EQ(FormatNumber(0.05, "0.0"), "0.1");
}

TEST(FormatNumber, RoundsTheDigitsThatAreSeen) {
  // The double next to 1.15 lies a little below it.
  EXPECT_EQ(FormatNumber(1.15, "0.0"), "1.2");
  EXPECT_EQ(FormatNumber(1.149, "0.0"), "1.1");
}

TEST(FormatNumber, CarriesIntoANewDigit) {
  EXPECT_EQ(FormatNumber(9.96, "0.0"), "10.0");
  EXPECT_EQ(FormatNumber(0.95, "0.0"), "1.0");
  EXPECT_EQ(FormatNumber(99999.5, "00000"), "100000");
}

TEST(FormatNumber, NothingLeftHasNoSign) {
  EXPECT_EQ(FormatNumber(-0.04, "0.0"), "0.0");
}

TEST(FormatText, SetsTheTextToTheRight) {
  EXPECT_EQ(FormatText("7", "@@@"), "  7");
  EXPECT_EQ(FormatText("982", "@@@"), "982");
  EXPECT_EQ(FormatText("1.0", "@@@@"), " 1.0");
  EXPECT_EQ(FormatText("", "@@"), "  ");
}

TEST(FormatText, ALongerTextStaysWhole) {
  EXPECT_EQ(FormatText("1000", "@@@"), "1000");
}

TEST(FormatText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(FormatText("é", "@@@"), "  é");
}

TEST(FormatDate, WritesTheDayInBothForms) {
  EXPECT_EQ(FormatDate(Moment(0, 0, 0), "DD-MMM-YYYY"), "05-Mar-2004");
  EXPECT_EQ(FormatDate(Moment(0, 0, 0), "d/mmm/yyyy"), "5/Mar/2004");
  EXPECT_EQ(FormatDate(DateSerial(1999, 12, 31), "d/mmm/yyyy"), "31/Dec/1999");
  EXPECT_EQ(FormatDate(DateSerial(100, 1, 1), "DD-MMM-YYYY"), "01-Jan-0100");
}

TEST(FormatDate, WritesTheTimeInBothForms) {
  EXPECT_EQ(FormatDate(Moment(14, 7, 9), "hh:mmampm"), "02:07pm");
  EXPECT_EQ(FormatDate(Moment(14, 7, 9), "hh:mm:ss AMPM"), "02:07:09 PM");
  EXPECT_EQ(FormatDate(Moment(2, 7, 9), "hh:mmampm"), "02:07am");
}

TEST(FormatDate, NoonAndMidnightAreTwelve) {
  EXPECT_EQ(FormatDate(Moment(0, 0, 0), "hh:mm:ss AMPM"), "12:00:00 AM");
  EXPECT_EQ(FormatDate(Moment(12, 0, 0), "hh:mm:ss AMPM"), "12:00:00 PM");
  EXPECT_EQ(FormatDate(Moment(11, 59, 59), "hh:mm:ss AMPM"), "11:59:59 AM");
}

TEST(FormatDate, HoursRunToTwentyThreeWithoutAHalfOfDay) {
  EXPECT_EQ(FormatDate(Moment(14, 7, 9), "hh:mm"), "14:07");
  EXPECT_EQ(FormatDate(Moment(0, 7, 9), "hh:mm:ss"), "00:07:09");
}

TEST(FormatDate, TwoMsAreTheMonthUnlessAnHourStandsAhead) {
  EXPECT_EQ(FormatDate(Moment(14, 7, 9), "dd.mm.yyyy hh:mm"), "05.03.2004 14:07");
}

TEST(FormatDate, RaisesOverflowOutsideItsYears) {
  EXPECT_EQ(ErrorOf([] { FormatDate(1e9, "d/mmm/yyyy"); }), 6);
}

}  // namespace
}  // namespace pixorra
