// The clipboard's picture as a new photo of the open folder: its name, its bytes, what is in the way, and what fails.
#include <gmock/gmock.h>
#include <unistd.h>

#include "drop/Paste.h"
#include "pictures/PictureLoader.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/runtime/Errors.h"
#include "tests/drop/UndoTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* CannotPaste = "Can't Paste Photo from Clipboard.";

class PasteTest : public UndoTest {
 protected:
  PasteTest() {
    Show("F");
    Select_a_Folder(main, 1);
    run.LoadAll();
  }
  void Put(int width = 60, int height = 40) { PutPicture(Picture(SmoothBitmap(width, height))); }
  void PutPicture(const Picture& picture) { run.platform.clipboard.CopyElsewhere(picture); }
  void Paste() { person.ChooseMenu(main.menu.PasteMenuItem); }
  Picture Pasted(const std::string& name = "Clipboard.jpg") { return run.pictures.Load(Folder("F") + "\\" + name); }
  // All that is there but the thumbnails.
  std::vector<std::string> AllIn() {
    std::vector<std::string> names = drive.DriveFiles().Names(Folder("F"), "*", attribute::Hidden | attribute::System);
    std::erase(names, "Thumbnails.tmp");
    return names;
  }
  static std::string Described(const std::string& folder) {
    return folder + "\n\nThis folder cannot be written to.\nIt maybe on a CD-ROM, or your\ndisk drive maybe full.";
  }
};

TEST_F(PasteTest, APictureBecomesAPhotoOfTheOpenFolder) {
  Put();
  Paste();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Clipboard.jpg"));
  const Picture photo = Pasted();
  EXPECT_EQ(photo.Width(), 60);
  EXPECT_EQ(photo.Height(), 40);
  const Bitmap whole = SmoothBitmap(60, 40);
  const std::uint8_t* is = photo.Pixels().Row(20) + 3 * 30;
  const std::uint8_t* was = whole.Row(20) + 3 * 30;
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(is[i], was[i], 6);
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_TRUE(desk.DestFolderPreview(1).Visible());
  EXPECT_FALSE(desk.DestFolderPreview(1).GetPicture().IsNothing());
  EXPECT_EQ(desk.DestScrollbar.Value(), desk.DestScrollbar.Max());
  EXPECT_EQ(main.drop.LastDropSrcIndex, -1);
  EXPECT_EQ(main.drop.LastDropFolder, 1);
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\Clipboard.jpg");
  run.LoadAll();
  EXPECT_THAT(ViewNames(), ElementsAre("Clipboard"));
}

TEST_F(PasteTest, TheFileIsThatOfTheCodecAtQuality90) {
  Put();
  Paste();
  EXPECT_EQ(BytesIn("F", "Clipboard.jpg"), JpegOf(SmoothBitmap(60, 40), {.quality = 90}));
}

TEST_F(PasteTest, ItsDateIsThatOfThePasteAndNoPhotoIsMarked) {
  LoadStrip({"a.bmp"});
  Put();
  Paste();
  EXPECT_FALSE(IsMarked(1));
  EXPECT_GT(drive.WriteTime(Folder("F") + "\\Clipboard.jpg").Year, 2020);
}

TEST_F(PasteTest, TheShortcutPastesToo) {
  Put();
  person.Key('V', shift::Ctrl);
  EXPECT_TRUE(Has("F", "Clipboard.jpg"));
}

TEST_F(PasteTest, WhatIsTransparentIsPastedOnWhite) {
  Bitmap pixels = Bitmap::Cleared(64, 64, PixelFormat::Bgra32);
  for (int y = 0; y < 64; ++y) {
    for (int x = 32; x < 64; ++x) {
      pixels.Row(y)[4 * x] = 200;
      pixels.Row(y)[4 * x + 3] = 255;
    }
  }
  PutPicture(Picture(std::move(pixels)));
  Paste();
  const Picture photo = Pasted();
  const std::uint8_t* left = photo.Pixels().Row(30) + 3 * 8;
  const std::uint8_t* right = photo.Pixels().Row(30) + 3 * 56;
  for (int i = 0; i < 3; ++i) EXPECT_GT(left[i], 250);
  EXPECT_NEAR(right[0], 200, 6);
  EXPECT_LT(right[2], 8);
}

// --- names -----------------------------------------------------------------------------------------------------------

