// What a person sees of a slide show.
#include "tests/slideshow/CompanionTest.h"

#include <gmock/gmock.h>

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr Colour Red = 0x000000FF;
constexpr Colour Green = 0x0000FF00;
constexpr Colour Blue = 0x00FF0000;

class ShownCompanionTest : public CompanionTest {
 protected:
  ShownCompanionTest() {
    AddPhoto("a red.bmp", Red);
    AddPhoto("B green.bmp", Green);
    AddPhoto("c blue.bmp", Blue);
  }
};

TEST_F(ShownCompanionTest, PhotosOfTheFolderAreShownOneAfterTheOtherWithoutEnd) {
  BeginShow(3);
  Wait(1);
  EXPECT_EQ(SeenColour(), Red);
  Wait(3.3);
  EXPECT_EQ(SeenColour(), Green);
  Wait(3.3);
  EXPECT_EQ(SeenColour(), Blue);
  Wait(3.3);
  EXPECT_EQ(SeenColour(), Red);
  EXPECT_FALSE(HasEnded());
}

TEST_F(ShownCompanionTest, TheSpeedIsTheTimeAPhotoStandsOnceItIsFullyShown) {
  BeginShow(1);
  Wait(0.31);
  EXPECT_EQ(companion->Photo.Share(), 1);
  Wait(0.95);
  EXPECT_EQ(SeenColour(), Red);
  Wait(0.1);
  EXPECT_EQ(SeenColour(), Green);
}

TEST_F(ShownCompanionTest, APhotoFadesInOverTheOneBefore) {
  BeginShow(1);
  Wait(1.4);
  EXPECT_EQ(SeenColour(), Green);
  const FadeBox& photo = companion->Photo;
  EXPECT_FALSE(photo.Lower().IsNothing());
  EXPECT_GT(photo.Share(), 0);
  EXPECT_LT(photo.Share(), 1);
  Wait(0.3);
  EXPECT_EQ(photo.Share(), 1);
  EXPECT_TRUE(photo.Lower().IsNothing()) << "and then only the one is held";
}

TEST_F(ShownCompanionTest, WhoWantsLessMotionSeesNoFade) {
  session.SetWantsLessMotion(true);
  BeginShow(1);
  EXPECT_EQ(companion->Photo.Share(), 1);
  EXPECT_EQ(SeenColour(), Red);
  Wait(1);
  EXPECT_EQ(companion->Photo.Share(), 1);
  EXPECT_EQ(SeenColour(), Green);
}

TEST_F(ShownCompanionTest, NothingHappensWhileAPhotoStands) {
  BeginShow(7);
  Wait(1);
  HeadlessWindow* window = platform.backend.WindowOf(companion->Window);
  ASSERT_NE(window, nullptr);
  window->TakeExposed();
  EXPECT_NEAR(*toolkit.NextDeadline() - toolkit.Seconds(), 6.3, 0.05) << "the one timer waits for the change";
  Wait(6);
  EXPECT_EQ(window->TakeExposed().Parts, 0) << "nothing is painted";
}

TEST_F(ShownCompanionTest, TitleAndCounterAreAtTheFootWhereTheyAreWanted) {
  BeginShow();
  Wait(1);
  const Label& title = companion->TitleLabel;
  const Label& counter = companion->CounterLabel;
  EXPECT_TRUE(title.Visible());
  EXPECT_EQ(title.Caption(), "a red");
  EXPECT_EQ(counter.Caption(), "1 / 3");
  EXPECT_GT(title.ZOrder(), companion->Photo.ZOrder());
  EXPECT_LE(counter.Bounds().Right(), Width);
  Wait(3.3);
  EXPECT_EQ(title.Caption(), "B green");
  EXPECT_EQ(counter.Caption(), "2 / 3");
}

TEST_F(ShownCompanionTest, TitleAndCounterAreLeftOutWhereTheyAreNotWanted) {
  BeginShow(3, false);
  Wait(1);
  EXPECT_FALSE(companion->TitleLabel.Visible());
  EXPECT_FALSE(companion->CounterLabel.Visible());
}

