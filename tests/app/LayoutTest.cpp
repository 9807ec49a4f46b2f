// The main window's layout, by numbers worked out by hand for several sizes, and when it runs. The headless host has a
// menu bar of 20 pixels, so that 47 pixels of a window's height are not its inside.
#include <array>
#include <gtest/gtest.h>

#include "platform/runtime/Numbers.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/PreviewState.h"

namespace pixorra {

static void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.Left << "," << rect.Top << " " << rect.Width << "x" << rect.Height;
}

namespace {

constexpr double Tick = 0.02;  // of ThumbsTimer, seconds

class LayoutTest : public ProgramTest {
 protected:
  // A run whose window has this size, pixels, frame included.
  ProgramRun& StartedAt(int width, int height, const std::vector<std::string>& folders = {}) {
    SavedState saved;
    saved.Window = std::to_string(width * 15) + "," + std::to_string(height * 15) + ",0,0,0";
    saved.Folders = folders;
    WriteSavedState(saved);
    return Started();
  }
  // Outer pixels.
  static void Resize(ProgramRun& run, int width, int height) {
    run.person.Resize(run.main.Window, width - 8, height - 47);
  }
  static std::array<ImageBox*, 7> Buttons(FilmStripState& strip) {
    return {&strip.CameraButton, &strip.BrowseButton, &strip.SwapButton, &strip.DeleteButton,
            &strip.UndoButton,   &strip.AllButton,    &strip.PrintButton};
  }
  static std::vector<int> ButtonLefts(FilmStripState& strip) {
    std::vector<int> lefts;
    for (const ImageBox* box : Buttons(strip)) lefts.push_back(box->Left());
    return lefts;
  }
  // A button moved by hand stays where it is until a layout puts it back.
  static void Disarrange(ProgramRun& run) { run.main.strip.CameraButton.SetLeft(5); }
  static bool HasLaidOut(const ProgramRun& run) { return run.main.strip.CameraButton.Left() != 5; }
};

TEST_F(LayoutTest, TheSmallestWindowIsPlacedByTheSums) {
  MainForm& main = StartedAt(782, 606).main;
  FilmStripState& strip = main.strip;
  EXPECT_EQ(main.preview.PicPreview.Bounds(), (Rect{8, 0, 245, 184}));
  EXPECT_EQ(strip.SrcBackShape.Bounds(), (Rect{253, 0, 529, 184}));
  EXPECT_EQ(strip.SrcThumbsWindow.Bounds(), (Rect{272, 15, 488, 109}));
  EXPECT_EQ(strip.SrcScrollbar.Bounds(), (Rect{272, 124, 488, 17}));
  EXPECT_EQ(strip.SrcPicsTotal.Bounds(), (Rect{272, -1, 73, 17}));
  EXPECT_EQ(strip.SrcFolderPath.Bounds(), (Rect{350, -1, 332, 16}));
  EXPECT_EQ(strip.SrcPicsCount.Bounds(), (Rect{687, -1, 73, 17}));
  EXPECT_EQ(strip.FilmStripModeFrame.Bounds(), (Rect{583, 144, 177, 33}));
  EXPECT_EQ(ButtonLefts(strip), (std::vector<int>{272, 316, 360, 404, 448, 492, 536}));
  EXPECT_FALSE(main.core.CompanyNameLabel.Visible());

  const DesktopState& desk = main.desk;
  EXPECT_EQ(desk.DestColumns, 2);
  EXPECT_EQ(desk.DesktopImage.Bounds(), (Rect{8, 192, 534, 360}));
  EXPECT_EQ(desk.DestThumbsWindow.Bounds(), (Rect{549, 205, 198, 347}));
  EXPECT_EQ(desk.DestScrollbar.Bounds(), (Rect{747, 205, 17, 347}));
  EXPECT_EQ(desk.DestContentsLabel.Bounds(), (Rect{549, 187, 198, 17}));
  EXPECT_EQ(desk.DestCountLabel.Bounds(), (Rect{739, 187, 33, 17}));
  EXPECT_EQ(desk.DestBackShape1.Bounds(), (Rect{6, 190, 538, 2}));
  EXPECT_EQ(desk.DestBackShape2.Bounds(), (Rect{6, 552, 538, 2}));
  EXPECT_EQ(desk.DestBackShape3.Bounds(), (Rect{6, 190, 2, 364}));
  EXPECT_EQ(desk.DestBackShape4.Bounds(), (Rect{542, 190, 2, 364}));
}

TEST_F(LayoutTest, EachButtonOfTheRowStandsAtItsOwnStep) {
  std::vector<int> tops;
  for (const ImageBox* box : Buttons(StartedAt(782, 606).main.strip)) tops.push_back(box->Top());
  EXPECT_EQ(tops, (std::vector<int>{145, 146, 144, 146, 143, 148, 143}));
}

TEST_F(LayoutTest, ALargeWindowKeepsThePreviewAt350By262AndNamesTheCompany) {
  MainForm& main = StartedAt(1280, 960).main;
  FilmStripState& strip = main.strip;
  EXPECT_EQ(main.preview.PicPreview.Bounds(), (Rect{8, 0, 350, 262}));
  EXPECT_EQ(strip.SrcBackShape.Bounds(), (Rect{358, 0, 922, 262}));
  EXPECT_EQ(strip.SrcThumbsWindow.Bounds(), (Rect{377, 93, 881, 109}));
  EXPECT_EQ(strip.SrcScrollbar.Bounds(), (Rect{377, 202, 881, 17}));
  EXPECT_EQ(strip.SrcPicsTotal.Bounds(), (Rect{377, 76, 73, 17}));
  EXPECT_EQ(strip.SrcFolderPath.Bounds(), (Rect{455, 76, 725, 16}));
  EXPECT_EQ(strip.SrcPicsCount.Bounds(), (Rect{1185, 76, 73, 17}));
  EXPECT_EQ(strip.FilmStripModeFrame.Bounds(), (Rect{1081, 222, 177, 33}));
  EXPECT_EQ(ButtonLefts(strip), (std::vector<int>{377, 432, 487, 542, 597, 652, 707}));
  EXPECT_TRUE(main.core.CompanyNameLabel.Visible());
  EXPECT_EQ(main.core.CompanyNameLabel.Bounds(), (Rect{358, 0, 922, 76}));
  EXPECT_DOUBLE_EQ(main.core.CompanyNameLabel.GetFont().Size, 76 * 0.55);

  const DesktopState& desk = main.desk;
  EXPECT_EQ(desk.DestColumns, 4);
  EXPECT_EQ(desk.DesktopImage.Bounds(), (Rect{8, 270, 838, 636}));
  EXPECT_EQ(desk.DestThumbsWindow.Bounds(), (Rect{853, 283, 392, 623}));
  EXPECT_EQ(desk.DestScrollbar.Bounds(), (Rect{1245, 283, 17, 623}));
  EXPECT_EQ(desk.DestCountLabel.Bounds(), (Rect{1237, 265, 33, 17}));
}

TEST_F(LayoutTest, AWindowBetweenIsHeldByItsHeight) {
  MainForm& main = StartedAt(850, 620).main;
  FilmStripState& strip = main.strip;
  EXPECT_EQ(main.preview.PicPreview.Bounds(), (Rect{8, 0, 264, 198}));
  EXPECT_EQ(strip.SrcThumbsWindow.Bounds(), (Rect{291, 29, 537, 109}));
  EXPECT_EQ(strip.SrcPicsTotal.Top(), 12);
  EXPECT_EQ(ButtonLefts(strip), (std::vector<int>{291, 342, 393, 444, 495, 546, 597}));
  EXPECT_EQ(main.desk.DestColumns, 3);
  EXPECT_EQ(main.desk.DesktopImage.Bounds(), (Rect{8, 206, 505, 360}));
  EXPECT_EQ(main.desk.DestThumbsWindow.Bounds(), (Rect{520, 219, 295, 347}));
  EXPECT_FALSE(main.core.CompanyNameLabel.Visible());
}

TEST_F(LayoutTest, TheCompanyIsNamedFromABandHeightOf210) {
  MainForm& high = StartedAt(817, 632).main;
  EXPECT_EQ(high.strip.SrcBackShape.Height(), 210);
  EXPECT_TRUE(high.core.CompanyNameLabel.Visible());
  EXPECT_EQ(high.core.CompanyNameLabel.Height(), 24);
  EXPECT_DOUBLE_EQ(high.core.CompanyNameLabel.GetFont().Size, 24 * 0.55);
  MainForm& low = StartedAt(816, 632).main;
  EXPECT_EQ(low.strip.SrcBackShape.Height(), 209);
  EXPECT_FALSE(low.core.CompanyNameLabel.Visible());
}

TEST_F(LayoutTest, AWindowThatShrinksLosesTheCompanysName) {
  ProgramRun& run = StartedAt(1280, 960);
  Resize(run, 782, 606);
  run.Wait(5 * Tick);
  EXPECT_FALSE(run.main.core.CompanyNameLabel.Visible());
}

TEST_F(LayoutTest, ThePreviewsCaptionStandsInTheMiddleOfItsLowerEdge) {
  ProgramRun& run = StartedAt(782, 606);
  Label& size = run.main.preview.PicPreviewSize;
  size.SetCaption(" W640 x H480   a.jpg ");
  Resize(run, 850, 620);
  run.Wait(5 * Tick);
  EXPECT_EQ(size.Left(), CLng(8 + (264 - size.Width()) / 2.0));
  EXPECT_EQ(size.Top(), 198 - size.Height() - 2);
}

TEST_F(LayoutTest, FoldersAndTheOpenFolderArePlacedToo) {
  drive.Write("C:\\One\\a.jpg", "");
  ProgramRun& run = StartedAt(782, 606, {"C:\\One"});
  run.LoadAll();
  run.main.desk.DestFolder(1).Move(1, 1);
  run.main.desk.DestThumbnail(1).Move(1, 1);
  Resize(run, 1280, 960);
  run.Wait(5 * Tick);
  EXPECT_GT(run.main.desk.DestFolder(1).Top(), run.main.desk.DesktopImage.Top());
  EXPECT_EQ(run.main.desk.DestThumbnail(1).Left(), 7);
}

TEST_F(LayoutTest, AResizeSettlesForFiveTicks) {
  ProgramRun& run = StartedAt(782, 606);
  run.Wait(1);
  Resize(run, 900, 700);
  EXPECT_EQ(run.main.core.LayoutCountdown, 5);
  run.Wait(4 * Tick);
  EXPECT_EQ(run.main.preview.PicPreview.Width(), 245);
  run.Wait(Tick);
  EXPECT_EQ(run.main.preview.PicPreview.Width(), 350);
  EXPECT_EQ(run.main.core.LayoutCountdown, 0);
}

TEST_F(LayoutTest, ADragOfTheBorderCostsOneLayout) {
  ProgramRun& run = StartedAt(782, 606);
  for (int width = 790; width <= 900; width += 10) {
    Resize(run, width, 700);
    EXPECT_EQ(run.main.core.LayoutCountdown, 5) << "set anew, not added to";
    run.Wait(3 * Tick);
    EXPECT_EQ(run.main.preview.PicPreview.Width(), 245);
  }
  run.Wait(2 * Tick);
  EXPECT_EQ(run.main.preview.PicPreview.Width(), 350);
}

TEST_F(LayoutTest, AWindowDraggedSmallerSnapsBackAtTheNextLayout) {
  ProgramRun& run = StartedAt(1000, 700);
  Resize(run, 500, 400);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 500 * 15);
  run.Wait(5 * Tick);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 782 * 15);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 606 * 15);
  EXPECT_EQ(run.main.strip.SrcThumbsWindow.Width(), 488);
  EXPECT_TRUE(run.main.Window.Visible());
}

