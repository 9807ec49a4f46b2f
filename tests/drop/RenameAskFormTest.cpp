// The dialog that asks for another name, and the drop that waits for it.
#include <gmock/gmock.h>

#include "drop/RenameAskForm.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/TextBox.h"
#include "tests/drop/DropTest.h"
#include "utility/HelpPages.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

constexpr const char* Taken = "C:\\Home\\F\\Photo.bmp";

class RenameAskFormTest : public DropTest {
 protected:
  RenameAskFormTest() {
    main.preferences.RenameAskOption.SetValue(true);
    MakePhoto(Taken, 0x00777777);
  }
  // When the dialog is up: a text for one of its boxes and that box's button.
  void AnswerWith(const std::string& box, const std::string& text, const std::string& button) {
    person.ExpectForm("RenameAskForm", [=](Person& hand, Form& form) {
      hand.Fill(Find<TextBox>(form, box), text);
      hand.Click(Find<CommandButton>(form, button));
    });
  }
  void PressButton(const std::string& button) {
    person.ExpectForm("RenameAskForm",
                      [=](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, button)); });
  }
};

TEST_F(RenameAskFormTest, TheDialogOffersAGeneratedAndANumberedNameWithoutExtension) {
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) {
    EXPECT_EQ(form.Caption(), "Photo Name Already Exists");
    EXPECT_EQ(Find<Label>(form, "ExistsName").Caption(), "Photo");
    EXPECT_EQ(Find<TextBox>(form, "AlwaysName").Text(), "PXR00001");
    EXPECT_EQ(Find<TextBox>(form, "UniqueName").Text(), "Photo1");
    EXPECT_EQ(Find<CommandButton>(form, "AlwaysNameButton").Caption(), "&Rename as");
    EXPECT_EQ(Find<CommandButton>(form, "UniqueNameButton").Caption(), "Rename &as");
    hand.ExpectBox(TitleOf(HelpTopic::Rename, 1), PagesOf(HelpTopic::Rename)[0]);
    hand.Click(Find<CommandButton>(form, "HelpButton"));
    hand.Click(Find<CommandButton>(form, "UniqueNameButton"));
  });
  EXPECT_EQ(RenameNewPhoto(main, Taken), "C:\\Home\\F\\Photo1.bmp");
}

TEST_F(RenameAskFormTest, EachButtonTakesTheTextOfItsBox) {
  PressButton("AlwaysNameButton");
  EXPECT_EQ(RenameNewPhoto(main, Taken), "C:\\Home\\F\\PXR00001.bmp");
  AnswerWith("UniqueName", "Summer", "UniqueNameButton");
  EXPECT_EQ(RenameNewPhoto(main, Taken), "C:\\Home\\F\\Summer.bmp");
}

TEST_F(RenameAskFormTest, WhatIsTypedReplacesTheFirstNameAndTheFocusGoesBackAfterwards) {
  main.desk.FolderRenameBox.SetVisible(true);
  main.desk.FolderRenameBox.SetFocus();
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) {
    hand.Type("Lake");
    EXPECT_EQ(Find<TextBox>(form, "AlwaysName").Text(), "Lake");
    hand.Click(Find<CommandButton>(form, "AlwaysNameButton"));
  });
  EXPECT_EQ(RenameNewPhoto(main, Taken), "C:\\Home\\F\\Lake.bmp");
  EXPECT_TRUE(main.desk.FolderRenameBox.HasFocus());
}

TEST_F(RenameAskFormTest, AControlThatIsHiddenMeanwhileDoesNotGetTheFocusBack) {
  main.desk.FolderRenameBox.SetVisible(true);
  main.desk.FolderRenameBox.SetFocus();
  person.ExpectForm("RenameAskForm", [&](Person& hand, Form& form) {
    main.desk.FolderRenameBox.SetVisible(false);
    hand.Click(Find<CommandButton>(form, "CancelButton"));
  });
  EXPECT_EQ(RenameNewPhoto(main, Taken), "");
  EXPECT_FALSE(main.desk.FolderRenameBox.HasFocus());
}

TEST_F(RenameAskFormTest, CancelEscapeAndTheFrameGiveNoName) {
  PressButton("CancelButton");
  EXPECT_EQ(RenameNewPhoto(main, Taken), "");
  person.ExpectForm("RenameAskForm", [](Person& hand, Form&) { hand.Key(key::Escape); });
  EXPECT_EQ(RenameNewPhoto(main, Taken), "");
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) { hand.Close(form); });
  EXPECT_EQ(RenameNewPhoto(main, Taken), "");
}

TEST_F(RenameAskFormTest, TheWordCancelTypedAsANameActsAsCancel) {
  AnswerWith("AlwaysName", "Cancel", "AlwaysNameButton");
  EXPECT_EQ(RenameNewPhoto(main, Taken), "");
}

TEST_F(RenameAskFormTest, AnEmptyBoxClosesTheDialogAndTheWaitRunsOnUntilTheMainWindowIsGone) {
  LoadStrip({"Photo.bmp"});
  Show("F");
  bool waited = false;
  AnswerWith("AlwaysName", "", "AlwaysNameButton");
  person.During([this] { return person.Window("RenameAskForm") == nullptr; },
                [&] {
                  waited = true;
                  EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
                  run.Close();
                });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_TRUE(waited);
  EXPECT_FALSE(main.Window.IsLoaded());
  EXPECT_EQ(main.drop.LastDropFile, "");
}

