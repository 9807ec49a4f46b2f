// The registry's files on the host.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "platform/posix/FolderVerb.h"
#include "platform/posix/HostNames.h"
#include "platform/posix/Launcher.h"
#include "platform/posix/PosixRegistry.h"
#include "platform/posix/PosixShell.h"
#include "tests/platform/posix/OwnProcess.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::HasSubstr;

constexpr const char* folderVerb = "Folder\\Shell\\SlideShow by Pixorra";
constexpr const char* folderVerbCommand = "Folder\\Shell\\SlideShow by Pixorra\\Command";
constexpr const char* serviceMenu = "C:\\data\\kio\\servicemenus\\pixorra-slideshow-by-pixorra.desktop";
constexpr const char* script = "C:\\data\\nautilus\\scripts\\SlideShow by Pixorra";
constexpr const char* otherScript = "C:\\config\\caja\\scripts\\SlideShow by Pixorra";
constexpr const char* sendTo = "C:\\data\\Thunar\\sendto\\pixorra-slideshow-by-pixorra.desktop";
constexpr const char* companionPath = "C:\\win dows\\Pixorra SlideShow.scr";

// Names of folders that mean something to a shell, to a starter, or to nobody.
const std::vector<std::string> oddNames = {"my photos",
                                           " a \"b\" $c `d` 'e' \\f ; g & h ",
                                           "100% done %f %F%%",
                                           "line\nand end\n",
                                           "bad\xff\xfe utf\xc3",
                                           "-dash",
                                           "21 %L"};

class OnPosixRegistry : public ::testing::Test {
 protected:
  OnPosixRegistry() : registry_(drive_.HostRoot() + "/data", drive_.HostRoot() + "/config", Mapping()) {}
  std::shared_ptr<MappingSource> Mapping() const {
    return std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}}));
  }
  void Add() {
    registry_.SetKeyValue(registry::ClassesRoot, folderVerbCommand, "", std::string(companionPath) + " 21%L");
  }
  // The companion: writes its arguments beside itself.
  void AddCompanion() {
    drive_.Write(companionPath, "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.out\"\n");
    drive_.SetMode(companionPath, 0755);
  }
  std::string HeardByCompanion() {
    const std::string out = std::string(companionPath) + ".out";
    std::string heard = drive_.Exists(out) ? drive_.Read(out) : "not started";
    if (drive_.Exists(out)) drive_.Remove(out);
    return heard;
  }
  // As a file manager runs a script: by its variables, with what its arguments are, in the folder on show.
  std::string PlayedByScript(const std::string& path, const Variables& variables,
                             const std::vector<std::string>& arguments, const std::string& hostFolder) {
    InOwnProcess(variables, [&] {
      std::vector<std::string> command{drive_.HostPath(path)};
      command.insert(command.end(), arguments.begin(), arguments.end());
      ASSERT_EQ(StartDetached(command, hostFolder), 0);
      AwaitPrograms();
    });
    return HeardByCompanion();
  }
  // All that there is in the folder, with what links lead to.
  std::vector<std::string> AllIn(const std::string& path) const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(drive_.HostPath(path)))
      all.push_back(entry.path().string());
    std::sort(all.begin(), all.end());
    return all;
  }
  TemporaryDrive drive_;
  PosixRegistry registry_;
};

TEST_F(OnPosixRegistry, WhatAKilledStartHasLeftOfTheVerbGoesWhenItIsWrittenAgain) {
  Add();
  const std::string left = std::string(script) + ".pixorra-aB3dE6";
  drive_.Write(left, drive_.Read(script));
  drive_.Remove(script);
  Add();
  EXPECT_TRUE(drive_.Exists(script));
  EXPECT_FALSE(drive_.Exists(left)) << "it would be in the menu as well";
}

