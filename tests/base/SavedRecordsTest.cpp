// Saved values as text: what is written, and what is read from whole, odd and broken texts.
#include <gtest/gtest.h>

#include "base/SavedRecords.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

std::optional<int> NumberOf(const std::string& bytes) {
  return SavedRecordReader(bytes).Number();
}

std::optional<std::string> TextOf(const std::string& bytes) {
  return SavedRecordReader(bytes).Text();
}

TEST(SavedRecordWriter, PutsEachRecordOnALineOfItsOwn) {
  SavedRecordWriter record;
  record.Numbers({11730, 9090, -60, 0, 2});
  record.Text("My \"own\", pictures");
  record.Number(0);
  record.Text("");
  EXPECT_EQ(record.Bytes(), "11730,9090,-60,0,2\r\n\"My \"own\", pictures\"\r\n0\r\n\"\"\r\n");
}

TEST(SavedRecordReader, ReadsValuesOneByOneWhateverTheLines) {
  SavedRecordReader record("1,2\r\n3\r\n\"a,b\",\"c\"\r\n4,\"d\"\r\n");
  EXPECT_EQ(record.Number(), 1);
  EXPECT_EQ(record.Number(), 2);
  EXPECT_EQ(record.Number(), 3);
  EXPECT_EQ(record.Text(), "a,b");
  EXPECT_EQ(record.Text(), "c");
  EXPECT_EQ(record.Number(), 4);
  EXPECT_EQ(record.Text(), "d");
  EXPECT_TRUE(record.AtEnd());
  EXPECT_EQ(record.Text(), std::nullopt);
  EXPECT_EQ(record.Number(), std::nullopt);
}

TEST(SavedRecordReader, TakesEveryKindOfLineEndAndABareLastLine) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    const std::string bytes = "\"a\"" + end + "5" + end + end + "6";
    SavedRecordReader record(bytes);
    EXPECT_EQ(record.Text(), "a");
    EXPECT_EQ(record.Number(), 5);
    EXPECT_EQ(record.Number(), std::nullopt) << "an empty line is a value that is missing";
    EXPECT_EQ(record.Number(), 6);
    EXPECT_TRUE(record.AtEnd());
  }
}

TEST(SavedRecordReader, TakesTextWithoutQuotesUpToACommaOrLineEndWithoutItsBlanks) {
  SavedRecordReader record("  C:\\Photos \r\nb ,c");
  EXPECT_EQ(record.Text(), "C:\\Photos");
  EXPECT_EQ(record.Text(), "b");
  EXPECT_EQ(record.Text(), "c");
}

TEST(SavedRecordReader, PassesOverWhatStandsBehindAClosingQuote) {
  SavedRecordReader record("\"a \"more, 7\r\n");
  EXPECT_EQ(record.Text(), "a ");
  EXPECT_EQ(record.Number(), 7);
}

TEST(SavedRecordReader, AQuotedTextMayHoldALineEnd) {
  SavedRecordReader record("\"a\r\nb\"\r\n1");
  EXPECT_EQ(record.Text(), "a\r\nb");
  EXPECT_EQ(record.Number(), 1);
}

TEST(SavedRecordReader, AQuotedTextThatTheEndCutsShortIsNothing) {
  SavedRecordReader record("1\r\n\"C:\\Photos");
  EXPECT_EQ(record.Number(), 1);
  EXPECT_EQ(record.Text(), std::nullopt);
  EXPECT_TRUE(record.AtEnd());
  EXPECT_EQ(TextOf("\""), std::nullopt);
  EXPECT_EQ(TextOf("\"\""), "");
}

TEST(SavedRecordReader, RoundsNumbersToWholeOnesWithHalvesToTheEvenNeighbour) {
  EXPECT_EQ(NumberOf("2.5"), 2);
  EXPECT_EQ(NumberOf("3.5"), 4);
  EXPECT_EQ(NumberOf("-2.5"), -2);
  EXPECT_EQ(NumberOf(" 11730"), 11730);
  EXPECT_EQ(NumberOf("\"12\""), 12);
}

TEST(SavedRecordReader, ATextThatIsNoNumberIsNothingAndReadingGoesOn) {
  for (const std::string bad : {"", "abc", "-", "yes5", "5abc", "1 2", "1.2.3", "\"\"", "#TRUE#", "\xff\xfe",
                                "4294967296", "-2147483649", "1E400"}) {
    const std::string bytes = bad + "\r\n8\r\n";
    SavedRecordReader record(bytes);
    EXPECT_EQ(record.Number(), std::nullopt) << bad;
    EXPECT_EQ(record.Number(), 8) << bad;
  }
}

TEST(SavedRecordReader, NumbersAre32BitsWideAndShortOnes16) {
  EXPECT_EQ(NumberOf("2147483647"), 2147483647);
  EXPECT_EQ(NumberOf("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(SavedRecordReader("32767").ShortNumber(), 32767);
  EXPECT_EQ(SavedRecordReader("-32768").ShortNumber(), -32768);
  SavedRecordReader record("32768\r\n-32769\r\n2147483648\r\nx\r\n9");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(record.ShortNumber(), std::nullopt) << i;
  EXPECT_EQ(record.ShortNumber(), 9);
}

TEST(SavedRecordReader, ReadsAnyBytesToTheirEnd) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  for (const std::string& noise : {bytes, bytes + bytes, std::string(1000, '"'), std::string(1000, ','),
                                   std::string(1000, '\0'), std::string(1000, '\r')}) {
    SavedRecordReader numbers(noise);
    SavedRecordReader texts(noise);
    for (std::size_t i = 0; i <= noise.size(); ++i) {
      static_cast<void>(numbers.Number());
      static_cast<void>(texts.Text());
    }
    EXPECT_TRUE(numbers.AtEnd());
    EXPECT_TRUE(texts.AtEnd());
  }
}

TEST(ReadWhole, GivesAllBytesAndRaisesForAFileThatIsNotThere) {
  TemporaryDrive drive;
  drive.Write("C:\\a", std::string("x\0\r\n\xff", 5));
  drive.Write("C:\\empty", "");
  EXPECT_EQ(ReadWhole(drive.DriveFiles(), "C:\\a"), std::string("x\0\r\n\xff", 5));
  EXPECT_EQ(ReadWhole(drive.DriveFiles(), "C:\\empty"), "");
  EXPECT_EQ(ErrorOf([&] { ReadWhole(drive.DriveFiles(), "C:\\none"); }), error::FileNotFound);
  EXPECT_EQ(ErrorOf([&] { ReadWhole(drive.DriveFiles(), "C:\\none\\a"); }), error::PathNotFound);
}

}  // namespace
}  // namespace pixorra