TEST_F(RenameAskFormTest, CharactersThatNoNameMayHoldAreRefusedWithABeep) {
  const std::string refused = R"(\[]{}"?<>/,.*)";
  person.ExpectForm("RenameAskForm", [&](Person& hand, Form& form) {
    for (const char* name : {"AlwaysName", "UniqueName"}) {
      TextBox& box = Find<TextBox>(form, name);
      const int beeps = run.platform.dialogs.Beeps();
      hand.Fill(box, "a" + refused + "b");
      EXPECT_EQ(box.Text(), "ab");
      EXPECT_EQ(run.platform.dialogs.Beeps(), beeps + static_cast<int>(refused.size()));
      hand.Fill(box, "a:|b");
      EXPECT_EQ(box.Text(), "a:|b");
    }
    hand.Click(Find<CommandButton>(form, "CancelButton"));
  });
  RenameNewPhoto(main, Taken);
}

TEST_F(RenameAskFormTest, ReturnTakesTheNameThatIsBeingEdited) {
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) {
    hand.Fill(Find<TextBox>(form, "UniqueName"), "Winter");
    hand.Key(key::Return);
  });
  EXPECT_EQ(RenameNewPhoto(main, Taken), "C:\\Home\\F\\Winter.bmp");
}

TEST_F(RenameAskFormTest, AFreeNameIsKeptAndNoDialogComesUp) {
  LoadStrip({"Other.bmp"});
  Show("F");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_TRUE(Has("F", "Other.bmp"));
}

TEST_F(RenameAskFormTest, ATakenNameIsAskedForUntilItIsFree) {
  LoadStrip({"Photo.bmp"});
  MakePhoto(Folder("F") + "\\Second.bmp");
  Show("F");
  const std::string before = drive.Read(Taken);
  AnswerWith("AlwaysName", "Second", "AlwaysNameButton");
  person.ExpectForm("RenameAskForm", [](Person& hand, Form& form) {
    EXPECT_EQ(Find<Label>(form, "ExistsName").Caption(), "Second");
    EXPECT_EQ(Find<TextBox>(form, "UniqueName").Text(), "Second1");
    hand.Fill(Find<TextBox>(form, "UniqueName"), "Third");
    hand.Click(Find<CommandButton>(form, "UniqueNameButton"));
  });
  const double start = run.platform.clock.Seconds();
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_NEAR(run.platform.clock.Seconds() - start, 0.6, 0.05);
  EXPECT_EQ(BytesIn("F", "Third.bmp"), drive.Read(Photo("Photo.bmp")));
  EXPECT_EQ(drive.Read(Taken), before);
  EXPECT_EQ(main.drop.LastDropFile, Folder("F") + "\\Third.bmp");
}

TEST_F(RenameAskFormTest, APhotoShownAtFullSizeDuringTheWaitLeavesThePointerAndLetsNoKeyDrop) {
  LoadStrip({"Other.bmp", "Photo.bmp"});
  Show("F");
  AnswerWith("AlwaysName", "Third", "AlwaysNameButton");
  bool waited = false;
  person.During([this] { return person.Window("RenameAskForm") == nullptr; },
                [&] {
                  waited = true;
                  person.RightClick(strip.SrcThumbnail(1));
                  EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
                  main.Window.SetMousePointer(pointer::Default);
                  person.Activate(main.Window);
                  person.Key('1');
                });
  person.Drag(strip.SrcThumbnail(2), desk.DestFolderPreview(1));
  EXPECT_TRUE(waited);
  EXPECT_TRUE(Has("F", "Third.bmp"));
  EXPECT_FALSE(Has("F", "Other.bmp"));
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(RenameAskFormTest, ACancelEndsTheDropWithoutAnyEffect) {
  LoadStrip({"Photo.bmp"});
  Show("F");
  PressButton("CancelButton");
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_FALSE(IsMarked(1));
  EXPECT_EQ(CountOf(1), "1 pics");
  EXPECT_EQ(main.drop.LastDropFile, "");
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(RenameAskFormTest, ACancelDuringTheFilmStripDragMovesOnToTheNextPhoto) {
  LoadStrip({"Another.bmp", "Photo.bmp", "Zebra.bmp"});
  Show("F");
  PressButton("CancelButton");
  person.Drag(strip.AllButton, desk.DestFolderPreview(1));
  EXPECT_TRUE(Has("F", "Another.bmp"));
  EXPECT_TRUE(Has("F", "Zebra.bmp"));
  EXPECT_TRUE(IsMarked(1));
  EXPECT_FALSE(IsMarked(2));
  EXPECT_TRUE(IsMarked(3));
}

TEST_F(RenameAskFormTest, AStripThatIsClearedWhileTheDropWaitsEndsTheDrop) {
  LoadStrip({"Photo.bmp"});
  MakePhoto("C:\\Other\\Photo.bmp", 0x00123456);
  Show("F");
  AnswerWith("AlwaysName", "New", "AlwaysNameButton");
  // Within the pause after the answer.
  person.During([this] { return person.Window("RenameAskForm") == nullptr; },
                [this] { strip.SrcFileList.SetPath("C:\\Other"); });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  run.LoadAll();
  EXPECT_EQ(strip.SrcThumbnail(1).Tag(), "C:\\Other\\Photo.bmp");
  EXPECT_FALSE(Has("F", "New.bmp"));
  EXPECT_FALSE(IsMarked(1));
}

TEST_F(RenameAskFormTest, AFolderTakenOffWhileTheDropWaitsEndsTheDrop) {
  LoadStrip({"Photo.bmp"});
  Show("F");
  AnswerWith("AlwaysName", "New", "AlwaysNameButton");
  person.During([this] { return person.Window("RenameAskForm") == nullptr; },
                [this] {
                  Select_a_Folder(main, 1);
                  Remove_Open_Folder(main);
                  Show("G");
                });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_FALSE(Has("F", "New.bmp"));
  EXPECT_FALSE(Has("G", "New.bmp"));
  EXPECT_EQ(CountOf(1), " Empty");
}

}  // namespace
}  // namespace pixorra
