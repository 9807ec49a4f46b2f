// The order and the clock of a show, without a window: frames are single pixels.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>

#include "platform/services/Files.h"
#include "slideshow/Show.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ShowTest : public ::testing::Test {
 protected:
  // Lists and decodes at once whatever the show wishes for, but for what is held back.
  void Serve() {
    for (bool served = true; served;) {
      served = false;
      if (!listingHeld && show.TakeListingWish()) {
        ++listings;
        folderGone ? show.ListingFailed(now) : show.Listed(Home, NamesIn(folder), now);
        served = true;
      }
      if (framesHeld) continue;
      if (!wish) wish = show.TakeFrameWish();
      if (wish) {
        const Show::FrameWish asked = *wish;
        wish.reset();
        show.Framed(FrameOf(asked), now);
        served = true;
      }
      most = std::max(most, Held());
    }
    EXPECT_LE(most, 3U) << "no more photos are in memory than that";
  }
  PhotoFrame FrameOf(const Show::FrameWish& asked) {
    ++tries;
    if (gone.contains(asked.Path)) return {};
    if (damaged.contains(asked.Path)) {
      if (asked.Known.Stamp == Damage) ++recognised;
      EXPECT_TRUE(asked.Known.Shown.IsNothing() || asked.Known.Stamp != Damage);
      return {{}, Damage};
    }
    if (!asked.Known.Shown.IsNothing()) return asked.Known;
    decoded.push_back(asked.Path);
    // The picture holds the mark for as long as anybody holds the picture.
    const auto mark = std::make_shared<int>();
    marks.emplace_back(mark);
    const PhotoFrame frame{Picture(1, 1, "", [mark] { return Bitmap::Cleared(1, 1, PixelFormat::Bgra32); }), {}};
    most = std::max(most, Held());
    return frame;
  }
  // How many decoded photos there are.
  std::size_t Held() {
    std::erase_if(marks, [](const std::weak_ptr<int>& mark) { return mark.expired(); });
    return marks.size();
  }
  // Steps from moment to moment, as a timer would, to `seconds` from the start, and writes down when what is shown
  // whole changes.
  void RunTo(double seconds) {
    Serve();
    Note();
    for (int steps = 0; steps < 100000; ++steps) {
      const std::optional<double> next = show.NextMoment(now);
      if (!next || *next > seconds) break;
      now = std::max(now, *next);
      show.Tick(now);
      Serve();
      Note();
    }
    now = seconds;
    show.Tick(now);
    Serve();
    Note();
  }
  void Note() {
    const std::string name = show.Shown() != nullptr ? TitleOf(show.Shown()) : "";
    if (seen.empty() || seen.back().first != name) seen.emplace_back(name, now);
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [name, when] : seen) {
      if (!name.empty()) names.push_back(name);
    }
    return names;
  }
  static constexpr const char* Home = "C:\\Photos\\";
  static std::string TitleOf(const Slide* slide) {
    const std::string name = slide->Path.substr(slide->Path.rfind('\\') + 1);
    return name.substr(0, name.rfind('.'));
  }
  static std::vector<std::string> NamesIn(const std::vector<std::string>& paths) {
    std::vector<std::string> names;
    for (const std::string& path : paths) names.push_back(path.substr(path.rfind('\\') + 1));
    return names;
  }
  static std::vector<std::string> Folder(const std::vector<std::string>& names) {
    std::vector<std::string> paths;
    for (const std::string& name : names) paths.push_back("C:\\Photos\\" + name + ".jpg");
    return paths;
  }

  Show show{{.Stand = 3, .Fade = 0.3}};
  std::vector<std::string> folder = Folder({"a", "b", "c"});
  static constexpr FileStamp Damage{.Disk = 1, .Number = 2, .Length = 10};
  std::set<std::string> damaged;
  std::set<std::string> gone;
  int tries = 0;
  int recognised = 0;  // of damaged ones, by their stamps
  std::vector<std::string> decoded;
  std::vector<std::pair<std::string, double>> seen;
  std::optional<Show::FrameWish> wish;
  double now = 100;
  int listings = 0;
  std::vector<std::weak_ptr<int>> marks;
  std::size_t most = 0;
  bool folderGone = false;
  bool listingHeld = false;
  bool framesHeld = false;
};

