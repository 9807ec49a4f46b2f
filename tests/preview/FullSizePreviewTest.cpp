// A photo at full size: the window's size, place and caption, what closes it, and what cannot be shown.
#include <algorithm>
#include <gtest/gtest.h>

#include "platform/controls/Toolkit.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewForm.h"
#include "preview/PreviewPane.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* Small = "C:\\Photos\\small.v2.jpg";  // as large as a window can show it
constexpr const char* BrokenJpeg = "C:\\Photos\\broken.jpg";

class FullSizePreviewTest : public ProgramTest {
 protected:
  FullSizePreviewTest() {
    drive.Write(Small, JpegPhoto(640, 480));
    drive.SetTime(Small, {2004, 7, 5, 14, 7, 9});
    drive.Write(BrokenJpeg, "\xFF\xD8____JFIF and nothing of a photo after it");
  }
  // A photo of that size, shown.
  void Show(int width, int height) {
    const std::string path = "C:\\Photos\\sized.bmp";
    drive.Write(path, BmpPhoto(width, height));
    DisplayFullSizePreview(main, path);
  }
  PreviewForm& Preview() { return PreviewForm::Of(main); }
  Form& Window() { return Preview().Window; }
  bool IsShown() { return person.Window("PreviewForm") != nullptr; }
  int Beeps() { return run.platform.dialogs.Beeps(); }
  static Colour At(const Bitmap& bitmap, int x, int y) {
    const std::uint8_t* pixel = bitmap.Row(y) + x * bitmap.BytesPerPixel();
    return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
  }

  ProgramRun& run = Started();
  MainForm& main = run.main;
  Person& person = run.person;
};

TEST_F(FullSizePreviewTest, APhotoThatFitsIsShownPixelByPixelAtTheTopLeftOfTheScreen) {
  DisplayFullSizePreview(main, Small);
  ASSERT_TRUE(IsShown());
  EXPECT_EQ(Window().TwipsWidth(), 9660);
  EXPECT_EQ(Window().TwipsHeight(), 7570);
  EXPECT_EQ(Window().TwipsLeft(), 0);
  EXPECT_EQ(Window().TwipsTop(), 0);
  EXPECT_EQ(Window().ScaleWidth(), 640);
  EXPECT_EQ(Window().ScaleHeight(), 480);
  const Picture photo = run.pictures.Load(std::string(Small));
  for (int y = 0; y < 480; ++y)
    ASSERT_TRUE(std::equal(photo.Pixels().Row(y), photo.Pixels().Row(y) + 1920, Window().Drawing().Row(y))) << y;
}

TEST_F(FullSizePreviewTest, ItHasTheFocusAboveTheMainWindowAndTheProgramKnowsIt) {
  DisplayFullSizePreview(main, Small);
  EXPECT_EQ(run.platform.toolkit.ActiveForm(), &Window());
  EXPECT_EQ(Window().Owner(), &main.Window);
  EXPECT_FALSE(Window().IsModal());
  EXPECT_EQ(main.preview.sFullSizeFile, Small);
}

TEST_F(FullSizePreviewTest, TheCaptionHasNameSizePathAndDate) {
  DisplayFullSizePreview(main, Small);
  EXPECT_EQ(Window().Caption(), "small - W640 x H480 - C:\\Photos\\small.v2.jpg  [02:07pm 5/Jul/2004]");
}

TEST_F(FullSizePreviewTest, APhotoThatMayOnlyBeReadHasItsDateToo) {
  run.files.FailAlways(FileCall::LastWriteTime, error::PathAccess, "small");
  DisplayFullSizePreview(main, Small);
  EXPECT_NE(Window().Caption().find("5/Jul/2004"), std::string::npos) << Window().Caption();
}

TEST_F(FullSizePreviewTest, AnEmptyPathMakesTheWindowReadyAndNoMore) {
  DisplayFullSizePreview(main, "");
  EXPECT_TRUE(Window().IsLoaded());
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(main.preview.sFullSizeFile, "");
  DisplayFullSizePreview(main, Small);
  DisplayFullSizePreview(main, "");
  EXPECT_EQ(main.preview.sFullSizeFile, Small);
  EXPECT_FALSE(Window().Drawing().IsEmpty());
}