TEST_F(OnPosixRegistry, AVerbsFilesAreThereFromItsSettingToItsDeletion) {
  const std::vector<std::string> places = {serviceMenu,
                                           script,
                                           otherScript,
                                           sendTo,
                                           "C:\\data\\nemo\\actions\\pixorra-slideshow-by-pixorra.nemo_action",
                                           "C:\\data\\file-manager\\actions\\pixorra-slideshow-by-pixorra.desktop"};
  Add();
  for (const std::string& place : places) EXPECT_TRUE(drive_.Exists(place)) << place;
  registry_.DeleteKey(registry::ClassesRoot, "FOLDER\\shell\\SLIDEshow BY pixorra");
  for (const std::string& place : places) EXPECT_FALSE(drive_.Exists(place)) << place;
}

TEST_F(OnPosixRegistry, ADeletedVerbLeavesNoTrace) {
  Add();
  Add();
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_FALSE(drive_.Exists("C:\\data"));
  EXPECT_FALSE(drive_.Exists("C:\\config"));
}

TEST_F(OnPosixRegistry, FoldersThatWereThereAndWhatIsInThemStay) {
  drive_.MakeFolder("C:\\data\\nautilus\\scripts");
  drive_.MakeFolder("C:\\data\\nemo");
  drive_.Write("C:\\data\\kio\\servicemenus\\other.desktop", "[Desktop Entry]\n");
  drive_.Write("C:\\config\\caja\\scripts\\Other", "#!/bin/sh\n");
  const std::vector<std::string> before = AllIn("C:\\");
  Add();
  EXPECT_GT(AllIn("C:\\").size(), before.size());
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_EQ(AllIn("C:\\"), before);
}

TEST_F(OnPosixRegistry, AFolderThatWasMadeForItStaysWhileSomebodyElseUsesIt) {
  Add();
  drive_.Write("C:\\data\\nemo\\actions\\other.nemo_action", "[Nemo Action]\n");
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_EQ(AllIn("C:\\data"),
            (std::vector<std::string>{drive_.HostPath("C:\\data\\nemo"), drive_.HostPath("C:\\data\\nemo\\actions"),
                                      drive_.HostPath("C:\\data\\nemo\\actions\\other.nemo_action")}));
}

TEST_F(OnPosixRegistry, TheMachinesKeysStayMissingQuietly) {
  registry_.SetKeyValue(registry::LocalMachine, std::string("Software\\CLASSES\\") + folderVerbCommand, "",
                        "C:\\x 21%L");
  registry_.SetKeyValue(registry::LocalMachine, folderVerbCommand, "", "C:\\x 21%L");
  EXPECT_FALSE(registry_.KeyExists(registry::LocalMachine, std::string("Software\\CLASSES\\") + folderVerb));
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, folderVerb));
  EXPECT_FALSE(drive_.Exists("C:\\data"));
}

TEST_F(OnPosixRegistry, OtherKeysDoNothing) {
  Add();
  for (const char* key : {"", "Folder\\Shell\\", "Folder\\Shell\\a\\b", "txtfile\\Shell\\open\\Command"}) {
    registry_.SetKeyValue(registry::ClassesRoot, key, "", "C:\\x");
    EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, key)) << key;
    registry_.DeleteKey(registry::ClassesRoot, key);
  }
  EXPECT_TRUE(registry_.KeyExists(registry::ClassesRoot, folderVerb));
}

// The value of the last line that begins with the key.
std::string ValueIn(const std::string& text, const std::string& key) {
  const std::size_t start = text.rfind("\n" + key + "=");
  if (start == std::string::npos) return {};
  const std::size_t value = start + key.size() + 2;
  return text.substr(value, text.find('\n', value) - value);
}

