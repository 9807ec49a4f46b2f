// Numbers: rounding, widths, and the two ways between numbers and texts.
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "platform/runtime/Numbers.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
}

TEST(Rounding, EverythingElseGoesToTheNearest) {
  EXPECT_EQ(RoundHalfEven(2.4999999), 2);
  EXPECT_EQ(RoundHalfEven(2.5000001), 3);
  EXPECT_EQ(RoundHalfEven(-2.5000001), -3);
  EXPECT_EQ(RoundHalfEven(0.49999999999999994), 0);
  EXPECT_EQ(RoundHalfEven(-0.49999999999999994), 0);
}

TEST(Rounding, HasNoLimitOfWidth) {
  EXPECT_EQ(RoundHalfEven(1e300), 1e300);
  EXPECT_EQ(RoundHalfEven(4503599627370497.5), 4503599627370498.0);
  EXPECT_EQ(RoundHalfEven(-Infinity), -Infinity);
  EXPECT_TRUE(std::isnan(RoundHalfEven(NaN)));
}

TEST(CInt, RoundsHalvesToEven) {
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(3.5), 4);
  EXPECT_EQ(CInt(-3.5), -4);
}

TEST(CInt, TakesAllOfSixteenBits) {
  EXPECT_EQ(CInt(32767.49), 32767);
  EXPECT_EQ(CInt(-32768.5), -32768);
}

TEST(CInt, RaisesOverflowBeyondSixteenBits) {
  EXPECT_EQ(ErrorOf([] { CInt(32767.5); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(-32768.51); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(1e300); }), 6);
  EXPECT_EQ(ErrorOf([] { CInt(NaN); }), 6);
}

TEST(CLng, TakesAllOfThirtyTwoBits) {
  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  EXPECT_EQ(CLng(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(CLng(4.5), 4);
}

TEST(CLng, RaisesOverflowBeyondThirtyTwoBits) {
  EXPECT_EQ(ErrorOf([] { CLng(2147483647.5); }), 6);
  EXPECT_EQ(ErrorOf([] { CLng(-2147483649.0); }), 6);
  EXPECT_EQ(ErrorOf([] { CLng(Infinity); }), 6);
  EXPECT_EQ(ErrorOf([] { CLng(NaN); }), 6);
}

TEST(Val, ReadsTheLeadingNumber) {
  EXPECT_EQ(Val("00012"), 12);
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("-3.25mm"), -3.25);
  EXPECT_EQ(Val("+7"), 7);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("5."), 5);
  EXPECT_EQ(Val("1.2.3"), 1.2);
}

TEST(Val, IsZeroWhereNoNumberLeads) {
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("holiday"), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("."), 0);
  EXPECT_EQ(Val("--1"), 0);
  EXPECT_EQ(Val("e5"), 0);
  EXPECT_EQ(Val("0"), 0);
  EXPECT_FALSE(std::signbit(Val("-0")));
}

TEST(Val, PassesOverBlanksTabsAndLineFeedsWhereverTheyStand) {
  EXPECT_EQ(Val("  \t\n 42"), 42);
  EXPECT_EQ(Val("1 6 15 198th"), 1615198);
  EXPECT_EQ(Val("- 1 . 5 e 1"), -15);
}

TEST(Val, ReadsAnExponentBehindEOrD) {
  EXPECT_EQ(Val("1E3"), 1000);
  EXPECT_EQ(Val("1.5d+2x"), 150);
  EXPECT_EQ(Val("25e-1"), 2.5);
}

TEST(Val, StopsAheadOfAnExponentWithoutDigits) {
  EXPECT_EQ(Val("12e"), 12);
  EXPECT_EQ(Val("12E+"), 12);
  EXPECT_EQ(Val("12dog"), 12);
}

TEST(Val, KeepsDigitFieldsLongerThanADoubleCanTell) {
  EXPECT_EQ(Val("123456789012345678"), 123456789012345678.0);
}

