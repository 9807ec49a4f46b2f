// Contract of Places and Clock on the host.
#include <algorithm>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixPlaces.h"
#include "tests/platform/posix/OwnProcess.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class OnPosixPlaces : public ::testing::Test {
 protected:
  OnPosixPlaces() {
    drive_.MakeFolder("C:\\home\\anna");
    environment_ = Environment::OfHome(drive_.HostPath("C:\\home\\anna"));
  }
  PosixPlaces Made() {
    return PosixPlaces(environment_, std::make_shared<FixedMapping>(PathMapping({{'C', drive_.HostRoot(), "Test"}})));
  }
  void InAnnasSession(const std::function<void(PosixPlaces&)>& body) {
    InOwnProcess({{"HOME", environment_.Home}, {"XDG_CONFIG_HOME", environment_.ConfigHome}}, [&] {
      PosixPlaces places = Made();
      body(places);
    });
  }
  TemporaryDrive drive_;
  Environment environment_;
};

TEST_F(OnPosixPlaces, TheProgramsFoldersAreMadeOnFirstUseForTheUserAlone) {
  PosixPlaces places = Made();
  EXPECT_FALSE(drive_.Exists("C:\\home\\anna\\.local"));
  EXPECT_EQ(places.ProgramFolder(), "C:\\home\\anna\\.local\\share\\pixorra");
  EXPECT_EQ(places.WindowsFolder(), "C:\\home\\anna\\.config\\pixorra");
  EXPECT_EQ(places.TemporaryFolder(), "C:\\home\\anna\\.cache\\pixorra");
  for (const char* folder : {"C:\\home\\anna\\.local", "C:\\home\\anna\\.local\\share\\pixorra",
                             "C:\\home\\anna\\.config\\pixorra", "C:\\home\\anna\\.cache\\pixorra"}) {
    struct stat entry {};
    ASSERT_EQ(stat(drive_.HostPath(folder).c_str(), &entry), 0) << folder;
    EXPECT_EQ(entry.st_mode & 0777U, 0700U) << folder;
  }
}

TEST_F(OnPosixPlaces, TheHomeTheUsersFoldersAndTheSystemsAreKept) {
  drive_.Write("C:\\home\\anna\\.config\\user-dirs.dirs",
               "XDG_DOWNLOAD_DIR=\"$HOME/Saved\"\nXDG_MUSIC_DIR=\"$HOME/Songs\"\n");
  InAnnasSession([&](PosixPlaces& places) {
    const std::vector<std::string> kept = places.KeptFolders();
    for (const char* folder : {"C:\\home\\anna", "C:\\home\\anna\\Saved", "C:\\home\\anna\\Songs"})
      EXPECT_EQ(std::count(kept.begin(), kept.end(), folder), 1) << folder;
  });
  // The system's are not on this drive.
  InOwnProcess({}, [&] {
    PosixPlaces places(environment_, std::make_shared<FixedMapping>(PathMapping()));
    const std::vector<std::string> kept = places.KeptFolders();
    for (const char* folder : {"bin", "boot", "etc", "home", "lib", "lib64", "media", "mnt", "opt", "root", "run",
                               "sbin", "srv", "usr", "var"})
      EXPECT_EQ(std::count(kept.begin(), kept.end(), std::string("C:\\") + folder), 1) << folder;
  });
}

TEST_F(OnPosixPlaces, TheUsersFoldersAreKeptWithoutAListToo) {
  for (const char* name : {"Downloads", "Documents", "Pictures", "Desktop"})
    drive_.MakeFolder(std::string("C:\\home\\anna\\") + name);
  InAnnasSession([](PosixPlaces& places) {
    const std::vector<std::string> kept = places.KeptFolders();
    for (const std::string& folder : places.UserFolders())
      EXPECT_EQ(std::count(kept.begin(), kept.end(), folder), 1) << folder;
    EXPECT_EQ(std::count(kept.begin(), kept.end(), "C:\\home\\anna\\Pictures"), 1);
  });
}

