// The desktop's own lists, starters and programs, which really run.
#include <cerrno>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/CommandLine.h"
#include "platform/posix/Launcher.h"
#include "platform/posix/PosixShell.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/posix/OwnProcess.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* photo = "C:\\photos\\a b.jpg";
constexpr const char* viewer = "C:\\share\\applications\\viewer.desktop";
constexpr const char* painter = "C:\\share\\applications\\painter.desktop";
constexpr const char* userList = "C:\\home\\.config\\mimeapps.list";
constexpr const char* offered = "C:\\share\\applications\\mimeinfo.cache";

class OnPosixShell : public ::testing::Test {
 protected:
  OnPosixShell() {
    // Writes its folder and its arguments, a line each, to a file beside itself.
    AddProgram("C:\\bin\\viewer",
               "out=\"$0.out\"; { pwd; for a in \"$@\"; do printf '%s\\n' \"$a\"; done; } > \"$out\"");
    AddProgram("C:\\bin\\painter", ":");
    drive_.Write("C:\\share\\mime\\globs2", "50:image/jpeg:*.jpg\n50:image/jpeg:*.jpeg\n60:image/x-raw:*.raw.jpg\n");
    AddStarter("viewer", "Exec=viewer --show %f\n");
    AddStarter("painter", "Exec=painter %U\nComment=Paints\nName[de]=Maler\n");
    drive_.Write(photo, "1");
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
  // Each call is a session of its own, which sees the desktop as it is then. Started programs have ended at its end.
  void WithShell(const std::function<void(PosixShell&)>& body) {
    InOwnProcess(session_, [&] {
      PosixShell shell(std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}})));
      body(shell);
      AwaitPrograms();
    });
  }
  void ExpectFound(const std::string& path, const std::string& program) {
    WithShell([&](PosixShell& shell) { EXPECT_EQ(shell.FindExecutable(path), program); });
  }

  TemporaryDrive drive_;
  Variables session_ = SessionIn(drive_.HostRoot());
};

TEST_F(OnPosixShell, TheDefaultGoesBeforeWhatWasAddedAndWhatIsOffered) {
  ExpectFound(photo, "");
  Associate(offered, "MIME Cache", "image/jpeg=painter.desktop;viewer.desktop;");
  ExpectFound(photo, painter);
  Associate("C:\\home\\.local\\share\\applications\\mimeapps.list", "Added Associations", "image/jpeg=viewer.desktop;");
  ExpectFound(photo, viewer);
  Associate("C:\\xdg\\mimeapps.list", "Default Applications", "image/jpeg=gone.desktop;painter.desktop");
  ExpectFound(photo, painter);
  Associate(userList, "Default Applications", "image/jpeg=viewer.desktop");
  ExpectFound("C:\\PHOTOS\\A B.JPG", viewer);
}

TEST_F(OnPosixShell, TheDesktopsOwnListGoesBeforeTheCommonOne) {
  session_["XDG_CURRENT_DESKTOP"] = "KDE";
  Associate(userList, "Default Applications", "image/jpeg=viewer.desktop");
  Associate("C:\\home\\.config\\kde-mimeapps.list", "Default Applications", "image/jpeg=painter.desktop");
  ExpectFound(photo, painter);
}

TEST_F(OnPosixShell, WhatWasRemovedIsNotOffered) {
  Associate(offered, "MIME Cache", "image/jpeg=painter.desktop;viewer.desktop;");
  Associate(userList, "Removed Associations", "image/jpeg=painter.desktop;");
  ExpectFound(photo, viewer);
}

TEST_F(OnPosixShell, AStarterWhoseProgramIsMissingIsPassedOver) {
  Associate(userList, "Default Applications", "image/jpeg=notry.desktop;noexec.desktop;link.desktop;viewer.desktop;");
  AddStarter("notry", "Exec=viewer\nTryExec=missing\n");
  AddStarter("noexec", "Exec=missing %f\n");
  drive_.Write("C:\\share\\applications\\link.desktop", "[Desktop Entry]\nType=Link\nURL=x\n");
  ExpectFound(photo, viewer);
}

TEST_F(OnPosixShell, AStarterThatIsMarkedAsDeletedIsPassedOver) {
  Associate(userList, "Default Applications", "image/jpeg=painter.desktop");
  Associate(offered, "MIME Cache", "image/jpeg=painter.desktop;viewer.desktop;");
  AddStarter("painter", "Exec=painter\nHidden=true\n");
  ExpectFound(photo, viewer);
}