// What a program writes about itself that the desktop starts on the folder by this command line of a file manager.
std::string HeardThrough(TemporaryDrive& drive, const std::string& exec, const std::string& started,
                         const std::string& folder = "C:\\my photos") {
  drive.Write(started, "#!/bin/sh\nprintf '%s|' \"$@\" > \"" + drive.HostPath("C:\\heard") + "\"\n");
  drive.SetMode(started, 0755);
  drive.Write("C:\\share\\applications\\manager.desktop",
              "[Desktop Entry]\nType=Application\nName=x\nExec=" + exec + "\n");
  drive.Write("C:\\xdg\\mimeapps.list", "[Default Applications]\ninode/directory=manager.desktop\n");
  if (!drive.DriveFiles().FolderExists(folder)) drive.DriveFiles().MakeFolder(folder);
  InOwnProcess(SessionIn(drive.HostRoot()), [&] {
    PosixShell shell(std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "Test"}})));
    shell.Open(folder, "");
    AwaitPrograms();
  });
  return drive.Exists("C:\\heard") ? drive.Read("C:\\heard") : "not started";
}

TEST_F(OnPosixRegistry, TheFilesNameTheCompanionAndTheFolder) {
  Add();
  const std::string menu = drive_.Read(serviceMenu);
  EXPECT_EQ(ValueIn(menu, "Name"), "SlideShow by Pixorra");
  EXPECT_EQ(ValueIn(menu, "MimeType"), "inode/directory;");
  EXPECT_THAT(menu, HasSubstr("[Desktop Action play]\n"));
  EXPECT_EQ(HeardThrough(drive_, ValueIn(menu, "Exec"), companionPath), "21" + drive_.HostPath("C:\\my photos") + "|");
  struct stat file {};
  ASSERT_EQ(stat(drive_.HostPath(serviceMenu).c_str(), &file), 0);
  EXPECT_NE(file.st_mode & S_IXUSR, 0U);
}

TEST_F(OnPosixRegistry, EveryCommandTakesAFolderWhateverItIsCalled) {
  Add();
  for (const std::string& name : oddNames) {
    const std::string folder = "C:\\" + NameFromHost(name);
    for (const VerbFile& file : FilesOfFolderVerb("Verb", drive_.HostPath(companionPath), {"21%L"})) {
      const std::string exec = ValueIn(file.Text, "Exec");
      if (exec.empty()) continue;
      EXPECT_EQ(HeardThrough(drive_, exec, companionPath, folder), "21" + drive_.HostRoot() + '/' + name + '|')
          << file.Place;
      drive_.Remove("C:\\heard");
    }
    drive_.DriveFiles().RemoveFolder(folder);
  }
}

// GNOME Files and Caja give a script names without their folder, and the paths in a variable.
TEST_F(OnPosixRegistry, AScriptStartsTheCompanionOnTheFolderWhateverItIsCalled) {
  AddCompanion();
  Add();
  const std::string shown = drive_.HostPath("C:\\shown");
  for (const std::string& name : oddNames) {
    const std::string folder = shown + '/' + name;
    std::filesystem::create_directories(folder);
    const std::string expected = "21" + folder + '|';
    EXPECT_EQ(PlayedByScript(script, {{"NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", folder + '\n'}}, {"mangled"}, shown),
              expected);
    EXPECT_EQ(PlayedByScript(otherScript, {{"CAJA_SCRIPT_SELECTED_FILE_PATHS", folder + '\n'}}, {name}, shown),
              expected);
    EXPECT_EQ(PlayedByScript(script, {}, {name}, shown), expected) << "by its name alone";
    EXPECT_EQ(PlayedByScript(script, {}, {folder}, "/"), expected) << "by its path alone";
  }
}

TEST_F(OnPosixRegistry, AScriptTakesTheFirstOfSeveralThePhotosFolderAndTheFolderOnShow) {
  AddCompanion();
  Add();
  drive_.MakeFolder("C:\\shown\\one");
  drive_.Write("C:\\shown\\a b.jpg", "1");
  const std::string shown = drive_.HostPath("C:\\shown");
  const auto played = [&](const std::string& paths) {
    return PlayedByScript(script, {{"NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", paths}}, {}, shown);
  };
  EXPECT_EQ(played(shown + "/one\n" + shown + "/two\n"), "21" + shown + "/one|");
  EXPECT_EQ(played(shown + "/a b.jpg\n" + shown + "/one\n"), "21" + shown + "/|");
  EXPECT_EQ(played(""), "21" + shown + '|');
}