TEST_F(FullSizePreviewTest, APhotoLargerThanTheScreenIsMadeSmallerInAboutItsShape) {
  Show(3000, 2000);
  EXPECT_EQ(Window().TwipsWidth(), 19080);
  EXPECT_EQ(Window().TwipsHeight(), 12720);
  EXPECT_EQ(Window().ScaleWidth(), 1268);
  EXPECT_EQ(Window().ScaleHeight(), 823);
  const Bitmap photo = SmoothBitmap(3000, 2000);
  EXPECT_EQ(At(Window().Drawing(), 0, 0), At(photo, 1, 1));
  EXPECT_EQ(At(Window().Drawing(), 1267, 822), At(photo, 2998, 1998));
}

TEST_F(FullSizePreviewTest, APhotoOfTheScreensSizeLessTheFrameStillFits) {
  Show(1276, 999);
  EXPECT_EQ(Window().ScaleWidth(), 1276);
  EXPECT_EQ(Window().ScaleHeight(), 999);
  Show(1277, 999);
  EXPECT_EQ(Window().TwipsWidth(), 1280 * 15 - 120);
}

TEST_F(FullSizePreviewTest, WithASecondScreenTheWindowIsStillNoLargerThanOne) {
  run.platform.backend.AddScreen(1280, 1024);
  Show(1284, 1014);
  EXPECT_EQ(Window().TwipsWidth(), 1280 * 15);
  EXPECT_EQ(Window().TwipsHeight(), 1024 * 15 - 120);
}

TEST_F(FullSizePreviewTest, TheSmallestPhotoThatAWindowCanShowIsShown) {
  Show(81, 61);
  EXPECT_TRUE(IsShown());
  EXPECT_EQ(Window().ScaleWidth(), 81);
  EXPECT_EQ(Window().ScaleHeight(), 61);
  EXPECT_EQ(Window().DrawingSize(), (PixelSize{81, 61}));
}

TEST_F(FullSizePreviewTest, APhotoTooSmallForAWindowIsNotShownAndSaysNothing) {
  Show(80, 300);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Beeps(), 0);
  EXPECT_EQ(main.preview.sFullSizeFile, "");
  Show(300, 60);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
}

TEST_F(FullSizePreviewTest, APhotoThatCannotBeLoadedBeepsAndLeavesTheWindowBlankWithNoCaption) {
  DisplayFullSizePreview(main, BrokenJpeg);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Beeps(), 1);
  DisplayFullSizePreview(main, Small);
  for (const char* path : {BrokenJpeg, "C:\\Photos\\gone.jpg"}) {
    DisplayFullSizePreview(main, path);
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Window().Caption(), "");
    EXPECT_EQ(Window().TwipsWidth(), 9660);
    EXPECT_TRUE(Window().Drawing().IsEmpty());
  }
  EXPECT_EQ(Beeps(), 3);
  EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
}

TEST_F(FullSizePreviewTest, ThePointerIsAnHourglassAndLoadingRestsUntilThePhotoIsThere) {
  run.files.FailNth(FileCall::Read, 2, error::OutOfMemory, "small.v2.jpg");
  run.person.ExpectBox("Pixorra - Out of Memory", "", BoxAnswer::Ok, [&] {
    EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
    EXPECT_FALSE(main.strip.ThumbsTimer.Enabled());
    EXPECT_EQ(main.pictures.TempImage.UBound(), 1);
  });
  DisplayFullSizePreview(main, Small);
  EXPECT_EQ(Beeps(), 1) << "after the message";
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
  EXPECT_TRUE(main.strip.ThumbsTimer.Enabled());
  EXPECT_EQ(main.pictures.TempImage.UBound(), 0);
}