TEST_F(OnPosixShell, ADashInAStartersNameMayBeTheBorderOfAFolder) {
  drive_.Write("C:\\share\\applications\\kde\\viewer.desktop",
               "[Desktop Entry]\nType=Application\nName=x\nExec=viewer\n");
  Associate(userList, "Default Applications", "image/jpeg=kde-viewer.desktop");
  ExpectFound(photo, "C:\\share\\applications\\kde\\viewer.desktop");
}

TEST_F(OnPosixShell, TheHeaviestPatternTellsTheTypeAndThePhotosOwnTypesNeedNoList) {
  Associate(userList, "Default Applications", "image/jpeg=viewer.desktop\nimage/x-raw=painter.desktop");
  drive_.Write("C:\\photos\\b.RAW.jpg", "1");
  ExpectFound("C:\\photos\\b.RAW.jpg", painter);
  drive_.Remove("C:\\share\\mime");
  ExpectFound(photo, viewer);
  ExpectFound("C:\\photos\\b.RAW.jpg", viewer);
}

TEST_F(OnPosixShell, AProgramIsNamedByItsStarterInTheUsersLanguage) {
  WithShell([](PosixShell& shell) {
    EXPECT_EQ(shell.ReadVersionInfo(viewer).ProductName, "The viewer");
    EXPECT_EQ(shell.ReadVersionInfo(viewer).FileDescription, "?");
    EXPECT_EQ(shell.ReadVersionInfo("C:\\bin\\painter").ProductName, "The painter");
    EXPECT_EQ(shell.ReadVersionInfo("C:\\bin\\painter").FileDescription, "Paints");
  });
  session_["LANGUAGE"] = "de_DE";
  session_["LC_ALL"] = "de_DE.UTF-8";
  WithShell([](PosixShell& shell) { EXPECT_EQ(shell.ReadVersionInfo(painter).ProductName, "Maler"); });
}

TEST_F(OnPosixShell, AGenericNameDescribesAProgramWithoutAComment) {
  AddStarter("viewer", "Exec=viewer\nGenericName=Image viewer\n");
  WithShell([](PosixShell& shell) { EXPECT_EQ(shell.ReadVersionInfo(viewer).FileDescription, "Image viewer"); });
}

TEST_F(OnPosixShell, OpenStartsTheRegisteredProgramInTheFolder) {
  Associate(userList, "Default Applications", "image/jpeg=viewer.desktop");
  WithShell([](PosixShell& shell) { shell.Open("C:\\photos\\A b.jpg", "c:\\photos"); });
  EXPECT_EQ(drive_.Read("C:\\bin\\viewer.out"),
            drive_.HostPath("C:\\photos") + "\n--show\n" + drive_.HostPath(photo) + "\n");
}

TEST_F(OnPosixShell, AStartersOwnFolderGoesBeforeTheOneThatIsAskedFor) {
  Associate(userList, "Default Applications", "image/jpeg=viewer.desktop");
  AddStarter("viewer", "Exec=viewer\nPath=" + drive_.HostPath("C:\\share") + "\n");
  WithShell([](PosixShell& shell) { shell.Open(photo, "c:\\photos"); });
  EXPECT_EQ(drive_.Read("C:\\bin\\viewer.out"), drive_.HostPath("C:\\share") + "\n" + drive_.HostPath(photo) + "\n");
}

TEST_F(OnPosixShell, AStarterThatTakesAddressesOrNamesNothingGetsThePhotoToo) {
  Associate(userList, "Default Applications", "image/jpeg=viewer.desktop");
  for (const char* exec : {"viewer 100%% %U", "viewer 100%%"}) {
    AddStarter("viewer", std::string("Exec=") + exec + "\n");
    WithShell([](PosixShell& shell) { shell.Open(photo, "C:\\"); });
    EXPECT_EQ(drive_.Read("C:\\bin\\viewer.out"), drive_.HostRoot() + "\n100%\n" + drive_.HostPath(photo) + "\n");
    drive_.Remove("C:\\bin\\viewer.out");
  }
}

