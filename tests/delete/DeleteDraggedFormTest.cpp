// Deleting all photos that have been dragged: only those that were counted, each failure shown, and ways to stop.
#include <gmock/gmock.h>

#include "filmstrip/Marks.h"
#include "tests/delete/DeleteTest.h"
#include "tests/platform/posix/OrdinaryUser.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* DraggedFailed = "Unable to delete dragged Photo";

class DeleteDraggedFormTest : public DeleteTest {
 protected:
  void LoadMarked(const std::vector<std::string>& names, const std::vector<int>& marked) {
    LoadStrip(names);
    for (const int slot : marked) Mark(slot);
  }
  // A strip of its own of so many files that no picture is in, all marked.
  std::string LoadMany(int count) {
    const std::string folder = "C:\\Strip of " + std::to_string(count);
    for (int i = 0; i < count; ++i) drive.Write(folder + "\\" + std::to_string(1000 + i) + ".bmp", "");
    LoadStrip({}, folder);
    for (int i = 1; i <= count; ++i) MarkDragged(main, strip.SrcThumbnail(i));
    return folder;
  }
  // `first` happens while the question is up.
  void DeleteThem(const std::function<void(Form&)>& first = {}) {
    Answer("DeleteDraggedForm", "DeleteButton", first);
    Choose("DeleteDraggedButton");
  }
  void ExpectFailure(const std::string& name, const std::string& why, BoxAnswer answer = BoxAnswer::Ok) {
    person.ExpectBox(DraggedFailed, Photo(name) + "\n\n" + why, answer);
  }
  void ExpectChanged(const std::string& name) {
    ExpectFailure(name, "The photo has been changed since it was dragged.");
  }
  // As the next start of the program loads it.
  void ReloadStrip() {
    strip.SrcLoadedPath.clear();
    run.Wait(0.1);
    run.LoadAll();
  }
  // An outside editor is started for the photo of the slot and saves it so; the program sees that.
  void Edit(int slot, const std::string& bytes) {
    SelectInStrip(slot);
    main.preview.bPicEdited = true;
    drive.Write(SelectedPhoto(main.preview), bytes);
    drive.SetTime(SelectedPhoto(main.preview), {2031, 5, 6, 7, 8, 9, 0});
    run.Wait(1.1);
    main.preview.bPicEdited = false;
    run.LoadAll();
  }
  // The photo becomes write-protected on the disk.
  void Protect(const std::string& name) { drive.SetMode(Photo(name), 0444); }
};

TEST_F(DeleteDraggedFormTest, TheDraggedPhotosLeaveDiskAndStripAndNothingElseDoes) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp", "d.bmp"});
  drive.Write(Photo("notes.txt"), "kept");
  const int slot = OpenWith("Family", {"x.bmp"});
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  person.Drag(strip.SrcThumbnail(3), desk.DestFolderPreview(slot));
  run.LoadAll();
  SelectInStrip(2);
  const std::string cache = drive.Read(Photo("Thumbnails.tmp"));
  DeleteThem([](Form& form) { EXPECT_EQ(TextOf(form, "DraggedCount"), "2 Dragged Photos"); });
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "d.bmp", "notes.txt"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("b.bmp", "d.bmp"));
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "2 pics");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "2 Total");
  // What was selected is so still; open folder, cache and the memory of the last drop are as they were.
  EXPECT_EQ(main.preview.PicPreview.Tag(), Photo("b.bmp"));
  EXPECT_TRUE(strip.SrcThumbFrame.Visible());
  EXPECT_THAT(FilesIn(Folder("Family")), ElementsAre("a.bmp", "c.bmp", "x.bmp"));
  EXPECT_THAT(ShownInView(), ElementsAre("x.bmp", "a.bmp", "c.bmp"));
  EXPECT_EQ(desk.DestPicsCount(slot).Caption(), "3 pics");
  EXPECT_TRUE(drive.Read(Photo("Thumbnails.tmp")) == cache);
  EXPECT_EQ(main.drop.LastDropFile, Folder("Family") + "\\c.bmp");
  EXPECT_EQ(main.drop.LastDropSrcIndex, 3);
}