TEST_F(ShowTest, PhotosComeInTheirOrderAndBeginAgain) {
  RunTo(100 + 4 * 3.3);
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c", "a"));
}

TEST_F(ShowTest, EachStandsItsTimeAfterItIsFullyShown) {
  RunTo(100 + 3 * 3.3 + 0.1);
  ASSERT_EQ(seen.size(), 4U);
  EXPECT_NEAR(seen[1].second, 100.3, 1e-6);
  EXPECT_NEAR(seen[2].second, 103.6, 1e-6);
  EXPECT_NEAR(seen[3].second, 106.9, 1e-6);
}

TEST_F(ShowTest, ThePhotoComesInMoreAndMore) {
  Serve();
  ASSERT_NE(show.Coming(), nullptr);
  EXPECT_EQ(show.Shown(), nullptr);
  EXPECT_EQ(show.Share(now), 0);
  EXPECT_NEAR(show.Share(now + 0.15), 0.5, 1e-9);
  EXPECT_EQ(show.Share(now + 9), 1) << "a clock that jumps jumps no further than to the end";
  now += 0.3;
  show.Tick(now);
  EXPECT_EQ(show.Coming(), nullptr);
  EXPECT_EQ(TitleOf(show.Shown()), "a");
  EXPECT_EQ(show.Share(now), 1);
}

TEST_F(ShowTest, WithoutAFadePhotosChangeAtOnce) {
  show = Show({.Stand = 1, .Fade = 0});
  Serve();
  EXPECT_EQ(show.Coming(), nullptr);
  EXPECT_EQ(TitleOf(show.Shown()), "a");
  RunTo(102.5);
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
  EXPECT_NEAR(seen.back().second, 102, 1e-6);
}

TEST_F(ShowTest, PaintingsAreAStepOfTheFadeApartAndNoneIsWantedOfAPhotoThatStands) {
  Serve();
  EXPECT_NEAR(*show.NextMoment(now), now + Show::FadeStep, 1e-9);
  EXPECT_NEAR(*show.NextMoment(now + 0.299), now + 0.3, 1e-9);
  now += 0.3;
  show.Tick(now);
  Serve();
  EXPECT_NEAR(*show.NextMoment(now), now + 3, 1e-9) << "nothing runs while a photo stands";
}

TEST_F(ShowTest, APhotoThatIsNotReadyInTimeKeepsTheOneBeforeOnShow) {
  RunTo(101);
  framesHeld = true;
  RunTo(104);  // b, which was ready, comes in; c is wished for
  RunTo(120);
  EXPECT_EQ(TitleOf(show.Shown()), "b");
  EXPECT_EQ(show.Coming(), nullptr);
  EXPECT_EQ(show.NextMoment(now), std::nullopt) << "it sleeps until the photo is ready";
  framesHeld = false;
  Serve();
  ASSERT_NE(show.Coming(), nullptr) << "and comes in at once then";
  EXPECT_EQ(TitleOf(show.Coming()), "c");
}

TEST_F(ShowTest, TheNextPhotoIsMadeReadyWhileOneComesIn) {
  Serve();
  ASSERT_NE(show.Coming(), nullptr);
  EXPECT_THAT(decoded, ElementsAre("C:\\Photos\\a.jpg", "C:\\Photos\\b.jpg"));
}

TEST_F(ShowTest, NoMoreThanOneIsMadeReadyAhead) {
  folder = Folder({"a", "b", "c", "d", "e"});
  RunTo(102);
  EXPECT_EQ(decoded.size(), 2U);
  RunTo(103.4);  // b comes in: a, b and c
  EXPECT_EQ(decoded.size(), 3U);
}

TEST_F(ShowTest, WhileAPhotoStandsOnlyItAndTheNextOneAreHeld) {
  folder = Folder({"a", "b", "c", "d", "e"});
  for (const double moment : {102.0, 105.0, 108.0, 111.0}) {
    RunTo(moment);
    ASSERT_EQ(show.Coming(), nullptr);
    EXPECT_EQ(Held(), 2U) << moment;
  }
}

