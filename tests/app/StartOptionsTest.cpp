// What the command line asks for.
#include <gtest/gtest.h>

#include "app/StartOptions.h"

namespace pixorra {
namespace {

using StartWish = StartOptions::Wish;

StartOptions OptionsOf(const std::vector<std::string>& arguments) {
  return ReadStartOptions(arguments, "/home/anna/My photos");
}
std::string PathGiven(const std::string& argument) {
  const StartOptions options = OptionsOf({argument});
  EXPECT_EQ(options.What, StartWish::Start) << options.Problem;
  return options.Path;
}
std::string ProblemWith(const std::vector<std::string>& arguments) {
  const StartOptions options = OptionsOf(arguments);
  EXPECT_EQ(options.What, StartWish::Misuse);
  EXPECT_EQ(options.Path, "");
  return options.Problem;
}

TEST(StartOptionsTest, WithoutArgumentsItStartsAsEver) {
  EXPECT_EQ(OptionsOf({}).What, StartWish::Start);
  EXPECT_EQ(OptionsOf({}).Path, "");
  EXPECT_EQ(OptionsOf({"--"}).What, StartWish::Start);
}

TEST(StartOptionsTest, AnAbsolutePathIsTakenAsItIs) {
  EXPECT_EQ(PathGiven("/media/CARD/DCIM"), "/media/CARD/DCIM");
  EXPECT_EQ(PathGiven("/a b/\xFF\xC3/"), "/a b/\xFF\xC3/");
  EXPECT_EQ(PathGiven("/100%25"), "/100%25");
}

TEST(StartOptionsTest, ARelativePathBeginsInTheWorkingFolder) {
  EXPECT_EQ(PathGiven("Card"), "/home/anna/My photos/Card");
  EXPECT_EQ(PathGiven("."), "/home/anna/My photos/.");
  EXPECT_EQ(PathGiven("../a.jpg"), "/home/anna/My photos/../a.jpg");
  EXPECT_EQ(PathGiven("-"), "/home/anna/My photos/-");
  EXPECT_EQ(ReadStartOptions({"home"}, "/").Path, "/home");
}

TEST(StartOptionsTest, PathsInTheProgramsSpellingAndSharesAreTakenAsTheyAre) {
  EXPECT_EQ(PathGiven("D:\\DCIM"), "D:\\DCIM");
  EXPECT_EQ(PathGiven("D:"), "D:");
  EXPECT_EQ(PathGiven("\\\\server\\share"), "\\\\server\\share");
  EXPECT_EQ(PathGiven("smb://server/share/dir"), "smb://server/share/dir");
}

TEST(StartOptionsTest, AFileAddressIsItsPath) {
  EXPECT_EQ(PathGiven("file:///home/anna/a%20b%C3%A4%FF"), "/home/anna/a b\xC3\xA4\xFF");
  EXPECT_EQ(PathGiven("file://localhost/home"), "/home");
  EXPECT_EQ(PathGiven("FILE://LOCALHOST/home"), "/home");
  EXPECT_EQ(PathGiven("file:/home"), "/home");
  EXPECT_EQ(PathGiven("file:///a%23b%3fc#part?question"), "/a#b?c");
}

TEST(StartOptionsTest, AnAddressThatIsNoFileHereIsRefused) {
  for (const char* address : {"file://elsewhere/home", "file://localhostile/home", "file:home", "file://",
                              "file:", "file:///a%0", "file:///a%zz", "file:///a%00b"})
    EXPECT_EQ(ProblemWith({address}), std::string("not an address of a file here: ") + address);
}

TEST(StartOptionsTest, AnAddressOfNoFileAndNoShareIsRefused) {
  for (const char* address : {"http://x/y", "https://x", "sftp://far/photos", "mtp://Phone/", "x-y+z.1://a\nb"})
    EXPECT_TRUE(ProblemWith({address}).starts_with("not an address of a file here: ")) << address;
  EXPECT_EQ(PathGiven("SMB://server/share"), "smb://server/share");
  // Names that only look a little like it.
  EXPECT_EQ(PathGiven("a b://c"), "/home/anna/My photos/a b://c");
  EXPECT_EQ(PathGiven("a/http://x"), "/home/anna/My photos/a/http://x");
  EXPECT_EQ(PathGiven("./http://x"), "/home/anna/My photos/./http://x");
  EXPECT_EQ(PathGiven("://x"), "/home/anna/My photos/://x");
}

TEST(StartOptionsTest, AfterTwoDashesEverythingIsAName) {
  const StartOptions options = OptionsOf({"--", "--help"});
  EXPECT_EQ(options.What, StartWish::Start);
  EXPECT_EQ(options.Path, "/home/anna/My photos/--help");
  EXPECT_EQ(OptionsOf({"--", "--"}).Path, "/home/anna/My photos/--");
}

TEST(StartOptionsTest, HelpAndVersionAreAsked) {
  EXPECT_EQ(OptionsOf({"--help"}).What, StartWish::Help);
  EXPECT_EQ(OptionsOf({"/home", "--version"}).What, StartWish::Version);
  EXPECT_NE(std::string(StartUsage).find("--version"), std::string::npos);
}

TEST(StartOptionsTest, AnythingElseIsRefusedInOneLine) {
  EXPECT_EQ(ProblemWith({"--folder"}), "unknown option: --folder");
  EXPECT_EQ(ProblemWith({"-h"}), "unknown option: -h");
  EXPECT_EQ(ProblemWith({"/home", "-platform"}), "unknown option: -platform");
  EXPECT_EQ(ProblemWith({"/home", "/media"}), "more than one folder: /media");
  EXPECT_EQ(ProblemWith({""}), "the folder has no name");
  EXPECT_EQ(ProblemWith({"-a\nb\x1B[2J"}), "unknown option: -a b [2J");
  EXPECT_EQ(ProblemWith({"/home", "/a\nb"}), "more than one folder: /a b");
  EXPECT_EQ(ProblemWith({"https://x/a\nb"}), "not an address of a file here: https://x/a b");
  EXPECT_EQ(ProblemWith({"-\xC2\x9B"
                         "2J\xC2\x85\xE2\x80\xA8"}),
            "unknown option: - 2J  ");
}

TEST(StartOptionsTest, MisuseIsRefusedWhateverElseIsAsked) {
  EXPECT_EQ(ProblemWith({"--version", "--bogus"}), "unknown option: --bogus");
  EXPECT_EQ(ProblemWith({"--help", "-x"}), "unknown option: -x");
  EXPECT_EQ(ProblemWith({"--help", "/home", "/media"}), "more than one folder: /media");
  EXPECT_EQ(ProblemWith({"--version", ""}), "the folder has no name");
  EXPECT_EQ(OptionsOf({"--help", "--version"}).What, StartWish::Help);
  EXPECT_EQ(OptionsOf({"--version", "--help"}).What, StartWish::Version);
}

TEST(StartOptionsTest, APathThatIsLongerThanTheHostsLongestIsRefused) {
  const auto pathOf = [](std::size_t length) {
    std::string path;
    while (path.size() < length) path += "/folder";
    return path.substr(0, length - 1) + "x";
  };
  EXPECT_EQ(PathGiven(pathOf(4095)), pathOf(4095));
  EXPECT_EQ(PathGiven("file://" + pathOf(4095)), pathOf(4095));
  for (const std::size_t length : {4096, 20'000}) {
    EXPECT_EQ(ProblemWith({pathOf(length)}), "the path is too long");
    EXPECT_EQ(ProblemWith({"file://" + pathOf(length)}), "the path is too long");
    EXPECT_EQ(ProblemWith({pathOf(length).substr(1)}), "the path is too long");
  }
}

}  // namespace
}  // namespace pixorra
