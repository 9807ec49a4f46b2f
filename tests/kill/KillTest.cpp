// A session that dies: the program sorts real files in a process of its own, which is killed right before each change
// that it makes on the disk, and half-way through each write. Whatever the point, no photo of the strip and no earlier
// file of a folder may have changed, and the next start finds its way.
#include <algorithm>
#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr const char* Strip = "C:\\Strip";
constexpr const char* Family = "C:\\Home\\Family";
constexpr const char* Holiday = "C:\\Home\\Holiday";
constexpr const char* Trash = "C:\\Program\\Trashcan";
constexpr const char* StateFile = "C:\\Windows\\Pixorra.sav";
constexpr int Finished = 0;
constexpr int Failured = 3;

// The points are shared out among as many tests, which run side by side.
constexpr int Shares = 4;
// The sanitizer build, whose sessions take five times as long, has only the first share; what is on the disk after a
// death is the same in both builds.
#ifdef __SANITIZE_ADDRESS__
constexpr int SharesTried = 1;
#else
constexpr int SharesTried = Shares;
#endif

enum class Point { BeforeChange, InWrite };

class KillTest : public ProgramTest, public ::testing::WithParamInterface<int> {
 protected:
  void LayOut() {
    drive.Remove("C:\\");
    drive.MakeFolder("C:\\");
    drive.MakeFolder(Holiday);
    kept_.clear();
    Colour colour = 0x00102030;
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "d.bmp"}) {
      Keep(std::string(Strip) + "\\" + name, BmpOf(PlainBitmap(80, 60, colour += 0x00101010)));
    }
    Keep(std::string(Family) + "\\kept.bmp", BmpPhoto(80, 60));
    // Equal to a photo of the strip: the copy of that is deleted again.
    Keep(std::string(Family) + "\\same.bmp", kept_[std::string(Strip) + "\\b.bmp"]);
    SavedState saved;
    saved.Window = "17500,11000,0,0,0";  // wide enough for the whole strip
    saved.Rename = 2;
    saved.Duplicates = 1;
    saved.FilmStrip = Strip;
    saved.Folders = {Family, Holiday};
    WriteSavedState(saved);
    state_ = drive.Read(StateFile);
  }
  void Keep(const std::string& path, const std::string& bytes) {
    drive.Write(path, bytes);
    drive.SetTime(path, {2004, 3, 1, 10, 20, 30, 0});
    kept_[path] = bytes;
  }

  // What a person does; never returns.
  [[noreturn]] void SitAndExit(Point point, int n) {
    ProgramRun& run = NewRun();
    run.platform.failures.OnFailure = [](const std::string& text) {
      static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
      _exit(Failured);
    };
    if (point == Point::BeforeChange) {
      run.files.DieBeforeChange(n);
    } else {
      run.files.DieInWrite(n);
    }
    run.Start();
    run.LoadAll();
    FilmStripState& strip = run.main.strip;
    DesktopState& desk = run.main.desk;
    run.person.Click(strip.AllOption);
    run.person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
    run.person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(1));
    run.person.DoubleClick(strip.SrcBackground(1));
    run.person.Drag(strip.SrcThumbnail(3), desk.DestFolder(TrashcanSlot));
    run.person.Drag(strip.AllButton, desk.DestFolderPreview(2));
    run.LoadAll();
    run.Close();
    _exit(Finished);
  }
  // Runs a session up to its death; false when it ran to its end before that point.
  bool SessionDies(Point point, int n) {
    const pid_t child = fork();
    if (child < 0) {
      ADD_FAILURE() << "no process: " << errno;
      return false;
    }
    if (child == 0) SitAndExit(point, n);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) {
      EXPECT_EQ(WTERMSIG(status), SIGKILL);
      return WTERMSIG(status) == SIGKILL;
    }
    EXPECT_EQ(WEXITSTATUS(status), Finished);
    return false;
  }

  std::vector<std::string> In(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().Names(folder, "*.bmp", 0);
    std::sort(names.begin(), names.end());
    return names;
  }
  void ExpectNothingLost() {
    for (const auto& [path, bytes] : kept_) {
      ASSERT_TRUE(drive.Exists(path)) << path;
      EXPECT_TRUE(drive.Read(path) == bytes) << path << " has changed";
      EXPECT_EQ(drive.WriteTime(path), (CalendarTime{2004, 3, 1, 10, 20, 30, 0})) << path;
    }
    // What is new is a photo of the strip by its own name, or the beginning of it.
    for (const char* folder : {Family, Holiday, Trash}) {
      for (const std::string& name : In(folder)) {
        const std::string path = std::string(folder) + "\\" + name;
        if (kept_.contains(path)) continue;
        const auto source = kept_.find(std::string(Strip) + "\\" + name);
        ASSERT_NE(source, kept_.end()) << path << " is no photo of the strip";
        EXPECT_TRUE(source->second.starts_with(drive.Read(path))) << path;
      }
    }
  }
  bool IsWhole(const std::string& path, const std::string& name) {
    return kept_.contains(path) || drive.Read(path) == kept_[std::string(Strip) + "\\" + name];
  }
  static bool IsInvalid(const ProgramRun& run, const ImageBox& thumbnail) {
    return thumbnail.GetPicture().IsNothing() || thumbnail.GetPicture() == run.main.pictures.InvalidPicture;
  }

  void ExpectAWholeStart() {
    // A state that was being written at the death may be cut; what is missing in it is as in a first start.
    const std::string state = drive.Exists(StateFile) ? drive.Read(StateFile) : "";
    const bool cut = state.find("\"" + std::string(Holiday) + "\"\r\n") == std::string::npos;
    if (cut) {
      Started().Close();
      drive.Write(StateFile, state_);
    }
    ProgramRun& run = Started();
    run.LoadAll();
    const MainForm& main = run.main;
    ASSERT_EQ(main.strip.SrcSlotCount, 4);
    for (int i = 1; i <= 4; ++i) EXPECT_FALSE(IsInvalid(run, main.strip.SrcThumbnail(i))) << i;
    ASSERT_EQ(main.desk.OpenFolderIndex, 2);
    ASSERT_EQ(main.desk.DestSlotCount, static_cast<int>(In(Holiday).size()));
    for (int i = 1; i <= main.desk.DestSlotCount; ++i) {
      const std::string& path = main.desk.DestThumbnail(i).Tag();
      if (IsWhole(path, path.substr(path.rfind('\\') + 1))) {
        EXPECT_FALSE(IsInvalid(run, main.desk.DestThumbnail(i))) << path;
      }
    }
    EXPECT_EQ(main.desk.DestPicsCount(1).Caption(), std::to_string(In(Family).size()) + " pics");
    // The cache serves again: with all seen, another start decodes and writes nothing.
    run.Close();
    const std::string cache = drive.Read(std::string(Strip) + "\\Thumbnails.tmp");
    ProgramRun& again = Started();
    again.LoadAll();
    again.Close();
    EXPECT_TRUE(drive.Read(std::string(Strip) + "\\Thumbnails.tmp") == cache);
  }

  // Dies at every Shares-th point, beginning with this share's own, until a session runs to its end.
  void DieAtEachPoint(Point point) {
    int deaths = 0;
    for (int n = 1 + GetParam(); !HasFatalFailure(); n += Shares) {
      SCOPED_TRACE("killed at " + std::to_string(n));
      EndRun();
      LayOut();
      const bool died = SessionDies(point, n);
      ExpectNothingLost();
      if (!died) break;
      ++deaths;
      ExpectAWholeStart();
      ExpectNothingLost();
    }
    EXPECT_GT(deaths, 3);
    RecordProperty("deaths", deaths);
  }

  std::map<std::string, std::string> kept_;  // files that no death may change
  std::string state_;
};

TEST_P(KillTest, KilledBeforeAnyChangeOfTheDiskNothingIsLost) {
  DieAtEachPoint(Point::BeforeChange);
}

TEST_P(KillTest, KilledHalfWayThroughAnyWriteNothingIsLost) {
  DieAtEachPoint(Point::InWrite);
}

INSTANTIATE_TEST_SUITE_P(Share, KillTest, ::testing::Range(0, SharesTried));

}  // namespace
}  // namespace pixorra
