// The preview pane: its caption and how long it stays, its pointer and tool tips, and an edit outside that shows by
// itself.
#include <gmock/gmock.h>
#include <vector>

#include "app/Wiring.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "preview/PreviewPane.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

using ::testing::Each;
using ::testing::Property;

constexpr const char* Photo = "C:\\Photos\\photo.bmp";
constexpr const char* Broken = "C:\\Photos\\broken.bmp";

class PreviewPaneTest : public ProgramTest {
 protected:
  PreviewPaneTest() {
    drive.MakeFolder("C:\\Program");
    drive.Write(Photo, BmpPhoto(640, 480));
    drive.Write(Broken, "BM and nothing of a bitmap behind it");
    main.Window.SetCaption("Pixorra v1.00");
    ConnectPreview(main);
    main.Window.Show();
  }

  int Beeps() { return run.platform.dialogs.Beeps(); }
  // As a click on a thumbnail does it, with the photo in slot 1 of the film strip.
  void SelectInStrip(const std::string& path) {
    main.strip.SrcBackground.Load(1);
    ImageBox& thumbnail = main.strip.SrcThumbnail.Load(1);
    main.strip.SrcThumbName.Load(1);
    thumbnail.SetStretch(true);
    thumbnail.Move(0, 0, 80, 60);
    thumbnail.SetTag(path);
    bool bDragged = false;
    PaintThumbnail(main, thumbnail, path, bDragged);
    main.strip.SrcThumbFrame.SetTag("1");
    main.strip.SrcThumbFrame.SetVisible(true);
    PaintPicPreview(main, path);
  }
  // The photo as the selected one of the open folder.
  ImageBox& ShowInOpenFolder() {
    ImageBox& thumbnail = main.desk.DestThumbnail.Load(1);
    thumbnail.SetStretch(true);
    thumbnail.Move(0, 0, 80, 60);
    thumbnail.SetTag(Photo);
    main.desk.DestThumbFrame.SetTag("1");
    main.desk.DestThumbFrame.SetVisible(true);
    return thumbnail;
  }
  // In the pane, the film strip and the open folder.
  std::vector<Picture> Shown() {
    return {pane.GetPicture(), main.strip.SrcThumbnail(1).GetPicture(), main.desk.DestThumbnail(1).GetPicture()};
  }
  // One tick of the timer that follows an outside edit.
  void Tick() {
    main.preview.AutoPicPreviewTimer.SetEnabled(true);
    run.Wait(1);
    main.preview.AutoPicPreviewTimer.SetEnabled(false);
  }

  ProgramRun& run = NewRun();
  MainForm& main = run.main;
  ImageBox& pane = main.preview.PicPreview;
  Label& caption = main.preview.PicPreviewSize;
  Timer& captionTimer = main.preview.PicPreviewSizeAutoClrTimer;
};