TEST_F(PasteTest, PastedTwiceTheSecondPhotoIsNumbered) {
  Put();
  Paste();
  Paste();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Clipboard.jpg", "Clipboard1.jpg"));
  EXPECT_EQ(CountOf(1), "2 pics");
}

TEST_F(PasteTest, WithThePolicyAlwaysItHasTheNextNumberOfTheFolder) {
  main.preferences.RenameAlwaysOption.SetValue(true);
  MakePhoto(Folder("F") + "\\PXR00007.jpg");
  Put();
  Paste();
  EXPECT_TRUE(Has("F", "PXR00008.jpg"));
}

TEST_F(PasteTest, WithThePolicyAskTheNameIsAskedForAlsoWhereItIsFree) {
  main.preferences.RenameAskOption.SetValue(true);
  Put();
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) {
    EXPECT_EQ(Find<Label>(form, "ExistsName").Caption(), "Clipboard");
    hand.Fill(Find<TextBox>(form, "AlwaysName"), "Mine");
    hand.Click(Find<CommandButton>(form, "AlwaysNameButton"));
  });
  Paste();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Mine.jpg"));
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\Mine.jpg");
}

TEST_F(PasteTest, ANameThatIsTakenIsAskedForAgain) {
  main.preferences.RenameAskOption.SetValue(true);
  MakePhoto(Folder("F") + "\\Taken.jpg");
  Put();
  for (const char* name : {"Taken", "Free"}) {
    person.ExpectForm("RenameAskForm", [name](Person& hand, Form& form) {
      hand.Fill(Find<TextBox>(form, "AlwaysName"), name);
      hand.Click(Find<CommandButton>(form, "AlwaysNameButton"));
    });
  }
  Paste();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Free.jpg", "Taken.jpg"));
}

TEST_F(PasteTest, CancelledInTheNameDialogNothingIsWritten) {
  main.preferences.RenameAskOption.SetValue(true);
  Put();
  person.ExpectForm("RenameAskForm",
                    [](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, "CancelButton")); });
  Paste();
  EXPECT_THAT(In(Folder("F")), IsEmpty());
  EXPECT_EQ(CountOf(1), " Empty");
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(PasteTest, AFolderThatGoesWhileTheNameIsAskedForGetsNothing) {
  main.preferences.RenameAskOption.SetValue(true);
  Put();
  person.ExpectForm("RenameAskForm", [this](Person& hand, Form& form) {
    Remove_Open_Folder(main);
    hand.Click(Find<CommandButton>(form, "AlwaysNameButton"));
  });
  Paste();
  EXPECT_THAT(In(Folder("F")), IsEmpty());
}

TEST_F(PasteTest, ANameThatSomeoneElseTakesInTheLastMomentIsLeftToThem) {
  Put();
  const std::string theirs = Folder("F") + "\\Clipboard.jpg";
  run.files.BeforeNth(
      FileCall::OpenToWrite, 1, [&] { drive.Write(theirs, "theirs"); }, "F\\Clipboard.jpg");
  Paste();
  EXPECT_EQ(drive.Read(theirs), "theirs");
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\Clipboard1.jpg");
  EXPECT_EQ(Pasted("Clipboard1.jpg").Width(), 60);
}

TEST_F(PasteTest, InTheTrashcanItIsAPhotoLikeAnyOther) {
  Select_a_Folder(main, TrashcanSlot);
  Put();
  Paste();
  EXPECT_THAT(In("C:\\Program\\Trashcan"), ElementsAre("Clipboard.jpg"));
  EXPECT_EQ(CountOf(TrashcanSlot), "1 pics");
  EXPECT_EQ(main.drop.LastDropFolder, TrashcanSlot);
}

// --- duplicates ------------------------------------------------------------------------------------------------------

TEST_F(PasteTest, AnIdenticalSecondPasteWithAutoResolveRemovesTheNewFileOnly) {
  main.preferences.DuplicatesAutoOption.SetValue(true);
  Put();
  Paste();
  run.LoadAll();
  const std::string first = BytesIn("F", "Clipboard.jpg");
  Paste();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Clipboard.jpg"));
  EXPECT_EQ(BytesIn("F", "Clipboard.jpg"), first);
  EXPECT_EQ(CountOf(1), "1 pics");
  run.Wait(0.5);
  EXPECT_THAT(ViewNames(), ElementsAre("Clipboard"));
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\Clipboard1.jpg");
}

