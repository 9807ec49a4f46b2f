// A card that is handed over by its root: its folders are asked for while the program goes on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/GivenPath.h"
#include "browse/BrowseFolderLocationForm.h"
#include "browse/FolderChoices.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/ModelessForms.h"

namespace pixorra {
namespace {

// The card's folders answer when it is their turn.
class SlowCardTest : public ProgramTest {
 protected:
  static constexpr const char* Before = "C:\\Home\\Before";
  static constexpr const char* Root = "C:\\Media\\Card";
  static constexpr const char* Dcim = "C:\\Media\\Card\\DCIM";

  ~SlowCardTest() override { given_.reset(); }

  // The strip shows another folder. `each` runs ten times a second, whoever waits.
  void GiveCard(const std::function<void(HeadlessFolderReader&)>& each) {
    drive.Write(std::string(Before) + "\\a.bmp", BmpPhoto(8, 8));
    WriteSavedState(StateLines(Before, {}));
    run = &Started();
    given_ = std::make_unique<GivenPath>(run->main);
    Timer turns(run->main.Window, "TestTimer", 100);
    Connect(turns.On().Timer, [&](Control&) { each(run->folderReader); });
    turns.SetEnabled(true);
    run->folderReader.Hold(true);
    given_->Give(Root);
    run->Wait(0.3);
    // The browser, where that has come up, gets its answers.
    run->folderReader.Hold(false);
    Answer(run->folderReader);
    run->Wait(0.3);
  }
  std::string Strip() const { return run->main.strip.SrcFileList.Path(); }
  // Where the browser is; empty where it is not up.
  std::string BrowserAt() const {
    if (run->person.Window("BrowseFolderLocationForm") == nullptr) return {};
    return run->main.modeless.Get<BrowseFolderLocationForm>(run->main).File1.Path();
  }
  // All that wait now.
  static void Answer(HeadlessFolderReader& reader) {
    for (const std::string& folder : reader.Waiting()) reader.Answer(folder);
  }
  static std::string Below(const char* name) { return std::string(Dcim) + "\\" + name; }

  ProgramRun* run = nullptr;

 private:
  std::unique_ptr<GivenPath> given_;
};

TEST_F(SlowCardTest, ACardThatStopsAnsweringHoldsNothingUpAndOpensTheBrowser) {
  drive.Write(Below("100ABCDE") + "\\a.bmp", BmpPhoto(8, 8));
  int turns = 0;
  GiveCard([&](HeadlessFolderReader& reader) {
    if (++turns <= 2) return Answer(reader);
    // The strip is still there for a person to work on.
    if (turns == 20) {
      EXPECT_EQ(run->person.Window("BrowseFolderLocationForm"), nullptr);
    }
  });
  EXPECT_GT(turns, 45) << "a few seconds are waited";
  EXPECT_EQ(Strip(), Before);
  EXPECT_EQ(BrowserAt(), Dcim);
}

TEST_F(SlowCardTest, AFolderThatDoesNotAnswerOrCannotBeReadIsNotTakenForOneWithoutPhotos) {
  for (const char* name : {"100ABCDE", "101ABCDE"}) drive.Write(Below(name) + "\\a.bmp", BmpPhoto(8, 8));
  int turns = 0;
  GiveCard([&](HeadlessFolderReader& reader) {
    if (++turns <= 3) return Answer(reader);
    reader.Answer(Below("100ABCDE"));
  });
  EXPECT_EQ(Strip(), Before);
  EXPECT_EQ(BrowserAt(), Dcim);
}

TEST_F(SlowCardTest, ItsFoldersAreAskedAFewAtATimeAndTheSecondWithPhotosIsEnough) {
  for (const char* name : {"100ABCDE", "102ABCDE"}) drive.Write(Below(name) + "\\a.bmp", BmpPhoto(8, 8));
  for (const char* name : {"101ABCDE", "103ABCDE", "104ABCDE"}) drive.MakeFolder(Below(name));
  std::vector<std::vector<std::string>> asked;
  int turns = 0;
  GiveCard([&](HeadlessFolderReader& reader) {
    if (++turns <= 3) return Answer(reader);
    if (turns <= 6) asked.push_back(reader.Waiting());
    if (turns == 4) reader.Answer(Below("102ABCDE"));
    if (turns == 5) reader.Answer(Below("101ABCDE"));
    if (turns == 6) {
      EXPECT_EQ(run->person.Window("BrowseFolderLocationForm"), nullptr);
      reader.Answer(Below("100ABCDE"));
    }
  });
  using Names = std::vector<std::string>;
  EXPECT_THAT(asked, ::testing::ElementsAre(Names{Below("100ABCDE"), Below("101ABCDE"), Below("102ABCDE")},
                                            Names{Below("100ABCDE"), Below("101ABCDE"), Below("103ABCDE")},
                                            Names{Below("100ABCDE"), Below("103ABCDE"), Below("104ABCDE")}));
  EXPECT_EQ(BrowserAt(), Dcim);
  EXPECT_LT(turns, 15) << "not all of the patience";
}

TEST_F(SlowCardTest, AFolderThatAPersonChoosesMeanwhileStaysTheFilmStrip) {
  drive.Write(Below("100ABCDE") + "\\a.bmp", BmpPhoto(8, 8));
  drive.Write("C:\\Home\\Chosen\\a.bmp", BmpPhoto(8, 8));
  int turns = 0;
  GiveCard([&](HeadlessFolderReader& reader) {
    if (++turns == 2) SelectFilmStrip(run->main, "C:\\Home\\Chosen");
    if (turns > 2) Answer(reader);
  });
  EXPECT_GT(turns, 2);
  EXPECT_EQ(Strip(), "C:\\Home\\Chosen");
}

TEST_F(SlowCardTest, ADropThatBeginsWhileItIsLookedAtIsWaitedFor) {
  drive.Write(Below("100ABCDE") + "\\a.bmp", BmpPhoto(8, 8));
  int turns = 0;
  GiveCard([&](HeadlessFolderReader& reader) {
    if (++turns == 3) run->main.drop.DropRunning = true;
    Answer(reader);
  });
  EXPECT_GE(turns, 3);
  EXPECT_EQ(Strip(), Before);
  run->main.drop.DropRunning = false;
  run->Wait(0.5);
  EXPECT_EQ(Strip(), Below("100ABCDE"));
}

}  // namespace
}  // namespace pixorra