TEST_F(LayoutTest, EachDirectionSnapsBackByItself) {
  ProgramRun& run = StartedAt(1000, 700);
  Resize(run, 500, 650);
  run.Wait(5 * Tick);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 782 * 15);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 650 * 15);
  Resize(run, 900, 400);
  run.Wait(5 * Tick);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 900 * 15);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 606 * 15);
}

TEST_F(LayoutTest, TheSizeOfTheLastLayoutIsNotLaidOutAgain) {
  ProgramRun& run = StartedAt(900, 700);
  Disarrange(run);
  Resize(run, 950, 700);
  Resize(run, 900, 700);
  run.Wait(1);
  EXPECT_FALSE(HasLaidOut(run));
  Resize(run, 901, 700);
  run.Wait(1);
  EXPECT_TRUE(HasLaidOut(run));
}

TEST_F(LayoutTest, AMaximisedAndARestoredWindowOfTheSameSizeRunNoSecondLayout) {
  ProgramRun& run = NewRun();
  run.platform.backend.SetScreen(1000, 700);
  SavedState saved;
  saved.Window = "15000,10500,0,0,0";
  WriteSavedState(saved);
  run.Start();
  Disarrange(run);
  run.person.Maximise(run.main.Window);
  EXPECT_EQ(run.main.core.LayoutCountdown, 5);
  run.Wait(1);
  EXPECT_FALSE(HasLaidOut(run));
  run.person.Restore(run.main.Window);
  run.Wait(1);
  EXPECT_FALSE(HasLaidOut(run));
}

