// Renaming the selected photo: the box, the names it takes, and all that follows the file.
#include <algorithm>
#include <gmock/gmock.h>

#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "preview/FullSizePreview.h"
#include "tests/platform/posix/OrdinaryUser.h"
#include "tests/selected/SelectedTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

constexpr const char* RenameFailed = "Unable to rename Selected Photo";

class RenameSelectedPhotoTest : public SelectedTest {
 protected:
  using Look = std::function<void(TextBox&)>;

  static TextBox& Box(Form& form) { return static_cast<TextBox&>(*form.Controls().front()); }
  // The next time that the box is up: a look at it, then this name and Enter.
  void Answer(const std::string& name, const Look& look = {}) {
    person.ExpectForm("RenamePreviewPicForm", [=](Person& hand, Form& form) {
      if (look) look(Box(form));
      hand.Fill(Box(form), name);
      hand.Key(key::Return);
    });
  }
  void Esc() {
    person.ExpectForm("RenamePreviewPicForm", [](Person& hand, Form&) { hand.Key(key::Escape); });
  }
  void Rename() { person.ChooseMenu(main.menu.RenameMenuItem); }
  void RenameTo(const std::string& name) {
    Answer(name);
    Rename();
  }
  void ExpectInUse(const std::string& name) { person.ExpectBox(name, "Name is already in use."); }
};

TEST_F(RenameSelectedPhotoTest, TheBoxOffersTheNameWithoutItsExtensionAllSelected) {
  LoadStrip({"PIC.1.bmp"});
  SelectInStrip(1);
  person.ExpectForm("RenamePreviewPicForm", [](Person& hand, Form& form) {
    EXPECT_EQ(form.Caption(), " Rename Selected Photo");
    TextBox& box = Box(form);
    EXPECT_EQ(box.Name(), "NewPicNameBox");
    EXPECT_EQ(box.ToolTipText(), "Press <ENTER> key to rename photo, or <ESC> to cancel");
    EXPECT_EQ(box.Text(), "PIC");
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 3);
    EXPECT_TRUE(box.HasFocus());
    hand.Type("Lake");
    hand.Key(key::Return);
  });
  Rename();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("Lake.1.bmp"));
  EXPECT_EQ(SelectedPath(), Photo("Lake.1.bmp"));
  EXPECT_EQ(strip.SrcThumbName(1).Caption(), "Lake");
  EXPECT_EQ(strip.SrcThumbName(1).ToolTipText(), "Lake.1.bmp");
  EXPECT_EQ(main.preview.PicPreviewSize.Caption(), " W80 x H60   Lake.1.bmp ");
}

TEST_F(RenameSelectedPhotoTest, TheBoxLiesOverThePaneAndOnTheScreen) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  const auto placed = [&](const std::function<void(const Form&)>& look) {
    person.ExpectForm("RenamePreviewPicForm", [look](Person& hand, Form& form) {
      look(form);
      hand.Key(key::Escape);
    });
    Rename();
  };
  main.Window.SetTwipsLeft(3000);
  main.Window.SetTwipsTop(2000);
  const ImageBox& pane = main.preview.PicPreview;
  placed([&](const Form& form) {
    const double left = form.TwipsLeft() - main.Window.TwipsLeft();
    const double top = form.TwipsTop() - main.Window.TwipsTop();
    EXPECT_NEAR(left + form.TwipsWidth() / 2, (4 + pane.Left() + pane.Width() / 2.0) * 15, 15);
    EXPECT_GE(top, pane.Top() * 15);
    EXPECT_LE(top + form.TwipsHeight(), (23 + run.platform.toolkit.MenuBarHeight() + pane.Top() + pane.Height()) * 15);
  });
  main.Window.SetTwipsLeft(-4000);
  main.Window.SetTwipsTop(-4000);
  placed([](const Form& form) {
    EXPECT_EQ(form.TwipsLeft(), 0);
    EXPECT_EQ(form.TwipsTop(), 0);
  });
}

