// What the slide show takes from its command line, hostile ones included.
#include <gtest/gtest.h>

#include "slideshow/CommandLine.h"

namespace pixorra {
namespace {

using Wish = Request::Wish;

Request Read(const std::vector<std::string>& arguments, const std::string& saverWindow = {}) {
  return ReadCommandLine(arguments, saverWindow);
}

void ExpectShow(const Request& request, int seconds, bool title, const std::string& folder) {
  EXPECT_EQ(request.What, Wish::Show);
  EXPECT_EQ(request.Seconds, seconds);
  EXPECT_EQ(request.Title, title);
  EXPECT_EQ(request.Folder, folder);
  EXPECT_EQ(request.HostWindow, 0U);
}

TEST(CommandLineTest, AShowThatTheProgramStartsHasItsMarkerTwoDigitsAndTheFolder) {
  ExpectShow(Read({"/S", ":SS", "31D:\\Photos"}), 3, true, "D:\\Photos");
  ExpectShow(Read({"/S", ":SS", "70D:\\"}), 7, false, "D:\\");
  ExpectShow(Read({"/S :SS 11C:\\Photos\\"}), 1, true, "C:\\Photos\\");
}

TEST(CommandLineTest, AShowFromAFoldersMenuHasTheDigitsAndTheFolderAlone) {
  ExpectShow(Read({"21/home/anna/Photos"}), 2, true, "/home/anna/Photos");
  ExpectShow(Read({"20/"}), 2, false, "/");
}

TEST(CommandLineTest, AFolderAloneIsShownAtTheUsualSpeedWithItsTitle) {
  ExpectShow(Read({"/home/anna/Photos"}), 3, true, "/home/anna/Photos");
  ExpectShow(Read({"./2004 Norway"}), 3, true, "./2004 Norway");
  ExpectShow(Read({"5"}), 3, true, "5");
}

TEST(CommandLineTest, BlanksInAFolderAreItsOwn) {
  ExpectShow(Read({"/S", ":SS", "31C:\\My", "photos", "", "of", "", ""}), 3, true, "C:\\My photos  of  ");
  ExpectShow(Read({"21/home/anna/My photos "}), 2, true, "/home/anna/My photos ");
  ExpectShow(Read({"21", "x"}), 2, true, " x");
}

TEST(CommandLineTest, ExactlyTwoDigitsAreTakenFromAFolderThatBeginsWithSome) {
  ExpectShow(Read({"/S", ":SS", "112004", "Norway"}), 1, true, "2004 Norway");
  ExpectShow(Read({"212004"}), 2, true, "2004");
}

TEST(CommandLineTest, ASpeedOfNoSecondsIsOneAndOthersAreAsGiven) {
  const std::vector<int> seconds = {1, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  for (int digit = 0; digit <= 9; ++digit) {
    ExpectShow(Read({std::to_string(digit) + "1/x"}), seconds[static_cast<std::size_t>(digit)], true, "/x");
  }
  EXPECT_EQ(SecondsOf('x'), 3);
}

TEST(CommandLineTest, OnlyAFlagOfOneShowsTheTitle) {
  EXPECT_FALSE(Read({"30/x"}).Title);
  EXPECT_TRUE(Read({"31/x"}).Title);
  EXPECT_FALSE(Read({"32/x"}).Title);
}

TEST(CommandLineTest, AFolderMayBeEmptyLongOrOfAnyBytes) {
  ExpectShow(Read({"/S", ":SS", "31"}), 3, true, "");
  ExpectShow(Read({"/S", ":SS", ""}), 3, true, "");
  ExpectShow(Read({""}), 3, true, "");
  const std::string deep(4096, 'x');
  ExpectShow(Read({"21/" + deep}), 2, true, "/" + deep);
  ExpectShow(Read({"21/a\"b'c%L%f$(d)`e`\n\xFF\x80*?"}), 2, true, "/a\"b'c%L%f$(d)`e`\n\xFF\x80*?");
}

TEST(CommandLineTest, AFolderThatHoldsTheMarkerOrAnOptionIsAFolderAllTheSame) {
  ExpectShow(Read({"21/x", "/S", ":SS", "11/y"}), 2, true, "/x /S :SS 11/y");
  ExpectShow(Read({"/S", ":SS", "31--help"}), 3, true, "--help");
  ExpectShow(Read({"21--window-id"}), 2, true, "--window-id");
  ExpectShow(Read({"/S:SS", "31/x"}), 3, true, "/S:SS 31/x");
}

TEST(CommandLineTest, WithoutAFolderItIsTheScreenSaver) {
  const Request alone = Read({});
  EXPECT_EQ(alone.What, Wish::Saver);
  EXPECT_EQ(alone.HostWindow, 0U);
  for (const char* option : {"-root", "--root"}) {
    EXPECT_EQ(Read({option}).What, Wish::Saver);
    EXPECT_EQ(Read({option}, "0x3A00007").HostWindow, 0x3A00007U);
  }
  EXPECT_EQ(Read({}, "62914567").HostWindow, 62914567U);
}

TEST(CommandLineTest, AWindowToDrawInIsTakenAsDaemonsWriteIt) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--window-id", "0x1a"},
                                                    {"-window-id", "26"},
                                                    {"--window-id=0X1A"},
                                                    {"-root", "-window-id", "0x1A"}}) {
    const Request request = Read(arguments, "0x99");
    EXPECT_EQ(request.What, Wish::Saver);
    EXPECT_EQ(request.HostWindow, 26U);
  }
}

