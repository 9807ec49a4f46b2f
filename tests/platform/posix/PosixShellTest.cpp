// Contract of Shell on a desktop of the test's own: its starters, its associations, and programs that really run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/CommandLine.h"
#include "platform/posix/MimeTypes.h"
#include "platform/posix/PosixShell.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class OnPosixShell : public ::testing::Test {
 protected:
  OnPosixShell() {
    environment_ = Environment::OfHome(drive_.HostPath("C:\\home"));
    environment_.DataDirs = {drive_.HostPath("C:\\share")};
    environment_.ConfigDirs = {drive_.HostPath("C:\\xdg")};
    environment_.Path = {drive_.HostPath("C:\\bin")};
    // Writes its folder and its arguments, a line each, to a file beside itself.
    AddProgram("C:\\bin\\viewer",
               "out=\"$0.out\"; { pwd; for a in \"$@\"; do printf '%s\\n' \"$a\"; done; } > \"$out\"");
    AddProgram("C:\\bin\\painter", ":");
    drive_.Write("C:\\share\\mime\\globs2", "50:image/jpeg:*.jpg\n50:image/jpeg:*.jpeg\n60:image/x-raw:*.raw.jpg\n");
    AddStarter("viewer", "Exec=viewer --show %f\n");
    AddStarter("painter", "Exec=painter %U\nComment=Paints\nName[de]=Maler\n");
    drive_.Write("C:\\photos\\a b.jpg", "1");
  }

  void AddProgram(const std::string& path, const std::string& body) {
    drive_.Write(path, "#!/bin/sh\n" + body + "\n");
    drive_.SetMode(path, 0755);
  }
  void AddStarter(const std::string& name, const std::string& keys) {
    drive_.Write("C:\\share\\applications\\" + name + ".desktop",
                 "[Desktop Entry]\nType=Application\nName=The " + name + "\n" + keys);
  }
  void Associate(const std::string& path, const std::string& group, const std::string& line) {
    drive_.Write(path, "[" + group + "]\n" + line + "\n");
  }
  PosixShell& Made() {
    shell_ = std::make_unique<PosixShell>(
        environment_, std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}})));
    return *shell_;
  }
  // The programs that were started have ended when this returns.
  static void AwaitPrograms() {
    while (waitpid(-1, nullptr, 0) > 0) {
    }
  }
  std::string Viewer() { return "C:\\share\\applications\\viewer.desktop"; }
  std::string Painter() { return "C:\\share\\applications\\painter.desktop"; }

  TemporaryDrive drive_;
  Environment environment_;
  std::unique_ptr<PosixShell> shell_;
};

TEST_F(OnPosixShell, TheDefaultGoesBeforeWhatWasAddedAndWhatIsOffered) {
  PosixShell& shell = Made();
  EXPECT_EQ(shell.FindExecutable("C:\\photos\\a b.jpg"), "");
  Associate("C:\\share\\applications\\mimeinfo.cache", "MIME Cache", "image/jpeg=painter.desktop;viewer.desktop;");
  EXPECT_EQ(shell.FindExecutable("C:\\photos\\a b.jpg"), Painter());
  Associate("C:\\home\\.local\\share\\applications\\mimeapps.list", "Added Associations", "image/jpeg=viewer.desktop;");
  EXPECT_EQ(shell.FindExecutable("C:\\photos\\a b.jpg"), Viewer());
  Associate("C:\\xdg\\mimeapps.list", "Default Applications", "image/jpeg=gone.desktop;painter.desktop");
  EXPECT_EQ(shell.FindExecutable("C:\\photos\\a b.jpg"), Painter());
  Associate("C:\\home\\.config\\mimeapps.list", "Default Applications", "image/jpeg=viewer.desktop");
  EXPECT_EQ(shell.FindExecutable("C:\\PHOTOS\\A B.JPG"), Viewer());
}