TEST_F(PasteTest, WithThePolicyAskTheTwoAreShown) {
  main.preferences.DuplicatesAskOption.SetValue(true);
  Put();
  Paste();
  run.LoadAll();
  person.ExpectForm("DuplicateAskForm",
                    [](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, "DeleteOriginalButton")); });
  Paste();
  run.LoadAll();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Clipboard1.jpg"));
  EXPECT_THAT(ViewNames(), ElementsAre("Clipboard1"));
}

TEST_F(PasteTest, WithThePolicyAllowNoOtherFileIsRead) {
  Put();
  Paste();
  run.files.FailAlways(FileCall::Length, error::DeviceIO, "Clipboard.jpg");
  Paste();
  EXPECT_THAT(In(Folder("F")), ElementsAre("Clipboard.jpg", "Clipboard1.jpg"));
}

// --- what is in the way ----------------------------------------------------------------------------------------------

TEST_F(PasteTest, WithoutAPictureOnTheClipboardThereIsABeepAndABox) {
  const int beeps = run.platform.dialogs.Beeps();
  person.ExpectBox("Pixorra", "The Clipbaord doesn't contain an Image");
  PasteMenuItem_Click(main);
  EXPECT_EQ(run.platform.dialogs.Beeps(), beeps + 1);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::None);
}

TEST_F(PasteTest, WithoutAnOpenFolderThereIsABox) {
  Select_a_Folder(main, 0);
  Put();
  person.ExpectBox(CannotPaste, "No Folder is open.\nTry selecting a folder first.");
  PasteMenuItem_Click(main);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
}

TEST_F(PasteTest, APictureThatItsProgramDoesNotHandOutIsTold) {
  Put();
  run.platform.clipboard.SetReadable(false);
  person.ExpectBox(CannotPaste, "The picture on the Clipboard cannot be read.");
  Paste();
  EXPECT_THAT(In(Folder("F")), IsEmpty());
}

TEST_F(PasteTest, APictureThatIsTooLargeToBeTakenInIsToldApartFromMissingMemory) {
  for (const auto& [failure, told] :
       {std::pair{error::Overflow, "too large.\nA picture can have 300 megapixels at most."},
        {error::OutOfMemory, "There is not enough memory for the picture on the Clipboard."}}) {
    Put();
    run.platform.clipboard.FailNextGet(failure);
    person.ExpectBox(CannotPaste, told);
    Paste();
    EXPECT_THAT(In(Folder("F")), IsEmpty());
  }
}

TEST_F(PasteTest, APictureThatIsTooLargeForAJpegFileIsToldAndLeavesNothing) {
  main.preferences.RenameAskOption.SetValue(true);
  for (const auto& [width, height] : {std::pair{65501, 2}, {2, 65501}}) {
    PutPicture(Picture(PlainBitmap(width, height, 0x00FF8040)));
    person.ExpectBox(CannotPaste, "too large.\nA photo can have 65500 pixels a side at most.");
    Paste();
    EXPECT_THAT(In(Folder("F")), IsEmpty());
  }
  EXPECT_FALSE(RemembersADrop());
}

TEST_F(PasteTest, TheLargestPictureThatAJpegFileHoldsIsPasted) {
  PutPicture(Picture(PlainBitmap(65500, 1, 0x00FF8040)));
  Paste();
  EXPECT_EQ(Pasted().Width(), 65500);
}

// --- what fails ------------------------------------------------------------------------------------------------------

TEST_F(PasteTest, AFullDiskAtAnyByteLeavesNoHalfPhoto) {
  Put(300, 200);
  Paste();
  const auto whole = static_cast<std::int64_t>(BytesIn("F", "Clipboard.jpg").size());
  drive.Remove(Folder("F") + "\\Clipboard.jpg");
  desk.DestFolderFiles(1).Refresh();
  main.drop.ForgetLastDrop();
  for (const std::int64_t room : {std::int64_t{0}, std::int64_t{1}, whole / 2, whole - 1}) {
    run.files.FillDiskAfter(room);
    person.ExpectBox(CannotPaste, Described(Folder("F")));
    Paste();
    run.files.Heal();
    EXPECT_THAT(AllIn(), IsEmpty()) << room;
    EXPECT_FALSE(RemembersADrop());
  }
}

