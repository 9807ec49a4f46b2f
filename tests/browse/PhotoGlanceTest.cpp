// The thumbnail of the selected photo, with photos decoded ahead.
#include <gtest/gtest.h>
#include <set>

#include "browse/BrowseFolderLocationForm.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

// Says which photos are ready, and keeps what it was told to expect for the browser.
class ToldAhead : public DecodeAhead {
 public:
  using DecodeAhead::DecodeAhead;
  int Depth() const override { return 3; }
  void Expect(Reader reader, const std::vector<std::string>& paths, int, const PaintedSizes&) override {
    if (reader == Reader::Browser) Expected = paths;
  }
  bool IsReady(const std::string& path, int) override { return Ready.contains(path); }
  std::vector<std::string> Expected;
  std::set<std::string> Ready;
};

class PhotoGlanceTest : public ProgramTest {
 protected:
  PhotoGlanceTest() {
    decodeAhead = &ahead;
    for (int i = 1; i <= 6; ++i) drive.Write(Path(i), BmpOf(PlainBitmap(80, 60, static_cast<Colour>(i))));
  }
  static std::string Path(int i) { return "C:\\Home\\p" + std::to_string(i) + ".bmp"; }
  BrowseFolderLocationForm& Open(ProgramRun& run) {
    ShowBrowser(run.main, BrowseMode::FilmStrip);
    run.Wait(0.1);
    return run.main.modeless.Get<BrowseFolderLocationForm>(run.main);
  }
  ToldAhead ahead{drive.DriveFiles()};
};

TEST_F(PhotoGlanceTest, APhotoIsShownWhenItIsReady) {
  ProgramRun& run = Started();
  BrowseFolderLocationForm& browser = Open(run);
  EXPECT_EQ(browser.PicCount.Caption(), "1 of 6 pics");
  EXPECT_EQ(browser.PreviewName.Caption(), "");
  const auto spoken = [&] { return browser.PicPreview.On().SpokenName(browser.PicPreview); };
  EXPECT_EQ(spoken(), "The selected picture is being loaded");
  EXPECT_EQ(ahead.Expected, (std::vector<std::string>{Path(1), Path(2), Path(3)}));
  ahead.Ready.insert(Path(1));
  run.Wait(0.05);
  EXPECT_EQ(browser.PreviewName.Caption(), "p1");
  EXPECT_EQ(spoken(), "The selected picture");
}

TEST_F(PhotoGlanceTest, WithTheArrowHeldDownTheLastPhotoIsShownAndThoseOnTheWayHoldNothingUp) {
  ProgramRun& run = Started();
  BrowseFolderLocationForm& browser = Open(run);
  run.person.Focus(browser.MyFiles);
  for (int i = 0; i < 4; ++i) run.person.Key(key::Down);
  EXPECT_EQ(browser.PicCount.Caption(), "5 of 6 pics");
  EXPECT_EQ(browser.PreviewName.Caption(), "");
  EXPECT_EQ(ahead.Expected, (std::vector<std::string>{Path(5), Path(6)}));
  for (int i = 1; i <= 4; ++i) ahead.Ready.insert(Path(i));
  run.Wait(0.05);
  EXPECT_EQ(browser.PreviewName.Caption(), "") << "none of these is selected any more";
  ahead.Ready.insert(Path(5));
  run.Wait(0.05);
  EXPECT_EQ(browser.PreviewName.Caption(), "p5");
}

TEST_F(PhotoGlanceTest, OnTheWayUpThePhotosAboveAreExpected) {
  ProgramRun& run = Started();
  BrowseFolderLocationForm& browser = Open(run);
  run.person.Choose(browser.MyFiles, 5);
  run.person.Key(key::Up);
  EXPECT_EQ(ahead.Expected, (std::vector<std::string>{Path(5), Path(4), Path(3)}));
}

TEST_F(PhotoGlanceTest, WhatWasExpectedIsGivenUpWithTheBrowser) {
  ProgramRun& run = Started();
  BrowseFolderLocationForm& browser = Open(run);
  EXPECT_FALSE(ahead.Expected.empty());
  run.person.Click(browser.CancelButton);
  EXPECT_TRUE(ahead.Expected.empty());
  ahead.Ready.insert(Path(1));
  run.Wait(1);
  EXPECT_EQ(browser.PreviewName.Caption(), "");
}

}  // namespace
}  // namespace pixorra
