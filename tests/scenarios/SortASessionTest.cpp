// A whole sitting: photos of a card are dragged, marked, shown by what remains, duplicates are settled, the program
// ends, and the next start finds everything. What counts is read from the disk.
#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <map>
#include <stdexcept>

#include "desktop/FolderSlots.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

constexpr const char* Card = "C:\\Card";
constexpr const char* Family = "C:\\Home\\Family";
constexpr const char* Holiday = "C:\\Home\\Holiday";
constexpr int Photos = 6;
// Bytes of a record of a cache file; the name and the mark begin at these.
constexpr std::size_t RecordBytes = 14776;
constexpr std::size_t NameAt = 14455;
constexpr std::size_t MarkAt = 14567;

std::string NameOf(int photo) {
  return "IMG_000" + std::to_string(photo) + ".JPG";
}

class SortASessionTest : public ProgramTest {
 protected:
  SortASessionTest() {
    for (int i = 1; i <= Photos; ++i) {
      const std::string path = std::string(Card) + "\\" + NameOf(i);
      drive.Write(path, JpegPhoto(320 + 16 * i, 240));
      drive.SetTime(path, {2004, 3, i, 10, 20 + i, 30 + i, 0});
      card_[NameOf(i)] = drive.Read(path);
    }
    drive.MakeFolder(Family);
    drive.MakeFolder(Holiday);
    saved_.Window = "17500,11000,0,0,0";  // wide enough for the whole strip
    saved_.Rename = 2;
    saved_.FilmStrip = Card;
    saved_.Folders = {Family, Holiday};
  }
  void DuplicatePolicy(int number) { saved_.Duplicates = number; }
  ProgramRun& Begin() {
    WriteSavedState(saved_);
    return Again();
  }
  ProgramRun& Again() {
    ProgramRun& run = Started();
    run.LoadAll();
    run.Wait(3);
    return run;
  }