// The tool's exit code, 127 where it is missing; what it prints is in `printed`.
int RunTool(const std::string& command, std::string& printed) {
  FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return 127;
  char part[4096];
  printed.clear();
  for (std::size_t read = 0; (read = std::fread(part, 1, sizeof part, pipe)) > 0;) printed.append(part, read);
  return WEXITSTATUS(pclose(pipe));
}

// The tool knows no service menus, which differ from a starter in their type alone.
TEST_F(OnPosixRegistry, TheDesktopsOwnToolFindsNothingWrongWithTheStarters) {
  Add();
  const std::string type = "Type=Service";
  std::string menu = drive_.Read(serviceMenu);
  ASSERT_NE(menu.find(type), std::string::npos);
  const char* const asStarter = "C:\\menu.desktop";
  drive_.Write(asStarter, menu.replace(menu.find(type), type.size(), "Type=Application\nName=x\nExec=true"));
  for (const char* path : {sendTo, asStarter}) {
    std::string printed;
    const int code = RunTool("desktop-file-validate '" + drive_.HostPath(path) + "'", printed);
    if (code == 127) GTEST_SKIP() << "there is no such tool here";
    EXPECT_EQ(code, 0) << printed;
  }
}

TEST_F(OnPosixRegistry, TheDesktopsOwnLauncherStartsTheCompanionOnTheFolder) {
  AddCompanion();
  Add();
  std::string printed;
  if (RunTool("gio help launch", printed) != 0) GTEST_SKIP() << "there is no such tool here";
  for (const std::string& name : oddNames) {
    const std::string folder = drive_.HostRoot() + '/' + name;
    std::filesystem::create_directory(folder);
    InOwnProcess(SessionIn(drive_.HostRoot()), [&] {
      EXPECT_EQ(StartDetached({"/usr/bin/gio", "launch", drive_.HostPath(sendTo), folder}, {}), 0);
      AwaitPrograms();
    });
    EXPECT_EQ(HeardByCompanion(), "21" + folder + '|');
  }
}

TEST_F(OnPosixRegistry, MenusThatKnowALimitOfferItForOneFolderAlone) {
  Add();
  const std::string menu = drive_.Read(serviceMenu);
  EXPECT_EQ(ValueIn(menu, "X-KDE-RequiredNumberOfUrls"), "1");
  EXPECT_EQ(ValueIn(menu, "X-KDE-MaxNumberOfUrls"), "1");
  EXPECT_LT(menu.find("X-KDE-MaxNumberOfUrls"), menu.find("[Desktop Action"))
      << "they are the menu's, not the action's";
  const std::string action = drive_.Read("C:\\data\\file-manager\\actions\\pixorra-slideshow-by-pixorra.desktop");
  EXPECT_EQ(ValueIn(action, "SelectionCount"), "=1");
  const std::string nemo = drive_.Read("C:\\data\\nemo\\actions\\pixorra-slideshow-by-pixorra.nemo_action");
  EXPECT_EQ(ValueIn(nemo, "Selection"), "S");
}

TEST_F(OnPosixRegistry, WhereTheMenuHasNoLimitOneShowIsStartedOnTheFirstOfSeveralFolders) {
  drive_.Write(companionPath, "#!/bin/sh\nprintf '%s|' \"$@\" >> \"$0.out\"\n");
  drive_.SetMode(companionPath, 0755);
  Add();
  std::string printed;
  if (RunTool("gio help launch", printed) != 0) GTEST_SKIP() << "there is no such tool here";
  const std::string first = drive_.HostPath("C:\\a 'b'");
  const std::string second = drive_.HostPath("C:\\c");
  InOwnProcess(SessionIn(drive_.HostRoot()), [&] {
    EXPECT_EQ(StartDetached({"/usr/bin/gio", "launch", drive_.HostPath(sendTo), first, second}, {}), 0);
    AwaitPrograms();
  });
  EXPECT_EQ(HeardByCompanion(), "21" + first + '|');
}

