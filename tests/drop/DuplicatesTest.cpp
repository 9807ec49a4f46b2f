// A photo that is there already: what counts as equal, and what becomes of the two under each policy.
#include <gmock/gmock.h>

#include "drop/Duplicates.h"
#include "tests/drop/DropTest.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DuplicatesTest : public DropTest {
 protected:
  DuplicatesTest() { main.preferences.DuplicatesAskOption.SetValue(true); }

  // One photo in the strip; the folder holds an equal one, old.bmp, and another one of the same length.
  void Prepare() {
    LoadStrip({"a.bmp"});
    drive.Write(old_, drive.Read(Photo("a.bmp")));
    MakePhoto(Folder("F") + "\\other.bmp", 0x00ABCDEF);
    Show("F");
  }
  void PrepareOpen() {
    Prepare();
    Select_a_Folder(main, 1);
    run.LoadAll();
  }
  void Drop() { person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1)); }
  void AnswerWith(const std::string& button) {
    person.ExpectForm("DuplicateAskForm",
                      [=](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, button)); });
  }
  std::vector<std::string> ViewNames() const {
    std::vector<std::string> names;
    for (int i = 1; i <= desk.DestSlotCount; ++i) names.push_back(desk.DestThumbName(i).Caption());
    return names;
  }
  std::vector<std::string> InFolder() {
    std::vector<std::string> names = run.files.Names(Folder("F"), "*.bmp", 0);
    std::sort(names.begin(), names.end());
    return names;
  }

  const std::string old_ = Folder("F") + "\\old.bmp";
  const std::string new_ = Folder("F") + "\\a.bmp";
};

// --- the outcomes, with the folder's view open -----------------------------------------------------------------------

TEST_F(DuplicatesTest, WithAllowNoTestIsMadeAndBothStay) {
  main.preferences.DuplicatesAllowOption.SetValue(true);
  PrepareOpen();
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("a.bmp", "old.bmp", "other.bmp"));
  EXPECT_EQ(CountOf(1), "3 pics");
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ElementsAre("old", "other", "a"));
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, WithAllowNoFileButThePhotoItselfIsRead) {
  main.preferences.DuplicatesAllowOption.SetValue(true);
  Prepare();
  const int before = run.files.Count(FileCall::OpenToRead);
  Drop();
  EXPECT_EQ(run.files.Count(FileCall::OpenToRead) - before, 1);
}

TEST_F(DuplicatesTest, WithoutADuplicateNobodyIsAsked) {
  LoadStrip({"a.bmp"});
  MakePhoto(Folder("F") + "\\other.bmp", 0x00ABCDEF);
  Show("F");
  Select_a_Folder(main, 1);
  run.LoadAll();
  Drop();
  run.LoadAll();
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_THAT(ViewNames(), ElementsAre("other", "a"));
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, IgnoredTheDuplicateStays) {
  PrepareOpen();
  AnswerWith("IgnoreButton");
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("a.bmp", "old.bmp", "other.bmp"));
  EXPECT_EQ(CountOf(1), "3 pics");
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ElementsAre("old", "other", "a"));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, DeleteDuplicateLeavesTheFolderAsItWas) {
  PrepareOpen();
  AnswerWith("DeleteDuplicateButton");
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("old.bmp", "other.bmp"));
  EXPECT_EQ(CountOf(1), "2 pics");
  run.Wait(0.2);
  EXPECT_THAT(ViewNames(), ElementsAre("old", "other"));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropSrcIndex, 1);
  EXPECT_EQ(main.drop.LastDropFolder, 1);
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, AutoResolveDeletesTheNewFileWithoutAsking) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  PrepareOpen();
  const std::string before = drive.Read(old_);
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("old.bmp", "other.bmp"));
  EXPECT_EQ(drive.Read(old_), before);
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
  EXPECT_EQ(CountOf(1), "2 pics");
  run.Wait(0.2);
  EXPECT_THAT(ViewNames(), ElementsAre("old", "other"));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, DeleteOriginalPutsTheNewPhotoInItsPlaceAndTheViewFollows) {
  PrepareOpen();
  AnswerWith("DeleteOriginalButton");
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("a.bmp", "other.bmp"));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_THAT(ViewNames(), ElementsAre("other"));
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ElementsAre("other", "a"));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, AFolderThatIsNotOpenIsSettledJustSo) {
  Prepare();
  AnswerWith("DeleteOriginalButton");
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("a.bmp", "other.bmp"));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_EQ(desk.DestSlotCount, 0);
}