TEST_F(FullSizePreviewTest, TheProgramMayEndWhileAMessageIsUp) {
  run.files.FailNth(FileCall::Read, 2, error::OutOfMemory, "small.v2.jpg");
  run.person.ExpectBox("Pixorra - Out of Memory", "", BoxAnswer::Ok, [&] { main.Window.Unload(); });
  DisplayFullSizePreview(main, Small);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(FullSizePreviewTest, TheNextPhotoTakesThePlaceOfTheOneBeforeInTheSameWindow) {
  DisplayFullSizePreview(main, Small);
  person.MoveWindow(Window(), 300, 600);
  Show(300, 200);
  EXPECT_EQ(Window().ScaleWidth(), 300);
  EXPECT_EQ(Window().DrawingSize(), (PixelSize{300, 200}));
  EXPECT_EQ(Window().TwipsLeft(), 300) << "where it has been moved to";
  EXPECT_EQ(main.preview.sFullSizeFile, "C:\\Photos\\sized.bmp");
}

TEST_F(FullSizePreviewTest, AWindowThatHasBeenMadeSmallComesBackForTheNextPhoto) {
  DisplayFullSizePreview(main, Small);
  person.Minimise(Window());
  Show(300, 200);
  EXPECT_EQ(Window().WindowState(), windowstate::Normal);
  EXPECT_EQ(Window().ScaleWidth(), 300);
}

TEST_F(FullSizePreviewTest, OnAFineScreenThePhotoHasTheScreensPixels) {
  run.platform.backend.SetFineness(2);
  Show(3000, 2000);
  EXPECT_EQ(Window().ScaleWidth(), 1268);
  EXPECT_EQ(Window().Drawing().Width(), 2536);
  EXPECT_EQ(Window().Drawing().Height(), 1646);
  EXPECT_EQ(At(Window().Drawing(), 0, 0), At(SmoothBitmap(3000, 2000), 0, 0));
}

// --- what closes it --------------------------------------------------------------------------------------------------

class FullSizeKeysTest : public FullSizePreviewTest {
 protected:
  FullSizeKeysTest() {
    main.Window.On().KeyDown = [this](Control&, int& code, int) { passed.push_back(code); };
    DisplayFullSizePreview(main, Small);
  }
  void Reopen() { DisplayFullSizePreview(main, Small); }
  std::vector<int> passed;
};

TEST_F(FullSizeKeysTest, AnyKeyButAnArrowClosesIt) {
  for (const int code :
       {key::Return, key::Escape, key::Space, key::Delete, key::Home, static_cast<int>('A'), key::F1}) {
    Reopen();
    person.Key(code);
    EXPECT_FALSE(IsShown()) << code;
    EXPECT_EQ(main.preview.sFullSizeFile, "");
    EXPECT_EQ(run.platform.toolkit.ActiveForm(), &main.Window);
  }
  EXPECT_TRUE(passed.empty());
}

TEST_F(FullSizeKeysTest, AKeyThatOnlyMakesACharacterClosesItToo) {
  person.Type("\xC3\xA4");
  EXPECT_FALSE(IsShown());
}

TEST_F(FullSizeKeysTest, ArrowsAreTheMainWindowsAndLeaveItOpen) {
  for (const int code : {key::Left, key::Up, key::Right, key::Down}) person.Key(code);
  EXPECT_EQ(passed, (std::vector<int>{key::Left, key::Up, key::Right, key::Down}));
  EXPECT_TRUE(IsShown());
}

TEST_F(FullSizeKeysTest, FromTheBrowserArrowsCloseItLikeAnyOtherKey) {
  person.Key(key::Escape);
  main.preview.bPreviewNoButtons = true;
  for (const int code : {key::Left, key::Right, key::Up, key::Down, key::Return, key::Escape}) {
    Reopen();
    person.Key(code);
    EXPECT_FALSE(IsShown()) << code;
  }
  EXPECT_TRUE(passed.empty());
}

TEST_F(FullSizeKeysTest, APressOfAnyMouseButtonClosesIt) {
  for (const int button : {button::Left, button::Right}) {
    Reopen();
    person.ClickAt(Window(), 20, 20, button);
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(run.platform.toolkit.ActiveForm(), &main.Window);
  }
}

TEST_F(FullSizeKeysTest, ClosingItByItsFrameForgetsThePhoto) {
  person.Close(Window());
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(main.preview.sFullSizeFile, "");
  EXPECT_TRUE(Window().Drawing().IsEmpty());
}

TEST_F(FullSizeKeysTest, ItClosesWithTheProgram) {
  run.Close();
  EXPECT_FALSE(Window().IsLoaded());
}

TEST_F(FullSizeKeysTest, ItsButtonsStepAndCanBeHidden) {
  person.Click(Preview().PreviousButton);
  person.Click(Preview().NextButton);
  EXPECT_EQ(passed, (std::vector<int>{key::Left, key::Right}));
  person.Click(Preview().HideButton);
  EXPECT_TRUE(IsShown());
  for (const Control* control :
       {static_cast<Control*>(&Preview().PreviousButton), static_cast<Control*>(&Preview().HideButton),
        static_cast<Control*>(&Preview().NextButton), static_cast<Control*>(&Preview().ButtonContainerPic)})
    EXPECT_FALSE(control->Visible()) << control->Name();
  Show(300, 200);
  EXPECT_FALSE(Preview().NextButton.Visible()) << "until it is closed";
  person.Key(key::Escape);
  Reopen();
  EXPECT_TRUE(Preview().NextButton.Visible());
}

TEST_F(FullSizeKeysTest, FromTheBrowserItHasNoButtons) {
  person.Key(key::Escape);
  main.preview.bPreviewNoButtons = true;
  Reopen();
  EXPECT_FALSE(Preview().ButtonContainerPic.Visible());
  EXPECT_FALSE(Preview().PreviousButton.Visible());
  EXPECT_FALSE(Preview().HideButton.Visible());
  EXPECT_FALSE(Preview().NextButton.Visible());
}

TEST_F(FullSizeKeysTest, SpacePressesTheButtonThatHasTheFocus) {
  person.Focus(Preview().HideButton);
  person.Key(key::Space);
  EXPECT_TRUE(IsShown());
  EXPECT_FALSE(Preview().HideButton.Visible());
  person.Key(key::Space);
  EXPECT_FALSE(IsShown());
}

TEST_F(FullSizeKeysTest, SpaceOnAButtonStepsAsOftenAsItIsPressed) {
  // As a step does, which selects the photo as a click on it would.
  main.Window.On().KeyDown = [this](Control&, int& code, int) {
    passed.push_back(code);
    main.strip.SrcScrollbar.SetFocus();
  };
  person.Focus(Preview().NextButton);
  person.Key(key::Space);
  person.Key(key::Space);
  EXPECT_EQ(passed, (std::vector<int>{key::Right, key::Right}));
  EXPECT_TRUE(IsShown());
  EXPECT_EQ(run.host.toolkit.Focus(), &Preview().NextButton);
}

TEST_F(FullSizeKeysTest, EnterClosesItAlsoWithTheFocusOnAButton) {
  person.Focus(Preview().NextButton);
  person.Key(key::Return);
  EXPECT_FALSE(IsShown());
  EXPECT_TRUE(passed.empty());
}

TEST_F(FullSizeKeysTest, ButtonsLieInsideTheWindowWhateverThePhotosShape) {
  const auto inside = [this] {
    const Rect box = Preview().ButtonContainerPic.Bounds();
    return Rect{0, 0, Window().ScaleWidth(), Window().ScaleHeight()}.Intersected(box) == box;
  };
  Show(1200, 900);
  EXPECT_TRUE(inside());
  Show(320, 240);
  EXPECT_TRUE(inside());
  EXPECT_EQ(Preview().PreviousButton.Top(), Preview().NextButton.Top());
  Show(200, 900);
  EXPECT_TRUE(inside());
  for (const CommandButton* each : {&Preview().PreviousButton, &Preview().HideButton, &Preview().NextButton})
    EXPECT_TRUE(each->Bounds().Left >= 0 && each->Bounds().Right() <= Preview().ButtonContainerPic.Width());
  Show(100, 80);
  EXPECT_GE(Preview().ButtonContainerPic.Top(), Window().ScaleHeight()) << "they would hide the photo";
  EXPECT_TRUE(Preview().ButtonContainerPic.Visible());
  person.Key(key::Tab);
  EXPECT_FALSE(IsShown()) << "as any key does where there is no button to be seen";
}

TEST_F(FullSizeKeysTest, WhatAHeldKeySendsDuringAStepIsDroppedAndAPressIsNot) {
  person.During([&] {
    person.RepeatKey(key::Right);
    person.RepeatKey(key::Right);
    person.Key(key::Left);
  });
  person.Key(key::Right);
  EXPECT_EQ(passed, (std::vector<int>{key::Right, key::Left}));
  person.RepeatKey(key::Right);
  EXPECT_EQ(passed.size(), 3u) << "the key is held still";
}

// --- what opens it ---------------------------------------------------------------------------------------------------

TEST_F(FullSizePreviewTest, ARightClickOnThePaneShowsTheSelectedPhoto) {
  person.RightClick(main.preview.PicPreview);
  EXPECT_FALSE(IsShown());
  PaintPicPreview(main, Small);
  person.Click(main.preview.PicPreview);
  EXPECT_FALSE(IsShown());
  person.RightClick(main.preview.PicPreview);
  EXPECT_TRUE(IsShown());
  EXPECT_EQ(main.preview.sFullSizeFile, Small);
}

TEST_F(FullSizePreviewTest, TheMenuShowsTheSelectedPhoto) {
  PaintPicPreview(main, Small);
  person.ChooseMenu(main.menu.SelectedViewFullSizeMenuItem);
  EXPECT_EQ(main.preview.sFullSizeFile, Small);
}

}  // namespace
}  // namespace pixorra
