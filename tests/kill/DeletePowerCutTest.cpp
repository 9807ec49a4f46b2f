// The power goes while dragged photos are deleted, or while a photo is renamed: whatever the disk has kept of what was
// not flushed, each photo is there whole, in the strip or as the copy that was made before it was marked.
#include <algorithm>
#include <gtest/gtest.h>

#include "platform/controls/TextBox.h"
#include "tests/support/DiskRecorder.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

class DeletePowerCutTest : public ProgramTest {
 protected:
  DeletePowerCutTest() {
    drive.MakeFolder("C:\\Home\\Family");
    Colour colour = 0x00102030;
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
      drive.Write(InStrip(name), BmpOf(PlainBitmap(80, 60, colour += 0x00101010)));
    SavedState saved;
    saved.Window = "17500,11000,0,0,0";  // wide enough for the whole strip
    saved.Rename = 2;
    saved.Duplicates = 1;
    saved.FilmStrip = "C:\\Strip";
    saved.Folders = {"C:\\Home\\Family"};
    WriteSavedState(saved);
    run_ = &Started();
    run_->LoadAll();
    run_->person.Click(run_->main.strip.AllOption);
    recorder_ = std::make_unique<DiskRecorder>(drive);
    run_->files.PassOnTo(*recorder_);
  }
  ~DeletePowerCutTest() override { EndRun(); }

  static std::string InStrip(const std::string& name) { return "C:\\Strip\\" + name; }
  void Drop(int slot) { run_->person.Drag(run_->main.strip.SrcThumbnail(slot), run_->main.desk.DestFolderPreview(1)); }
  void Press(const std::string& form, const std::string& button) {
    run_->person.ExpectForm(form, [button](Person& hand, Form& shown) {
      const auto found = std::ranges::find(shown.Controls(), button, &Control::Name);
      ASSERT_NE(found, shown.Controls().end());
      hand.Click(**found);
    });
  }
  // A file under any name has these bytes.
  static bool IsSomewhere(const DiskState& disk, const std::string& bytes) {
    return std::ranges::any_of(disk, [&](const auto& file) { return file.second == bytes; });
  }
  void ExpectEachPhotoThroughout() {
    run_->files.PassOnTo(drive.DriveFiles());
    int states = 0;
    recorder_->ForEachState([&](const DiskState& disk, const std::string& words) {
      ++states;
      for (const auto& [path, bytes] : recorder_->Start()) {
        if (!path.ends_with(".bmp")) continue;
        EXPECT_TRUE(IsSomewhere(disk, bytes)) << path << " is nowhere, " << words;
      }
    });
    EXPECT_GT(states, recorder_->Changes());
  }

  ProgramRun* run_ = nullptr;
  std::unique_ptr<DiskRecorder> recorder_;
};

TEST_F(DeletePowerCutTest, PhotosThatAreDeletedAsDraggedHaveTheirCopiesByThen) {
  for (const int slot : {1, 3}) Drop(slot);
  Press("DeletePhotosForm", "DeleteDraggedButton");
  Press("DeleteDraggedForm", "DeleteButton");
  run_->person.Click(run_->main.strip.DeleteButton);
  EXPECT_FALSE(drive.Exists(InStrip("a.bmp")));
  EXPECT_FALSE(drive.Exists(InStrip("c.bmp")));
  EXPECT_TRUE(drive.Exists(InStrip("b.bmp")));
  ExpectEachPhotoThroughout();
}

TEST_F(DeletePowerCutTest, APhotoThatIsRenamedIsThereUnderOneOfItsNames) {
  run_->person.Click(run_->main.strip.SrcThumbnail(2));
  run_->person.ExpectForm("RenamePreviewPicForm", [](Person& hand, Form& form) {
    hand.Fill(static_cast<TextBox&>(*form.Controls().front()), "z");
    hand.Key(key::Return);
  });
  run_->person.ChooseMenu(run_->main.menu.RenameMenuItem);
  EXPECT_TRUE(drive.Exists(InStrip("z.bmp")));
  ExpectEachPhotoThroughout();
}

}  // namespace
}  // namespace pixorra