TEST_F(DeleteDraggedFormTest, ASelectedPhotoThatGoesWithThemTakesTheSelectionAlong) {
  LoadMarked({"a.bmp", "b.bmp"}, {1});
  SelectInStrip(1);
  DeleteThem();
  EXPECT_EQ(main.preview.PicPreview.Tag(), "");
  EXPECT_FALSE(strip.SrcThumbFrame.Visible());
}

TEST_F(DeleteDraggedFormTest, AfterThemNothingIsDraggedAnyMore) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  DeleteThem();
  EXPECT_THAT(ShownInStrip(), IsEmpty());
  EXPECT_EQ(strip.SrcPicsCount.Caption(), "0 pics");
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "0 Total");
  Answer("DeletePhotosForm", "CancelButton",
         [](Form& form) { EXPECT_FALSE(Find<CommandButton>(form, "DeleteDraggedButton").Enabled()); });
  person.Click(strip.DeleteButton);
}

TEST_F(DeleteDraggedFormTest, InRemainingTheOthersStayWhereTheyAre) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp"}, {1});
  person.Click(strip.RemainingOption);
  DeleteThem();
  EXPECT_THAT(ShownInStrip(), ElementsAre("b.bmp", "c.bmp"));
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "c.bmp"));
}

TEST_F(DeleteDraggedFormTest, AWriteProtectedPhotoGetsItsMessageAndTheRunGoesOn) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp"}, {1, 2, 3});
  Protect("b.bmp");
  ExpectFailure("b.bmp", "Path/File access error");
  DeleteThem();
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Critical);
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp"));
  // It leaves the film strip though its file is still there.
  EXPECT_THAT(ShownInStrip(), IsEmpty());
  EXPECT_EQ(strip.SrcPicsTotal.Caption(), "1 Total");
}

TEST_F(DeleteDraggedFormTest, OnAWriteProtectedCardEachPhotoGetsItsMessage) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  drive.SetMode("C:\\Strip", 0555);
  ExpectFailure("a.bmp", "Path/File access error");
  ExpectFailure("b.bmp", "Path/File access error");
  DeleteThem();
  drive.SetMode("C:\\Strip", 0755);
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "b.bmp"));
}

TEST_F(DeleteDraggedFormTest, EscInAMessageStopsTheRunAndTheRestStaysInTheStrip) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp", "d.bmp"}, {1, 2, 3, 4});
  Protect("b.bmp");
  Protect("c.bmp");
  ExpectFailure("b.bmp", "Path/File access error", BoxAnswer::Cancel);
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "c.bmp", "d.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("c.bmp", "d.bmp"));
  EXPECT_EQ(person.Window("DeleteDraggedForm"), nullptr);
}

TEST_F(DeleteDraggedFormTest, InAStripThatIsStillLoadingNoDeletedPhotoComesBack) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp"}, {1, 2});
  strip.ThumbsPaused = "True";
  for (const char* name : {"d.bmp", "e.bmp", "f.bmp"}) MakePhoto(Photo(name));
  strip.SrcFileList.Refresh();
  Protect("b.bmp");
  person.ExpectBox(DraggedFailed, Photo("b.bmp") + "\n\nPath/File access error", BoxAnswer::Ok,
                   [this] { run.Wait(1); });
  DeleteThem([&](Form&) { strip.ThumbsPaused = "False"; });
  run.LoadAll();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "c.bmp", "d.bmp", "e.bmp", "f.bmp"));
  for (int i = 1; i <= strip.SrcSlotCount; ++i) EXPECT_NE(PhotoOf(strip, i), Photo("a.bmp")) << i;
  EXPECT_GT(strip.SrcSlotCount, 3) << "the loading has gone on";
}