TEST_F(PasteTest, AFileThatCannotBeWrittenOrFlushedLeavesNothing) {
  Put();
  for (const FileCall call : {FileCall::Flush, FileCall::FlushFolder, FileCall::Write}) {
    run.files.FailNth(call, 1, error::DeviceIO);
    person.ExpectBox(CannotPaste, Described(Folder("F")));
    Paste();
    EXPECT_THAT(AllIn(), IsEmpty());
    EXPECT_FALSE(RemembersADrop());
  }
}

TEST_F(PasteTest, AFolderThatCannotBeWrittenToIsTold) {
  Put();
  run.files.FailAlways(FileCall::OpenToWrite, error::PathAccess, "F\\Clipboard");
  person.ExpectBox(CannotPaste, Described(Folder("F")));
  Paste();
  EXPECT_EQ(CountOf(1), " Empty");
}

TEST_F(PasteTest, AFolderThatHasGoneIsTold) {
  Put();
  drive.Remove(Folder("F"));
  person.ExpectBox(CannotPaste, Described(Folder("F")));
  Paste();
  EXPECT_FALSE(drive.Exists(Folder("F")));
}

TEST_F(PasteTest, AFileOfSomeoneElseThatTookTheNameOfAFailedPasteStays) {
  const std::string path = Folder("F") + "\\x.jpg";
  run.files.FailNth(FileCall::FlushFolder, 1, error::DeviceIO);
  run.files.BeforeNth(FileCall::FlushFolder, 1, [&] {
    drive.Remove(path);
    drive.Write(path, "theirs");
  });
  EXPECT_THROW(WriteNewFile(run.files, path, {1, 2, 3}), RuntimeError);
  EXPECT_EQ(drive.Read(path), "theirs");
}

TEST_F(PasteTest, NothingElseOfTheFolderIsWrittenToAndNothingIsInTheWay) {
  Put();
  Paste();
  const std::string first = Folder("F") + "\\Clipboard.jpg";
  const std::string bytes = drive.Read(first);
  // What an earlier program has left of a paste: a second name of that photo.
  ASSERT_EQ(link(drive.HostPath(first).c_str(), drive.HostPath(Folder("F") + "\\$PXR$PST.$$$").c_str()), 0);
  Put(80, 20);
  Paste();
  EXPECT_TRUE(drive.Read(first) == bytes);
  drive.Remove(Folder("F") + "\\$PXR$PST.$$$");
  drive.Write(Folder("F") + "\\$PXR$PST.$$$\\x", "a folder");
  Paste();
  EXPECT_EQ(Pasted("Clipboard1.jpg").Width(), 80);
  EXPECT_EQ(Pasted("Clipboard2.jpg").Width(), 80);
}

// What a death in the middle leaves cannot be taken for a photo.
TEST_F(PasteTest, UntilAllOfItIsOnTheDiskThePastedFileIsNoPicture) {
  Put();
  const std::string path = Folder("F") + "\\Clipboard.jpg";
  const int flushes = run.files.Count(FileCall::Flush);
  int formatBefore = -1;
  std::size_t lengthBefore = 0;
  run.files.BeforeNth(
      FileCall::Write, 2,
      [&] {
        formatBefore = PictureFileFormat(drive.DriveFiles(), path);
        lengthBefore = drive.Read(path).size();
        EXPECT_EQ(run.files.Count(FileCall::Flush), flushes + 1);
      },
      "F\\Clipboard.jpg");
  Paste();
  EXPECT_EQ(formatBefore, 0);
  EXPECT_EQ(lengthBefore, drive.Read(path).size());
  EXPECT_EQ(Pasted().Width(), 60);
}

// --- the memory ------------------------------------------------------------------------------------------------------

TEST_F(PasteTest, UndoneThePhotoIsGoneAndTheFolderEmpty) {
  Put();
  Paste();
  run.LoadAll();
  Undo();
  EXPECT_THAT(In(Folder("F")), IsEmpty());
  EXPECT_THAT(ViewNames(), IsEmpty());
  EXPECT_EQ(CountOf(1), " Empty");
  EXPECT_FALSE(desk.DestFolderPreview(1).Visible());
}

TEST_F(PasteTest, AnUndoLeavesAPastedPhotoThatHasBeenChangedSince) {
  Put();
  Paste();
  const std::string path = Folder("F") + "\\Clipboard.jpg";
  drive.Write(path, drive.Read(path) + "x");
  person.ExpectBox("Pixorra", "This is no longer the file that was made, and it stays.");
  Undo();
  EXPECT_TRUE(drive.Exists(path));
}

}  // namespace
}  // namespace pixorra
