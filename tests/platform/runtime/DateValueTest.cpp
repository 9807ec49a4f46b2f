// Date values: known days, exactness, and reading dates from text.
#include <gtest/gtest.h>
#include <limits>

#include "platform/runtime/DateValue.h"
#include "platform/runtime/Format.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

CalendarTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return {year, month, day, hour, minute, second, 0};
}

TEST(DateValue, CountsDaysFromTheThirtiethOfDecember1899) {
  EXPECT_EQ(DateSerial(1899, 12, 30), 0);
  EXPECT_EQ(DateSerial(1900, 1, 1), 2);
  EXPECT_EQ(DateSerial(1970, 1, 1), 25569);
  EXPECT_EQ(DateSerial(2000, 2, 29), 36585);
  EXPECT_EQ(DateSerial(2004, 3, 5), 38051);
  EXPECT_EQ(DateSerial(100, 1, 1), -657434);
  EXPECT_EQ(DateSerial(9999, 12, 31), 2958465);
}

TEST(DateValue, TheTimeIsAFraction) {
  EXPECT_EQ(TimeSerial(0, 0, 0), 0);
  EXPECT_EQ(TimeSerial(6, 0, 0), 0.25);
  EXPECT_EQ(TimeSerial(23, 59, 59), 86399.0 / 86400.0);
  EXPECT_EQ(ToDateValue(At(2004, 3, 5, 18)), 38051.75);
}

TEST(DateValue, AheadOfDayZeroTheFractionCountsUpInMagnitude) {
  EXPECT_EQ(ToDateValue(At(1899, 12, 29, 6)), -1.25);
  EXPECT_EQ(FromDateValue(-1.25), At(1899, 12, 29, 6));
  EXPECT_EQ(FromDateValue(-0.25), At(1899, 12, 30, 6));
}

TEST(DateValue, FieldsOutOfRangeCountOn) {
  EXPECT_EQ(DateSerial(2004, 14, 1), DateSerial(2005, 2, 1));
  EXPECT_EQ(DateSerial(2004, 0, 1), DateSerial(2003, 12, 1));
  EXPECT_EQ(DateSerial(2004, 3, 0), DateSerial(2004, 2, 29));
  EXPECT_EQ(ToDateValue(At(2004, 2, 29, 23, 59, 60)), DateSerial(2004, 3, 1));
}

TEST(DateValue, MillisecondsAreLeftOut) {
  CalendarTime time = At(2004, 3, 5, 14, 7, 9);
  time.Milliseconds = 999;
  EXPECT_EQ(ToDateValue(time), ToDateValue(At(2004, 3, 5, 14, 7, 9)));
}

