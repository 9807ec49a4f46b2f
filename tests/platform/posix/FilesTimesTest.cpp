// Contract of Files: last-write times in local time.
#include <cstdlib>
#include <optional>

#include "tests/platform/posix/FilesContract.h"

namespace pixorra {
namespace {

// A time zone for the life of this object.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* old = std::getenv("TZ")) old_ = old;
    setenv("TZ", name, 1);
  }
  ~Zone() {
    if (old_)
      setenv("TZ", old_->c_str(), 1);
    else
      unsetenv("TZ");
    tzset();
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  std::optional<std::string> old_;
};

class FilesTimes : public FilesContract {
 protected:
  FilesTimes() { drive_.Write("C:\\p\\a.jpg", "1"); }
};
PIXORRA_ON_ALL_FILES(FilesTimes);

TEST_P(FilesTimes, ASetTimeIsReadBackWithItsMilliseconds) {
  const CalendarTime time{2024, 2, 29, 13, 14, 15, 678};
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\A.JPG", time));
  EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\a.jpg"), time);
}

TEST_P(FilesTimes, TheTimeOfAFileThatIsReadIsTheSame) {
  const CalendarTime time{2024, 2, 29, 13, 14, 15, 678};
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", time));
  EXPECT_EQ(TheFiles().LastWriteTimeToRead("C:\\p\\A.JPG"), time);
}

TEST_P(FilesTimes, AllTimesBecomeOne) {
  const CalendarTime time{2001, 9, 9, 1, 46, 40, 0};
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", time));
  EXPECT_EQ(drive_.WriteTime("C:\\p\\a.jpg"), time);
  EXPECT_EQ(drive_.AccessTime("C:\\p\\a.jpg"), time);
}

TEST_P(FilesTimes, TimesBefore1970AndTheSecondBeforeItAreKept) {
  for (const CalendarTime& time : {CalendarTime{1950, 6, 1, 12, 0, 0, 0}, CalendarTime{1902, 1, 1, 0, 0, 1, 0},
                                   CalendarTime{1969, 12, 31, 23, 59, 59, 500}}) {
    ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", time)) << time.Year;
    EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\a.jpg"), time) << time.Year;
  }
}

TEST_P(FilesTimes, TheSecondBefore1970IsNoFailureInUniversalTime) {
  const Zone zone("UTC");
  const CalendarTime time{1969, 12, 31, 23, 59, 59, 0};
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", time));
  EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\a.jpg"), time);
}

TEST_P(FilesTimes, TheSameLocalTimeComesBackAllThroughTheYear) {
  for (const char* name : {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe", "Asia/Kolkata"}) {
    const Zone zone(name);
    for (int month = 1; month <= 12; ++month)
      for (int day = 1; day <= 28; day += 3) {
        const CalendarTime time{2023, month, day, 12, 34, 56, 0};
        ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", time));
        EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\a.jpg"), time) << name << " month " << month << " day " << day;
      }
  }
}

TEST_P(FilesTimes, AChangeOfTheTimeZoneShowsAtOnce) {
  const Zone berlin("Europe/Berlin");
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", {2023, 7, 1, 12, 0, 0, 0}));
  const Zone newYork("America/New_York");
  EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\a.jpg"), (CalendarTime{2023, 7, 1, 6, 0, 0, 0}));
}

TEST_P(FilesTimes, ATimeThatComesTwiceInAutumnShowsTheSame) {
  const Zone zone("Europe/Berlin");
  const CalendarTime time{2023, 10, 29, 2, 30, 0, 0};
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", time));
  EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\a.jpg"), time);
}

TEST_P(FilesTimes, ATimeThatTheClocksSkipInSpringIsAnHourOff) {
  const Zone zone("Europe/Berlin");
  ASSERT_TRUE(TheFiles().SetTimes("C:\\p\\a.jpg", {2023, 3, 26, 2, 30, 0, 0}));
  const CalendarTime shown = TheFiles().LastWriteTime("C:\\p\\a.jpg").value();
  EXPECT_EQ(shown.Day, 26);
  EXPECT_TRUE(shown.Hour == 1 || shown.Hour == 3) << shown.Hour;
  EXPECT_EQ(shown.Minute, 30);
}

TEST_P(FilesTimes, TimesReadThroughALinkButAreNotSetThroughOne) {
  const CalendarTime time{2010, 5, 6, 7, 8, 9, 0};
  drive_.SetTime("C:\\p\\a.jpg", time);
  drive_.MakeLink("C:\\p\\link", "a.jpg");
  EXPECT_EQ(TheFiles().LastWriteTime("C:\\p\\link"), time);
  EXPECT_FALSE(TheFiles().SetTimes("C:\\p\\link", {2011, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(drive_.WriteTime("C:\\p\\a.jpg"), time);
}

TEST_P(FilesTimes, WhatIsNoOrdinaryFileHasNoTime) {
  drive_.MakeFifo("C:\\p\\fifo");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  for (const char* path : {"C:\\p", "C:\\p\\fifo", "C:\\p\\nowhere", "C:\\p\\missing", "C:\\", "", "C:\\p\\.."}) {
    EXPECT_EQ(TheFiles().LastWriteTime(path), std::nullopt) << path;
    EXPECT_EQ(TheFiles().LastWriteTimeToRead(path), std::nullopt) << path;
    EXPECT_FALSE(TheFiles().SetTimes(path, {2011, 1, 1, 0, 0, 0, 0})) << path;
  }
  EXPECT_FALSE(drive_.Exists("C:\\p\\missing"));
}

TEST_P(FilesTimes, ATimeThatIsNoneIsRefused) {
  const CalendarTime before = drive_.WriteTime("C:\\p\\a.jpg");
  EXPECT_FALSE(TheFiles().SetTimes("C:\\p\\a.jpg", {2011, 13, 1, 0, 0, 0, 0}));
  EXPECT_FALSE(TheFiles().SetTimes("C:\\p\\a.jpg", {2011, 1, 1, 24, 0, 0, 0}));
  EXPECT_FALSE(TheFiles().SetTimes("C:\\p\\a.jpg", {2011, 1, 1, 0, 0, 0, 1000}));
  EXPECT_FALSE(TheFiles().SetTimes("C:\\p\\a.jpg", {0, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(drive_.WriteTime("C:\\p\\a.jpg"), before);
}

}  // namespace
}  // namespace pixorra