TEST_F(OnPosixShell, TheDesktopsOwnListGoesBeforeTheCommonOne) {
  environment_.Desktops = {"kde"};
  Associate("C:\\home\\.config\\mimeapps.list", "Default Applications", "image/jpeg=viewer.desktop");
  Associate("C:\\home\\.config\\kde-mimeapps.list", "Default Applications", "image/jpeg=painter.desktop");
  EXPECT_EQ(Made().FindExecutable("C:\\photos\\a b.jpg"), Painter());
}

TEST_F(OnPosixShell, WhatWasRemovedIsNotOffered) {
  Associate("C:\\share\\applications\\mimeinfo.cache", "MIME Cache", "image/jpeg=painter.desktop;viewer.desktop;");
  Associate("C:\\home\\.config\\mimeapps.list", "Removed Associations", "image/jpeg=painter.desktop;");
  EXPECT_EQ(Made().FindExecutable("C:\\photos\\a b.jpg"), Viewer());
}

TEST_F(OnPosixShell, AStarterThatIsDeletedOrWhoseProgramIsMissingIsPassedOver) {
  Associate("C:\\home\\.config\\mimeapps.list", "Default Applications",
            "image/jpeg=hidden.desktop;notry.desktop;noexec.desktop;link.desktop;viewer.desktop;");
  AddStarter("hidden", "Exec=viewer\nHidden=true\n");
  AddStarter("notry", "Exec=viewer\nTryExec=missing\n");
  AddStarter("noexec", "Exec=missing %f\n");
  drive_.Write("C:\\share\\applications\\link.desktop", "[Desktop Entry]\nType=Link\nURL=x\n");
  EXPECT_EQ(Made().FindExecutable("C:\\photos\\a b.jpg"), Viewer());
}

TEST_F(OnPosixShell, ADashInAStartersNameMayBeTheBorderOfAFolder) {
  drive_.Write("C:\\share\\applications\\kde\\viewer.desktop", "[Desktop Entry]\nType=Application\nExec=viewer\n");
  Associate("C:\\home\\.config\\mimeapps.list", "Default Applications", "image/jpeg=kde-viewer.desktop");
  EXPECT_EQ(Made().FindExecutable("C:\\photos\\a b.jpg"), "C:\\share\\applications\\kde\\viewer.desktop");
}

TEST_F(OnPosixShell, AMissingFileRaises53AndAMissingFolder76) {
  PosixShell& shell = Made();
  EXPECT_EQ(ErrorsIgnored([&] { shell.FindExecutable("C:\\photos\\b.jpg"); }), error::FileNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { shell.FindExecutable("C:\\nowhere\\b.jpg"); }), error::PathNotFound);
}

TEST_F(OnPosixShell, AProgramIsNamedByItsStarterInTheUsersLanguage) {
  PosixShell& shell = Made();
  EXPECT_EQ(shell.ReadVersionInfo(Viewer()).ProductName, "The viewer");
  EXPECT_EQ(shell.ReadVersionInfo(Viewer()).FileDescription, "");
  EXPECT_EQ(shell.ReadVersionInfo("C:\\bin\\painter").ProductName, "The painter");
  EXPECT_EQ(shell.ReadVersionInfo("C:\\bin\\painter").FileDescription, "Paints");
  environment_.Language = "de_DE";
  EXPECT_EQ(Made().ReadVersionInfo(Painter()).ProductName, "Maler");
}

TEST_F(OnPosixShell, WhatHasNoStarterHasNoName) {
  PosixShell& shell = Made();
  for (const char* program : {"", "C:\\photos\\a b.jpg", "C:\\missing", "C:\\missing.desktop"}) {
    EXPECT_EQ(shell.ReadVersionInfo(program).ProductName, "") << program;
    EXPECT_EQ(shell.ReadVersionInfo(program).FileDescription, "") << program;
  }
}