TEST_F(DeleteDraggedFormTest, ALongRunLetsTheWindowLiveAndCancelStopsIt) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp", "d.bmp"}, {1, 2, 3, 4});
  run.files.BeforeNth(FileCall::Delete, 2, [&] {
    run.platform.clock.CountFor(0.1);
    person.During([&] {
      Form* form = person.Window("DeleteDraggedForm");
      ASSERT_NE(form, nullptr);
      EXPECT_FALSE(Find<CommandButton>(*form, "DeleteButton").Enabled());
      person.Click(Find<CommandButton>(*form, "CancelButton"));
    });
  });
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("c.bmp", "d.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("c.bmp", "d.bmp"));
  EXPECT_TRUE(IsMarked(strip, 3));
}

TEST_F(DeleteDraggedFormTest, ClosingTheFormStopsARunToo) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp"}, {1, 2, 3});
  run.files.BeforeNth(FileCall::Delete, 1, [&] {
    run.platform.clock.CountFor(0.1);
    person.During([&] { person.Close(*person.Window("DeleteDraggedForm")); });
  });
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "c.bmp"));
}

TEST_F(DeleteDraggedFormTest, APhotoThatIsMarkedOrRecoveredAfterTheQuestionIsNotDeleted) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp"}, {1, 2});
  DeleteThem([&](Form&) {
    strip.SrcThumbName(1).SetTag("");
    strip.SrcThumbName(3).SetTag("MARK");
  });
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "c.bmp"));
  EXPECT_THAT(ShownInStrip(), ElementsAre("a.bmp", "c.bmp"));
}

TEST_F(DeleteDraggedFormTest, PhotosOfAnotherFolderThatHasTakenTheFoldersNameStay) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  ExpectFailure("a.bmp", "Path/File access error");
  ExpectFailure("b.bmp", "Path/File access error");
  DeleteThem([&](Form&) {
    drive.DriveFiles().Rename("C:\\Strip", "C:\\Away");
    MakePhoto(Photo("a.bmp"));
    MakePhoto(Photo("b.bmp"));
  });
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "b.bmp"));
  EXPECT_THAT(FilesIn("C:\\Away"), ElementsAre("a.bmp", "b.bmp"));
}

TEST_F(DeleteDraggedFormTest, AnotherPhotoThatHasTakenADraggedOnesNameStays) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  drive.Write(Photo("a.bmp"), BmpPhoto(8, 8));
  ExpectFailure("a.bmp", "The photo has been changed since it was dragged.");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
  EXPECT_TRUE(drive.Read(Photo("a.bmp")) == BmpPhoto(8, 8));
}

TEST_F(DeleteDraggedFormTest, MarksOfAnEarlierSessionAreGoodForWhatIsThereWhenTheyAreLoaded) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  strip.SrcLoadedPath.clear();
  run.Wait(0.1);
  run.LoadAll();
  drive.Write(Photo("a.bmp"), BmpPhoto(8, 8));
  ExpectFailure("a.bmp", "The photo has been changed since it was dragged.");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteDraggedFormTest, AnotherPhotoOfTheSameLengthThatHasTakenADraggedOnesNameStays) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  MakePhoto(Photo("a.bmp"), 0x00FF0000);
  drive.SetTime(Photo("a.bmp"), {2031, 5, 6, 7, 8, 9, 0});
  ExpectChanged("a.bmp");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteDraggedFormTest, APhotoOfWhichNothingIsKnownSinceItWasDraggedStays) {
  LoadMarked({"a.bmp", "b.bmp"}, {1});
  strip.SrcThumbName(2).SetTag("MARK");
  ExpectChanged("b.bmp");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp"));
}

