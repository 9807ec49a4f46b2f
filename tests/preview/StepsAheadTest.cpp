// Stepping through photos at full size: those before and after are decoded ahead, and only time is saved by it.
#include <gtest/gtest.h>

#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewForm.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

class StepsAheadTest : public ProgramTest {
 protected:
  StepsAheadTest() {
    for (int i = 1; i <= 8; ++i) drive.Write(Path(i), JpegPhoto(640, 400 + 10 * i));
    for (int i = 1; i <= 4; ++i) drive.Write(HomePath(i), JpegPhoto(640, 500 + 10 * i));
    WriteSavedState(StateLines("C:\\Card", {"C:\\Home"}));
    decodeAhead = &ahead;
    Begin();
  }
  ~StepsAheadTest() override { EndRun(); }
  static std::string Path(int i) { return "C:\\Card\\p" + std::to_string(i) + ".jpg"; }
  static std::string HomePath(int i) { return "C:\\Home\\h" + std::to_string(i) + ".jpg"; }
  void Begin() {
    run_ = &Started();
    run().LoadAll();
  }
  ProgramRun& run() { return *run_; }
  void Open(int slot) {
    run().person.Click(run().main.strip.SrcThumbnail(slot));
    DisplayFullSizePreview(run().main, Path(slot));
    ahead.Whole().Settle();
  }
  void Step(int code) { run().person.Key(code); }
  // How often any photo was read while this was done.
  template <typename Act>
  int Reads(const Act& act) {
    const int before = run().files.Count(FileCall::Read);
    act();
    return run().files.Count(FileCall::Read) - before;
  }
  const Bitmap& Shown() { return PreviewForm::Of(run().main).Window.Drawing(); }
  bool Shows(const std::string& path) {
    const Bitmap photo = run().pictures.Load(path).Pixels().Clone();
    if (Shown().Height() != photo.Height()) return false;
    for (int y = 0; y < photo.Height(); ++y) {
      if (!std::equal(photo.Row(y), photo.Row(y) + 1920, Shown().Row(y))) return false;
    }
    return true;
  }

  FaultyFiles aheadFiles{drive.DriveFiles()};
  DecodeAhead ahead{aheadFiles};

 private:
  ProgramRun* run_ = nullptr;
};

TEST_F(StepsAheadTest, ThePhotosBeforeAndAfterAreReadyAndTheOnesFurtherOnInTheSameDirection) {
  Open(4);
  for (const int i : {3, 4, 5, 6, 7}) EXPECT_TRUE(ahead.IsWholeReady(Path(i))) << i;
  for (const int i : {1, 2, 8}) EXPECT_FALSE(ahead.IsWholeReady(Path(i))) << i;
  Step(key::Left);
  ahead.Whole().Settle();
  for (const int i : {1, 2, 3, 4}) EXPECT_TRUE(ahead.IsWholeReady(Path(i))) << i;
  EXPECT_FALSE(ahead.IsWholeReady(Path(6)));
}

TEST_F(StepsAheadTest, AStepToAPhotoThatIsReadyShowsItAndReadsNoMoreThanItsFirstBytes) {
  Open(4);
  // Pane and full size each look at what kind of file it is.
  EXPECT_EQ(Reads([this] { Step(key::Right); }), 2);
  EXPECT_EQ(run().main.preview.sFullSizeFile, Path(5));
  EXPECT_EQ(run().main.preview.PicPreviewSize.Caption(), " W640 x H450   p5.jpg ");
  EXPECT_TRUE(Shows(Path(5)));
}

// A camera hands out the whole file each time.
TEST_F(StepsAheadTest, AStepOpensThePhotoOnceForEachPlaceThatShowsItAndOneAheadOfIt) {
  Open(4);
  const int opened = run().files.Count(FileCall::OpenToRead);
  const int openedAhead = aheadFiles.Count(FileCall::OpenToRead);
  Step(key::Right);
  EXPECT_EQ(run().files.Count(FileCall::OpenToRead) - opened, 2);
  EXPECT_TRUE(Shows(Path(5)));
  EXPECT_NE(PreviewForm::Of(run().main).Window.Caption().find("W640 x H450"), std::string::npos);
  EXPECT_EQ(aheadFiles.Count(FileCall::OpenToRead) - openedAhead, 1) << "the third photo from here";
}

TEST_F(StepsAheadTest, AStepToAPhotoThatIsNotReadyDecodesItOnceForBothPlaces) {
  Open(1);
  SelectSlot(run().main.strip, 6);
  const int reads = Reads([this] { Step(key::Right); });
  EXPECT_EQ(run().main.preview.sFullSizeFile, Path(7));
  EXPECT_LE(reads, 5) << "the kind of file, twice, and the file in two pieces at most";
  EXPECT_TRUE(Shows(Path(7)));
}

TEST_F(StepsAheadTest, ThePicturesAreTheSameAsWithoutIt) {
  Open(4);
  Step(key::Right);
  const Picture pane = run().main.preview.PicPreview.GetPicture();
  const Bitmap shown = Shown().Clone();
  EndRun();
  decodeAhead = nullptr;
  Begin();
  Open(5);
  const Picture plain = run().main.preview.PicPreview.GetPicture();
  ASSERT_EQ(pane.Height(), plain.Height());
  for (int y = 0; y < pane.Height(); ++y) {
    ASSERT_TRUE(std::equal(pane.Pixels().Row(y), pane.Pixels().Row(y) + pane.Pixels().Stride(), plain.Pixels().Row(y)));
  }
  ASSERT_EQ(shown.Height(), Shown().Height());
  for (int y = 0; y < shown.Height(); ++y)
    ASSERT_TRUE(std::equal(shown.Row(y), shown.Row(y) + shown.Stride(), Shown().Row(y)));
}