TEST_F(OnPosixPlaces, AFolderThatIsThereKeepsItsMode) {
  drive_.MakeFolder("C:\\home\\anna\\.config\\pixorra");
  drive_.SetMode("C:\\home\\anna\\.config\\pixorra", 0755);
  Made().WindowsFolder();
  struct stat entry {};
  ASSERT_EQ(stat(drive_.HostPath("C:\\home\\anna\\.config\\pixorra").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0755U);
}

TEST_F(OnPosixPlaces, AFolderThatCannotBeMadeIsNamedAllTheSame) {
  drive_.Write("C:\\home\\anna\\.config", "a file in the way");
  EXPECT_EQ(Made().WindowsFolder(), "C:\\home\\anna\\.config\\pixorra");
  EXPECT_EQ(drive_.Read("C:\\home\\anna\\.config"), "a file in the way");
}

TEST_F(OnPosixPlaces, SpecialFoldersFollowTheDesktopsListAsItIsNow) {
  const char* list = "C:\\home\\anna\\.config\\user-dirs.dirs";
  drive_.Write(list, "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\nXDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
  InAnnasSession([&](PosixPlaces& places) {
    EXPECT_EQ(places.SpecialFolder(0), "C:\\home\\anna\\Schreibtisch");
    EXPECT_EQ(places.SpecialFolder(16), "C:\\home\\anna\\Schreibtisch");
    EXPECT_EQ(places.SpecialFolder(39), "C:\\home\\anna\\Bilder");
    drive_.Write(list, "XDG_PICTURES_DIR=\"$HOME/Fotos\"\n");
    EXPECT_EQ(places.SpecialFolder(39), "C:\\home\\anna\\Fotos");
    drive_.Write(list, " XDG_PICTURES_DIR=\"" + drive_.HostPath("C:\\data") + "/\"\nXDG_DOCUMENTS_DIR=\"relative\"\n");
    EXPECT_EQ(places.SpecialFolder(39), "C:\\data");
    EXPECT_EQ(places.SpecialFolder(5), "C:\\home\\anna");
  });
}

TEST_F(OnPosixPlaces, WithoutAListTheUsualFoldersOrTheHomeFolderAreTaken) {
  drive_.MakeFolder("C:\\home\\anna\\Pictures");
  InAnnasSession([&](PosixPlaces& places) {
    EXPECT_EQ(places.SpecialFolder(39), "C:\\home\\anna\\Pictures");
    EXPECT_EQ(places.SpecialFolder(5), "C:\\home\\anna");
    EXPECT_EQ(places.SpecialFolder(3), "C:\\home\\anna");
    EXPECT_EQ(places.SpecialFolder(0), "C:\\home\\anna");
    drive_.MakeFolder("C:\\home\\anna\\Desktop");
    EXPECT_EQ(places.SpecialFolder(0), "C:\\home\\anna\\Desktop");
  });
}

TEST_F(OnPosixPlaces, TheUsersFoldersAreThoseOfTheDesktopsListThatAreThere) {
  drive_.Write("C:\\home\\anna\\.config\\user-dirs.dirs",
               "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\nXDG_PICTURES_DIR=\"$HOME/Bilder\"\n"
               "XDG_DOCUMENTS_DIR=\"$HOME/Texte\"\nXDG_DOWNLOAD_DIR=\"$HOME/\"\n");
  drive_.MakeFolder("C:\\home\\anna\\Schreibtisch");
  drive_.MakeFolder("C:\\home\\anna\\Bilder");
  InAnnasSession([](PosixPlaces& places) {
    EXPECT_EQ(places.HomeFolder(), "C:\\home\\anna");
    EXPECT_EQ(places.UserFolders(),
              (std::vector<std::string>{"C:\\home\\anna\\Schreibtisch", "C:\\home\\anna\\Bilder"}));
  });
}

TEST_F(OnPosixPlaces, WithoutAListTheUsersFoldersHaveTheirUsualNames) {
  for (const char* name : {"Downloads", "Desktop", "Pictures"})
    drive_.MakeFolder(std::string("C:\\home\\anna\\") + name);
  InAnnasSession([](PosixPlaces& places) {
    EXPECT_EQ(places.UserFolders(), (std::vector<std::string>{"C:\\home\\anna\\Desktop", "C:\\home\\anna\\Pictures",
                                                              "C:\\home\\anna\\Downloads"}));
  });
}

TEST_F(OnPosixPlaces, BookmarksAreTheFileManagersAndNoneIsLookedAt) {
  EXPECT_TRUE(Made().Bookmarks().empty());
  drive_.Write("C:\\home\\anna\\.config\\gtk-3.0\\bookmarks",
               "file://" + drive_.HostRoot() + "/data/Our%20photos Holidays by the sea\n" + "file://" +
                   drive_.HostRoot() + "/gone\n" +
                   "smb://nas/photos/2024 NAS\nsftp://host/far Far\n\nnonsense\nfile:///elsewhere/than/the/drive x\n");
  const std::vector<Places::Bookmark> bookmarks = Made().Bookmarks();
  ASSERT_EQ(bookmarks.size(), 3U);
  EXPECT_EQ(bookmarks[0].Path, "C:\\data\\Our photos");
  EXPECT_EQ(bookmarks[0].Label, "Holidays by the sea");
  EXPECT_EQ(bookmarks[1].Path, "C:\\gone");
  EXPECT_EQ(bookmarks[1].Label, "");
  EXPECT_EQ(bookmarks[2].Path, "\\\\nas\\photos\\2024");
  EXPECT_EQ(bookmarks[2].Label, "NAS");
}

TEST_F(OnPosixPlaces, EveryProtectedNumberHasAFolderAndOthersNone) {
  InAnnasSession([](PosixPlaces& places) {
    for (const int number : {0, 2, 3, 5, 6, 8, 11, 16, 39}) {
      const std::string folder = places.SpecialFolder(number);
      EXPECT_TRUE(folder.starts_with("C:\\home\\anna")) << number;
      EXPECT_FALSE(folder.ends_with('\\')) << number;
    }
    for (const int number : {-1, 1, 4, 7, 17, 40}) EXPECT_EQ(places.SpecialFolder(number), "") << number;
  });
}

TEST(OfProcess, AbsoluteValuesAreTakenAndOthersPassedOver) {
  InOwnProcess(
      {{"HOME", "/home/anna/"}, {"XDG_DATA_HOME", "/data"}, {"XDG_CONFIG_HOME", "relative"}, {"XDG_CACHE_HOME", ""}},
      [] {
        const Environment environment = Environment::OfProcess();
        EXPECT_EQ(environment.Home, "/home/anna");
        EXPECT_EQ(environment.DataHome, "/data");
        EXPECT_EQ(environment.ConfigHome, "/home/anna/.config");
        EXPECT_EQ(environment.CacheHome, "/home/anna/.cache");
      });
}

TEST(OfProcess, EverybodysFoldersAreTheUsualOnesOrThoseThatAreNamed) {
  using Folders = std::vector<std::string>;
  InOwnProcess({{"XDG_DATA_DIRS", ""}}, [] {
    EXPECT_EQ(Environment::OfProcess().DataFolders, (Folders{"/usr/local/share", "/usr/share"}));
  });
  InOwnProcess({{"XDG_DATA_DIRS", "/opt/share/:relative::/usr/share:"}}, [] {
    EXPECT_EQ(Environment::OfProcess().DataFolders, (Folders{"/opt/share", "/usr/share"}));
  });
}

TEST(OfProcess, WithoutTheSessionsVariableTheUsersOwnFolderIsTheOneOfTheSession) {
  const std::string usual = "/run/user/" + std::to_string(getuid());
  std::error_code failure;
  const bool made = std::filesystem::create_directories(usual, failure);
  if (!std::filesystem::is_directory(usual)) GTEST_SKIP() << "this user has no such folder";
  InOwnProcess({{"XDG_RUNTIME_DIR", ""}}, [&] { EXPECT_EQ(Environment::OfProcess().RuntimeDir, usual); });
  InOwnProcess({{"XDG_RUNTIME_DIR", "/else"}}, [] { EXPECT_EQ(Environment::OfProcess().RuntimeDir, "/else"); });
  if (getuid() == 0 && made) {
    constexpr uid_t somebodyElse = 12345;
    ASSERT_EQ(chown(usual.c_str(), somebodyElse, static_cast<gid_t>(-1)), 0);
    InOwnProcess({{"XDG_RUNTIME_DIR", ""}}, [] { EXPECT_EQ(Environment::OfProcess().RuntimeDir, ""); });
    ASSERT_EQ(chown(usual.c_str(), 0, static_cast<gid_t>(-1)), 0);
  }
  if (made) std::filesystem::remove(usual, failure);
}

TEST(OnPosixClock, NowIsTheHostsLocalTime) {
  PosixClock clock;
  const std::time_t before = std::time(nullptr);
  const CalendarTime now = clock.Now();
  std::tm fields{};
  fields.tm_year = now.Year - 1900;
  fields.tm_mon = now.Month - 1;
  fields.tm_mday = now.Day;
  fields.tm_hour = now.Hour;
  fields.tm_min = now.Minute;
  fields.tm_sec = now.Second;
  fields.tm_isdst = -1;
  const std::time_t shown = std::mktime(&fields);
  EXPECT_GE(shown, before - 1);
  EXPECT_LE(shown, std::time(nullptr));
  EXPECT_GE(now.Milliseconds, 0);
  EXPECT_LE(now.Milliseconds, 999);
}

TEST(OnPosixClock, SecondsNeverGoBackAndDoGoOn) {
  PosixClock clock;
  const double start = clock.Seconds();
  double last = start;
  while (last == start) {
    const double next = clock.Seconds();
    ASSERT_GE(next, last);
    last = next;
  }
  EXPECT_LT(last - start, 60.0);
}

}  // namespace
}  // namespace pixorra
