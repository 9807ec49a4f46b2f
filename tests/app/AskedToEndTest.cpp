// The end that the host asks for, by a signal or with its session: whatever the program is at, it ends as by closing
// its window.
#include <gtest/gtest.h>

#include "app/Shutdown.h"
#include "desktop/FolderRename.h"
#include "preview/FullSizePreview.h"
#include "tests/support/headless/SortingTest.h"
#include "window/DropState.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* StateKept = "C:\\Windows\\Pixorra.sav";

class AskedToEndTest : public SortingTest {
 protected:
  // A strip of photos, a folder, and a photo in the Trashcan.
  void LayOut(const std::vector<std::string>& names = {"a.bmp", "b.bmp", "c.bmp"}) {
    LoadStrip(names);
    drive.MakeFolder(Folder("F"));
    Select_a_Folder(main, Display_a_New_Folder(main, Folder("F")));
    MakePhoto("C:\\Program\\Trashcan\\old.bmp");
    desk.DestFolderFiles(TrashcanSlot).Refresh();
    run.LoadAll();
    main.preferences.EmptyTrashcanCheckbox.SetValue(1);
  }
  void Ask() { run.platform.toolkit.AskToEnd(); }
  // The end as by the window's frame.
  void ExpectEnded() {
    run.Wait(1);
    EXPECT_TRUE(run.platform.toolkit.Ended());
    EXPECT_FALSE(main.Window.IsLoaded());
    const std::string state = drive.Exists(StateKept) ? drive.Read(StateKept) : std::string("none");
    EXPECT_NE(state.find("\"C:\\Strip\"\r\n\"C:\\Home\\F\"\r\n"), std::string::npos) << state;
    EXPECT_FALSE(drive.Exists("C:\\Program\\Trashcan\\old.bmp"));
    EXPECT_TRUE(run.platform.dialogs.Boxes().empty() || boxes_);
  }
  void ExpectWhole(const std::string& copy, const std::string& photo) {
    EXPECT_EQ(drive.Read(Folder("F") + "\\" + copy), drive.Read(Photo(photo)));
  }

  bool boxes_ = false;  // some came up, as the test wants
};

TEST_F(AskedToEndTest, Idle) {
  LayOut();
  Ask();
  ExpectEnded();
}

TEST_F(AskedToEndTest, ASecondTimeWhileItEndsTheStateIsWrittenToItsEnd) {
  LayOut();
  run.files.BeforeNth(FileCall::Flush, 1, [&] {
    Ask();
    Ask();
  });
  Ask();
  ExpectEnded();
}

TEST_F(AskedToEndTest, InABoxThatAsksTheAnswerIsTheLeast) {
  LayOut();
  boxes_ = true;
  person.ExpectBox("The Film Strip", "sure", BoxAnswer::Yes, [&] {
    Ask();
    run.Wait(1);
    EXPECT_FALSE(run.platform.toolkit.Ended());
  });
  EXPECT_EQ(main.host.dialogs.MsgBox("Are you sure?", BoxIcon::Question, BoxButtons::YesNo, "The Film Strip"),
            BoxAnswer::No);
  ExpectEnded();
}

TEST_F(AskedToEndTest, InAFormThatHidesWhenItIsClosed) {
  LayOut();
  person.ExpectForm("PreferencesForm", [&](Person&, Form&) { Ask(); });
  person.ChooseMenu(main.menu.PreferenceMenuItem);
  ExpectEnded();
}

TEST_F(AskedToEndTest, InADropThatAsksForANameNothingIsCopied) {
  LayOut();
  main.preferences.RenameAskOption.SetValue(true);
  MakePhoto(Folder("F") + "\\a.bmp", 0x00777777);
  const std::string taken = drive.Read(Folder("F") + "\\a.bmp");
  person.ExpectForm("RenameAskForm", [&](Person&, Form&) { Ask(); });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  ExpectEnded();
  EXPECT_EQ(drive.Read(Folder("F") + "\\a.bmp"), taken);
  EXPECT_EQ(drive.DriveFiles().Names(Folder("F"), "*.bmp", 0).size(), 1U);
}

TEST_F(AskedToEndTest, InADropThatAsksAboutADuplicateBothStay) {
  LayOut();
  main.preferences.DuplicatesAskOption.SetValue(true);
  drive.Write(Folder("F") + "\\same.bmp", drive.Read(Photo("a.bmp")));
  person.ExpectForm("DuplicateAskForm", [&](Person&, Form&) { Ask(); });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolder(1));
  ExpectEnded();
  ExpectWhole("same.bmp", "a.bmp");
  ExpectWhole("a.bmp", "a.bmp");
}