TEST_F(DuplicatesTest, InTheTrashcanDuplicatesAreTestedToo) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  LoadStrip({"a.bmp"});
  drive.Write("C:\\Program\\Trashcan\\gone.bmp", drive.Read(Photo("a.bmp")));
  desk.DestFolderFiles(TrashcanSlot).Refresh();
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(TrashcanSlot));
  EXPECT_FALSE(drive.Exists("C:\\Program\\Trashcan\\a.bmp"));
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan\\gone.bmp"));
  EXPECT_EQ(CountOf(TrashcanSlot), "1 pics");
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(DuplicatesTest, TheWholeStripIsAskedPhotoByPhoto) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  drive.Write(Folder("F") + "\\x.bmp", drive.Read(Photo("a.bmp")));
  drive.Write(Folder("F") + "\\y.bmp", drive.Read(Photo("c.bmp")));
  Show("F");
  AnswerWith("DeleteDuplicateButton");
  AnswerWith("DeleteOriginalButton");
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  EXPECT_THAT(InFolder(), ElementsAre("b.bmp", "c.bmp", "x.bmp"));
  EXPECT_EQ(CountOf(1), "3 pics");
  for (int i = 1; i <= 3; ++i) EXPECT_TRUE(IsMarked(i)) << i;
}

// --- which file is found ---------------------------------------------------------------------------------------------

TEST_F(DuplicatesTest, NamesAndDatesPlayNoPart) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  main.preferences.KeepDateCheckBox.SetValue(0);
  Prepare();
  drive.SetTime(old_, {1999, 12, 31, 23, 59, 58, 0});
  Drop();
  EXPECT_THAT(InFolder(), ElementsAre("old.bmp", "other.bmp"));
}

TEST_F(DuplicatesTest, PhotosThatDifferInTheirFirstByteAloneAreDuplicates) {
  Prepare();
  std::string bytes = drive.Read(old_);
  bytes[0] = 'X';
  drive.Write(old_, bytes);
  AnswerWith("DeleteDuplicateButton");
  Drop();
  EXPECT_FALSE(drive.Exists(new_));
}

TEST_F(DuplicatesTest, PhotosThatDifferInTheirLastByteAloneAreNone) {
  Prepare();
  std::string bytes = drive.Read(old_);
  bytes.back() = static_cast<char>(bytes.back() + 1);
  drive.Write(old_, bytes);
  Drop();
  EXPECT_TRUE(drive.Exists(new_));
  EXPECT_TRUE(drive.Exists(old_));
}

TEST_F(DuplicatesTest, TheFirstEqualFileInTheListsOrderIsTheOne) {
  Prepare();
  drive.Write(Folder("F") + "\\Again.bmp", drive.Read(Photo("a.bmp")));
  person.ExpectForm("DuplicateAskForm", [](Person& hand, Form& form) {
    EXPECT_EQ(Find<Label>(Find<Frame>(form, "OriginalFrame"), "PhotoName1").Caption(), "Again.bmp");
    hand.Click(Find<CommandButton>(form, "IgnoreButton"));
  });
  Drop();
}

TEST_F(DuplicatesTest, TwoEqualFilesThatWereThereAlreadyAreNotHeldAgainstEachOther) {
  LoadStrip({"a.bmp"});
  MakePhoto(Folder("F") + "\\one.bmp", 0x00112233);
  MakePhoto(Folder("F") + "\\two.bmp", 0x00112233);
  Show("F");
  Drop();
  EXPECT_EQ(CountOf(1), "3 pics");
}

TEST_F(DuplicatesTest, AFileOfAnotherExtensionEscapes) {
  Prepare();
  drive.Write(Folder("F") + "\\a.dat", drive.Read(Photo("a.bmp")));
  drive.Remove(old_);
  Drop();
  EXPECT_TRUE(drive.Exists(new_));
}