TEST_F(OnPosixRegistry, ALinkOfSomebodyElseUnderTheSameNameStays) {
  drive_.MakeFolder("C:\\data\\nautilus\\scripts");
  drive_.MakeLink(script, "nowhere");
  Add();
  EXPECT_FALSE(drive_.Exists("C:\\data\\nautilus\\scripts\\nowhere"));
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_TRUE(drive_.Exists(script));
}

TEST_F(OnPosixRegistry, SomebodyElsesFileUnderTheSameNameStays) {
  drive_.Write(script, "#!/bin/sh\necho mine\n");
  Add();
  EXPECT_EQ(drive_.Read(script), "#!/bin/sh\necho mine\n");
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_EQ(drive_.Read(script), "#!/bin/sh\necho mine\n");
}

TEST_F(OnPosixRegistry, WhereNothingCanBeWrittenNothingIsTold) {
  drive_.Write("C:\\data", "a file in the way");
  drive_.Write("C:\\config", "another");
  Add();
  EXPECT_FALSE(registry_.KeyExists(registry::ClassesRoot, folderVerb));
  registry_.DeleteKey(registry::ClassesRoot, folderVerb);
  EXPECT_EQ(drive_.Read("C:\\data"), "a file in the way");
}

TEST(FolderVerb, TextsThatMeanSomethingToAShellAreTakenAsTheyAre) {
  TemporaryDrive drive;
  const std::string name = "a \"b\" $c `d` e 'g'";
  for (const VerbFile& file : FilesOfFolderVerb("Verb", drive.HostRoot() + '/' + name, {"2 1", "$x \\5%f", "x%Ly"})) {
    const std::string exec = ValueIn(file.Text, "Exec");
    if (exec.empty()) continue;
    EXPECT_EQ(HeardThrough(drive, exec, "C:\\" + NameFromHost(name)),
              "2 1|$x \\5%f|x" + drive.HostPath("C:\\my photos") + "y|")
        << file.Place;
    drive.Remove("C:\\heard");
  }
}

TEST(FolderVerb, APercentSignInTheProgramsPathIsWrittenTwice) {
  for (const VerbFile& file : FilesOfFolderVerb("Verb", "/100%", {})) {
    const std::string exec = ValueIn(file.Text, "Exec");
    EXPECT_TRUE(exec.empty() || exec.find("\"/100%%\"") != std::string::npos) << exec;
  }
}

// What the package brings for everybody, and one user's registry beside it.
class OnPackagedVerb : public OnPosixRegistry {
 protected:
  OnPackagedVerb()
      : with_(drive_.HostRoot() + "/data", drive_.HostRoot() + "/config", Mapping(),
              {drive_.HostPath("C:\\none"), drive_.HostPath("C:\\share")}) {
    std::filesystem::copy(Packaged(), drive_.HostPath("C:\\share"), std::filesystem::copy_options::recursive);
  }
  static std::filesystem::path Packaged() {
    return std::filesystem::path(PIXORRA_TEST_DATA) / "../../packaging/folder-verb";
  }
  void Tick() { with_.SetKeyValue(registry::ClassesRoot, folderVerbCommand, "", std::string(companionPath) + " 21%L"); }
  void Clear() { with_.DeleteKey(registry::ClassesRoot, folderVerb); }
  bool IsThere() { return with_.KeyExists(registry::ClassesRoot, folderVerb); }
  bool IsHidden(const std::string& path) { return ValueIn(drive_.Read(path), "Hidden") == "true"; }
  PosixRegistry with_;
};