  std::vector<std::string> In(const std::string& folder) {
    std::vector<std::string> names = drive.DriveFiles().Names(folder, "*.jpg", 0);
    std::sort(names.begin(), names.end());
    return names;
  }
  void ExpectCardUntouched() {
    for (const auto& [name, bytes] : card_) {
      const std::string path = std::string(Card) + "\\" + name;
      EXPECT_TRUE(drive.Read(path) == bytes) << name;
      EXPECT_EQ(drive.WriteTime(path).Month, 3) << name;
    }
  }
  // Names of the photos whose records in the card's cache bear the mark.
  std::vector<std::string> MarkedInCache() {
    const std::string bytes = drive.Read(std::string(Card) + "\\Thumbnails.tmp");
    std::vector<std::string> names;
    for (std::size_t at = 0; at + MarkAt + 2 <= bytes.size(); at += RecordBytes) {
      const std::string name = bytes.substr(at + NameAt, 100);
      if (bytes.substr(at + MarkAt, 2) == "\xFF\xFF") names.push_back(name.substr(0, name.find(' ')));
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  static std::vector<std::string> MarkedInStrip(const ProgramRun& run) {
    std::vector<std::string> names;
    for (int i = 1; i <= run.main.strip.SrcSlotCount; ++i) {
      const FilmStripState& strip = run.main.strip;
      if (strip.SrcThumbName(i).Tag() == "MARK") names.push_back(strip.SrcThumbName(i).ToolTipText());
    }
    return names;
  }
  static std::vector<int> Shown(const ProgramRun& run) {
    std::vector<int> slots;
    for (int i = 1; i <= run.main.strip.SrcSlotCount; ++i) {
      if (run.main.strip.SrcThumbnail(i).Visible()) slots.push_back(i);
    }
    return slots;
  }
  static Control* Named(Container& container, const std::string& name) {
    for (Control* control : container.Controls()) {
      if (control->Name() == name) return control;
    }
    throw std::runtime_error("no control " + name);
  }
  // Onto the small picture where a folder has one, else onto its icon, as a person would.
  static void DragTo(ProgramRun& run, Control& source, int slot) {
    DesktopState& desk = run.main.desk;
    ImageBox& preview = desk.DestFolderPreview(slot);
    run.person.Drag(source, preview.Visible() ? preview : desk.DestFolder(slot));
  }

  std::map<std::string, std::string> card_;
  SavedState saved_;
};

TEST_F(SortASessionTest, DragMarkUnmarkShowWhatRemainsAndStartAgain) {
  DuplicatePolicy(1);
  drive.Write(std::string(Family) + "\\Earlier.jpg", card_[NameOf(3)]);
  ProgramRun& run = Begin();
  FilmStripState& strip = run.main.strip;
  DesktopState& desk = run.main.desk;
  ASSERT_EQ(strip.SrcSlotCount, Photos);
  run.person.Click(strip.AllOption);

  DragTo(run, strip.SrcThumbnail(1), 1);
  run.person.DoubleClick(strip.SrcBackground(2));
  EXPECT_THAT(MarkedInCache(), ElementsAre(NameOf(1), NameOf(2)));
  run.person.DoubleClick(strip.SrcBackground(2));
  run.person.DoubleClick(strip.SrcThumbName(5));
  EXPECT_THAT(MarkedInCache(), ElementsAre(NameOf(1), NameOf(5)));
  run.person.Click(strip.RemainingOption);
  EXPECT_THAT(Shown(run), ElementsAre(2, 3, 4, 6));
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "4 pics");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "6 Total");
  // It is in the folder already, so its copy is deleted again, but it counts as dragged.
  DragTo(run, strip.SrcThumbnail(3), 1);
  EXPECT_THAT(Shown(run), ElementsAre(2, 4, 6));
  EXPECT_THAT(In(Family), ElementsAre("Earlier.jpg", NameOf(1)));
  run.person.Click(strip.AutoScrollOption);
  EXPECT_EQ(Shown(run).size(), 6U);
  run.Wait(3);
  DragTo(run, strip.AllButton, 2);
  run.LoadAll();
  EXPECT_THAT(In(Holiday), ElementsAre(NameOf(2), NameOf(4), NameOf(6)));
  EXPECT_EQ(desk.DestPicsCount(1).Caption(), "2 pics");
  EXPECT_EQ(desk.DestPicsCount(2).Caption(), "3 pics");
  EXPECT_EQ(MarkedInStrip(run).size(), 6U);
  run.person.DoubleClick(strip.SrcThumbName(5));
  run.Close();

  ExpectCardUntouched();
  EXPECT_TRUE(drive.Read(std::string(Family) + "\\Earlier.jpg") == card_[NameOf(3)]);
  for (const int photo : {2, 4, 6}) {
    const std::string copy = std::string(Holiday) + "\\" + NameOf(photo);
    EXPECT_TRUE(drive.Read(copy) == card_[NameOf(photo)]);
    EXPECT_EQ(drive.WriteTime(copy).Day, photo) << "a copy keeps its photo's date";
  }
  EXPECT_THAT(MarkedInCache(), ElementsAre(NameOf(1), NameOf(2), NameOf(3), NameOf(4), NameOf(6)));
  const std::string state = drive.Read("C:\\Windows\\Pixorra.sav");
  EXPECT_NE(state.find("\"C:\\Card\"\r\n\"C:\\Home\\Family\"\r\n\"C:\\Home\\Holiday\"\r\n"), std::string::npos)
      << state;
  const std::string cache = drive.Read(std::string(Card) + "\\Thumbnails.tmp");

  ProgramRun& second = Again();
  EXPECT_THAT(MarkedInStrip(second), ElementsAre(NameOf(1), NameOf(2), NameOf(3), NameOf(4), NameOf(6)));
  EXPECT_TRUE(second.main.strip.AutoScrollOption.Value()) << "every run starts in Auto";
  EXPECT_EQ(second.main.desk.OpenFolderIndex, 2);
  EXPECT_EQ(second.main.desk.DestSlotCount, 3);
  EXPECT_EQ(second.main.desk.DestPicsCount(1).Caption(), "2 pics");
  EXPECT_FALSE(second.main.desk.DestFolderPreview(1).GetPicture().IsNothing());
  second.Close();
  EXPECT_TRUE(drive.Read("C:\\Windows\\Pixorra.sav") == state);
  EXPECT_TRUE(drive.Read(std::string(Card) + "\\Thumbnails.tmp") == cache) << "nothing was decoded again";
}