TEST_F(DuplicatesTest, InAnEmptyFolderTheNewFileIsNotItsOwnDuplicate) {
  LoadStrip({"a.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  EXPECT_TRUE(drive.Exists(new_));
  EXPECT_EQ(CountOf(1), "1 pics");
}

TEST_F(DuplicatesTest, APhotoDroppedIntoItsOwnFolderMeetsItself) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  LoadStrip({"a.bmp"});
  const int slot = Display_a_New_Folder(main, "C:\\Strip");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
  EXPECT_FALSE(drive.Exists(Photo("a1.bmp")));
  EXPECT_EQ(CountOf(slot), "1 pics");
}

TEST_F(DuplicatesTest, WithoutBothPathsNothingIsResolved) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  Prepare();
  ResolveDuplicate(main, "", old_, 1);
  ResolveDuplicate(main, old_, "", 1);
  main.preferences.DuplicatesAllowOption.SetValue(true);
  ResolveDuplicate(main, Folder("F") + "\\other.bmp", old_, 1);
  EXPECT_TRUE(drive.Exists(old_));
}

// --- what fails ------------------------------------------------------------------------------------------------------

TEST_F(DuplicatesTest, ACandidateThatVanishesEndsTheScanAndTheDropGoesOn) {
  Prepare();
  MakePhoto(Folder("F") + "\\b.bmp", 0x00010101);
  run.files.FailAlways(FileCall::Length, error::FileNotFound, "F\\b.bmp");
  Drop();
  run.files.Heal();
  EXPECT_THAT(InFolder(), ElementsAre("a.bmp", "b.bmp", "old.bmp", "other.bmp"));
  EXPECT_EQ(CountOf(1), "4 pics");
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.drop.LastDropFile, new_);
}

TEST_F(DuplicatesTest, ACandidateThatCannotBeReadIsNoDuplicate) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  Prepare();
  run.files.FailAlways(FileCall::OpenToRead, error::PathAccess, "F\\old.bmp");
  Drop();
  EXPECT_TRUE(drive.Exists(new_));
  EXPECT_TRUE(IsMarked(1));
}

TEST_F(DuplicatesTest, ANewFileThatCannotBeReadBackIsKept) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  Prepare();
  run.files.FailAlways(FileCall::Read, error::DeviceIO, "F\\a.bmp");
  Drop();
  EXPECT_TRUE(drive.Exists(new_));
  EXPECT_TRUE(drive.Exists(old_));
  EXPECT_EQ(CountOf(1), "3 pics");
}

TEST_F(DuplicatesTest, AWriteProtectedOriginalIsNotDeletedAndTheCountTellsTheTruth) {
  PrepareOpen();
  drive.SetMode(old_, 0444);
  AnswerWith("DeleteOriginalButton");
  Drop();
  EXPECT_TRUE(drive.Exists(old_));
  EXPECT_EQ(CountOf(1), "3 pics");
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ::testing::UnorderedElementsAre("a", "old", "other"));
}

TEST_F(DuplicatesTest, ADeletionThatFailsIsNotTold) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  Prepare();
  run.files.FailAlways(FileCall::Delete, error::PathAccess, "F\\a.bmp");
  Drop();
  EXPECT_EQ(CountOf(1), "3 pics");
  EXPECT_TRUE(IsMarked(1));
}

// --- contents --------------------------------------------------------------------------------------------------------

class ContentComparisonTest : public ::testing::Test {
 protected:
  static constexpr const char* Mine = "C:\\mine";
  static constexpr const char* Theirs = "C:\\theirs";
  static std::string Noise(std::size_t length) {
    std::string bytes(length, '\0');
    unsigned state = 12345;
    for (char& byte : bytes) byte = static_cast<char>((state = state * 1103515245 + 12345) >> 16);
    return bytes;
  }
  bool Same(const std::string& mine, const std::string& theirs) {
    drive.Write(Mine, mine);
    drive.Write(Theirs, theirs);
    return ContentComparison(files, Mine).SameContent(Theirs);
  }
  static std::string Changed(std::string bytes, std::size_t at) {
    bytes.at(at) = static_cast<char>(bytes.at(at) ^ 1);
    return bytes;
  }

