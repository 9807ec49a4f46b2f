// The power goes in the middle of a session: whatever the disk has kept of what was not flushed, each photo that is
// marked has a whole copy, no file that was there before has changed, and the next start works.
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "base/QuickThumbsRecord.h"
#include "tests/support/DiskRecorder.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

const std::string Strip = "C:\\Strip";
const std::string Family = "C:\\Home\\Family";
const std::string Holiday = "C:\\Home\\Holiday";
const std::string StateFile = "C:\\Windows\\Pixorra.sav";
const std::string StripCache = "C:\\Strip\\Thumbnails.tmp";

// A film strip of four photos, with an equal of the second one in the first of two folders; all loaded.
class PowerCutTest : public ProgramTest {
 protected:
  PowerCutTest() {
    drive.MakeFolder(Holiday);
    Colour colour = 0x00102030;
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp", "d.bmp"})
      drive.Write(JoinedTo(Strip, name), BmpOf(PlainBitmap(80, 60, colour += 0x00101010)));
    drive.Write(JoinedTo(Family, "kept.bmp"), BmpPhoto(80, 60));
    drive.Write(JoinedTo(Family, "same.bmp"), drive.Read(JoinedTo(Strip, "b.bmp")));
    SavedState saved;
    saved.Window = "17500,11000,0,0,0";  // wide enough for the whole strip
    saved.Rename = 2;
    saved.Duplicates = 1;
    saved.FilmStrip = Strip;
    saved.Folders = {Holiday, Family};
    WriteSavedState(saved);
    run_ = &Started();
    run_->LoadAll();
    run_->person.Click(run_->main.strip.AllOption);
    run_->LoadAll();
    recorder_ = std::make_unique<DiskRecorder>(drive);
    run_->files.PassOnTo(*recorder_);
  }
  ~PowerCutTest() override { EndRun(); }

  static std::string JoinedTo(const std::string& folder, const std::string& name) { return folder + "\\" + name; }
  static bool IsPhoto(const std::string& path) { return path.ends_with(".bmp"); }

  void DropOne(int i, int folder) { run_->person.Drag(run_->main.strip.SrcThumbnail(i), Preview(folder)); }
  void DropAll(int folder) { run_->person.Drag(run_->main.strip.AllButton, Preview(folder)); }
  ImageBox& Preview(int folder) { return run_->main.desk.DestFolderPreview(folder); }

  // By the records of the strip's cache.
  static std::set<std::string> MarkedPhotos(const DiskState& disk) {
    using namespace quickthumbs;
    std::set<std::string> marked;
    const auto cache = disk.find(StripCache);
    if (cache == disk.end()) return marked;
    const std::string& bytes = cache->second;
    for (std::int64_t record = 1;
         OffsetOf(record) + static_cast<std::int64_t>(FieldsBytes) <= static_cast<std::int64_t>(bytes.size());
         ++record) {
      const auto at = static_cast<std::size_t>(OffsetOf(record));
      if (bytes[at + MarkOffset] == '\0') continue;
      std::string name = bytes.substr(at + KeyOffset, NameBytes);
      name.erase(name.find_last_not_of(' ') + 1);
      marked.insert(name);
    }
    return marked;
  }
  static bool HasCopy(const DiskState& disk, const std::string& bytes) {
    return std::ranges::any_of(disk, [&](const auto& file) {
      return !file.first.starts_with(Strip) && IsPhoto(file.first) && file.second == bytes;
    });
  }
  // How many photos are marked.
  std::size_t ExpectNothingLost(const DiskState& disk) const {
    for (const auto& [path, bytes] : recorder_->Start()) {
      if (!IsPhoto(path)) continue;
      const auto now = disk.find(path);
      EXPECT_TRUE(now != disk.end() && now->second == bytes) << path << " has changed";
    }
    const std::set<std::string> marked = MarkedPhotos(disk);
    for (const std::string& name : marked)
      EXPECT_TRUE(HasCopy(disk, recorder_->Start().at(JoinedTo(Strip, name)))) << name << " is marked and has no copy";
    return marked.size();
  }
  // The next start on such a disk, with the folders as they are in its saved state.
  static void ExpectAStart(const DiskState& disk) {
    TemporaryDrive fresh;
    for (const std::string& folder : {Holiday, Family}) fresh.MakeFolder(folder);
    for (const auto& [path, bytes] : disk) fresh.Write(path, bytes);
    ProgramRun next(fresh);
    next.Start();
    next.LoadAll();
    const FilmStripState& strip = next.main.strip;
    ASSERT_EQ(strip.SrcSlotCount, 4);
    for (int i = 1; i <= 4; ++i) {
      if (strip.SrcThumbName(i).Tag().empty()) continue;
      EXPECT_TRUE(HasCopy(disk, disk.at(PhotoOf(strip, i)))) << PhotoOf(strip, i) << " is shaded and has no copy";
    }
    EXPECT_EQ(next.main.desk.FoldersShown, 2);
    next.Close();
  }
  // In each state; of so many states one is started from.
  void ExpectSafeThroughout(int startEvery) {
    run_->files.PassOnTo(drive.DriveFiles());
    int states = 0;
    std::size_t mostMarked = 0;
    recorder_->ForEachState([&](const DiskState& disk, const std::string& words) {
      if (HasFailure()) return;
      SCOPED_TRACE(words);
      mostMarked = std::max(mostMarked, ExpectNothingLost(disk));
      if (states++ % startEvery == 0) ExpectAStart(disk);
    });
    RecordProperty("states", states);
    EXPECT_GT(states, recorder_->Changes());
    mostMarked_ = mostMarked;
  }