TEST_F(OnPosixShell, OpenAsksTheDesktopsOpenerWhereNothingIsRegistered) {
  AddProgram("C:\\bin\\xdg-open", "printf '%s\\n' \"$@\" > \"$0.out\"");
  WithShell([](PosixShell& shell) { shell.Open(photo, "c:\\"); });
  EXPECT_EQ(drive_.Read("C:\\bin\\xdg-open.out"), drive_.HostPath(photo) + "\n");
}

TEST_F(OnPosixShell, OpenTakesWebAddressesAndNoOtherWords) {
  AddProgram("C:\\bin\\xdg-open", "printf '%s\\n' \"$@\" >> \"$0.out\"");
  WithShell([](PosixShell& shell) {
    for (const char* target :
         {"https://example.org/a?b=c&d", "", "--help", "file:///etc/passwd", "viewer", "C:\\missing.jpg"})
      shell.Open(target, "c:\\");
  });
  EXPECT_EQ(drive_.Read("C:\\bin\\xdg-open.out"), "https://example.org/a?b=c&d\n");
}

TEST_F(OnPosixShell, RunPartsTheArgumentLineAtEachBlank) {
  AddProgram("C:\\Windows\\Slide Show.scr", "printf '%s|' \"$@\" > \"$0.out\"");
  WithShell([](PosixShell& shell) { shell.Run("C:\\Windows\\\\Slide Show.scr /S :SS 31C:\\My  Photos"); });
  EXPECT_EQ(drive_.Read("C:\\Windows\\Slide Show.scr.out"), "/S|:SS|31C:\\My||Photos|");
}

TEST_F(OnPosixShell, RunTakesAProgramOfTheSearchPath) {
  WithShell([](PosixShell& shell) { shell.Run("viewer one two"); });
  EXPECT_TRUE(drive_.Read("C:\\bin\\viewer.out").ends_with("\none\ntwo\n"));
}

TEST_F(OnPosixShell, RunRaisesPathAccessForWhatIsNoProgramAndGivesItToNoShell) {
  drive_.Write("C:\\photos\\card.jpg", "echo run > heard\n");
  drive_.SetMode("C:\\photos\\card.jpg", 0755);
  WithShell([](PosixShell& shell) {
    for (const char* path : {photo, "C:\\photos\\card.jpg"})
      EXPECT_EQ(ErrorsIgnored([&] { shell.Run(path); }), error::PathAccess) << path;
  });
}

class OnInstalledPrograms : public OnPosixShell {
 protected:
  OnInstalledPrograms() {
    AddProgram("C:\\installed\\shown", "echo here > \"$0.out\"");
    drive_.MakeFolder("C:\\Windows");
  }
  void Offer() const {
    InOwnProcess(session_, [this] {
      PosixShell shell(std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}})),
                       drive_.HostPath("C:\\installed"));
      shell.OfferProgram(offered_, "shown");
    });
  }
  std::string Target() const {
    std::error_code failure;
    return std::filesystem::read_symlink(drive_.HostPath(offered_), failure);
  }
  const std::string offered_ = "C:\\Windows\\My Show.scr";
};

TEST_F(OnInstalledPrograms, TheOfferIsALinkThatIsMendedWhereItLeadsToNoProgram) {
  const std::string installed = drive_.HostPath("C:\\installed\\shown");
  Offer();
  EXPECT_EQ(Target(), installed);
  drive_.MakeFolder("C:\\folder");
  drive_.Write("C:\\text", "no program");
  for (const char* target : {"gone", "../folder", "../text", "My Show.scr"}) {
    drive_.Remove(offered_);
    drive_.MakeLink(offered_, target);
    Offer();
    EXPECT_EQ(Target(), installed) << target;
  }
  EXPECT_FALSE(drive_.Exists(offered_ + ".new"));
}

TEST_F(OnInstalledPrograms, WhatTheUserKeepsBesideTheLinkStaysWhenItIsMended) {
  drive_.MakeLink(offered_, "gone");
  drive_.Write(offered_ + ".new", "the user's own");
  Offer();
  EXPECT_EQ(Target(), drive_.HostPath("C:\\installed\\shown"));
  EXPECT_EQ(drive_.Read(offered_ + ".new"), "the user's own");
  EXPECT_EQ(drive_.DriveFiles().Names("C:\\Windows", "*.*", attribute::Hidden | attribute::System).size(), 2U);
}

