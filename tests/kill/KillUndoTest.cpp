// A session with undos, a copy and pastes that dies right before each change of the disk, and half-way through each
// write. Whatever the point: what was not made in the session is as it was, what is left of it is what was asked for or
// its beginning, and each photo whose mark has stayed has a whole copy.
#include <cerrno>
#include <gtest/gtest.h>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

#include "pictures/PictureLoader.h"
#include "pictures/QuickThumbs.h"
#include "pictures/Scratch.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr const char* UndoStrip = "C:\\Strip";
constexpr const char* UndoFolder = "C:\\Home\\Family";
// The sanitizer build, whose sessions take five times as long, dies at every fourth point; what is then on the disk is
// the same in both builds.
#ifdef __SANITIZE_ADDRESS__
constexpr int UndoShares = 4;
constexpr int UndoSharesTried = 1;
#else
constexpr int UndoShares = 2;
constexpr int UndoSharesTried = UndoShares;
#endif

enum class UndoDeath { BeforeChange, InWrite };

class KillUndoTest : public ProgramTest, public ::testing::WithParamInterface<int> {
 protected:
  void LayOut() {
    drive.Remove("C:\\");
    drive.MakeFolder("C:\\");
    kept_.clear();
    Colour colour = 0x00102030;
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
      Keep(std::string(UndoStrip) + "\\" + name, BmpOf(PlainBitmap(80, 60, colour += 0x00101010)));
    Keep(std::string(UndoFolder) + "\\kept.bmp", BmpPhoto(80, 60));
    Keep(std::string(UndoFolder) + "\\Clipboard.jpg", "an earlier paste");
    SavedState saved;
    saved.Window = "17500,11000,0,0,0";  // wide enough for the whole strip
    saved.Rename = 2;
    saved.Duplicates = 1;
    saved.FilmStrip = UndoStrip;
    saved.Folders = {UndoFolder};
    WriteSavedState(saved);
  }
  void Keep(const std::string& path, const std::string& bytes) {
    drive.Write(path, bytes);
    kept_[path] = bytes;
  }

  // What a person does; never returns.
  [[noreturn]] void SitAndExit(UndoDeath death, int n) {
    ProgramRun& run = NewRun();
    run.platform.failures.OnFailure = [](const std::string& text) {
      static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
      _exit(3);
    };
    run.Start();
    run.LoadAll();
    MainForm& main = run.main;
    run.person.Click(main.strip.AllOption);
    run.LoadAll();
    if (death == UndoDeath::BeforeChange) {
      run.files.DieBeforeChange(n);
    } else {
      run.files.DieInWrite(n);
    }
    run.person.Drag(main.strip.SrcThumbnail(1), main.desk.DestFolderPreview(1));
    run.person.Click(main.strip.UndoButton);
    run.person.Drag(main.strip.SrcThumbnail(2), main.desk.DestFolderPreview(1));
    run.LoadAll();
    run.person.Click(main.strip.UndoButton);
    run.person.Drag(main.strip.SrcThumbnail(3), main.desk.DestFolder(TrashcanSlot));
    run.person.Click(main.strip.SrcThumbnail(3));
    run.person.ChooseMenu(main.menu.CopyMenuItem);
    run.person.ChooseMenu(main.menu.PasteMenuItem);
    run.person.Click(main.strip.UndoButton);
    for (int i = 0; i < 2; ++i) run.person.ChooseMenu(main.menu.PasteMenuItem);
    // The second one was a duplicate.
    run.person.ExpectBox("Pixorra", "File not found");
    run.person.Click(main.strip.UndoButton);
    run.LoadAll();
    _exit(0);
  }
  bool SessionDies(UndoDeath death, int n) {
    const pid_t child = fork();
    if (child < 0) {
      ADD_FAILURE() << "no process: " << errno;
      return false;
    }
    if (child == 0) SitAndExit(death, n);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) return true;
    EXPECT_EQ(WEXITSTATUS(status), 0);
    return false;
  }

  bool HasCopy(const std::string& photo) {
    const std::string name = photo.substr(photo.rfind('\\') + 1);
    for (const std::string& folder : {std::string(UndoFolder), std::string("C:\\Program\\Trashcan")}) {
      const std::string path = folder + "\\" + name;
      if (drive.Exists(path) && drive.Read(path) == kept_[photo]) return true;
    }
    return false;
  }
  void ExpectNothingLost() {
    for (const auto& [path, bytes] : kept_) {
      ASSERT_TRUE(drive.Exists(path)) << path;
      EXPECT_TRUE(drive.Read(path) == bytes) << path << " has changed";
    }
    for (const std::string& name : drive.DriveFiles().Names(UndoFolder, "*.bmp;*.jpg", 0)) {
      const std::string path = std::string(UndoFolder) + "\\" + name;
      if (kept_.contains(path)) continue;
      const auto source = kept_.find(std::string(UndoStrip) + "\\" + name);
      if (source != kept_.end()) {
        EXPECT_TRUE(source->second.starts_with(drive.Read(path))) << path;
      } else {
        EXPECT_TRUE(name.starts_with("Clipboard")) << path;
        const bool whole = drive.Read(path) == JpegOf(PlainBitmap(80, 60, 0x00405060), {.quality = 90});
        EXPECT_TRUE(whole || PictureFileFormat(drive.DriveFiles(), path) == 0) << path << " is the half of a photo";
      }
    }
    EXPECT_EQ(drive.DriveFiles().Names(UndoFolder, "*", 0).size(),
              drive.DriveFiles().Names(UndoFolder, "*.bmp;*.jpg;Thumbnails.tmp", 0).size())
        << "something else is left in the folder";
  }
  // The next start finds its way, and no mark is without its copy.
  void ExpectAStart() {
    ProgramRun& run = Started();
    run.LoadAll();
    ASSERT_EQ(run.main.strip.SrcSlotCount, 3);
    for (int i = 1; i <= 3; ++i) {
      const std::string photo = PhotoOf(run.main.strip, i);
      EXPECT_TRUE(!IsMarked(run.main.strip, i) || HasCopy(photo)) << photo << " is marked and has no copy";
    }
    EndRun();
  }

  void DieAtEachPoint(UndoDeath death) {
    int deaths = 0;
    for (int n = 1 + GetParam(); !HasFatalFailure(); n += UndoShares) {
      SCOPED_TRACE("killed at " + std::to_string(n));
      EndRun();
      LayOut();
      const bool died = SessionDies(death, n);
      ExpectNothingLost();
      if (!died) break;
      ++deaths;
      ExpectAStart();
      ExpectNothingLost();
    }
    EXPECT_GT(deaths, 3);
    RecordProperty("deaths", deaths);
  }

  std::map<std::string, std::string> kept_;  // files that no death may change
};

TEST_P(KillUndoTest, KilledBeforeAnyChangeOfTheDiskOnlyWhatWasAskedForIsGone) {
  DieAtEachPoint(UndoDeath::BeforeChange);
}

TEST_P(KillUndoTest, KilledHalfWayThroughAnyWriteOnlyWhatWasAskedForIsGone) {
  DieAtEachPoint(UndoDeath::InWrite);
}

INSTANTIATE_TEST_SUITE_P(Share, KillUndoTest, ::testing::Range(0, UndoSharesTried));

}  // namespace
}  // namespace pixorra