TEST_F(RenameSelectedPhotoTest, TheBoxLiesOverThePaneOfAWindowOnAnotherScreenAndOfAMaximisedOne) {
  const int second = run.platform.backend.AddScreen(1600, 1200);
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  main.Window.SetTwipsLeft(1400 * 15);
  main.Window.SetTwipsTop(100 * 15);
  const auto expectOver = [&](double left, double top) {
    const ImageBox& pane = main.preview.PicPreview;
    const double across = (left + 4 + pane.Left() + pane.Width() / 2.0) * 15;
    const double down = (top + 23 + run.platform.toolkit.MenuBarHeight() + pane.Top() + pane.Height() / 2.0) * 15;
    person.ExpectForm("RenamePreviewPicForm", [=](Person& hand, Form& form) {
      EXPECT_NEAR(form.TwipsLeft(), std::max(across - form.TwipsWidth() / 2, 1280.0 * 15), 15) << "and on the screen";
      EXPECT_NEAR(form.TwipsTop() + form.TwipsHeight() / 2, down, 15);
      hand.Key(key::Escape);
    });
    Rename();
  };
  expectOver(1400, 100);
  main.Window.SetWindowState(windowstate::Maximised);
  EXPECT_EQ(main.Window.TwipsWidth(), run.platform.toolkit.GetScreen(second).Width) << "of the screen that it is on";
  EXPECT_EQ(main.Window.TwipsLeft(), 1400 * 15);
  expectOver(1280, 0);
}

TEST_F(RenameSelectedPhotoTest, EscAndClosingTheBoxLeaveTheFileAsItWas) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  person.ExpectForm("RenamePreviewPicForm", [](Person& hand, Form& form) {
    hand.Fill(Box(form), "b");
    hand.Key(key::Escape);
  });
  Rename();
  person.ExpectForm("RenamePreviewPicForm", [](Person& hand, Form& form) {
    hand.Fill(Box(form), "b");
    hand.Close(form);
  });
  Rename();
  Answer("   ");
  Rename();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
  EXPECT_EQ(SelectedPath(), Photo("a.bmp"));
}

TEST_F(RenameSelectedPhotoTest, CharactersThatNoNameMayHaveAreRefusedWithABeep) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  person.ExpectForm("RenamePreviewPicForm", [&](Person& hand, Form& form) {
    hand.Fill(Box(form), "n");
    hand.Type("\\[]{}\"<>?/,.*");
    EXPECT_EQ(Box(form).Text(), "n");
    EXPECT_EQ(run.platform.dialogs.Beeps(), 13);
    hand.Type("ew 'name'");
    hand.Key(key::Return);
  });
  Rename();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("new 'name'.bmp"));
}

TEST_F(RenameSelectedPhotoTest, WhatIsPastedCannotLeadOutOfTheFolderEither) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  for (const char* pasted : {"..\\b", "/etc/b", "b.jpg"}) {
    person.ExpectForm("RenamePreviewPicForm", [pasted](Person& hand, Form& form) {
      Box(form).UserTyped(pasted);
      hand.Key(key::Return);
    });
    person.ExpectBox(pasted, "cannot have any of these characters");
    Esc();
    Rename();
  }
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
}

TEST_F(RenameSelectedPhotoTest, ANameThatIsTakenIsRefusedAndAskedForAgain) {
  LoadStrip({"a.bmp", "b.bmp"});
  drive.Write(Photo("Notes.bmp") + "\\in a folder", "kept");
  const std::string other = drive.Read(Photo("b.bmp"));
  SelectInStrip(1);
  const auto expectTaken = [&](const char* typed, const char* existing) {
    Answer(typed, [](TextBox& box) { EXPECT_EQ(box.Text(), "a"); });
    ExpectInUse(existing);
  };
  expectTaken("a", "a.bmp");
  expectTaken("b", "b.bmp");
  // The title is the name that there is.
  expectTaken("B", "b.bmp");
  expectTaken("notes", "Notes.bmp");
  Answer("c");
  Rename();
  for (const auto& box : run.platform.dialogs.Boxes()) EXPECT_EQ(box.Icon, BoxIcon::Exclamation);
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp", "c.bmp"));
  EXPECT_EQ(drive.Read(Photo("b.bmp")), other);
}