TEST(DateValue, RaisesOverflowOutsideItsYears) {
  EXPECT_EQ(ErrorOf([] { DateSerial(99, 12, 31); }), 6);
  EXPECT_EQ(ErrorOf([] { DateSerial(10000, 1, 1); }), 6);
  EXPECT_EQ(ErrorOf([] { DateSerial(std::numeric_limits<int>::max(), 1, 1); }), 6);
  EXPECT_EQ(ErrorOf([] { FromDateValue(2958466.0); }), 6);
  EXPECT_EQ(ErrorOf([] { FromDateValue(-657435.0); }), 6);
  EXPECT_EQ(ErrorOf([] { FromDateValue(1e300); }), 6);
  EXPECT_EQ(ErrorOf([] { FromDateValue(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(DateValue, ComesBackToTheSecondFromEveryDayOfItsYears) {
  for (int year = 100; year <= 9999; ++year) {
    for (int month = 1; month <= 12; ++month) {
      const int day = (year * 7 + month * 5) % 28 + 1;
      const int second = (year * 12 + month) * 7919 % 86400;
      const CalendarTime time = At(year, month, day, second / 3600, second / 60 % 60, second % 60);
      ASSERT_EQ(FromDateValue(ToDateValue(time)), time) << year << '-' << month << '-' << day;
    }
  }
}

TEST(DateValue, EverySecondOfADayComesBackOnBothSidesOfDayZero) {
  for (const CalendarTime& day : {At(2004, 3, 5), At(1899, 12, 30), At(1601, 1, 1), At(9999, 12, 31)}) {
    for (int second = 0; second < 86400; ++second) {
      CalendarTime time = day;
      time.Hour = second / 3600;
      time.Minute = second / 60 % 60;
      time.Second = second % 60;
      ASSERT_EQ(FromDateValue(ToDateValue(time)), time);
    }
  }
}

TEST(DateValue, EveryDayFollowsTheOneBefore) {
  CalendarTime previous = FromDateValue(-657434);
  for (int day = -657433; day <= 2958465; ++day) {
    const CalendarTime time = FromDateValue(day);
    const bool nextDay = time.Year == previous.Year && time.Month == previous.Month && time.Day == previous.Day + 1;
    const bool nextMonth =
        time.Day == 1 && previous.Day >= 28 && time.Year * 12 + time.Month == previous.Year * 12 + previous.Month + 1;
    ASSERT_TRUE(nextDay || nextMonth) << day;
    previous = time;
  }
  EXPECT_EQ(previous, At(9999, 12, 31));
}

TEST(DateValue, ASecondThatRoundsUpToMidnightIsTheNextDay) {
  EXPECT_EQ(FromDateValue(38051.9999999), At(2004, 3, 6));
  EXPECT_EQ(FromDateValue(-1.9999999), At(1899, 12, 30));
}

TEST(DateValue, DayAndTimeAddedAreTheSameDoubleAsBothAtOnce) {
  EXPECT_EQ(DateSerial(2004, 3, 5) + TimeSerial(14, 7, 9), ToDateValue(At(2004, 3, 5, 14, 7, 9)));
}

TEST(ParseDate, ReadsADateATimeAndBoth) {
  EXPECT_EQ(ParseDate("05-Mar-2004"), DateSerial(2004, 3, 5));
  EXPECT_EQ(ParseDate("02:07:09 PM"), TimeSerial(14, 7, 9));
  EXPECT_EQ(ParseDate("05-Mar-2004  02:07:09 PM"), ToDateValue(At(2004, 3, 5, 14, 7, 9)));
  EXPECT_EQ(ParseDate(" 5-MAR-2004 2:07:09 pm "), ToDateValue(At(2004, 3, 5, 14, 7, 9)));
}

TEST(ParseDate, TwelveIsTheFirstHourOfEitherHalf) {
  EXPECT_EQ(ParseDate("12:00:00 AM"), 0);
  EXPECT_EQ(ParseDate("12:30:00 PM"), TimeSerial(12, 30, 0));
}

TEST(ParseDate, TheWayThroughTextKeepsTheDoubleExactly) {
  for (int step = 0; step < 20000; ++step) {
    const int day = -657434 + step * 180;
    CalendarTime time = FromDateValue(day);
    const int second = static_cast<int>(static_cast<long long>(step) * 7919 % 86400);
    time.Hour = second / 3600;
    time.Minute = second / 60 % 60;
    time.Second = second % 60;
    const DateValue value = ToDateValue(time);
    const std::string text = FormatDate(DateSerial(time.Year, time.Month, time.Day), "DD-MMM-YYYY") + "  " +
                             FormatDate(TimeSerial(time.Hour, time.Minute, time.Second), "hh:mm:ss AMPM");
    ASSERT_EQ(ParseDate(text), value) << text;
  }
}

TEST(ParseDate, RaisesTypeMismatchForAnyOtherText) {
  for (const char* text : {"",
                           "  ",
                           "2004",
                           "05-03-2004",
                           "05-Mar-04",
                           "05-Mar-0099",
                           "31-Apr-2004",
                           "29-Feb-2003",
                           "00-Mar-2004",
                           "99-Dec-9999",
                           "05-Mär-2004",
                           "05-Mar-20045",
                           "05-Mar-2004x",
                           "05-Mar-2004 14",
                           "14:07:09",
                           "13:00:00 PM",
                           "00:00:00 AM",
                           "02:60:00 PM",
                           "02:00:60 PM",
                           "02:07:09PM",
                           "02:07:09 XM",
                           "02:07 PM",
                           "02:07:09 PM 1",
                           "02:07:09 PM 05-Mar-2004",
                           "99999999999999999999-Mar-2004"}) {
    EXPECT_EQ(ErrorOf([text] { ParseDate(text); }), 13) << text;
  }
}

}  // namespace
}  // namespace pixorra