TEST_F(ShownCompanionTest, ALongTitleLeavesTheCounterItsPlace) {
  platform.backend.SetScreen(1280, 1024);
  drive.Remove("C:\\Photos");
  AddPhoto(std::string(240, 'x') + ".bmp", Red);
  BeginShow();
  Wait(1);
  EXPECT_LT(companion->TitleLabel.Bounds().Right(), companion->CounterLabel.Left());
  EXPECT_GT(companion->TitleLabel.Width(), 600);
  EXPECT_LE(companion->TitleLabel.Bounds().Bottom(), 1024);
}

TEST_F(ShownCompanionTest, AnyKeyEndsIt) {
  for (const int keyCode : {static_cast<int>('X'), key::Escape, key::Space, key::Right, key::Tab, key::Other}) {
    SCOPED_TRACE(keyCode);
    HeadlessPlatform fresh;
    Companion show(CompanionHost{fresh.toolkit, drive.DriveFiles(), reader, frames, fresh.settings, session},
                   {.What = Request::Wish::Show, .Folder = "C:\\Photos"});
    show.Start();
    fresh.person.Wait(0.1);
    EXPECT_FALSE(fresh.toolkit.Ended());
    fresh.person.Key(keyCode);
    EXPECT_TRUE(fresh.toolkit.Ended());
  }
}

TEST_F(ShownCompanionTest, AnyButtonEndsItAlsoOverTheTitle) {
  for (const int button : {button::Left, button::Middle, button::Right}) {
    HeadlessPlatform fresh;
    HeadlessFrames own(drive.DriveFiles(), pictures, fresh.posting);
    HeadlessFolderReader folders(drive.DriveFiles(), fresh.posting);
    Companion show(CompanionHost{fresh.toolkit, drive.DriveFiles(), folders, own, fresh.settings, session},
                   {.What = Request::Wish::Show, .Folder = "C:\\Photos"});
    show.Start();
    for (int turn = 0; turn < 10; ++turn) fresh.person.Wait(0.1);
    ASSERT_TRUE(show.TitleLabel.Visible());
    fresh.person.PressAt(show.Window, show.TitleLabel.Left() + 1, show.TitleLabel.Top() + 1, button);
    EXPECT_TRUE(fresh.toolkit.Ended());
  }
}

TEST_F(ShownCompanionTest, TheWheelEndsIt) {
  BeginShow();
  person.TurnWheelAt(companion->Window, 10, 10, {.NotchesY = 1});
  EXPECT_TRUE(HasEnded());
}

TEST_F(ShownCompanionTest, AMoveOfThePointerEndsItAndATrembleDoesNot) {
  BeginShow();
  person.MoveTo(companion->Window, 30, 30);
  Wait(0.2);
  person.MoveTo(companion->Window, 50, 40);
  EXPECT_FALSE(HasEnded()) << "in the first half second the pointer may come to rest";
  Wait(1);
  person.MoveTo(companion->Window, 53, 44);
  person.MoveTo(companion->Window, 50, 31);
  EXPECT_FALSE(HasEnded());
  person.MoveTo(companion->Window, 43, 32);
  EXPECT_TRUE(HasEnded());
}

TEST_F(ShownCompanionTest, TheFirstMoveThatIsHeardOfIsWhereThePointerWas) {
  BeginShow();
  Wait(5);
  person.MoveTo(companion->Window, 60, 40);
  EXPECT_FALSE(HasEnded());
  person.MoveTo(companion->Window, 40, 40);
  EXPECT_TRUE(HasEnded());
}

TEST_F(ShownCompanionTest, ClosingTheWindowEndsIt) {
  BeginShow();
  person.Close(companion->Window);
  EXPECT_TRUE(HasEnded());
}

TEST_F(ShownCompanionTest, ItCoversTheScreenWithoutThePointer) {
  BeginShow();
  EXPECT_TRUE(companion->Window.FullScreen());
  EXPECT_EQ(companion->Photo.Bounds(), (Rect{0, 0, Width, Height}));
  EXPECT_EQ(toolkit.PointerFor(companion->Window).Pointer, pointer::Hidden);
}

