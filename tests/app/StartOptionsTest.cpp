// What the command line asks for.
#include <gtest/gtest.h>

#include "app/StartOptions.h"

namespace pixorra {
namespace {

using Wish = StartOptions::Wish;

StartOptions Read(const std::vector<std::string>& arguments) {
  return ReadStartOptions(arguments, "/home/anna/My photos");
}
std::string PathOf(const std::string& argument) {
  const StartOptions options = Read({argument});
  EXPECT_EQ(options.What, Wish::Start) << options.Problem;
  return options.Path;
}
std::string ProblemOf(const std::vector<std::string>& arguments) {
  const StartOptions options = Read(arguments);
  EXPECT_EQ(options.What, Wish::Misuse);
  EXPECT_EQ(options.Path, "");
  return options.Problem;
}

TEST(StartOptionsTest, WithoutArgumentsItStartsAsEver) {
  EXPECT_EQ(Read({}).What, Wish::Start);
  EXPECT_EQ(Read({}).Path, "");
  EXPECT_EQ(Read({"--"}).What, Wish::Start);
}

TEST(StartOptionsTest, AnAbsolutePathIsTakenAsItIs) {
  EXPECT_EQ(PathOf("/media/CARD/DCIM"), "/media/CARD/DCIM");
  EXPECT_EQ(PathOf("/a b/\xFF\xC3/"), "/a b/\xFF\xC3/");
  EXPECT_EQ(PathOf("/100%25"), "/100%25");
}

TEST(StartOptionsTest, ARelativePathBeginsInTheWorkingFolder) {
  EXPECT_EQ(PathOf("Card"), "/home/anna/My photos/Card");
  EXPECT_EQ(PathOf("."), "/home/anna/My photos/.");
  EXPECT_EQ(PathOf("../a.jpg"), "/home/anna/My photos/../a.jpg");
  EXPECT_EQ(PathOf("-"), "/home/anna/My photos/-");
  EXPECT_EQ(ReadStartOptions({"home"}, "/").Path, "/home");
}

TEST(StartOptionsTest, PathsInTheProgramsSpellingAndSharesAreTakenAsTheyAre) {
  EXPECT_EQ(PathOf("D:\\DCIM"), "D:\\DCIM");
  EXPECT_EQ(PathOf("D:"), "D:");
  EXPECT_EQ(PathOf("\\\\server\\share"), "\\\\server\\share");
  EXPECT_EQ(PathOf("smb://server/share/dir"), "smb://server/share/dir");
}

TEST(StartOptionsTest, AFileAddressIsItsPath) {
  EXPECT_EQ(PathOf("file:///home/anna/a%20b%C3%A4%FF"), "/home/anna/a b\xC3\xA4\xFF");
  EXPECT_EQ(PathOf("file://localhost/home"), "/home");
  EXPECT_EQ(PathOf("FILE://LOCALHOST/home"), "/home");
  EXPECT_EQ(PathOf("file:/home"), "/home");
  EXPECT_EQ(PathOf("file:///a%23b%3fc#part?question"), "/a#b?c");
}

TEST(StartOptionsTest, AnAddressThatIsNoFileHereIsRefused) {
  for (const char* address : {"file://elsewhere/home", "file://localhostile/home", "file:home", "file://",
                              "file:", "file:///a%0", "file:///a%zz", "file:///a%00b"})
    EXPECT_EQ(ProblemOf({address}), std::string("not an address of a file here: ") + address);
}

TEST(StartOptionsTest, AfterTwoDashesEverythingIsAName) {
  const StartOptions options = Read({"--", "--help"});
  EXPECT_EQ(options.What, Wish::Start);
  EXPECT_EQ(options.Path, "/home/anna/My photos/--help");
  EXPECT_EQ(Read({"--", "--"}).Path, "/home/anna/My photos/--");
}

TEST(StartOptionsTest, HelpAndVersionAreAsked) {
  EXPECT_EQ(Read({"--help"}).What, Wish::Help);
  EXPECT_EQ(Read({"/home", "--version"}).What, Wish::Version);
  EXPECT_NE(std::string(StartUsage).find("--version"), std::string::npos);
}

TEST(StartOptionsTest, AnythingElseIsRefusedInOneLine) {
  EXPECT_EQ(ProblemOf({"--folder"}), "unknown option: --folder");
  EXPECT_EQ(ProblemOf({"-h"}), "unknown option: -h");
  EXPECT_EQ(ProblemOf({"/home", "-platform"}), "unknown option: -platform");
  EXPECT_EQ(ProblemOf({"/home", "/media"}), "more than one folder: /media");
  EXPECT_EQ(ProblemOf({""}), "the folder has no name");
  EXPECT_EQ(ProblemOf({"-a\nb\x1B[2J"}), "unknown option: -a?b?[2J");
}

}  // namespace
}  // namespace pixorra