TEST_F(DeleteDraggedFormTest, APhotoThatIsReplacedWhileItsDropAsksAboutADuplicateStays) {
  LoadStrip({"a.bmp"});
  main.preferences.DuplicatesAskOption.SetValue(true);
  const int slot = OpenWith("Family", {"same.bmp"});
  drive.Write(Folder("Family") + "\\same.bmp", drive.Read(Photo("a.bmp")));
  desk.DestFolderFiles(slot).Refresh();
  person.ExpectForm("DuplicateAskForm", [&](Person& hand, Form& form) {
    drive.Write(Photo("a.bmp"), BmpPhoto(8, 8));
    hand.Click(Find<CommandButton>(form, "IgnoreButton"));
  });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(slot));
  run.LoadAll();
  ExpectChanged("a.bmp");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteDraggedFormTest, APhotoThatWasEditedAfterItWasDraggedStays) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  Edit(1, BmpPhoto(8, 8));
  ASSERT_TRUE(IsMarked(strip, 1));
  ExpectChanged("a.bmp");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteDraggedFormTest, APhotoThatWasEditedAfterItWasDraggedStaysAtTheNextStartToo) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  Edit(1, BmpPhoto(8, 8));
  ReloadStrip();
  ReloadStrip();
  ASSERT_TRUE(IsMarked(strip, 1));
  ExpectChanged("a.bmp");
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(DeleteDraggedFormTest, AnEditedPhotoThatIsMarkedOnceMoreCanBeDeleted) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  Edit(1, BmpPhoto(8, 8));
  Mark(1);
  Mark(1);
  ReloadStrip();
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), IsEmpty());
}

TEST_F(DeleteDraggedFormTest, APhotoThatAnEditorIsStartedForAndThatStaysAsItWasCanBeDeletedAtTheNextStart) {
  LoadMarked({"a.bmp"}, {1});
  SelectInStrip(1);
  main.preview.bPicEdited = true;
  run.Wait(2.1);
  main.preview.bPicEdited = false;
  ReloadStrip();
  DeleteThem();
  EXPECT_THAT(FilesIn("C:\\Strip"), IsEmpty());
}

TEST_F(DeleteDraggedFormTest, OfALinkThatHasTakenAPhotosNameOnlyTheLinkGoes) {
  LoadMarked({"a.bmp", "b.bmp"}, {1, 2});
  drive.Write("C:\\Elsewhere\\kept.bmp", "kept");
  drive.Remove(Photo("a.bmp"));
  drive.MakeLink(Photo("a.bmp"), drive.HostPath("C:\\Elsewhere\\kept.bmp"));
  drive.Remove(Photo("b.bmp"));
  drive.Write(Photo("b.bmp") + "\\kept.bmp", "kept");
  ExpectFailure("b.bmp", "Path/File access error");
  DeleteThem();
  EXPECT_FALSE(drive.Exists(Photo("a.bmp")));
  EXPECT_TRUE(drive.Exists("C:\\Elsewhere\\kept.bmp"));
  EXPECT_TRUE(drive.Exists(Photo("b.bmp") + "\\kept.bmp"));
}

TEST_F(DeleteDraggedFormTest, TheFolderIsFlushedOnceForAllOfThem) {
  LoadMarked({"a.bmp", "b.bmp", "c.bmp"}, {1, 2, 3});
  const int before = run.files.Count(FileCall::FlushFolder);
  DeleteThem();
  EXPECT_EQ(run.files.Count(FileCall::FlushFolder), before + 1);
}

TEST_F(DeleteDraggedFormTest, EachOfManyPhotosCostsAsMuchAsEachOfFew) {
  const auto callsFor = [&](int count) {
    const std::string folder = LoadMany(count);
    const auto calls = [&] {
      int sum = 0;
      for (const FileCall call : {FileCall::Names, FileCall::Attributes, FileCall::NameTaken, FileCall::Length,
                                  FileCall::OpenToRead, FileCall::Delete, FileCall::IdentityOf})
        sum += run.files.Count(call);
      return sum;
    };
    const int before = calls();
    DeleteThem();
    EXPECT_THAT(FilesIn(folder), IsEmpty());
    return calls() - before;
  };
  const int few = callsFor(20);
  EXPECT_LE(callsFor(200) - 10 * few, 0);
}

}  // namespace
}  // namespace pixorra