TEST_F(ShownCompanionTest, ItIsShownOnTheScreenWithThePointerAndTheOthersAreBlack) {
  platform.backend.AddScreen(80, 60);
  const int third = platform.backend.AddScreen(100, 50);
  platform.backend.PutPointerOn(third);
  BeginShow();
  Wait(1);
  EXPECT_EQ(companion->Window.FullScreenOn(), third);
  EXPECT_EQ(companion->Photo.Upper().Width(), 100);
  std::vector<int> covered;
  for (Form* form : toolkit.Forms()) {
    if (form == &companion->Window) continue;
    EXPECT_TRUE(form->Visible());
    EXPECT_TRUE(form->FullScreen());
    EXPECT_EQ(form->BackColor(), 0U);
    EXPECT_EQ(toolkit.PointerFor(*form).Pointer, pointer::Hidden);
    covered.push_back(form->FullScreenOn());
  }
  EXPECT_THAT(covered, ::testing::UnorderedElementsAre(0, 1));
  EXPECT_EQ(toolkit.ActiveForm(), &companion->Window);
}

TEST_F(ShownCompanionTest, WhatIsDoneOnABlackScreenEndsItToo) {
  platform.backend.AddScreen(80, 60);
  BeginShow();
  Form* const cover = person.Window("Cover");
  ASSERT_NE(cover, nullptr);
  person.PressAt(*cover, 5, 5);
  EXPECT_TRUE(HasEnded());
}

TEST_F(ShownCompanionTest, FramesHaveTheScreensOwnPixels) {
  platform.backend.SetFineness(2);
  BeginShow();
  Wait(1);
  EXPECT_EQ(companion->Photo.Upper().Width(), 2 * Width);
  EXPECT_EQ(companion->Photo.Upper().Height(), 2 * Height);
}

TEST_F(ShownCompanionTest, AScreenOfAnotherSizeGetsFramesOfItsOwn) {
  BeginShow();
  Wait(1);
  platform.backend.SetScreen(90, 70);
  Settle();
  EXPECT_EQ(companion->Photo.Bounds(), (Rect{0, 0, 90, 70}));
  EXPECT_EQ(companion->Photo.Upper().Width(), 90);
  EXPECT_EQ(SeenColour(), Red);
}

TEST_F(ShownCompanionTest, AScreenOfAnotherFinenessGetsFramesOfItsOwn) {
  BeginShow();
  Wait(1);
  platform.backend.SetFineness(2);
  platform.backend.SetScreen(Width, Height);
  Settle();
  EXPECT_EQ(companion->Photo.Upper().Width(), 2 * Width);
  EXPECT_EQ(companion->Photo.Upper().Height(), 2 * Height);
}

TEST_F(ShownCompanionTest, AScreenThatIsPluggedInMeanwhileIsBlack) {
  BeginShow();
  Wait(1);
  EXPECT_EQ(person.Window("Cover"), nullptr);
  const int second = platform.backend.AddScreen(80, 60);
  Settle();
  Form* const cover = person.Window("Cover");
  ASSERT_NE(cover, nullptr);
  EXPECT_EQ(cover->FullScreenOn(), second);
  EXPECT_TRUE(cover->FullScreen());
  platform.backend.AddScreen(80, 60);
  EXPECT_EQ(toolkit.Forms().size(), 3U) << "each by one window";
  person.PressAt(*cover, 5, 5);
  EXPECT_TRUE(HasEnded());
}

TEST_F(ShownCompanionTest, AFolderThatDoesNotAnswerIsToldOfAfterAWhile) {
  reader.Hold(true);
  BeginShow();
  Wait(1.9);
  EXPECT_EQ(Notice(), "");
  Wait(0.2);
  EXPECT_EQ(Notice(), "Reading the folder...");
  EXPECT_EQ(companion->FolderLabel.Caption(), "C:\\Photos");
  reader.Answer("C:\\Photos");
  Settle();
  EXPECT_EQ(Notice(), "");
  Wait(1);
  EXPECT_EQ(SeenColour(), Red);
}

TEST_F(ShownCompanionTest, WithoutMemoryForAThreadThatIsWhatIsSaid) {
  class Exhausted : public FolderReader {
   public:
    std::unique_ptr<Reading> Read(const std::string&, int, Handler) override { throw RuntimeError(error::OutOfMemory); }
    std::unique_ptr<Reading> ReadFiles(const std::string&, const std::string&, Handler) override {
      throw RuntimeError(error::OutOfMemory);
    }
    std::unique_ptr<Reading> FindFile(const std::string&, const std::string&, Handler) override {
      throw RuntimeError(error::OutOfMemory);
    }
    std::unique_ptr<Reading> FindFolder(const std::string&, Handler) override {
      throw RuntimeError(error::OutOfMemory);
    }
  } exhausted;
  companion = std::make_unique<Companion>(
      CompanionHost{toolkit, drive.DriveFiles(), exhausted, frames, platform.settings, session},
      Request{.What = Request::Wish::Show, .Folder = "C:\\Photos"});
  companion->Start();
  EXPECT_EQ(Notice(), "There is too little memory for a show.");
}