TEST_F(OnPosixShell, OpenStartsTheRegisteredProgramInTheFolder) {
  Associate("C:\\home\\.config\\mimeapps.list", "Default Applications", "image/jpeg=viewer.desktop");
  Made().Open("C:\\photos\\A b.jpg", "c:\\photos");
  AwaitPrograms();
  EXPECT_EQ(drive_.Read("C:\\bin\\viewer.out"),
            drive_.HostPath("C:\\photos") + "\n--show\n" + drive_.HostPath("C:\\photos\\a b.jpg") + "\n");
}

TEST_F(OnPosixShell, OpenAsksTheDesktopsOpenerWhereNothingIsRegistered) {
  AddProgram("C:\\bin\\xdg-open", "printf '%s\\n' \"$@\" > \"$0.out\"");
  Made().Open("C:\\photos\\a b.jpg", "c:\\");
  AwaitPrograms();
  EXPECT_EQ(drive_.Read("C:\\bin\\xdg-open.out"), drive_.HostPath("C:\\photos\\a b.jpg") + "\n");
}

TEST_F(OnPosixShell, OpenTakesWebAddressesAndNoOtherWords) {
  AddProgram("C:\\bin\\xdg-open", "printf '%s\\n' \"$@\" >> \"$0.out\"");
  PosixShell& shell = Made();
  shell.Open("https://example.org/a?b=c&d", "c:\\");
  AwaitPrograms();
  for (const char* target : {"", "--help", "file:///etc/passwd", "viewer", "C:\\missing.jpg"})
    shell.Open(target, "c:\\");
  AwaitPrograms();
  EXPECT_EQ(drive_.Read("C:\\bin\\xdg-open.out"), "https://example.org/a?b=c&d\n");
}

TEST_F(OnPosixShell, RunFindsAProgramWhosePathHoldsBlanksAndKeepsAllBlanksOfTheRest) {
  AddProgram("C:\\Windows\\Slide Show.scr", "printf '%s|' \"$@\" > \"$0.out\"");
  PosixShell& shell = Made();
  shell.Run("C:\\Windows\\\\Slide Show.scr /S :SS 31C:\\My  Photos");
  AwaitPrograms();
  EXPECT_EQ(drive_.Read("C:\\Windows\\Slide Show.scr.out"), "/S|:SS|31C:\\My||Photos|");
}

TEST_F(OnPosixShell, RunTakesAProgramOfTheSearchPath) {
  Made().Run("viewer one two");
  AwaitPrograms();
  EXPECT_TRUE(drive_.Read("C:\\bin\\viewer.out").ends_with("\none\ntwo\n"));
}

TEST_F(OnPosixShell, RunRaises53WhereThereIsNoProgramAnd75WhereItDoesNotRun) {
  PosixShell& shell = Made();
  const auto number = [&shell](const std::string& command) { return ErrorsIgnored([&] { shell.Run(command); }); };
  EXPECT_EQ(number("C:\\Windows\\\\Slide Show.scr /S :SS 31C:\\Photos"), error::FileNotFound);
  EXPECT_EQ(number("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,,1"), error::FileNotFound);
  EXPECT_EQ(number(""), error::FileNotFound);
  EXPECT_EQ(number("C:\\photos\\a b.jpg"), error::PathAccess);
}

// Waits for a child of this process to end and leaves it to others to take leave of it.
pid_t AwaitEnded() {
  siginfo_t ended{};
  return waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT) == 0 ? ended.si_pid : -1;
}