TEST_F(OnPackagedVerb, ItIsWhatTheProgramWouldWrite) {
  std::vector<std::string> places;
  for (const VerbFile& file : FilesOfFolderVerb("SlideShow by Pixorra", "pixorra-slideshow", {"21%L"})) {
    if (!file.ForEverybody) continue;
    places.push_back(drive_.HostPath("C:\\share") + '/' + file.Place);
    ASSERT_TRUE(std::filesystem::exists(places.back())) << file.Place;
    std::string written = "C:\\share\\" + file.Place;
    std::replace(written.begin(), written.end(), '/', '\\');
    EXPECT_EQ(drive_.Read(written), file.Text) << file.Place;
  }
  std::vector<std::string> files = AllIn("C:\\share");
  std::erase_if(files, [](const std::string& path) { return std::filesystem::is_directory(path); });
  EXPECT_THAT(files, ::testing::UnorderedElementsAreArray(places));
}

TEST_F(OnPackagedVerb, WhereItIsAUsersOwnIsNotWrittenBesideIt) {
  EXPECT_TRUE(IsThere()) << "with nothing of the user's";
  Tick();
  EXPECT_TRUE(IsThere());
  EXPECT_FALSE(drive_.Exists(serviceMenu));
  EXPECT_FALSE(drive_.Exists(sendTo));
  EXPECT_TRUE(drive_.Exists(script)) << "a file manager that takes it from a user alone";
  EXPECT_TRUE(drive_.Exists(otherScript));
}

TEST_F(OnPackagedVerb, AUserTakesItAwayAndBringsItBack) {
  const std::vector<std::string> packaged = AllIn("C:\\share");
  Tick();
  Clear();
  EXPECT_FALSE(IsThere());
  EXPECT_TRUE(IsHidden(serviceMenu));
  EXPECT_TRUE(IsHidden(sendTo));
  EXPECT_FALSE(drive_.Exists(script));
  Clear();
  EXPECT_FALSE(IsThere()) << "cleared twice";
  Tick();
  EXPECT_TRUE(IsThere());
  EXPECT_FALSE(drive_.Exists(serviceMenu));
  EXPECT_FALSE(drive_.Exists("C:\\data\\Thunar")) << "a folder that was made to hide it";
  EXPECT_EQ(AllIn("C:\\share"), packaged);
}

TEST_F(OnPackagedVerb, OnceThePackageHasGoneTheUsersOwnIsWrittenAgain) {
  Clear();
  std::filesystem::remove_all(drive_.HostPath("C:\\share"));
  EXPECT_FALSE(IsThere()) << "what hides it is no verb";
  Tick();
  EXPECT_TRUE(IsThere());
  EXPECT_FALSE(IsHidden(serviceMenu));
  EXPECT_THAT(drive_.Read(serviceMenu), HasSubstr("Pixorra SlideShow.scr"));
  Clear();
  EXPECT_FALSE(drive_.Exists("C:\\data"));
}

TEST_F(OnPackagedVerb, SomebodyElsesFileInItsPlaceStays) {
  drive_.Write(sendTo, "mine");
  Clear();
  EXPECT_EQ(drive_.Read(sendTo), "mine");
  EXPECT_FALSE(IsThere());
  Tick();
  EXPECT_EQ(drive_.Read(sendTo), "mine");
}

TEST_F(OnPackagedVerb, TheDesktopTakesWhatHidesItForNoProgram) {
  std::string printed;
  if (RunTool("gio help launch", printed) != 0) GTEST_SKIP() << "there is no such tool here";
  Clear();
  EXPECT_NE(RunTool("gio launch '" + drive_.HostPath(sendTo) + "' /", printed), 0);
  EXPECT_THAT(printed, HasSubstr("load"));
}

}  // namespace
}  // namespace pixorra
