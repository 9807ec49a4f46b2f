// The form that offers three ways to delete: which of them can be chosen, and what else it does.
#include <gmock/gmock.h>

#include "platform/controls/Toolkit.h"
#include "tests/delete/DeleteTest.h"
#include "utility/HelpPages.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

class DeletePhotosFormTest : public DeleteTest {
 protected:
  // The form is up once, and is closed by its Cancel button.
  void LookAtForm(const std::function<void(Form&)>& look) {
    Answer("DeletePhotosForm", "CancelButton", look);
    person.Click(strip.DeleteButton);
  }
  static bool IsEnabled(Form& form, const std::string& button) { return Find<CommandButton>(form, button).Enabled(); }
};

TEST_F(DeletePhotosFormTest, WithoutAFilmStripAMessageSaysSo) {
  main.preview.bPicEdited = true;
  person.ExpectBox("Can't delete photos", "No Film Strip has been selected yet.");
  person.Click(strip.DeleteButton);
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Icon, BoxIcon::Exclamation);
  EXPECT_TRUE(main.preview.bPicEdited);
}

TEST_F(DeletePhotosFormTest, WithNothingSelectedAndNothingDraggedOnlyTheWholeStripCanGo) {
  LoadStrip({"a.bmp", "b.bmp"});
  LookAtForm([](Form& form) {
    EXPECT_EQ(form.Caption(), " Delete Photos in Film Strip");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteSelectedButton").Caption(), "Delete &Selected Photo");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteDraggedButton").Caption(), "Delete all &Dragged");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteAllButton").Caption(), "Delete &All Photos in Film Strip");
    EXPECT_FALSE(IsEnabled(form, "DeleteSelectedButton"));
    EXPECT_FALSE(IsEnabled(form, "DeleteDraggedButton"));
    EXPECT_TRUE(IsEnabled(form, "DeleteAllButton"));
  });
  EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "b.bmp"));
}

TEST_F(DeletePhotosFormTest, ASelectedPhotoAndADraggedOneEnableTheirButtons) {
  LoadStrip({"a.bmp", "b.bmp"});
  SelectInStrip(1);
  LookAtForm([](Form& form) {
    EXPECT_TRUE(IsEnabled(form, "DeleteSelectedButton"));
    EXPECT_FALSE(IsEnabled(form, "DeleteDraggedButton"));
  });
  Mark(2);
  LookAtForm([](Form& form) { EXPECT_TRUE(IsEnabled(form, "DeleteDraggedButton")); });
}

TEST_F(DeletePhotosFormTest, APhotoSelectedInTheOpenFolderIsNoneOfTheFilmStrip) {
  LoadStrip({"a.bmp"});
  OpenWith("Family", {"x.bmp"});
  SelectInView(1);
  LookAtForm([](Form& form) { EXPECT_FALSE(IsEnabled(form, "DeleteSelectedButton")); });
  // It can go by the menu.
  Answer("DeleteSelectedForm", "DeleteButton");
  person.ChooseMenu(main.menu.DeleteMenuItem);
  EXPECT_FALSE(drive.Exists(Folder("Family") + "\\x.bmp"));
}

TEST_F(DeletePhotosFormTest, ItEndsAnOutsideEditAndHelpShowsItsPage) {
  LoadStrip({"a.bmp"});
  main.preview.bPicEdited = true;
  person.ExpectForm("DeletePhotosForm", [](Person& hand, Form& form) {
    hand.ExpectBox(TitleOf(HelpTopic::Delete, 1), PagesOf(HelpTopic::Delete)[0]);
    hand.Click(Find<CommandButton>(form, "HelpButton"));
    EXPECT_TRUE(form.Visible());
    hand.Key(key::Escape);
  });
  person.Click(strip.DeleteButton);
  EXPECT_FALSE(main.preview.bPicEdited);
}

TEST_F(DeletePhotosFormTest, CancelOfAConfirmationLeavesAllAsItWas) {
  LoadStrip({"a.bmp", "b.bmp"});
  SelectInStrip(1);
  Mark(2);
  for (const auto& [button, form] :
       {std::pair{"DeleteSelectedButton", "DeleteSelectedForm"}, std::pair{"DeleteDraggedButton", "DeleteDraggedForm"},
        std::pair{"DeleteAllButton", "DeleteAllForm"}}) {
    SCOPED_TRACE(form);
    Answer(form, "CancelButton");
    Choose(button);
    person.ExpectForm(form, [](Person& hand, Form& shown) { hand.Close(shown); });
    Choose(button);
    // A Return that was meant for something else deletes nothing.
    person.ExpectForm(form, [](Person& hand, Form&) { hand.Key(key::Return); });
    Choose(button);
    EXPECT_THAT(FilesIn("C:\\Strip"), ElementsAre("a.bmp", "b.bmp"));
    EXPECT_THAT(ShownInStrip(), ElementsAre("a.bmp", "b.bmp"));
    EXPECT_EQ(run.platform.toolkit.ActiveForm(), &main.Window);
  }
  EXPECT_EQ(main.preview.PicPreview.Tag(), Photo("a.bmp"));
  EXPECT_TRUE(IsMarked(strip, 2));
}

TEST_F(DeletePhotosFormTest, TheConfirmationsAskInTheirWords) {
  LoadStrip({"a.bmp", "b.bmp"});
  SelectInStrip(1);
  Mark(2);
  const Picture pane = main.preview.PicPreview.GetPicture();
  Answer("DeleteSelectedForm", "CancelButton", [&](Form& form) {
    EXPECT_EQ(form.Caption(), "Delete Selected Photo");
    EXPECT_TRUE(Find<ImageBox>(form, "Image1").GetPicture() == pane);
    EXPECT_EQ(TextOf(form, "PhotoName"), "a.bmp");
    EXPECT_EQ(TextOf(form, "QuestionLabel"), "Do you want to delete this photo?");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteButton").Caption(), "&Delete it");
  });
  Choose("DeleteSelectedButton");
  Answer("DeleteDraggedForm", "CancelButton", [](Form& form) {
    EXPECT_EQ(form.Caption(), "Delete All Dragged Photos");
    EXPECT_EQ(TextOf(form, "QuestionLabel"),
              "Do you want to delete all of the photos that have already been dragged into folders?");
    EXPECT_EQ(TextOf(form, "DraggedCount"), "1 Dragged Photos");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteButton").Caption(), "&Delete them");
  });
  Choose("DeleteDraggedButton");
  Answer("DeleteAllForm", "CancelButton", [](Form& form) {
    EXPECT_EQ(form.Caption(), "Delete all photos in Film Strip");
    EXPECT_EQ(TextOf(form, "QuestionLabel"),
              "Delete all photos in the current film strip whether they have been dragged into folders, or not.  "
              "This will also delete the Film Strip location.");
    EXPECT_EQ(TextOf(form, "DeleteAllMessage"), "Delete all 2 photos in    [C:\\Strip]");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteButton").Caption(), "&Delete Film Strip");
  });
  Choose("DeleteAllButton");
}

TEST_F(DeletePhotosFormTest, DuringARunOfDropsItBeepsAndDeletesNothing) {
  LoadStrip({"a.bmp"});
  SelectInStrip(1);
  main.drop.DropAllRunning = true;
  person.Click(strip.DeleteButton);
  person.ChooseMenu(main.menu.DeleteMenuItem);
  EXPECT_EQ(run.platform.dialogs.Beeps(), 2);
  EXPECT_TRUE(drive.Exists(Photo("a.bmp")));
}

}  // namespace
}  // namespace pixorra