  TemporaryDrive drive;
  FaultyFiles files{drive.DriveFiles()};
};

TEST_F(ContentComparisonTest, FilesOfOneByteOrNoneAreAllTheSame) {
  EXPECT_TRUE(Same("", ""));
  EXPECT_TRUE(Same("a", "b"));
  EXPECT_FALSE(Same("", "a"));
  EXPECT_FALSE(Same("ab", "ac"));
  EXPECT_TRUE(Same("ab", "xb"));
}

TEST_F(ContentComparisonTest, EveryByteButTheFirstCountsWhateverTheLength) {
  for (const std::size_t length : {2U, 100U, 4095U, 4096U, 4097U, 36863U, 36864U, 36865U, 299008U, 299009U, 900000U}) {
    SCOPED_TRACE(length);
    const std::string bytes = Noise(length);
    EXPECT_TRUE(Same(bytes, bytes));
    EXPECT_TRUE(Same(bytes, Changed(bytes, 0)));
    EXPECT_FALSE(Same(bytes, bytes + "x"));
    EXPECT_FALSE(Same(bytes + "x", bytes));
    for (const std::size_t at : {std::size_t{1}, std::size_t{4095}, std::size_t{4096}, std::size_t{36863},
                                 std::size_t{36864}, std::size_t{299007}, std::size_t{299008}, length - 1}) {
      if (at >= length) continue;
      EXPECT_FALSE(Same(bytes, Changed(bytes, at))) << at;
    }
  }
}

TEST_F(ContentComparisonTest, OneFileIsHeldAgainstMany) {
  const std::string bytes = Noise(50000);
  drive.Write(Mine, bytes);
  drive.Write("C:\\early", Changed(bytes, 5));
  drive.Write("C:\\late", Changed(bytes, 49999));
  drive.Write(Theirs, bytes);
  ContentComparison comparison(files, Mine);
  EXPECT_FALSE(comparison.SameContent("C:\\early"));
  EXPECT_FALSE(comparison.SameContent("C:\\late"));
  EXPECT_TRUE(comparison.SameContent(Theirs));
  EXPECT_FALSE(comparison.SameContent("C:\\early"));
}

TEST_F(ContentComparisonTest, ReadingEndsAtTheFirstDifference) {
  const std::string bytes = Noise(2000000);
  drive.Write(Mine, bytes);
  drive.Write("C:\\early", Changed(bytes, 5));
  drive.Write("C:\\early2", Changed(bytes, 4000));
  drive.Write("C:\\middle", Changed(bytes, 10000));
  ContentComparison comparison(files, Mine);
  EXPECT_FALSE(comparison.SameContent("C:\\early"));
  EXPECT_EQ(files.Count(FileCall::Read), 2);
  EXPECT_FALSE(comparison.SameContent("C:\\early2"));
  EXPECT_EQ(files.Count(FileCall::Read), 3) << "its own first bytes are known";
  EXPECT_FALSE(comparison.SameContent("C:\\middle"));
  EXPECT_EQ(files.Count(FileCall::Read), 6);
}

TEST_F(ContentComparisonTest, AFileThatIsCutMeanwhileEqualsNothing) {
  const std::string bytes = Noise(50000);
  drive.Write(Mine, bytes);
  drive.Write(Theirs, bytes);
  ContentComparison comparison(files, Mine);
  drive.Write(Mine, bytes.substr(0, 40000));
  EXPECT_FALSE(comparison.SameContent(Theirs));
}

TEST_F(ContentComparisonTest, AfterAReadThatFailedNothingElseIsTakenForItsBytes) {
  drive.Write(Mine, std::string(5, 'm'));
  drive.Write(Theirs, std::string(5, '\0'));
  ContentComparison comparison(files, Mine);
  files.FailNth(FileCall::Read, 1, error::DeviceIO, "mine");
  EXPECT_THROW(comparison.SameContent(Theirs), RuntimeError);
  EXPECT_FALSE(comparison.SameContent(Theirs));
}

}  // namespace
}  // namespace pixorra