TEST_F(SortASessionTest, AskedAboutDuplicatesOneByOneWithTheViewOpen) {
  DuplicatePolicy(2);
  drive.Write(std::string(Holiday) + "\\First.jpg", card_[NameOf(1)]);
  drive.Write(std::string(Holiday) + "\\Fourth.jpg", card_[NameOf(4)]);
  drive.Write(std::string(Holiday) + "\\Sixth.jpg", card_[NameOf(6)]);
  ProgramRun& run = Begin();
  ASSERT_EQ(run.main.desk.OpenFolderIndex, 2);
  std::vector<std::string> asked;
  for (const char* button : {"DeleteOriginalButton", "DeleteDuplicateButton", "IgnoreButton"}) {
    run.person.ExpectForm("DuplicateAskForm", [&asked, button](Person& hand, Form& form) {
      auto& original = static_cast<Container&>(*Named(form, "OriginalFrame"));
      asked.push_back(static_cast<Label*>(Named(original, "PhotoName1"))->Caption());
      hand.Click(*Named(form, button));
    });
  }
  DragTo(run, run.main.strip.AllButton, 2);
  run.LoadAll();
  EXPECT_THAT(asked, ElementsAre("First.jpg", "Fourth.jpg", "Sixth.jpg"));
  const std::vector<std::string> expected = {"Fourth.jpg", NameOf(1), NameOf(2),  NameOf(3),
                                             NameOf(5),    NameOf(6), "Sixth.jpg"};
  EXPECT_EQ(In(Holiday), expected);
  EXPECT_EQ(run.main.desk.DestPicsCount(2).Caption(), "7 pics");
  EXPECT_EQ(run.main.desk.DestSlotCount, 7);
  std::vector<std::string> cells;
  for (int i = 1; i <= 7; ++i) cells.push_back(run.main.desk.DestThumbnail(i).Tag());
  std::sort(cells.begin(), cells.end());
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(cells[i], std::string(Holiday) + "\\" + expected[i]);
  run.Close();
  ExpectCardUntouched();
  EXPECT_EQ(MarkedInCache().size(), 6U);
}

TEST_F(SortASessionTest, DroppedIntoTheTrashcanAPhotoIsCopiedThereMarkedAndStaysOnTheCard) {
  DuplicatePolicy(3);
  ProgramRun& run = Begin();
  run.person.Click(run.main.strip.AllOption);
  run.person.Drag(run.main.strip.SrcThumbnail(2), run.main.desk.DestFolder(TrashcanSlot));
  EXPECT_THAT(In("C:\\Program\\Trashcan"), ElementsAre(NameOf(2)));
  run.Close();
  ExpectCardUntouched();
  EXPECT_THAT(MarkedInCache(), ElementsAre(NameOf(2)));
}

TEST_F(SortASessionTest, ACardThatIsNotThereAnyMoreLeavesTheFoldersAndItsMarksComeBackWithIt) {
  DuplicatePolicy(3);
  ProgramRun& run = Begin();
  run.person.Click(run.main.strip.AllOption);
  DragTo(run, run.main.strip.SrcThumbnail(4), 1);
  run.Close();
  const std::string away = drive.HostPath("C:\\Away");
  std::filesystem::rename(drive.HostPath(Card), away);
  const std::string state = drive.Read("C:\\Windows\\Pixorra.sav");

  ProgramRun& without = Again();
  EXPECT_TRUE(without.main.strip.NoFilmStrip);
  EXPECT_EQ(without.main.desk.FoldersShown, 2);
  without.Close();

  std::filesystem::rename(away, drive.HostPath(Card));
  drive.Write("C:\\Windows\\Pixorra.sav", state);
  ProgramRun& with = Again();
  EXPECT_THAT(MarkedInStrip(with), ElementsAre(NameOf(4)));
  ExpectCardUntouched();
}

}  // namespace
}  // namespace pixorra