TEST_F(RenameSelectedPhotoTest, ANameThatIsTakenInTheLastMomentReplacesNothing) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  run.files.BeforeNth(FileCall::Rename, 1, [&] { drive.Write(Photo("b.bmp"), "another's"); });
  Answer("b");
  ExpectInUse("b.bmp");
  Esc();
  Rename();
  EXPECT_EQ(drive.Read(Photo("b.bmp")), "another's");
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
}

TEST_F(RenameSelectedPhotoTest, AFileOfAnotherLetterCaseIsNotRenamedInPlaceOfAPhotoThatHasGone) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  Answer("b", [&](TextBox&) {
    drive.Remove(Photo("a.bmp"));
    drive.Write(Photo("A.BMP"), "another's");
  });
  person.ExpectBox(RenameFailed, Photo("a.bmp") + "\n\nFile not found");
  Rename();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("A.BMP"));
}

TEST_F(RenameSelectedPhotoTest, TheWindowAtFullSizeShowsTheRenamedPhotoOn) {
  drive.Write(Photo("big.bmp"), BmpPhoto(640, 480));
  LoadStrip({"a.bmp"});
  SelectInStrip(2);
  DisplayFullSizePreview(main, Photo("big.bmp"));
  ASSERT_EQ(main.preview.sFullSizeFile, Photo("big.bmp"));
  RenameTo("large");
  EXPECT_EQ(main.preview.sFullSizeFile, Photo("large.bmp"));
}

TEST_F(RenameSelectedPhotoTest, ANameThatTheDiskRefusesGetsAMessageAndIsAskedForAgain) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  Answer(std::string(300, 'n'));
  person.ExpectBox(RenameFailed, Photo("a.bmp") + "\n\nBad file name or number");
  Answer("b");
  Rename();
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("b.bmp"));
}

TEST_F(RenameSelectedPhotoTest, OnALockedCardAMessageEndsIt) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  const OrdinaryUser user(drive.HostRoot());
  if (!user.Binds()) GTEST_SKIP() << "permissions bind nobody here";
  drive.SetMode("C:\\Strip", 0555);
  Answer("b");
  person.ExpectBox(RenameFailed, Photo("a.bmp") + "\n\nPath/File access error");
  Rename();
  drive.SetMode("C:\\Strip", 0755);
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp"));
  EXPECT_EQ(SelectedPath(), Photo("a.bmp"));
}

TEST_F(RenameSelectedPhotoTest, APhotoThatHasGoneOrBecomeAFolderOrWriteProtectedIsNotRenamed) {
  LoadStrip({"a.bmp"});
  const auto expectRefused = [&](const char* why, const std::function<void()>& meanwhile) {
    SelectInStrip(1);
    Answer("b", [&](TextBox&) { meanwhile(); });
    person.ExpectBox(RenameFailed, Photo("a.bmp") + "\n\n" + why);
    Rename();
    EXPECT_FALSE(drive.Exists(Photo("b.bmp")));
  };
  expectRefused("Path/File access error", [&] { drive.SetMode(Photo("a.bmp"), 0444); });
  drive.SetMode(Photo("a.bmp"), 0644);
  expectRefused("File not found", [&] { drive.Remove(Photo("a.bmp")); });
  MakePhoto(Photo("a.bmp"), 0x10);
  expectRefused("File not found", [&] {
    drive.Remove(Photo("a.bmp"));
    drive.MakeFolder(Photo("a.bmp"));
  });
}

TEST_F(RenameSelectedPhotoTest, InTheOpenFolderCellListAndPaneFollowAndTheStripStays) {
  LoadStrip({"a.bmp"});
  OpenFamily({"x.bmp", "y.bmp", "z.bmp"});
  SelectInView(2);
  RenameTo("after");
  EXPECT_THAT(FilesIn("C:\\Home\\Family"), ElementsAre("after.bmp", "x.bmp", "z.bmp"));
  EXPECT_EQ(PhotoOf(desk, 2), InFamily("after.bmp"));
  EXPECT_EQ(desk.DestThumbName(2).Caption(), "after");
  EXPECT_EQ(desk.DestThumbName(2).ToolTipText(), "after.bmp");
  EXPECT_EQ(desk.DestFileList.List(0), "after.bmp");
  EXPECT_EQ(desk.DestFolderFiles(1).List(0), "after.bmp");
  EXPECT_EQ(SelectedPath(), InFamily("after.bmp"));
  EXPECT_TRUE(desk.DestThumbFrame.Visible());
  EXPECT_EQ(PhotoOf(strip, 1), Photo("a.bmp"));
  run.Wait(0.2);
  EXPECT_EQ(desk.DestSlotCount, 3);
}