TEST_F(ShowTest, NoMoreThanThreeAreInMemoryWhateverHappens) {
  folder = Folder({"a", "b", "c", "d", "e"});
  for (const double moment : {101.0, 103.4, 104.0, 106.7, 111.0, 114.2, 120.0}) {
    RunTo(moment);
    show.ScreenChanged(now);
    Serve();
    listingHeld = !listingHeld;
    framesHeld = listingHeld && !framesHeld;
  }
  listingHeld = framesHeld = false;
  RunTo(140);
  EXPECT_EQ(most, 3U);
}

TEST_F(ShowTest, DamagedPhotosArePassedOver) {
  damaged = {folder[0], folder[2]};
  folder = Folder({"a", "b", "c", "d"});
  RunTo(100 + 4 * 3.3);
  EXPECT_THAT(Names(), ElementsAre("b", "d", "b", "d"));
}

TEST_F(ShowTest, TheCounterIsThatOfTheFolder) {
  Serve();
  EXPECT_EQ(show.Coming()->Number, 1);
  EXPECT_EQ(show.Coming()->Count, 3);
  RunTo(107.5);
  EXPECT_EQ(show.Shown()->Number, 3);
}

TEST_F(ShowTest, ASinglePhotoStandsStillAndIsDecodedOnce) {
  folder = Folder({"a"});
  RunTo(160);
  EXPECT_THAT(Names(), ElementsAre("a"));
  EXPECT_THAT(decoded, ElementsAre(folder[0]));
  for (; now < 200; now += 0.1) {
    show.Tick(now);
    Serve();
    ASSERT_EQ(show.Coming(), nullptr) << "and is never faded into itself";
  }
  EXPECT_LE(listings, 40) << "the folder is looked at once in a while, and not all the time";
}

TEST_F(ShowTest, TwoPhotosChangePlacesAndAreDecodedOnceEach) {
  folder = Folder({"a", "b"});
  RunTo(160);
  EXPECT_EQ(Names().size(), 19U);
  EXPECT_THAT(decoded, ElementsAre(folder[0], folder[1]));
}

TEST_F(ShowTest, TwoPhotosAreDecodedOnceEachAlsoWhereTheFolderIsSlowToList) {
  folder = Folder({"a", "b"});
  RunTo(101);
  listingHeld = true;
  RunTo(105);
  EXPECT_EQ(TitleOf(show.Shown()), "b");
  listingHeld = false;
  RunTo(120);
  EXPECT_EQ(decoded.size(), 2U);
}

TEST_F(ShowTest, NewPhotosAreTakenUpAtTheNextRound) {
  folder = Folder({"a", "b"});
  RunTo(101);
  folder = Folder({"a", "aa", "b"});
  RunTo(100 + 5 * 3.3);
  EXPECT_THAT(Names(), ElementsAre("a", "b", "a", "aa", "b"));
  EXPECT_EQ(show.Shown()->Count, 3);
}

TEST_F(ShowTest, AFolderIsListedOnceARound) {
  RunTo(100 + 9 * 3.3 + 1);
  EXPECT_EQ(listings, 4);
}