Colour At(const Picture& picture, int x, int y) {
  const std::uint8_t* pixel = picture.Pixels().Row(y) + x * picture.Pixels().BytesPerPixel();
  return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

TEST_F(PreviewPaneTest, ThePhotoIsSelectedAndItsCaptionTellsSizeAndName) {
  PaintPicPreview(main, Photo);
  EXPECT_EQ(caption.Caption(), " W640 x H480   photo.bmp ");
  EXPECT_TRUE(caption.Visible());
  EXPECT_TRUE(captionTimer.Enabled());
  EXPECT_EQ(pane.Tag(), Photo);
  EXPECT_TRUE(pane.ShowsPhotoOfTag()) << "for fine screens";
  EXPECT_EQ(caption.ToolTipText(), Photo);
  EXPECT_EQ(pane.GetPicture().Width(), pane.Width());
  EXPECT_EQ(pane.GetPicture().Height(), pane.Height());
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(PreviewPaneTest, APhotoThatCannotBeShownEmptiesPaneAndSelectionAndTheCaptionSaysSo) {
  PaintPicPreview(main, Photo);
  PaintPicPreview(main, Broken);
  EXPECT_EQ(caption.Caption(), " Can't Preview - broken.bmp ");
  EXPECT_TRUE(caption.Visible());
  EXPECT_EQ(caption.ToolTipText(), Broken);
  EXPECT_EQ(pane.Tag(), "");
  EXPECT_TRUE(pane.GetPicture().IsNothing());
  EXPECT_EQ(Beeps(), 1);
  EXPECT_TRUE(main.strip.ThumbsTimer.Enabled());
}

TEST_F(PreviewPaneTest, TheToolTipNamesTheProgramThatEdits) {
  run.platform.shell.RegisterProgram(".bmp", "C:\\bin\\paint",
                                     {.FileDescription = "A brush for pictures", .ProductName = " Brush "});
  PaintPicPreview(main, Photo);
  EXPECT_EQ(pane.ToolTipText(), "Double-Click to Edit with \"Brush\"");
}

TEST_F(PreviewPaneTest, AProgramWithoutAProductNameIsNamedByItsDescription) {
  run.platform.shell.RegisterProgram(".bmp", "C:\\bin\\paint", {.FileDescription = " A brush ", .ProductName = "  "});
  PaintPicPreview(main, Photo);
  EXPECT_EQ(pane.ToolTipText(), "Double-Click to Edit with \"A brush\"");
}

TEST_F(PreviewPaneTest, AFileWithNoRegisteredProgramGivesAnEmptyName) {
  PaintPicPreview(main, Photo);
  EXPECT_EQ(pane.ToolTipText(), "Double-Click to Edit with \"\"");
  PaintPicPreview(main, "C:\\Photos\\missing.bmp");
  EXPECT_EQ(pane.ToolTipText(), "Double-Click to Edit with \"\"");
}

TEST_F(PreviewPaneTest, BackgroundLoadingRestsDuringThePaint) {
  main.strip.ThumbsTimer.SetEnabled(true);
  run.files.FailNth(FileCall::Read, 2, error::OutOfMemory, "photo.bmp");
  run.person.ExpectBox("Pixorra - Out of Memory", "", BoxAnswer::Ok,
                       [&] { EXPECT_FALSE(main.strip.ThumbsTimer.Enabled()); });
  PaintPicPreview(main, Photo);
  EXPECT_TRUE(main.strip.ThumbsTimer.Enabled());
  main.strip.ThumbsTimer.SetEnabled(false);
}

TEST_F(PreviewPaneTest, TheCaptionGoesAfterTwoSeconds) {
  PaintPicPreview(main, Photo);
  main.strip.ThumbsTimer.SetEnabled(false);
  run.Wait(1.9);
  EXPECT_TRUE(caption.Visible());
  run.Wait(0.2);
  EXPECT_FALSE(caption.Visible());
  EXPECT_FALSE(captionTimer.Enabled());
}

TEST_F(PreviewPaneTest, ASecondPaintWithinTwoSecondsRestartsTheCaptionsTimer) {
  PaintPicPreview(main, Photo);
  main.strip.ThumbsTimer.SetEnabled(false);
  run.Wait(1.5);
  PaintPicPreview(main, Photo);
  main.strip.ThumbsTimer.SetEnabled(false);
  run.Wait(1.5);
  EXPECT_TRUE(caption.Visible());
  run.Wait(0.6);
  EXPECT_FALSE(caption.Visible());
}

TEST_F(PreviewPaneTest, HoveringOverTheCaptionKeepsItUntilTheMouseMovesOverThePaneAgain) {
  PaintPicPreview(main, Photo);
  main.strip.ThumbsTimer.SetEnabled(false);
  run.person.MoveTo(caption);
  run.Wait(10);
  EXPECT_TRUE(caption.Visible());
  run.person.MoveTo(pane);
  run.Wait(1.9);
  EXPECT_TRUE(caption.Visible());
  run.Wait(0.2);
  EXPECT_FALSE(caption.Visible());
}

TEST_F(PreviewPaneTest, TheMouseOverThePaneBringsTheCaptionBack) {
  PaintPicPreview(main, Photo);
  main.strip.ThumbsTimer.SetEnabled(false);
  run.Wait(3);
  ASSERT_FALSE(caption.Visible());
  run.person.MoveTo(pane);
  EXPECT_TRUE(caption.Visible());
}

TEST_F(PreviewPaneTest, OverAnEmptyPaneThePointerSaysNotReadyAndNoCaptionShows) {
  run.person.MoveTo(pane);
  EXPECT_TRUE(pane.MouseIcon() == main.drop.NotReadyIcon);
  EXPECT_EQ(pane.MousePointer(), pointer::Custom);
  EXPECT_FALSE(caption.Visible());
  PaintPicPreview(main, Photo);
  main.strip.ThumbsTimer.SetEnabled(false);
  run.person.MoveTo(pane);
  EXPECT_TRUE(pane.MouseIcon() == main.desk.DestFolder(0).MouseIcon());
}

TEST_F(PreviewPaneTest, ResettingGoesBackToTheLogo) {
  PaintPicPreview(main, Photo);
  ResetPreview(main);
  EXPECT_TRUE(pane.GetPicture() == main.preview.Logo);
  EXPECT_EQ(pane.ToolTipText(), "Pixorra v1.00");
  EXPECT_EQ(caption.ToolTipText(), "Pixorra v1.00");
  EXPECT_EQ(pane.Tag(), "");
  EXPECT_EQ(caption.Caption(), "");
  EXPECT_FALSE(caption.Visible());
  ResetPreview(main, ApplicationTitle);
  EXPECT_EQ(pane.ToolTipText(), "Pixorra");
}

TEST_F(PreviewPaneTest, TheMenuNamesTheProgramThatEditsTheSelectedPhoto) {
  run.platform.shell.RegisterProgram(".bmp", "C:\\bin\\paint", {.ProductName = "Brush"});
  SelectedPhotoMenu_Click(main);
  EXPECT_EQ(main.menu.SelectedEditMenuItem.Caption(), "&Edit");
  PaintPicPreview(main, Photo);
  SelectedPhotoMenu_Click(main);
  EXPECT_EQ(main.menu.SelectedEditMenuItem.Caption(), "Edit with \"Brush\"");
}

TEST_F(PreviewPaneTest, AnEditOfThePanesPhotoLeavesAnotherSlotThatHasTheFrameAsItIs) {
  drive.Write("C:\\Photos\\other.bmp", BmpOf(PlainBitmap(80, 60, 0x00FF0000)));
  SelectInStrip("C:\\Photos\\other.bmp");
  const Picture before = main.strip.SrcThumbnail(1).GetPicture();
  PaintPicPreview(main, Photo);
  main.preview.bPicEdited = true;
  Tick();
  EXPECT_TRUE(main.strip.SrcThumbnail(1).GetPicture() == before);
}

// --- what the menu allows --------------------------------------------------------------------------------------------

class SelectedPhotoMenuTest : public PreviewPaneTest {
 protected:
  SelectedPhotoMenuTest() {
    // As if all of them could do something.
    for (MenuItem* item : Items()) item->On().Click = [](Control&) {};
  }
  std::vector<MenuItem*> Items() {
    MenuBar& menu = main.menu;
    return {&menu.CopyMenuItem,         &menu.SelectedPrintMenuItem,
            &menu.SelectedEditMenuItem, &menu.SelectedViewFullSizeMenuItem,
            &menu.RenameMenuItem,       &menu.DeleteMenuItem};
  }
  // Of each item in this order, when the menu opens.
  std::vector<bool> Enabled() {
    SelectedPhotoMenu_Click(main);
    std::vector<bool> enabled;
    for (const MenuItem* item : Items()) enabled.push_back(item->Enabled());
    return enabled;
  }
};

TEST_F(SelectedPhotoMenuTest, WithoutASelectedPhotoNothingCanBeChosen) {
  EXPECT_EQ(Enabled(), (std::vector<bool>{false, false, false, false, false, false}));
}

TEST_F(SelectedPhotoMenuTest, WithASelectedPhotoEverythingCanBeChosen) {
  PaintPicPreview(main, Photo);
  EXPECT_EQ(Enabled(), (std::vector<bool>{true, true, true, true, true, true}));
  ResetPreview(main);
  EXPECT_EQ(Enabled(), (std::vector<bool>{false, false, false, false, false, false}));
}

TEST_F(SelectedPhotoMenuTest, APhotoThatIsReadOnlyCanBeNeitherRenamedNorDeleted) {
  drive.SetMode(Photo, 0444);
  PaintPicPreview(main, Photo);
  EXPECT_EQ(Enabled(), (std::vector<bool>{true, true, true, true, false, false}));
  drive.SetMode(Photo, 0644);
  EXPECT_EQ(Enabled(), (std::vector<bool>{true, true, true, true, true, true}));
}

TEST_F(SelectedPhotoMenuTest, APhotoThatIsNotThereAnyMoreCanBeNeitherRenamedNorDeleted) {
  PaintPicPreview(main, Photo);
  drive.Remove(Photo);
  EXPECT_EQ(Enabled(), (std::vector<bool>{true, true, true, true, false, false}));
}

TEST_F(SelectedPhotoMenuTest, AnItemThatDoesNothingYetStaysDisabled) {
  main.menu.SelectedPrintMenuItem.On().Click = {};
  PaintPicPreview(main, Photo);
  EXPECT_EQ(Enabled(), (std::vector<bool>{true, false, true, true, true, true}));
}

TEST_F(SelectedPhotoMenuTest, ADoubleClickOnThePaneEditsThePhoto) {
  int edits = 0;
  main.menu.SelectedEditMenuItem.On().Click = [&](Control&) { ++edits; };
  PaintPicPreview(main, Photo);
  run.person.DoubleClick(pane);
  EXPECT_EQ(edits, 1);
}

TEST_F(PreviewPaneTest, AClickOnThePaneEndsAnOutsideEdit) {
  main.preview.bPicEdited = true;
  run.person.Click(pane);
  EXPECT_FALSE(main.preview.bPicEdited);
}

TEST_F(PreviewPaneTest, WithoutAnOutsideEditNothingIsRepainted) {
  SelectInStrip(Photo);
  const Picture before = pane.GetPicture();
  drive.Write(Photo, BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  Tick();
  EXPECT_TRUE(pane.GetPicture() == before);
}

TEST_F(PreviewPaneTest, ASaveInTheEditorShowsByItselfInPaneAndThumbnail) {
  SelectInStrip(Photo);
  main.preview.bPicEdited = true;
  drive.Write(Photo, BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  Tick();
  EXPECT_EQ(caption.Caption(), " W320 x H240   photo.bmp ");
  EXPECT_EQ(At(pane.GetPicture(), 10, 10), 0x000000FFU);
  EXPECT_EQ(At(main.strip.SrcThumbnail(1).GetPicture(), 10, 10), 0x000000FFU);
}

TEST_F(PreviewPaneTest, AnEditedPhotoKeepsItsShadeAndItsNewCacheEntryTakesTheMark) {
  SelectInStrip(Photo);
  main.strip.SrcThumbName(1).SetTag("MARK");
  main.preview.bPicEdited = true;
  drive.Write(Photo, BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  Tick();
  const Picture& thumbnail = main.strip.SrcThumbnail(1).GetPicture();
  EXPECT_EQ(At(thumbnail, 10, 10), 0U);
  EXPECT_EQ(At(thumbnail, 11, 11), 0x000000FFU);
  bool bDragged = false;
  ASSERT_TRUE(QuickThumbsOf(main).ReadQuickThumb(Photo, main.strip.SrcThumbnail(1), bDragged));
  EXPECT_TRUE(bDragged);
}

// What a fine screen shows in place of a picture is made for that very picture.
TEST_F(PreviewPaneTest, APhotoThatIsNotSavedKeepsItsPicturesWhileTheEditorIsOpen) {
  SelectInStrip(Photo);
  main.strip.SrcThumbName(1).SetTag("MARK");
  ShowInOpenFolder();
  main.preview.bPicEdited = true;
  Tick();
  const std::vector<Picture> before = Shown();
  ASSERT_THAT(before, Each(Property(&Picture::IsNothing, false)));
  Tick();
  EXPECT_TRUE(Shown() == before);
  // Saved anew, with details that may be finer than these pixels.
  drive.SetTime(Photo, {2020, 3, 5, 12, 0, 0});
  Tick();
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_FALSE(Shown()[i] == before[i]) << i;
  drive.Write(Photo, BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  Tick();
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_FALSE(Shown()[i] == before[i]) << i;
}

TEST_F(PreviewPaneTest, TheSelectedCellOfTheOpenFolderFollowsAnEditToo) {
  const ImageBox& thumbnail = ShowInOpenFolder();
  PaintPicPreview(main, Photo);
  main.preview.bPicEdited = true;
  drive.Write(Photo, BmpOf(PlainBitmap(320, 240, 0x000000FF)));
  Tick();
  EXPECT_EQ(At(thumbnail.GetPicture(), 10, 10), 0x000000FFU);
}

TEST_F(PreviewPaneTest, APhotoDeletedDuringAnOutsideEditIsDeselectedAndFurtherTicksDoNothing) {
  SelectInStrip(Photo);
  main.preview.bPicEdited = true;
  drive.Remove(Photo);
  Tick();
  EXPECT_EQ(pane.Tag(), "");
  EXPECT_EQ(Beeps(), 1);
  Tick();
  Tick();
  EXPECT_EQ(Beeps(), 1);
}

}  // namespace
}  // namespace pixorra