  ProgramRun* run_ = nullptr;
  std::unique_ptr<DiskRecorder> recorder_;
  std::size_t mostMarked_ = 0;
};

TEST_F(PowerCutTest, InADropOfOnePhoto) {
  DropOne(1, 1);
  ExpectSafeThroughout(4);
  EXPECT_EQ(mostMarked_, 1U);
}

TEST_F(PowerCutTest, InADropOfADuplicateThatIsDeletedAgain) {
  DropOne(2, 2);
  EXPECT_FALSE(drive.Exists(JoinedTo(Family, "b.bmp")));
  ExpectSafeThroughout(4);
  EXPECT_EQ(mostMarked_, 1U);
}

TEST_F(PowerCutTest, InTheRunOfTheWholeStripWithDuplicates) {
  DropOne(3, 1);
  DropAll(2);
  DropAll(1);
  run_->LoadAll();
  ExpectSafeThroughout(60);
  EXPECT_EQ(mostMarked_, 4U);
}

TEST_F(PowerCutTest, InADropWhoseEqualFileAnotherProgramHasJustWritten) {
  const std::string bytes = drive.Read(JoinedTo(Strip, "a.bmp"));
  recorder_->Open(JoinedTo(Family, "other.bmp"), OpenMode::ReadWrite)->WriteAt(0, bytes.data(), bytes.size());
  DropOne(1, 2);
  EXPECT_FALSE(drive.Exists(JoinedTo(Family, "a.bmp")));
  ExpectSafeThroughout(8);
  EXPECT_EQ(mostMarked_, 1U);
}

// The equal file is itself the copy of a moment ago.
TEST_F(PowerCutTest, InTwoDropsOfOnePhotoOfWhichTheSecondIsADuplicate) {
  DropOne(1, 1);
  DropOne(1, 1);
  EXPECT_FALSE(drive.Exists(JoinedTo(Holiday, "a1.bmp")));
  ExpectSafeThroughout(8);
  EXPECT_EQ(mostMarked_, 1U);
}

TEST_F(PowerCutTest, WhileMarksAreTakenOffAndSetAgainByDrops) {
  DropOne(1, 1);
  for (int i = 0; i < 2; ++i) {
    run_->person.DoubleClick(run_->main.strip.SrcBackground(1));
    DropOne(1, 2);
  }
  ExpectSafeThroughout(20);
  EXPECT_EQ(mostMarked_, 1U);
}

// The copy goes only once the mark is off for good.
TEST_F(PowerCutTest, InADropThatIsTakenBack) {
  DropOne(1, 1);
  run_->person.Click(run_->main.strip.UndoButton);
  EXPECT_FALSE(drive.Exists(JoinedTo(Holiday, "a.bmp")));
  ExpectSafeThroughout(4);
  EXPECT_EQ(mostMarked_, 1U);
}

TEST_F(PowerCutTest, InAPasteAndItsUndo) {
  run_->platform.clipboard.CopyElsewhere(Picture(PlainBitmap(40, 30, 0x00123456)));
  run_->person.ChooseMenu(run_->main.menu.PasteMenuItem);
  const std::string pasted = JoinedTo(Family, "Clipboard.jpg");
  ASSERT_TRUE(drive.Exists(pasted));
  run_->person.Click(run_->main.strip.UndoButton);
  EXPECT_FALSE(drive.Exists(pasted));
  ExpectSafeThroughout(4);
}

TEST_F(PowerCutTest, WhenTheProgramEndsTheSavedStateIsTheOldOneOrTheNewOne) {
  DropAll(1);
  run_->LoadAll();
  recorder_ = std::make_unique<DiskRecorder>(drive);
  run_->files.PassOnTo(*recorder_);
  run_->main.preferences.KeepDateCheckBox.SetValue(0);
  run_->Close();
  const std::string before = recorder_->Start().at(StateFile);
  const std::string after = drive.Read(StateFile);
  EXPECT_NE(before, after);
  std::set<std::string> found;
  recorder_->ForEachState([&](const DiskState& disk, const std::string& words) {
    SCOPED_TRACE(words);
    const auto state = disk.find(StateFile);
    ASSERT_NE(state, disk.end());
    EXPECT_TRUE(state->second == before || state->second == after) << state->second;
    found.insert(state->second);
    ExpectNothingLost(disk);
    ExpectAStart(disk);
  });
  EXPECT_EQ(found.size(), 2U);
}

}  // namespace
}  // namespace pixorra