TEST_F(AskedToEndTest, InABoxOverAForm) {
  LayOut();
  boxes_ = true;
  person.ExpectBox("Title", "Text", BoxAnswer::Yes, [&] { Ask(); });
  person.ExpectForm("PreferencesForm", [&](Person&, Form&) {
    EXPECT_EQ(main.host.dialogs.MsgBox("Text", BoxIcon::Question, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  });
  person.ChooseMenu(main.menu.PreferenceMenuItem);
  ExpectEnded();
}

TEST_F(AskedToEndTest, InAQuestionAboutDeletingNothingIsDeleted) {
  LayOut();
  person.Click(strip.SrcThumbnail(1));
  person.ExpectForm("DeletePhotosForm", [&](Person& hand, Form& form) {
    for (Control* control : form.Controls()) {
      if (control->Name() == "DeleteSelectedButton") hand.Click(*control);
    }
  });
  person.ExpectForm("DeleteSelectedForm", [&](Person&, Form&) { Ask(); });
  person.Click(strip.DeleteButton);
  ExpectEnded();
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
}

TEST_F(AskedToEndTest, InADropOfTheWholeStripThePhotoThatItIsAtIsCopiedWhole) {
  LayOut({"a.bmp", "b.bmp", "c.bmp", "d.bmp", "e.bmp"});
  person.During([&] { return drive.Exists(Folder("F") + "\\b.bmp"); }, [&] { Ask(); });
  person.Drag(strip.AllButton, desk.DestFolder(1));
  ExpectEnded();
  ExpectWhole("a.bmp", "a.bmp");
  ExpectWhole("b.bmp", "b.bmp");
  EXPECT_FALSE(drive.Exists(Folder("F") + "\\e.bmp"));
}

TEST_F(AskedToEndTest, WhileTheStripIsLoading) {
  std::vector<std::string> names;
  for (int i = 0; i < 20; ++i) names.push_back("p" + std::to_string(10 + i) + ".bmp");
  LayOut(names);
  strip.SrcLoadedPath.clear();
  run.Wait(0.2);
  ASSERT_GT(strip.SrcSlotCount, 0);
  ASSERT_LT(strip.SrcSlotCount, 20);
  Ask();
  ExpectEnded();
}

TEST_F(AskedToEndTest, WithAPhotoAtFullSize) {
  LayOut();
  person.Click(strip.SrcThumbnail(1));
  drive.Write(Photo("large.bmp"), BmpPhoto(320, 240));
  DisplayFullSizePreview(main, Photo("large.bmp"));
  ASSERT_NE(person.Window("PreviewForm"), nullptr);
  Ask();
  ExpectEnded();
}

TEST_F(AskedToEndTest, WhileAPhotoIsDragged) {
  LayOut();
  person.Press(strip.SrcThumbnail(1));
  person.MoveTo(desk.DestFolder(1));
  ASSERT_NE(run.platform.toolkit.Drag().Source, nullptr);
  Ask();
  ExpectEnded();
  EXPECT_FALSE(drive.Exists(Folder("F") + "\\a.bmp"));
}

TEST_F(AskedToEndTest, WhileAFolderIsRenamedItGetsTheNameThatWasTyped) {
  LayOut();
  RenameFolderStart(main, 1);
  person.Type("G");
  Ask();
  run.Wait(1);
  EXPECT_TRUE(run.platform.toolkit.Ended());
  EXPECT_NE(drive.Read(StateKept).find("\"C:\\Home\\G\"\r\n"), std::string::npos) << drive.Read(StateKept);
}

TEST_F(AskedToEndTest, AStateThatCannotBeWrittenKeepsNobodyWaiting) {
  LayOut();
  drive.Write(StateKept, "the run before");
  run.files.FillDiskAfter(10);
  Ask();
  run.Wait(1);
  EXPECT_TRUE(run.platform.toolkit.Ended());
  EXPECT_EQ(drive.Read(StateKept), "the run before");
}

TEST_F(AskedToEndTest, BeforeTheStateOfTheRunBeforeIsReadItIsNotLost) {
  EndRun();
  WriteSavedState(StateLines("C:\\Strip", {Folder("F")}));
  const std::string before = drive.Read(StateKept);
  ProgramRun& next = NewRun();
  next.platform.toolkit.AskToEnd();
  next.platform.toolkit.DoEvents();
  EXPECT_FALSE(next.platform.toolkit.Ended());
  drive.Write("C:\\Strip\\a.bmp", BmpPhoto(8, 8));
  drive.MakeFolder(Folder("F"));
  next.Start();
  next.Wait(1);
  EXPECT_TRUE(next.platform.toolkit.Ended());
  EXPECT_EQ(drive.Read(StateKept).substr(20), before.substr(20));
}

TEST_F(AskedToEndTest, ASessionThatIsSavedKeepsTheStateAndTheProgramGoesOn) {
  LayOut();
  SaveForSession(main);
  EXPECT_NE(drive.Read(StateKept).find("\"C:\\Strip\"\r\n\"C:\\Home\\F\"\r\n"), std::string::npos);
  EXPECT_TRUE(drive.Exists("C:\\Program\\Trashcan\\old.bmp"));
  EXPECT_FALSE(run.platform.toolkit.Ended());
  drive.Write(StateKept, "the run before");
  main.Window.SetVisible(false);
  SaveForSession(main);
  EXPECT_EQ(drive.Read(StateKept), "the run before");
}

}  // namespace
}  // namespace pixorra