TEST_F(ShownCompanionTest, TheScreenIsKeptFromSleepingWhileItRuns) {
  BeginShow();
  EXPECT_EQ(session.AwakeFor().size(), 1U);
  person.Key(key::Space);
  EXPECT_THAT(session.AwakeFor(), IsEmpty());
}

TEST_F(ShownCompanionTest, APhotoThatTakesLongLeavesNoGap) {
  BeginShow(1);
  Wait(1);
  frames.Hold(true);
  Wait(10);
  EXPECT_EQ(SeenColour(), Green) << "which was ready before";
  EXPECT_THAT(frames.Waiting(), ElementsAre("C:\\Photos\\c blue.bmp"));
  frames.Finish();
  Wait(0.4);
  EXPECT_EQ(SeenColour(), Blue);
}

TEST_F(ShownCompanionTest, DamagedPhotosArePassedOver) {
  drive.Write("C:\\Photos\\B green.bmp", "no picture");
  drive.Write("C:\\Photos\\a red.jpg", "");
  BeginShow(1);
  Wait(1);
  EXPECT_EQ(SeenColour(), Red);
  Wait(1.3);
  EXPECT_EQ(SeenColour(), Blue);
  Wait(1.3);
  EXPECT_EQ(SeenColour(), Red);
}

TEST_F(ShownCompanionTest, OnlyPhotosThatTheProgramKnowsAreShown) {
  drive.Write("C:\\Photos\\about.txt", "text");
  drive.Write("C:\\Photos\\Thumbnails.tmp", "thumbnails");
  drive.MakeFolder("C:\\Photos\\more.jpg");
  drive.Write("C:\\Photos\\.hidden.bmp", BmpOf(PlainBitmap(2, 2, Red)));
  BeginShow();
  Wait(1);
  EXPECT_EQ(companion->CounterLabel.Caption(), "1 / 3");
}

TEST_F(CompanionTest, AskedToEndByTheHostItEndsAndTheScreenMaySleepAgain) {
  AddPhoto("a.bmp", Red);
  BeginShow();
  toolkit.AskToEnd();
  Wait(0.1);
  EXPECT_TRUE(HasEnded());
  EXPECT_THAT(session.AwakeFor(), IsEmpty());
}

TEST_F(CompanionTest, AnEmptyFolderIsSaidToBeEmptyAndAnyKeyEnds) {
  drive.MakeFolder("C:\\Photos");
  BeginShow();
  EXPECT_THAT(Notice(), HasSubstr("no photos"));
  EXPECT_EQ(companion->FolderLabel.Caption(), drive.DriveFiles().ShownPath("C:\\Photos"));
  EXPECT_EQ(companion->AdviceLabel.Caption(), "Press any key to end.");
  EXPECT_LT(companion->NoticeLabel.Top(), companion->FolderLabel.Top());
  EXPECT_LT(companion->FolderLabel.Top(), companion->AdviceLabel.Top());
  person.Key('A');
  EXPECT_TRUE(HasEnded());
}

TEST_F(CompanionTest, AFolderThatIsNotThereIsSaidSo) {
  BeginShow();
  EXPECT_THAT(Notice(), HasSubstr("cannot be opened"));
}

TEST_F(CompanionTest, AFolderWithoutANameIsSaidSo) {
  Begin({.What = Request::Wish::Show, .Folder = ""});
  EXPECT_THAT(Notice(), HasSubstr("No folder"));
  person.Key('A');
  EXPECT_TRUE(HasEnded());
}

TEST_F(CompanionTest, AFolderOfThousandsOfBytesIsSaidNotToOpen) {
  Begin({.What = Request::Wish::Show, .Folder = "C:\\" + std::string(4096, 'x')});
  EXPECT_THAT(Notice(), HasSubstr("cannot be opened"));
  EXPECT_LE(companion->FolderLabel.Width(), Width);
}