TEST(Val, RaisesOverflowBeyondADouble) {
  EXPECT_EQ(ErrorOf([] { Val("1E400"); }), 6);
  EXPECT_EQ(ErrorOf([] { Val("-1E99999999999999999999"); }), 6);
  EXPECT_EQ(ErrorOf([] { Val(std::string(400, '9')); }), 6);
  EXPECT_EQ(ErrorOf([] { Val("1" + std::string(500, '0') + "e-10"); }), 6);
}

TEST(Val, IsZeroForWhatIsTooSmallForADouble) {
  EXPECT_EQ(Val("1E-400"), 0);
  EXPECT_EQ(Val("1E-99999999999999999999"), 0);
  EXPECT_EQ(Val("." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(Val("0E99999999999999999999"), 0);
}

TEST(Val, ReadsHexadecimalAndOctalPrefixes) {
  EXPECT_EQ(Val("&H1f"), 31);
  EXPECT_EQ(Val(" &h 10 pictures"), 16);
  EXPECT_EQ(Val("&O17"), 15);
  EXPECT_EQ(Val("&o78"), 7);
  EXPECT_EQ(Val("&H"), 0);
  EXPECT_EQ(Val("&X1"), 0);
}

TEST(Val, GivesPrefixedNumbersTheSignOfTheirWidth) {
  EXPECT_EQ(Val("&HFFFF"), -1);
  EXPECT_EQ(Val("&HFFFF&"), 65535);
  EXPECT_EQ(Val("&H10000"), 65536);
  EXPECT_EQ(Val("&HFFFFFFFF"), -1);
  EXPECT_EQ(ErrorOf([] { Val("&H100000000"); }), 6);
}

TEST(Str, PutsABlankInPlaceOfTheSign) {
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(482), " 482");
  EXPECT_EQ(Str(-482), "-482");
  EXPECT_EQ(TrimmedStr(482), "482");
  EXPECT_EQ(TrimmedStr(-0.0), "0");
}

TEST(Str, WritesNoZeroAheadOfThePoint) {
  EXPECT_EQ(TrimmedStr(0.5), ".5");
  EXPECT_EQ(TrimmedStr(-0.25), "-.25");
  EXPECT_EQ(Str(0.001), " .001");
  EXPECT_EQ(TrimmedStr(10.75), "10.75");
}

TEST(Str, ShowsFifteenSignificantDigits) {
  EXPECT_EQ(TrimmedStr(0.1 + 0.2), ".3");
  EXPECT_EQ(TrimmedStr(1.0 / 3), ".333333333333333");
  EXPECT_EQ(TrimmedStr(200.0 / 3), "66.6666666666667");
  EXPECT_EQ(TrimmedStr(123456789012345.0), "123456789012345");
  EXPECT_EQ(TrimmedStr(0.99999999999999989), "1");
}

TEST(Str, TurnsToAnExponentFromTenToTheFifteenthUp) {
  EXPECT_EQ(TrimmedStr(999999999999999.0), "999999999999999");
  EXPECT_EQ(TrimmedStr(1e15), "1E+15");
  EXPECT_EQ(TrimmedStr(123456789012345678.0), "1.23456789012346E+17");
  EXPECT_EQ(TrimmedStr(-1e100), "-1E+100");
}

TEST(Str, TurnsToAnExponentWhereFifteenPlacesBehindThePointAreNotEnough) {
  EXPECT_EQ(TrimmedStr(1e-15), ".000000000000001");
  EXPECT_EQ(TrimmedStr(1e-16), "1E-16");
  EXPECT_EQ(TrimmedStr(1.0 / 30), "3.33333333333333E-02");
  EXPECT_EQ(TrimmedStr(1.0 / 300), "3.33333333333333E-03");
}

TEST(Str, ComesBackThroughVal) {
  for (const double value : {0.0, 1.0, -17.25, 0.001, 1e15, 9750.0, 12345.678, 1e-16, -6.02e23}) {
    EXPECT_EQ(Val(Str(value)), value);
  }
}

TEST(Str, NamesWhatIsNoNumber) {
  EXPECT_EQ(TrimmedStr(Infinity), "1.#INF");
  EXPECT_EQ(TrimmedStr(-Infinity), "-1.#INF");
  EXPECT_EQ(TrimmedStr(NaN), "1.#QNAN");
}

}  // namespace
}  // namespace pixorra