TEST_F(OnPosixShell, AProgramThatEndedIsTakenLeaveOfByTheNextStartAndByTheShellsEnd) {
  Made().Run("painter");
  const pid_t first = AwaitEnded();
  ASSERT_GT(first, 0);
  shell_->Run("painter");
  EXPECT_EQ(waitpid(first, nullptr, WNOHANG), -1);
  ASSERT_GT(AwaitEnded(), 0);
  shell_.reset();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST(DesktopEntry, FieldCodesAreFilledIn) {
  DesktopEntry entry;
  entry.Name = "Viewer";
  entry.File = "/x/viewer.desktop";
  entry.Icon = "eye";
  const auto arguments = [&entry](const char* exec) {
    entry.Exec = exec;
    return ArgumentsFor(entry, "/a b/\xC3\xA4.jpg");
  };
  EXPECT_THAT(arguments("v %f"), ElementsAre("v", "/a b/\xC3\xA4.jpg"));
  EXPECT_THAT(arguments("v %U"), ElementsAre("v", "file:///a%20b/%C3%A4.jpg"));
  EXPECT_THAT(arguments("v %i --title=%c %k 100%% %F"),
              ElementsAre("v", "--icon", "eye", "--title=Viewer", "/x/viewer.desktop", "100%", "/a b/\xC3\xA4.jpg"));
  EXPECT_THAT(arguments("v"), ElementsAre("v", "/a b/\xC3\xA4.jpg"));
  EXPECT_THAT(arguments("v %d %m %f"), ElementsAre("v", "/a b/\xC3\xA4.jpg"));
  EXPECT_THAT(arguments("\"a \\\"b\\$\" '%f'"), ElementsAre("a \"b$", "'/a b/\xC3\xA4.jpg'"));
  EXPECT_THAT(arguments("v \"open"), IsEmpty());
}

TEST(MimeTypes, TheHeaviestThenTheLongestGlobWins) {
  const char* globs =
      "# c\n50:a/short:*.gz\n50:a/long:*.tar.gz\n60:a/heavy:*.x.tar.gz\n50:a/case:*.C:cs\n50:a/small:*.c\n";
  EXPECT_EQ(TypeByGlobs(globs, "a.gz"), "a/short");
  EXPECT_EQ(TypeByGlobs(globs, "A.TAR.GZ"), "a/long");
  EXPECT_EQ(TypeByGlobs(globs, "a.x.tar.gz"), "a/heavy");
  EXPECT_EQ(TypeByGlobs(globs, "a.C"), "a/case");
  EXPECT_EQ(TypeByGlobs(globs, "a.c"), "a/small");
  EXPECT_EQ(TypeByGlobs(globs, "a"), "");
}

TEST(MimeTypes, TheProgramsOwnTypesAreKnownWithoutAList) {
  EXPECT_EQ(TypeOfFile({"/no/such/place"}, "a.JPG"), "image/jpeg");
  EXPECT_EQ(TypeOfFile({"/no/such/place"}, "a.gif"), "image/gif");
  EXPECT_EQ(TypeOfFile({}, "a.xyz"), "");
}

TEST(CommandLine, TheProgramEndsWhereAProgramIs) {
  const auto isProgram = [](const std::string& path) { return path == "C:\\a b" || path == "C:\\a"; };
  EXPECT_EQ(SplitCommand("C:\\a b c", isProgram).Program, "C:\\a b");
  EXPECT_THAT(SplitCommand("C:\\a b c", isProgram).Arguments, ElementsAre("c"));
  EXPECT_THAT(SplitCommand("C:\\a b", isProgram).Arguments, IsEmpty());
  EXPECT_THAT(SplitCommand("C:\\a c  d ", isProgram).Arguments, ElementsAre("c", "", "d", ""));
}

TEST(CommandLine, WithoutAProgramTheSuffixOrTheFirstWordTells) {
  const auto none = [](const std::string&) { return false; };
  EXPECT_EQ(SplitCommand("C:\\w\\Slide Show.scr 21%L", none).Program, "C:\\w\\Slide Show.scr");
  EXPECT_THAT(SplitCommand("C:\\w\\Slide Show.SCR 21%L", none).Arguments, ElementsAre("21%L"));
  EXPECT_EQ(SplitCommand("one two", none).Program, "one");
  EXPECT_EQ(SplitCommand("\"one two\" three", none).Program, "one two");
  EXPECT_THAT(SplitCommand("\"one two\" three", none).Arguments, ElementsAre("three"));
  EXPECT_EQ(SplitCommand("", none).Program, "");
}

}  // namespace
}  // namespace pixorra