TEST_F(OnInstalledPrograms, ALinkToAnotherProgramStays) {
  drive_.MakeLink(offered_, drive_.HostPath("C:\\bin\\viewer"));
  Offer();
  EXPECT_EQ(Target(), drive_.HostPath("C:\\bin\\viewer"));
}

TEST_F(OnInstalledPrograms, ALinkIsNotMendedWhereTheProgramIsMissing) {
  drive_.Remove("C:\\installed");
  drive_.MakeLink(offered_, "gone");
  Offer();
  EXPECT_EQ(Target(), "gone");
}

TEST_F(OnInstalledPrograms, AProgramThatIsNotInItsFolderIsTakenFromTheSearchPath) {
  drive_.Remove("C:\\installed");
  AddProgram("C:\\bin\\shown", ":");
  Offer();
  EXPECT_EQ(Target(), drive_.HostPath("C:\\bin\\shown"));
}

TEST_F(OnInstalledPrograms, TheManualIsBelowTheSamePrefixAsTheProgramOrElseInItsBuild) {
  const std::string built = "C:\\tree\\build\\docs\\manual\\index.html";
  const std::string installed = "C:\\tree\\share\\doc\\pixorra\\manual\\index.html";
  const auto found = [this](const std::string& ownFolder) {
    return PosixShell(std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}})), ownFolder)
        .FindManual();
  };
  drive_.MakeFolder("C:\\tree\\build");
  const std::string ownFolder = drive_.HostPath("C:\\tree\\build");
  EXPECT_EQ(found(ownFolder), "");
  drive_.Write(built, "pages");
  EXPECT_EQ(found(ownFolder), built);
  drive_.Write(installed, "pages");
  EXPECT_EQ(found(ownFolder), installed);
  EXPECT_EQ(found(""), "");
}

TEST_F(OnPosixShell, ADesktopsWindowMadeForAnotherDesktopIsPassedOver) {
  AddStarter("hardinfo", "Exec=painter\nOnlyShowIn=XFCE;\n");
  session_["XDG_CURRENT_DESKTOP"] = "GNOME";
  WithShell([](PosixShell& shell) { EXPECT_FALSE(shell.OpenSystemInformation()); });
  session_["XDG_CURRENT_DESKTOP"] = "XFCE";
  WithShell([](PosixShell& shell) { EXPECT_TRUE(shell.OpenSystemInformation()); });
}

TEST_F(OnPosixShell, AStartedProgramHasItsOwnSessionAndNoStreams) {
  // The streams are looked at from a child, whose parent's are still those that it was started with.
  AddProgram("C:\\bin\\tell",
             "(read -r _ _ _ _ _ sid _ < /proc/$$/stat; echo $sid; for n in 0 1 2; do\n"
             "[ /proc/$$/fd/$n -ef /dev/null ] || echo stream $n; done) > \"$0.out\"");
  AddStarter("tell", "Exec=tell\n");
  Associate(userList, "Default Applications", "image/jpeg=tell.desktop");
  const std::string here = std::to_string(getsid(0)) + "\n";
  const auto expectOwn = [&](const std::function<void(PosixShell&)>& start) {
    WithShell(start);
    const std::string told = drive_.Read("C:\\bin\\tell.out");
    EXPECT_NE(told, here);
    EXPECT_EQ(told.find("stream"), std::string::npos) << told;
    EXPECT_GT(told.size(), 1U);
    drive_.Remove("C:\\bin\\tell.out");
  };
  expectOwn([](PosixShell& shell) { shell.Run("tell"); });
  expectOwn([](PosixShell& shell) { shell.Open(photo, ""); });
}

TEST_F(OnPosixShell, AStartedProgramIsNoChildOfThisProcess) {
  InOwnProcess(session_, [this] {
    prctl(PR_SET_CHILD_SUBREAPER, 0);
    ASSERT_EQ(StartDetached({drive_.HostPath("C:\\bin\\painter")}, {}), 0);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(StartDetached({drive_.HostPath("C:\\missing")}, {}), ENOENT);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  });
}

TEST_F(OnPosixShell, AProgramDoesNotStartInAFolderThatIsMissing) {
  InOwnProcess(session_, [this] {
    EXPECT_EQ(StartDetached({drive_.HostPath("C:\\bin\\viewer")}, drive_.HostPath("C:\\nowhere")), ENOENT);
    AwaitPrograms();
  });
  EXPECT_FALSE(drive_.Exists("C:\\bin\\viewer.out"));
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