TEST_F(ShowTest, AnEmptyFolderIsSaidToBeEmptyAndLookedAtAgain) {
  folder.clear();
  Serve();
  EXPECT_EQ(show.Now(), Show::State::NoPhotos);
  EXPECT_EQ(show.NextMoment(now), now + Show::Rest);
  RunTo(131);
  EXPECT_EQ(listings, 4);
  folder = Folder({"a"});
  RunTo(145);
  EXPECT_EQ(show.Now(), Show::State::Running);
  EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(ShowTest, AFolderThatCannotBeReadIsSaidToBeSo) {
  folderGone = true;
  Serve();
  EXPECT_EQ(show.Now(), Show::State::NoFolder);
  EXPECT_EQ(show.Shown(), nullptr);
}

TEST_F(ShowTest, AFolderOfDamagedPhotosIsReadOnceAndThenRests) {
  damaged = {folder[0], folder[1], folder[2]};
  Serve();
  EXPECT_EQ(show.Now(), Show::State::NoPhotos);
  EXPECT_EQ(listings, 1);
  EXPECT_EQ(show.NextMoment(now), now + Show::Rest);
  RunTo(111);
  EXPECT_EQ(listings, 2);
  EXPECT_EQ(show.Now(), Show::State::NoPhotos);
}

TEST_F(ShowTest, AFolderThatVanishesMeanwhileEndsInWords) {
  RunTo(102);
  damaged = {folder[0], folder[1], folder[2]};
  folderGone = true;
  RunTo(120);
  EXPECT_EQ(show.Now(), Show::State::NoFolder);
  EXPECT_EQ(show.Shown(), nullptr);
  EXPECT_EQ(show.Coming(), nullptr);
}

TEST_F(ShowTest, AFolderThatCannotBeListedForAWhileGoesOnWithThePhotosThatItHad) {
  RunTo(102);
  folderGone = true;
  RunTo(100 + 7 * 3.3);
  EXPECT_EQ(show.Now(), Show::State::Running);
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c", "a", "b", "c", "a"));
  EXPECT_EQ(listings, 3) << "it is tried once a round";
  folderGone = false;
  folder = Folder({"a", "aa"});
  seen.clear();
  RunTo(100 + 11 * 3.3);
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c", "a", "aa"));
}

TEST_F(ShowTest, AFolderOfManyThatVanishesIsSaidToBeGoneAfterAFewOfThem) {
  std::vector<std::string> names;
  for (int i = 0; i < 1000; ++i) names.push_back(std::to_string(10000 + i));
  folder = Folder(names);
  RunTo(101);
  gone = {folder.begin(), folder.end()};
  folderGone = true;
  tries = 0;
  RunTo(105);
  EXPECT_EQ(show.Now(), Show::State::NoFolder);
  EXPECT_LT(tries, 20);
}

TEST_F(ShowTest, AFolderThatVanishesAtTheRoundsEndIsSaidToBeGoneOnceNoneOfItsPhotosIsThere) {
  RunTo(102);
  gone = {folder.begin(), folder.end()};
  folderGone = true;
  tries = 0;
  RunTo(109);
  EXPECT_EQ(show.Now(), Show::State::NoFolder);
  EXPECT_LE(tries, 5);
}

TEST_F(ShowTest, DamagedPhotosAreRecognisedAndTriedAgainTheMoreSeldomTheMoreThereAre) {
  std::vector<std::string> names;
  for (int i = 0; i < 4000; ++i) names.push_back(std::to_string(10000 + i));
  folder = Folder(names);
  damaged = {folder.begin(), folder.end()};
  RunTo(105);
  EXPECT_EQ(tries, 4000);
  RunTo(115);
  EXPECT_EQ(tries, 8000);
  EXPECT_EQ(recognised, 4000) << "without a look at what is in them";
  RunTo(125);
  EXPECT_EQ(tries, 8000) << "4,000 are tried every twenty seconds";
  RunTo(135);
  EXPECT_EQ(tries, 12000);
  damaged.erase(folder[5]);
  RunTo(165);
  EXPECT_EQ(TitleOf(show.Shown()), names[5]);
}

TEST_F(ShowTest, APhotoThatIsDamagedMeanwhileIsNotTakenForTheOneThatWasShown) {
  folder = Folder({"a", "b"});
  RunTo(104);
  damaged = {folder[0]};
  RunTo(150);
  EXPECT_EQ(TitleOf(show.Shown()), "b");
  damaged.clear();
  seen.clear();
  RunTo(180);
  EXPECT_THAT(Names(), ::testing::Contains("a"));
}

TEST_F(ShowTest, WherePhotosGoAwayTheFolderIsListedAnewAndTheOrderStays) {
  std::vector<std::string> names;
  for (int i = 0; i < 1000; ++i) names.push_back(std::to_string(10000 + i));
  folder = Folder(names);
  RunTo(101);
  gone = {folder.begin() + 2, folder.begin() + 900};
  folder.erase(folder.begin() + 2, folder.begin() + 900);
  tries = 0;
  RunTo(110);
  EXPECT_THAT(Names(), ElementsAre("10000", "10001", "10900"));
  EXPECT_LT(tries, 20);
  EXPECT_EQ(listings, 2);
  EXPECT_EQ(show.Shown()->Number, 3);
}

TEST_F(ShowTest, AFolderWhosePhotosAllGoAwayIsSaidToBeEmptyAtOnce) {
  std::vector<std::string> names;
  for (int i = 0; i < 1000; ++i) names.push_back(std::to_string(10000 + i));
  folder = Folder(names);
  RunTo(101);
  gone = {folder.begin(), folder.end()};
  folder.clear();
  tries = 0;
  RunTo(105);
  EXPECT_EQ(show.Now(), Show::State::NoPhotos);
  EXPECT_LT(tries, 20);
}

TEST_F(ShowTest, WhatCannotBeOpenedThoughItIsThereIsPassedOverAndTheFolderListedOnceMore) {
  std::vector<std::string> names{"0"};
  for (int i = 0; i < 30; ++i) names.push_back(std::to_string(100 + i));
  names.push_back("9");
  folder = Folder(names);
  gone = {folder.begin() + 1, folder.end() - 1};
  RunTo(105);
  EXPECT_THAT(Names(), ElementsAre("0", "9"));
  EXPECT_EQ(listings, 3) << "at the start, after some that cannot be opened, and for the next round";
}

TEST_F(ShowTest, WithoutMemoryItIsSaidSoAndTriedAgain) {
  ASSERT_TRUE(show.TakeListingWish());
  show.RanOutOfMemory(now);
  EXPECT_EQ(show.Now(), Show::State::NoMemory);
  RunTo(111);
  EXPECT_EQ(show.Now(), Show::State::Running);
}

TEST_F(ShowTest, OneGoodPhotoAmongDamagedOnesStandsAndNothingIsTriedWithoutEnd) {
  damaged = {folder[0], folder[2]};
  RunTo(130);
  EXPECT_THAT(Names(), ElementsAre("b"));
  EXPECT_THAT(decoded, ElementsAre(folder[1]));
  EXPECT_LE(listings, 12);
}

TEST_F(ShowTest, OnAScreenOfAnotherSizeTheShownPhotoIsMadeAnewAndTheOrderStays) {
  RunTo(101);
  decoded.clear();
  show.ScreenChanged(now);
  Serve();
  EXPECT_THAT(decoded, ElementsAre(folder[0], folder[1]));
  EXPECT_EQ(TitleOf(show.Shown()), "a");
  EXPECT_EQ(show.Coming(), nullptr) << "and no photo is faded into itself";
  RunTo(100 + 3 * 3.3);
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
}

TEST_F(ShowTest, AScreenThatChangesWhileAPhotoComesInShowsItWhole) {
  RunTo(103.4);
  ASSERT_NE(show.Coming(), nullptr);
  show.ScreenChanged(now);
  EXPECT_EQ(show.Coming(), nullptr);
  EXPECT_EQ(TitleOf(show.Shown()), "b");
  RunTo(107);
  EXPECT_EQ(TitleOf(show.Shown()), "c");
}

TEST_F(ShowTest, AScreenThatChangesBeforeAnyPhotoIsThereChangesNothingElse) {
  listingHeld = true;
  Serve();
  ASSERT_TRUE(show.TakeListingWish());
  show.ScreenChanged(now);
  EXPECT_FALSE(show.TakeListingWish()) << "the folder is being read already";
  listingHeld = false;
  show.Listed(Home, NamesIn(folder), now);
  framesHeld = true;
  ASSERT_TRUE(show.TakeFrameWish().has_value());
  show.ScreenChanged(now);
  const auto again = show.TakeFrameWish();
  ASSERT_TRUE(again.has_value()) << "what was being made is of the wrong size";
  EXPECT_EQ(again->Path, folder[0]);
}

TEST_F(ShowTest, AWishIsGivenOutOnce) {
  EXPECT_TRUE(show.TakeListingWish());
  EXPECT_FALSE(show.TakeListingWish());
  EXPECT_FALSE(show.TakeFrameWish().has_value());
  show.Listed(Home, NamesIn(folder), now);
  EXPECT_TRUE(show.TakeFrameWish().has_value());
  EXPECT_FALSE(show.TakeFrameWish().has_value());
}

}  // namespace
}  // namespace pixorra
