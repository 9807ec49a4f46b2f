// The main window's definition: places, sizes, captions and factory states before anything has run.
#include <gtest/gtest.h>

#include "platform/runtime/Numbers.h"
#include "tests/support/headless/TestHost.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

// Twips, as pixels rounded with halves to the even neighbour.
Rect FromTwips(double left, double top, double width, double height) {
  const auto pixels = [](double twips) { return static_cast<int>(RoundHalfEven(twips / 15)); };
  return {pixels(left), pixels(top), pixels(width), pixels(height)};
}

class MainFormTest : public ::testing::Test {
 protected:
  TemporaryDrive drive;
  TestHost run{drive};
  MainForm main{run.host};
};

TEST_F(MainFormTest, ControlsStandAtTheirDefinedPlaces) {
  const std::vector<std::pair<const Control*, Rect>> places = {
      {&main.preview.PicPreview, FromTwips(120, 0, 3735, 2775)},
      {&main.strip.SrcPicsTotal, FromTwips(4080, 0, 1095, 255)},
      {&main.strip.SrcFolderPath, FromTwips(5280, 0, 4980, 240)},
      {&main.strip.SrcPicsCount, FromTwips(10320, 0, 1095, 255)},
      {&main.strip.SrcThumbsWindow, FromTwips(4080, 240, 7335, 1630)},
      {&main.strip.SrcScrollbar, FromTwips(4080, 1860, 7335, 255)},
      {&main.strip.CameraButton, FromTwips(4080, 2175, 540, 540)},
      {&main.strip.FilmStripModeFrame, FromTwips(8760, 2175, 2655, 495)},
      {&main.desk.DesktopImage, FromTwips(120, 2880, 7920, 5400)},
      {&main.desk.DestContentsLabel, FromTwips(8160, 2835, 2895, 255)},
      {&main.desk.DestCountLabel, FromTwips(11040, 2835, 495, 255)},
      {&main.desk.DestThumbsWindow, FromTwips(8190, 3075, 2970, 5220)},
      {&main.desk.DestScrollbar, FromTwips(11160, 3075, 255, 5220)},
  };
  for (const auto& [control, place] : places) {
    EXPECT_EQ(control->Bounds(), place) << control->Name();
  }
  // It sizes itself to its caption, around its middle.
  const Label& caption = main.preview.PicPreviewSize;
  EXPECT_NEAR(caption.Left() + caption.Width() / 2.0, (1440 + 1125 / 2.0) / 15, 0.5);
  EXPECT_EQ(caption.Top(), 168);
}

TEST_F(MainFormTest, TheButtonsOfTheRowAreAllAlike) {
  for (const ImageBox* box :
       {&main.strip.CameraButton, &main.strip.BrowseButton, &main.strip.SwapButton, &main.strip.DeleteButton,
        &main.strip.UndoButton, &main.strip.AllButton, &main.strip.PrintButton}) {
    EXPECT_EQ(box->Width(), 36) << box->Name();
    EXPECT_EQ(box->Height(), 36) << box->Name();
  }
}

TEST_F(MainFormTest, TheWindowIsTheSmallestOneAndCanBeSized) {
  EXPECT_EQ(main.Window.TwipsWidth(), 11730);
  EXPECT_EQ(main.Window.TwipsHeight(), 9090);
  EXPECT_TRUE(main.Window.Sizable());
  EXPECT_TRUE(main.Window.KeyPreview());
  EXPECT_FALSE(main.Window.IsLoaded());
}

TEST_F(MainFormTest, TheStripsTemplatesHaveTheirSizesAndAreNeverSeen) {
  EXPECT_EQ(main.strip.SrcBackground(0).Width(), 97);
  EXPECT_EQ(main.strip.SrcBackground(0).Height(), 105);
  EXPECT_EQ(main.strip.SrcThumbnail(0).Width(), 80);
  EXPECT_EQ(main.strip.SrcThumbnail(0).Height(), 60);
  EXPECT_EQ(main.strip.SrcThumbnail(0).ToolTipText(), "Drag Photo into a folder");
  EXPECT_FALSE(main.strip.SrcBackground(0).Visible());
  EXPECT_FALSE(main.strip.SrcThumbnail(0).Visible());
  EXPECT_FALSE(main.strip.SrcThumbName(0).Visible());
  EXPECT_FALSE(main.strip.SrcThumbFrame.Visible());
}

TEST_F(MainFormTest, PictureSourcesHaveTheirSizes) {
  const auto size = [](const Picture& picture) { return std::pair(picture.Width(), picture.Height()); };
  EXPECT_EQ(size(main.desk.ClosedFolder), std::pair(138, 95));
  EXPECT_EQ(size(main.desk.TrashcanClosed), std::pair(62, 89));
  EXPECT_EQ(size(main.desk.ShowFolder.GetPicture()), std::pair(70, 51));
  EXPECT_EQ(size(main.desk.HideFolder.GetPicture()), std::pair(70, 51));
}

TEST_F(MainFormTest, TheDisplayModesAreCaptionedAndAutoIsTicked) {
  const FilmStripState& strip = main.strip;
  EXPECT_EQ(strip.FilmStripModeFrame.Caption(), "Display Film Strip");
  EXPECT_EQ(strip.AllOption.Caption(), "All");
  EXPECT_EQ(strip.AllOption.ToolTipText(), "Display ALL photos in Film Strip");
  EXPECT_EQ(strip.RemainingOption.Caption(), "Remaining");
  EXPECT_EQ(strip.RemainingOption.ToolTipText(), "Display only photos that have NOT been dragged");
  EXPECT_EQ(strip.AutoScrollOption.Caption(), "Auto");
  EXPECT_EQ(strip.AutoScrollOption.ToolTipText(), "Auto Scroll dragged photos");
  EXPECT_FALSE(strip.AllOption.Value());
  EXPECT_FALSE(strip.RemainingOption.Value());
  EXPECT_TRUE(strip.AutoScrollOption.Value());
}

TEST_F(MainFormTest, TimersHaveTheirIntervalsAndDoNotRun) {
  const std::vector<std::pair<const Timer*, int>> timers = {
      {&main.strip.ThumbsTimer, 20},
      {&main.strip.AutoScrollTimer, 50},
      {&main.core.SystemResourceStatusTimer, 300},
      {&main.preview.AutoPicPreviewTimer, 1000},
      {&main.preview.PicPreviewSizeAutoClrTimer, 2000},
  };
  for (const auto& [timer, interval] : timers) {
    EXPECT_EQ(timer->Interval(), interval) << timer->Name();
    EXPECT_FALSE(timer->Enabled()) << timer->Name();
  }
}

TEST_F(MainFormTest, FieldsHaveTheirFirstValues) {
  EXPECT_EQ(main.core.CompanyNameLabel.Caption(), "Pixorra - Kestrelia Corp");
  EXPECT_EQ(main.core.PicturePattern, "*.jpeg;*.jpg;*.bmp;*.gif");
  EXPECT_EQ(main.core.LayoutCountdown, 1);
  EXPECT_TRUE(main.strip.NoFilmStrip);
  EXPECT_EQ(main.strip.ThumbsPaused, "False");
  EXPECT_EQ(main.desk.DestColumns, 2);
  EXPECT_FALSE(main.preview.bPicEdited);
}

}  // namespace
}  // namespace pixorra