TEST_F(CompanionTest, AFolderThatVanishesEndsInWordsAndComesBackByItself) {
  AddPhoto("a.bmp", Red);
  AddPhoto("b.bmp", Green);
  BeginShow(1);
  Wait(1);
  drive.Remove("C:\\Photos");
  Wait(10);
  EXPECT_THAT(Notice(), HasSubstr("cannot be opened"));
  EXPECT_FALSE(companion->Photo.Visible());
  EXPECT_FALSE(companion->TitleLabel.Visible());
  AddPhoto("b.bmp", Green);
  Wait(11);
  EXPECT_EQ(SeenColour(), Green);
  EXPECT_EQ(Notice(), "");
}

// --- as a screen saver ---------------------------------------------------------------------------------------------

TEST_F(CompanionTest, TheScreenSaverShowsTheFolderAndTheSpeedOfTheSettings) {
  AddPhoto("a.bmp", Red);
  AddPhoto("b.bmp", Green);
  platform.settings.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "C:\\Photos\\");
  platform.settings.SaveSetting("Pixorra", "ScreenSaver", "Duration", "7");
  Begin({.What = Request::Wish::Saver});
  Wait(7);
  EXPECT_EQ(SeenColour(), Red);
  Wait(1);
  EXPECT_EQ(SeenColour(), Green);
  EXPECT_FALSE(companion->TitleLabel.Visible());
  EXPECT_THAT(session.AwakeFor(), IsEmpty()) << "a screen saver does not keep itself from coming";
}

TEST_F(CompanionTest, TheScreenSaverWithoutSettingsSaysHowToChooseAFolder) {
  Begin({.What = Request::Wish::Saver});
  EXPECT_THAT(Notice(), HasSubstr("no folder"));
  EXPECT_THAT(companion->AdviceLabel.Caption(), HasSubstr("Use as ScreenSaver"));
}

TEST_F(CompanionTest, ASavedFolderMayBeSpelledAsAPersonWritesIt) {
  AddPhoto("a.bmp", Red);
  PosixFiles files{PathMapping({{'C', drive.HostRoot(), "Test"}})};
  platform.settings.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", drive.HostRoot() + "/Photos");
  companion = std::make_unique<Companion>(CompanionHost{toolkit, files, reader, frames, platform.settings, session},
                                          Request{.What = Request::Wish::Saver});
  companion->Start();
  Wait(1);
  EXPECT_EQ(SeenColour(), Red);
}

TEST_F(CompanionTest, TheScreenSaverWithoutSettingsSaysWhereItHasLookedForThem) {
  companion = std::make_unique<Companion>(
      CompanionHost{toolkit, drive.DriveFiles(), reader, frames, platform.settings, session, "/home/anna/.config/x"},
      Request{.What = Request::Wish::Saver});
  companion->Start();
  EXPECT_THAT(companion->FolderLabel.Caption(), HasSubstr("/home/anna/.config/x"));
  EXPECT_TRUE(companion->FolderLabel.Visible());
}

TEST_F(CompanionTest, WhatIsSaidFitsTheSmallWindowOfAPreview) {
  platform.backend.SetScreen(200, 150);
  Begin({.What = Request::Wish::Saver});
  for (const Label* label : {&companion->NoticeLabel, &companion->AdviceLabel}) {
    EXPECT_LE(toolkit.Text().Measure(label->GetFont(), label->Caption()).Width, label->Width());
    EXPECT_LE(label->Bounds().Right(), 200);
    EXPECT_LE(label->Bounds().Bottom(), 150);
  }
}

TEST_F(CompanionTest, TheScreenSaverStaysBlackWhereThereIsNoPhoto) {
  platform.settings.SaveSetting("Pixorra", "ScreenSaver", "SourceLocation", "C:\\Gone");
  platform.settings.SaveSetting("Pixorra", "ScreenSaver", "Duration", "fast");
  Begin({.What = Request::Wish::Saver});
  Wait(60);
  EXPECT_EQ(Notice(), "");
  EXPECT_FALSE(companion->Photo.Visible());
  EXPECT_FALSE(HasEnded());
}

}  // namespace
}  // namespace pixorra