TEST_F(LayoutTest, AMaximisedWindowIsLaidOutForTheScreen) {
  ProgramRun& run = StartedAt(782, 606);
  run.person.Maximise(run.main.Window);
  run.Wait(5 * Tick);
  EXPECT_EQ(run.main.preview.PicPreview.Bounds(), (Rect{8, 0, 350, 262}));
  EXPECT_EQ(run.main.desk.DesktopImage.Bounds(), (Rect{8, 270, 838, 700}));
  run.person.Restore(run.main.Window);
  run.Wait(5 * Tick);
  EXPECT_EQ(run.main.preview.PicPreview.Bounds(), (Rect{8, 0, 245, 184}));
}

TEST_F(LayoutTest, AMaximisedWindowOnASmallScreenKeepsItsSize) {
  ProgramRun& run = NewRun();
  run.platform.backend.SetScreen(700, 600);
  run.Start();
  run.person.Maximise(run.main.Window);
  run.Wait(1);
  EXPECT_EQ(run.main.Window.TwipsWidth(), 700 * 15);
  EXPECT_EQ(run.main.Window.TwipsHeight(), 600 * 15);
}

TEST_F(LayoutTest, AMinimisedWindowIsNotLaidOut) {
  ProgramRun& run = StartedAt(900, 700);
  Disarrange(run);
  run.person.Minimise(run.main.Window);
  run.main.core.LastWidth = 0;
  run.Wait(1);
  EXPECT_FALSE(HasLaidOut(run));
}