TEST_F(RenameSelectedPhotoTest, InTheStripNothingIsLoadedTwiceUnderTheOldName) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  SelectInStrip(2);
  RenameTo("z");
  EXPECT_EQ(strip.SrcFileList.List(2), "z.bmp");
  MakePhoto(Photo("d.bmp"), 0x77);
  strip.SrcFileList.Refresh();
  run.LoadAll();
  EXPECT_EQ(strip.SrcSlotCount, 4);
  EXPECT_EQ(PhotoOf(strip, 2), Photo("z.bmp"));
  EXPECT_EQ(PhotoOf(strip, 4), Photo("d.bmp"));
}

TEST_F(RenameSelectedPhotoTest, WhereStripAndOpenFolderAreOneFolderBothShowTheNewName) {
  LoadStrip({"a.bmp", "b.bmp", "c.bmp"});
  Open("C:\\Strip");
  SelectInStrip(1);
  SelectInView(3);
  RenameTo("z");
  EXPECT_EQ(PhotoOf(strip, 1), Photo("a.bmp"));
  EXPECT_EQ(PhotoOf(strip, 3), Photo("z.bmp"));
  EXPECT_EQ(strip.SrcThumbName(3).Caption(), "z");
  EXPECT_EQ(PhotoOf(desk, 3), Photo("z.bmp"));
  EXPECT_EQ(desk.DestThumbName(3).Caption(), "z");
}

TEST_F(RenameSelectedPhotoTest, ADraggedPhotoStaysMarkedNowAndAfterTheNextStart) {
  LoadStrip({"a.bmp", "b.bmp"});
  person.DoubleClick(strip.SrcBackground(1));
  SelectInStrip(1);
  person.Click(strip.RemainingOption);
  person.Click(strip.AllOption);
  SelectInStrip(1);
  RenameTo("z");
  EXPECT_TRUE(IsMarked(strip, 1));
  person.Click(strip.RemainingOption);
  EXPECT_FALSE(strip.SrcThumbnail(1).Visible());
  person.Click(strip.AllOption);
  // The thumbnail has moved with the mark: no new record is made for it.
  const std::size_t size = drive.Read(Photo("Thumbnails.tmp")).size();
  strip.SrcLoadedPath.clear();
  run.Wait(0.1);
  run.LoadAll();
  EXPECT_EQ(PhotoOf(strip, 2), Photo("z.bmp"));
  EXPECT_TRUE(IsMarked(strip, 2));
  EXPECT_FALSE(IsMarked(strip, 1));
  EXPECT_EQ(drive.Read(Photo("Thumbnails.tmp")).size(), size);
}

TEST_F(RenameSelectedPhotoTest, UndoStillKnowsTheLastDropByItsNewName) {
  LoadStrip({"a.bmp", "b.bmp"});
  OpenFamily({"x.bmp"});
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  run.LoadAll();
  SelectInView(1);
  RenameTo("w");
  EXPECT_EQ(main.drop.LastDropFile, InFamily("a.bmp"));
  SelectInView(2);
  RenameTo("z");
  EXPECT_EQ(main.drop.LastDropFile, InFamily("z.bmp"));
  EXPECT_EQ(main.drop.LastDropSrcIndex, 1);
}

TEST_F(RenameSelectedPhotoTest, WithNothingSelectedNothingIsAsked) {
  LoadStrip({"a.bmp"});
  main.menu.RenameMenuItem.UserClicked();
  SelectInStrip(1);
  main.drop.DropAllRunning = true;
  main.menu.RenameMenuItem.UserClicked();
  EXPECT_EQ(run.platform.dialogs.Beeps(), 1);
}

TEST_F(RenameSelectedPhotoTest, TheFolderIsFlushedWithTheNewName) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  const int before = run.files.Count(FileCall::FlushFolder);
  RenameTo("b");
  EXPECT_EQ(run.files.Count(FileCall::FlushFolder), before + 1);
}

}  // namespace
}  // namespace pixorra
