// The right button on thumbnails shows their photos at full size.
#include <gtest/gtest.h>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "preview/FullSizePreview.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class FullSizeGesturesTest : public ProgramTest {
 protected:
  FullSizeGesturesTest() {
    for (const char* path : {"C:\\Card\\a.bmp", "C:\\Card\\b.bmp", "C:\\Home\\c.bmp", "C:\\Home\\d.bmp"})
      drive.Write(path, BmpPhoto(320, 240));
    WriteSavedState(StateLines("C:\\Card", {"C:\\Home"}));
    run_ = &Started();
    Select_a_Folder(run_->main, 1);
    run_->Wait(0.1);
    run_->LoadAll();
  }
  MainForm& Main() { return run_->main; }
  Person& Hand() { return run_->person; }
  bool IsShown() { return Hand().Window("PreviewForm") != nullptr; }

 private:
  ProgramRun* run_ = nullptr;
};

TEST_F(FullSizeGesturesTest, APhotoOfTheStripIsShownForAsLongAsTheRightButtonIsHeld) {
  Hand().Press(Main().strip.SrcThumbnail(2), button::Right);
  EXPECT_TRUE(IsShown());
  EXPECT_EQ(Main().preview.sFullSizeFile, "C:\\Card\\b.bmp");
  EXPECT_FALSE(Main().strip.SrcThumbFrame.Visible()) << "it is not selected by that";
  Hand().Release();
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Main().preview.sFullSizeFile, "");
}

TEST_F(FullSizeGesturesTest, OtherButtonsShowNoPhotoOfTheStripAndLeaveOneOpen) {
  DisplayFullSizePreview(Main(), "C:\\Card\\a.bmp");
  Hand().Activate(Main().Window);
  for (const int button : {button::Left, button::Middle}) {
    Hand().Press(Main().strip.SrcThumbnail(2), button);
    EXPECT_EQ(Main().preview.sFullSizeFile, "C:\\Card\\a.bmp");
    Hand().Release();
    EXPECT_TRUE(IsShown());
  }
}

TEST_F(FullSizeGesturesTest, ARightClickOnACellOfTheOpenFolderSelectsItAndShowsItsPhoto) {
  Hand().RightClick(Main().desk.DestThumbnail(2));
  EXPECT_TRUE(IsShown());
  EXPECT_EQ(Main().preview.sFullSizeFile, "C:\\Home\\d.bmp");
  EXPECT_TRUE(Main().desk.DestThumbFrame.Visible());
  EXPECT_EQ(SelectedPhoto(Main().preview), "C:\\Home\\d.bmp");
  Hand().Key(key::Escape);
  Hand().Click(Main().desk.DestThumbnail(1));
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(SelectedPhoto(Main().preview), "C:\\Home\\c.bmp");
}

}  // namespace
}  // namespace pixorra