TEST_F(LayoutTest, AScreenOf600LinesWillDo) {
  ProgramRun& run = NewRun();
  run.platform.backend.SetScreen(320, 600);
  run.Start();
  EXPECT_TRUE(run.main.Window.Visible());
  EXPECT_FALSE(run.platform.toolkit.Ended());
}

TEST_F(LayoutTest, ALowerScreenEndsTheProgramAtOnceWithNoShutdown) {
  ProgramRun& run = NewRun();
  run.platform.backend.SetScreen(1280, 599);
  run.person.ExpectBox("Pixorra - Can't display Application",
                       "Supports a minimum screen size of 800 x 600 pixels.\r\nReset your monitor display settings.",
                       BoxAnswer::Ok, [&run] { EXPECT_FALSE(run.main.Window.Visible()); });
  run.Start();
  EXPECT_TRUE(run.platform.toolkit.Ended());
  EXPECT_FALSE(run.main.Window.Visible());
  EXPECT_EQ(run.platform.dialogs.Boxes().at(0).Icon, BoxIcon::Critical);
  EXPECT_FALSE(drive.Exists("C:\\Windows\\Pixorra.sav"));
}

TEST_F(LayoutTest, AScreenThatBecomesTooLowEndsTheProgramInTheTick) {
  drive.Write("C:\\Strip\\a.jpg", "");
  WriteSavedState(StateLines("C:\\Strip", {}));
  ProgramRun& run = NewRun();
  run.Start();
  run.platform.backend.SetScreen(1280, 500);
  run.person.ExpectBox("Pixorra - Can't display Application", "");
  Resize(run, 900, 700);
  run.main.core.LayoutCountdown = 1;
  run.Wait(1);
  EXPECT_TRUE(run.platform.toolkit.Ended());
  EXPECT_EQ(run.main.strip.SrcSlotCount, 0) << "nothing is done behind the end";
}

}  // namespace
}  // namespace pixorra
