// The dialog that asks which of two equal photos goes.
#include <gmock/gmock.h>

#include "drop/DuplicateAskForm.h"
#include "platform/controls/Buttons.h"
#include "tests/drop/DropTest.h"
#include "utility/HelpPages.h"
#include "window/PreferencesForm.h"

namespace pixorra {
namespace {

class DuplicateAskFormTest : public DropTest {
 protected:
  DuplicateAskFormTest() {
    MakePhoto(old_, 0x00405060);
    MakePhoto(new_, 0x00405060);
  }
  void Press(const std::string& button) {
    person.ExpectForm("DuplicateAskForm",
                      [=](Person& hand, Form& form) { hand.Click(Find<CommandButton>(form, button)); });
  }
  static std::string LabelIn(Form& form, const std::string& frame, const std::string& label) {
    return Find<Label>(Find<Frame>(form, frame), label).Caption();
  }

  int refused_ = 0;
  const std::string old_ = "C:\\Home\\Holiday pics\\old.bmp";
  const std::string new_ = "C:\\Home\\Holiday pics\\new.bmp";
};

TEST_F(DuplicateAskFormTest, ItTellsNamesDatesSizeAndFolder) {
  drive.SetTime(old_, {2003, 2, 1, 0, 5, 59, 0});
  drive.SetTime(new_, {2004, 11, 30, 13, 45, 0, 0});
  person.ExpectForm("DuplicateAskForm", [](Person& hand, Form& form) {
    EXPECT_EQ(form.Caption(), "Duplicate Photo Found in [Holiday pics]");
    EXPECT_EQ(Find<Label>(form, "CaptionLabel").Caption(), "Duplicate Photo Found");
    EXPECT_EQ(Find<Label>(form, "PhotoSize").Caption(), "W80 x H60");
    EXPECT_EQ(Find<Frame>(form, "OriginalFrame").Caption(), "Original");
    EXPECT_EQ(LabelIn(form, "OriginalFrame", "PhotoName1"), "old.bmp");
    EXPECT_EQ(LabelIn(form, "OriginalFrame", "PhotoDate1"), "1/Feb/2003 12:05am");
    EXPECT_EQ(Find<Frame>(form, "DuplicateFrame").Caption(), "Duplicate");
    EXPECT_EQ(LabelIn(form, "DuplicateFrame", "PhotoName2"), "new.bmp");
    EXPECT_EQ(LabelIn(form, "DuplicateFrame", "PhotoDate2"), "30/Nov/2004 01:45pm");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteOriginalButton").Caption(), "Delete &Original");
    EXPECT_EQ(Find<CommandButton>(form, "DeleteDuplicateButton").Caption(), "Delete &Duplicate");
    EXPECT_EQ(Find<CommandButton>(form, "IgnoreButton").Caption(), "&Ignore");
    hand.ExpectBox(TitleOf(HelpTopic::Duplicate, 1), PagesOf(HelpTopic::Duplicate)[0]);
    hand.Click(Find<CommandButton>(form, "HelpButton"));
    EXPECT_FALSE(Find<ImageBox>(form, "PhotoPreview").GetPicture().IsNothing());
    hand.Click(Find<CommandButton>(form, "IgnoreButton"));
  });
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), "");
}

TEST_F(DuplicateAskFormTest, ItsPictureIsOneOfTheOriginalForFineScreens) {
  person.ExpectForm("DuplicateAskForm", [this](Person& hand, Form& form) {
    const auto& picture = Find<ImageBox>(form, "PhotoPreview");
    EXPECT_TRUE(picture.ShowsPhotoOfTag());
    EXPECT_EQ(picture.Tag(), old_);
    hand.Click(Find<CommandButton>(form, "IgnoreButton"));
  });
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), "");
}

TEST_F(DuplicateAskFormTest, APhotoThatCannotBeShownHasItsNameInTheSizesPlace) {
  drive.Write(old_, "no picture at all");
  person.ExpectForm("DuplicateAskForm", [](Person& hand, Form& form) {
    EXPECT_EQ(Find<Label>(form, "PhotoSize").Caption(), "old.bmp");
    hand.Click(Find<CommandButton>(form, "IgnoreButton"));
  });
  DeleteDuplicate(main, old_, new_);
}

TEST_F(DuplicateAskFormTest, EachButtonNamesItsFile) {
  Press("DeleteOriginalButton");
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), old_);
  Press("DeleteDuplicateButton");
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), new_);
  Press("IgnoreButton");
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), "");
  EXPECT_TRUE(drive.Exists(old_));
  EXPECT_TRUE(drive.Exists(new_));
}

TEST_F(DuplicateAskFormTest, TheFrameAndEscapeKeepBoth) {
  person.ExpectForm("DuplicateAskForm", [](Person& hand, Form& form) { hand.Close(form); });
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), "");
  person.ExpectForm("DuplicateAskForm", [](Person& hand, Form&) { hand.Key(key::Escape); });
  EXPECT_EQ(DeleteDuplicate(main, old_, new_), "");
  EXPECT_EQ(person.Window("DuplicateAskForm"), nullptr);
}

TEST_F(DuplicateAskFormTest, ClosedByTheFrameInADropItLeavesBothFilesAndTheDropIsDone) {
  main.preferences.DuplicatesAskOption.SetValue(true);
  LoadStrip({"a.bmp"});
  drive.Write(Folder("F") + "\\old.bmp", drive.Read(Photo("a.bmp")));
  Show("F");
  person.ExpectForm("DuplicateAskForm", [this](Person& hand, Form& form) {
    EXPECT_EQ(main.Window.MousePointer(), pointer::Hourglass);
    hand.Close(form);
  });
  person.Drag(strip.SrcThumbnail(1), desk.DestFolderPreview(1));
  EXPECT_TRUE(Has("F", "a.bmp"));
  EXPECT_TRUE(Has("F", "old.bmp"));
  EXPECT_EQ(CountOf(1), "2 pics");
  EXPECT_TRUE(IsMarked(1));
  EXPECT_EQ(main.Window.MousePointer(), pointer::Default);
}

TEST_F(DuplicateAskFormTest, TheMainWindowIsOutOfReachWhileItIsUp) {
  person.ExpectForm("DuplicateAskForm", [this](Person& hand, Form& form) {
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(person.Window("DuplicateAskForm"), &form);
    run.platform.failures.OnFailure = [this](const std::string&) { ++refused_; };
    hand.Click(strip.AllOption);
    hand.Click(Find<CommandButton>(form, "IgnoreButton"));
  });
  DeleteDuplicate(main, old_, new_);
  EXPECT_EQ(refused_, 1);
}

}  // namespace
}  // namespace pixorra