TEST(CommandLineTest, AWindowThatIsNoNumberIsRefused) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--window-id"},
                                                    {"--window-id", "x"},
                                                    {"--window-id="},
                                                    {"--window-id", "12x"},
                                                    {"--window-id", "-5"},
                                                    {"--window-id", "99999999999999999999999"}}) {
    EXPECT_EQ(Read(arguments).What, Wish::Misuse);
    EXPECT_FALSE(Read(arguments).Problem.empty());
  }
  EXPECT_EQ(Read({}, "nonsense").HostWindow, 0U);
}

TEST(CommandLineTest, TheWindowOfADaemonIsNothingToAShowThatIsStartedByHand) {
  ExpectShow(Read({"21/x"}, "0x99"), 2, true, "/x");
}

TEST(CommandLineTest, HelpAndVersionAreGiven) {
  EXPECT_EQ(Read({"--help"}).What, Wish::Help);
  EXPECT_EQ(Read({"-h"}).What, Wish::Help);
  EXPECT_EQ(Read({"-root", "--help"}).What, Wish::Help);
  EXPECT_EQ(Read({"--version"}).What, Wish::Version);
}

TEST(CommandLineTest, AnUnknownOptionIsRefusedUnlessADaemonWaitsForASaver) {
  EXPECT_EQ(Read({"--fast"}).What, Wish::Misuse);
  EXPECT_NE(Read({"--fast"}).Problem.find("--fast"), std::string::npos);
  EXPECT_EQ(Read({"-"}).What, Wish::Misuse);
  const Request saver = Read({"-root", "-fps", "30"}, "0x99");
  EXPECT_EQ(saver.What, Wish::Saver);
  EXPECT_EQ(saver.HostWindow, 0x99U);
}

TEST(CommandLineTest, WhatHasNoDashIsNoOption) {
  EXPECT_EQ(Read({"--root", ""}).What, Wish::Misuse);
  EXPECT_EQ(Read({"--root", "xhelp"}).What, Wish::Misuse);
  EXPECT_NE(Read({"--root", "xhelp"}).Problem.find("xhelp"), std::string::npos);
  EXPECT_EQ(Read({"--root", "xversion"}).What, Wish::Misuse);
  EXPECT_EQ(Read({"--root", "", "xhelp"}, "0x99").HostWindow, 0x99U);
}

TEST(CommandLineTest, APathBeginsAtTheRootOrInTheWorkingFolder) {
  EXPECT_EQ(FromRoot("/home/anna", "/tmp"), "/home/anna");
  EXPECT_EQ(FromRoot("C:\\Photos", "/tmp"), "C:\\Photos");
  EXPECT_EQ(FromRoot("D:", "/tmp"), "D:");
  EXPECT_EQ(FromRoot("\\\\nas\\photos", "/tmp"), "\\\\nas\\photos");
  EXPECT_EQ(FromRoot("smb://nas/photos", "/tmp"), "smb://nas/photos");
  EXPECT_EQ(FromRoot("Norway", "/home/anna"), "/home/anna/Norway");
  EXPECT_EQ(FromRoot("c:x", "/home/anna"), "/home/anna/c:x");
  EXPECT_EQ(FromRoot("x", "/"), "/x");
  EXPECT_EQ(FromRoot("", "/home/anna"), "");
}

}  // namespace
}  // namespace pixorra
