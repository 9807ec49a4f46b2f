// Names for photos on their way into a folder.
#include <gtest/gtest.h>

#include "drop/Naming.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

constexpr const char* Folder = "C:\\Photos";

class NamingTest : public ::testing::Test {
 protected:
  NamingTest() { drive.MakeFolder(Folder); }
  void Has(const std::string& name) { drive.Write(std::string(Folder) + "\\" + name, "x"); }
  std::string Generated(const std::string& name) { return MakeGeneratedName(files, Folder, name); }
  std::string Unique(const std::string& name) { return MakeUniqueName(files, Folder, name); }
  static std::string In(const std::string& name) { return std::string(Folder) + "\\" + name; }

  TemporaryDrive drive;
  Files& files = drive.DriveFiles();
};

TEST_F(NamingTest, AnEmptyFolderStartsAtOne) {
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00001.jpg"));
}

TEST_F(NamingTest, TheNextNumberIsOneAboveTheHighestWithTheCaseOfThePhotosOwnExtension) {
  Has("PXR00009.jpg");
  Has("pxr00010.JPG");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00011.jpg"));
  EXPECT_EQ(Generated("Photo.Jpg"), In("PXR00011.Jpg"));
}

TEST_F(NamingTest, EachExtensionCountsForItself) {
  Has("PXR00007.jpg");
  EXPECT_EQ(Generated("Photo.bmp"), In("PXR00001.bmp"));
}

TEST_F(NamingTest, GapsAreNeverFilled) {
  Has("PXR00001.jpg");
  Has("PXR00005.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00006.jpg"));
}

TEST_F(NamingTest, DeletingTheHighestFileGivesItsNumberAwayAgain) {
  Has("PXR00001.jpg");
  Has("PXR00002.jpg");
  drive.Remove(In("PXR00002.jpg"));
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00002.jpg"));
}

TEST_F(NamingTest, AFieldThatIsNoNumberCountsZero) {
  Has("PXRholiday.jpg");
  Has("PXR.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00001.jpg"));
}

TEST_F(NamingTest, ALeadingNumberCounts) {
  Has("PXR12abc.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00013.jpg"));
}

TEST_F(NamingTest, AFieldWithAFractionIsRoundedToTheEvenNeighbour) {
  Has("PXR2.5.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00003.jpg"));
}

TEST_F(NamingTest, PastFiveDigitsTheNumberSimplyGrows) {
  Has("PXR99999.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR100000.jpg"));
}

TEST_F(NamingTest, ANumberThatLeaves32BitsCountsAsNone) {
  Has("PXR2147483648.jpg");
  Has("PXR20240315123456.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00001.jpg"));
  Has("PXR00007.jpg");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00008.jpg"));
}

TEST_F(NamingTest, TheHighestNumberOf32BitsHasNoNext) {
  Has("PXR2147483647.jpg");
  EXPECT_THROW(Generated("Photo.jpg"), RuntimeError);
}

TEST_F(NamingTest, AnExtensionIsNoPattern) {
  Has("PXR00004.jpg");
  Has("PXR00005.bmp");
  EXPECT_EQ(Generated("a.b;PXR*.jpg"), In("PXR00005.jpg"));
  EXPECT_EQ(Generated("a.*"), In("PXR00001.*"));
  EXPECT_EQ(Generated("a.?pg"), In("PXR00001.?pg"));
  EXPECT_EQ(Generated("a.x;PXR"), In("PXR00001.x;PXR"));
}

TEST_F(NamingTest, FoldersAndDanglingLinksOfAGeneratedNameAreSteppedOver) {
  drive.MakeFolder(In("PXR00001.jpg"));
  drive.MakeLink(In("pxr00002.jpg"), "nowhere");
  EXPECT_EQ(Generated("Photo.jpg"), In("PXR00003.jpg"));
}

TEST_F(NamingTest, ABackslashAtTheFoldersEndMakesNoDifference) {
  Has("PXR00001.jpg");
  EXPECT_EQ(MakeGeneratedName(files, "C:\\Photos\\", "a.jpg"), In("PXR00002.jpg"));
  EXPECT_EQ(MakeUniqueName(files, "C:\\Photos\\", "PXR00001.jpg"), In("PXR2.jpg"));
}

TEST_F(NamingTest, AFreeNameIsKept) {
  EXPECT_EQ(Unique("Photo.jpg"), In("Photo.jpg"));
}

TEST_F(NamingTest, ATakenNameIsNumberedFromOne) {
  Has("Photo.jpg");
  EXPECT_EQ(Unique("Photo.jpg"), In("Photo1.jpg"));
  Has("Photo1.jpg");
  EXPECT_EQ(Unique("Photo.jpg"), In("Photo2.jpg"));
}

TEST_F(NamingTest, LeadingZerosOfTheNumberAreLost) {
  Has("IMG0012.jpg");
  EXPECT_EQ(Unique("IMG0012.jpg"), In("IMG13.jpg"));
}

TEST_F(NamingTest, ABaseOfDigitsOnlyHasAnEmptyStem) {
  Has("0012.jpg");
  EXPECT_EQ(Unique("0012.jpg"), In("13.jpg"));
}

TEST_F(NamingTest, OnlyTheLastFullStopBeginsTheExtension) {
  Has("a.b1.jpg");
  EXPECT_EQ(Unique("a.b1.jpg"), In("a.b2.jpg"));
}

TEST_F(NamingTest, CaseDoesNotMakeANameFree) {
  Has("PHOTO.JPG");
  Has("photo1.jpg");
  EXPECT_EQ(Unique("Photo.jpg"), In("Photo2.jpg"));
}

TEST_F(NamingTest, WhateverHasTheNameTakesIt) {
  drive.MakeLink(In("Photo.jpg"), "nowhere");
  drive.MakeFolder(In("Photo1.jpg"));
  drive.MakeFifo(In("Photo2.jpg"));
  EXPECT_EQ(Unique("Photo.jpg"), In("Photo3.jpg"));
}

TEST_F(NamingTest, EmptyPartsGiveNoName) {
  Has(".jpg");
  EXPECT_EQ(MakeUniqueName(files, "", "Photo.jpg"), "");
  EXPECT_EQ(Unique(""), "");
  EXPECT_EQ(Unique(".jpg"), "");
}

TEST_F(NamingTest, ANameWithoutExtensionIsNumberedAtItsEnd) {
  Has("Photo");
  EXPECT_EQ(Unique("Photo"), In("Photo1"));
}

TEST_F(NamingTest, ANumberPastFifteenDigitsIsWrittenWithAnExponent) {
  Has("IMG_20231231235959123.jpg");
  EXPECT_EQ(Unique("IMG_20231231235959123.jpg"), In("IMG_2.02312312359591E+16.jpg"));
}

TEST_F(NamingTest, ANumberTooLargeForItsNextToShowStillFindsAFreeName) {
  Has("IMG_20231231235959123.jpg");
  Has("IMG_2.02312312359591E+16.jpg");
  const std::string next = Unique("IMG_20231231235959123.jpg");
  EXPECT_FALSE(files.NameTaken(next));
  EXPECT_EQ(next.substr(0, 14), In("IMG_"));
}

TEST_F(NamingTest, AFolderThatIsNotThereLeavesTheNameAsItIs) {
  EXPECT_EQ(MakeUniqueName(files, "C:\\Gone", "Photo.jpg"), "C:\\Gone\\Photo.jpg");
  EXPECT_EQ(MakeGeneratedName(files, "C:\\Gone", "Photo.jpg"), "C:\\Gone\\PXR00001.jpg");
}

}  // namespace
}  // namespace pixorra