TEST_F(StepsAheadTest, APhotoThatHasBeenChangedMeanwhileIsShownAsItIsNow) {
  Open(4);
  drive.Write("C:\\new.jpg", JpegOf(PlainBitmap(640, 450, 0x00123456)));
  drive.DriveFiles().RenameOver("C:\\new.jpg", Path(5));
  Step(key::Right);
  EXPECT_TRUE(Shows(Path(5)));
  Step(key::Left);
  ahead.Whole().Settle();
  EXPECT_TRUE(ahead.IsWholeReady(Path(5))) << "prepared anew";
}

TEST_F(StepsAheadTest, APhotoThatHasBeenDeletedMeanwhileIsNotShown) {
  Open(4);
  drive.Remove(Path(5));
  const int beeps = run().platform.dialogs.Beeps();
  Step(key::Right);
  EXPECT_GT(run().platform.dialogs.Beeps(), beeps);
  EXPECT_TRUE(Shown().IsEmpty());
  EXPECT_EQ(PreviewForm::Of(run().main).Window.Caption(), "");
  Step(key::Right);
  EXPECT_TRUE(Shows(Path(6)));
}

TEST_F(StepsAheadTest, AnotherPhotoUnderTheSameNameIsTheOneShown) {
  Open(4);
  drive.DriveFiles().Rename(Path(5), "C:\\Card\\away.jpg");
  drive.DriveFiles().Rename(Path(8), Path(5));
  Step(key::Right);
  EXPECT_TRUE(Shows(Path(5)));
  EXPECT_EQ(Shown().Height(), 480);
}

TEST_F(StepsAheadTest, NothingIsHeldOnceItIsClosed) {
  Open(4);
  run().person.Key(key::Escape);
  for (int i = 1; i <= 8; ++i) EXPECT_FALSE(ahead.IsWholeReady(Path(i))) << i;
  EXPECT_FALSE(ahead.Whole().IsExpecting());
}

TEST_F(StepsAheadTest, PhotosThatTheStripDoesNotShowArePassedOver) {
  run().main.strip.SrcThumbnail(5).SetVisible(false);
  Open(4);
  EXPECT_FALSE(ahead.IsWholeReady(Path(5)));
  EXPECT_TRUE(ahead.IsWholeReady(Path(6)));
}

TEST_F(StepsAheadTest, PhotosThatHaveBeenDraggedArePassedOverInTheRemainingView) {
  MainForm& main = run().main;
  run().person.Click(main.strip.SrcThumbnail(2));
  for (const int slot : {3, 4}) {
    run().person.Key(key::Right);
    run().person.Key(key::Insert);
    ASSERT_TRUE(IsMarked(main.strip, slot));
  }
  run().person.Click(main.strip.RemainingOption);
  Open(2);
  for (const int i : {1, 2, 5, 6}) EXPECT_TRUE(ahead.IsWholeReady(Path(i))) << i;
  for (const int i : {3, 4}) EXPECT_FALSE(ahead.IsWholeReady(Path(i))) << i;
  Step(key::Right);
  EXPECT_EQ(main.preview.sFullSizeFile, Path(5));
  EXPECT_TRUE(Shows(Path(5)));
}

TEST_F(StepsAheadTest, TheButtonsGoOnAfterAPhotoThatCannotBeShown) {
  Open(4);
  drive.Remove(Path(5));
  PreviewForm& preview = PreviewForm::Of(run().main);
  run().person.Click(preview.NextButton);
  EXPECT_TRUE(Shown().IsEmpty());
  EXPECT_TRUE(preview.NextButton.IsShown());
  EXPECT_EQ(run().host.toolkit.ActiveForm(), &preview.Window);
  run().person.Click(preview.NextButton);
  EXPECT_TRUE(Shows(Path(6)));
  run().person.Click(preview.PreviousButton);
  EXPECT_TRUE(Shown().IsEmpty());
  run().person.Click(preview.PreviousButton);
  EXPECT_TRUE(Shows(Path(4)));
}

TEST_F(StepsAheadTest, ARightClickInTheOpenFolderGetsThePhotosBesideThatOneReadyAndNoOthers) {
  MainForm& main = run().main;
  Select_a_Folder(main, 1);
  run().Wait(0.1);
  run().LoadAll();
  run().person.Click(main.strip.SrcThumbnail(4));
  const int opened = aheadFiles.Count(FileCall::OpenToRead);
  run().person.RightClick(main.desk.DestThumbnail(2));
  ahead.Whole().Settle();
  for (const int i : {1, 2, 3, 4}) EXPECT_TRUE(ahead.IsWholeReady(HomePath(i))) << i;
  EXPECT_EQ(aheadFiles.Count(FileCall::OpenToRead) - opened, 4);
}

TEST_F(StepsAheadTest, FromTheBrowserThereAreNoSteps) {
  run().main.preview.bPreviewNoButtons = true;
  Open(4);
  EXPECT_FALSE(ahead.Whole().IsExpecting());
}

TEST_F(StepsAheadTest, OnAFineScreenThePhotosArePreparedInItsPixels) {
  run().platform.backend.SetFineness(2);
  Open(4);
  EXPECT_EQ(Reads([this] { Step(key::Right); }), 2);
  EXPECT_EQ(Shown().Width(), 1280);
  EXPECT_EQ(Shown().Height(), 900);
}

}  // namespace
}  // namespace pixorra
