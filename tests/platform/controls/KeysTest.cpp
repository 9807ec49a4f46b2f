#include <gmock/gmock.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeysTest : public ModelTest {
 protected:
  KeysTest() {
    box.Move(0, 0, 100, 20);
    ok.Move(0, 30, 50, 20);
    cancel.Move(60, 30, 50, 20);
    ok.SetDefault(true);
    cancel.SetCancel(true);
    Listen(ok);
    Listen(cancel);
    form.On().KeyDown = [this](Control&, int& code, int shift) {
      Log("form " + std::to_string(code) + " " + std::to_string(shift));
      if (code == swallowed) code = 0;
    };
    form.On().KeyPress = [this](Control&, int& code) { Log("form char " + std::to_string(code)); };
    box.On().KeyDown = [this](Control&, int& code, int) { Log("box " + std::to_string(code)); };
    box.On().KeyPress = [this](Control&, int& code) { Log("box char " + std::to_string(code)); };
    save.On().Click = [this](Control&) { Log("save"); };
    form.Show();
  }
  int swallowed = 0;
  TextBox box{form, "Box"};
  CommandButton ok{form, "Ok"};
  CommandButton cancel{form, "Cancel"};
  MenuItem file{form, "FileMenu", "&File"};
  MenuItem save{file, "SaveItem", "&Save", 'S', shift::Ctrl};
};

TEST_F(KeysTest, FormWithoutPreviewHearsKeysOnlyWhenNoControlHasTheFocus) {
  EXPECT_FALSE(toolkit.KeyPressed(form, 'A', 0));
  EXPECT_THAT(Heard(), ElementsAre("form 65 0"));
  box.SetFocus();
  EXPECT_FALSE(toolkit.KeyPressed(form, 'A', 0));
  EXPECT_THAT(Heard(), ElementsAre("box 65"));
}

TEST_F(KeysTest, FormWithPreviewHearsThemFirstAndOnce) {
  form.SetKeyPreview(true);
  toolkit.KeyPressed(form, 'A', shift::Shift);
  EXPECT_THAT(Heard(), ElementsAre("form 65 1"));
  box.SetFocus();
  toolkit.KeyPressed(form, 'A', 0);
  toolkit.CharacterTyped(form, 'a');
  EXPECT_THAT(Heard(), ElementsAre("form 65 0", "box 65", "form char 97", "box char 97"));
}

TEST_F(KeysTest, KeyThatThePreviewUsesGoesNoFurther) {
  form.SetKeyPreview(true);
  box.SetFocus();
  swallowed = 'S';
  EXPECT_TRUE(toolkit.KeyPressed(form, 'S', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("form 83 2"));
}

TEST_F(KeysTest, ShortcutsRunBeforeTheFocusedControl) {
  ok.On().KeyDown = [this](Control&, int&, int) { Log("ok"); };
  ok.SetFocus();
  EXPECT_TRUE(toolkit.KeyPressed(form, 'S', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("Ok GotFocus", "save"));
  EXPECT_FALSE(toolkit.KeyPressed(form, 'S', shift::Ctrl | shift::Shift));
  EXPECT_THAT(Heard(), ElementsAre("ok"));
}

TEST_F(KeysTest, ShortcutOfADisabledItemOrMenuIsAKeyLikeAnyOther) {
  save.SetEnabled(false);
  EXPECT_FALSE(toolkit.KeyPressed(form, 'S', shift::Ctrl));
  save.SetEnabled(true);
  file.SetEnabled(false);
  EXPECT_FALSE(toolkit.KeyPressed(form, 'S', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("form 83 2", "form 83 2"));
}

TEST_F(KeysTest, TheMenusAboveAShortcutsItemAreAskedTheTopmostFirst) {
  MenuItem more(file, "MoreMenu", "More");
  MenuItem again(more, "AgainItem", "Again", 'G', shift::Ctrl);
  file.On().Click = [this](Control&) { Log("file"); };
  more.On().Click = [this](Control&) { Log("more"); };
  again.On().Click = [this](Control&) { Log("again"); };
  EXPECT_TRUE(toolkit.KeyPressed(form, 'G', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("file", "more", "again"));
  more.SetEnabled(false);
  EXPECT_FALSE(toolkit.KeyPressed(form, 'G', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("file", "form 71 2"));
}

TEST_F(KeysTest, MenuThatIsRaisedForAShortcutCanSeeForWhich) {
  const MenuItem* sought = nullptr;
  file.On().Click = [&](Control&) { sought = toolkit.ShortcutSought(); };
  toolkit.KeyPressed(form, 'S', shift::Ctrl);
  EXPECT_EQ(sought, &save);
  EXPECT_EQ(toolkit.ShortcutSought(), nullptr);
  file.UserClicked();
  EXPECT_EQ(sought, nullptr) << "a person has opened it";
}

TEST_F(KeysTest, WhileTextIsTypedNoShortcutRuns) {
  box.SetFocus();
  EXPECT_FALSE(toolkit.KeyPressed(form, 'S', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("box 83"));
}

TEST_F(KeysTest, KeysThatEditATextGoToTheBoxAndNotToAMenu) {
  MenuItem remove(file, "DeleteItem", "Delete", key::Delete);
  MenuItem copy(file, "CopyItem", "Copy", 'C', shift::Ctrl);
  remove.On().Click = [this](Control&) { Log("delete"); };
  copy.On().Click = [this](Control&) { Log("copy"); };
  toolkit.KeyPressed(form, key::Delete, 0);
  toolkit.KeyPressed(form, 'C', shift::Ctrl);
  EXPECT_THAT(Heard(), ElementsAre("delete", "copy"));
  box.SetFocus();
  EXPECT_FALSE(toolkit.KeyPressed(form, key::Delete, 0));
  EXPECT_FALSE(toolkit.KeyPressed(form, 'C', shift::Ctrl));
  EXPECT_THAT(Heard(), ElementsAre("box 46", "box 67"));
}

TEST_F(KeysTest, ReturnPressesTheDefaultAndEscapeTheCancelButton) {
  box.SetFocus();
  EXPECT_TRUE(toolkit.KeyPressed(form, key::Return, 0));
  EXPECT_TRUE(toolkit.KeyPressed(form, key::Escape, 0));
  EXPECT_THAT(Heard(), ElementsAre("box 13", "Ok Click", "box 27", "Cancel Click"));
}

TEST_F(KeysTest, ReturnPressesTheButtonThatHasTheFocus) {
  cancel.SetFocus();
  Heard();
  toolkit.KeyPressed(form, key::Return, 0);
  EXPECT_THAT(Heard(), ElementsAre("Cancel Click"));
}

TEST_F(KeysTest, ReturnIsACharacterInABoxOfSeveralLines) {
  box.SetMultiLine(true);
  box.SetFocus();
  EXPECT_FALSE(toolkit.KeyPressed(form, key::Return, 0));
  EXPECT_THAT(Heard(), ElementsAre("box 13"));
}

TEST_F(KeysTest, DisabledAndHiddenButtonsAreNotPressed) {
  ok.SetEnabled(false);
  cancel.SetVisible(false);
  EXPECT_FALSE(toolkit.KeyPressed(form, key::Return, 0));
  EXPECT_FALSE(toolkit.KeyPressed(form, key::Escape, 0));
  EXPECT_THAT(Heard(), ElementsAre("form 13 0", "form 27 0"));
}

TEST_F(KeysTest, DefaultButtonIsFoundWithinContainers) {
  ok.SetDefault(false);
  Frame group(form, "Group");
  CommandButton inner(group, "Inner");
  Listen(inner);
  inner.SetDefault(true);
  EXPECT_TRUE(toolkit.KeyPressed(form, key::Return, 0));
  EXPECT_THAT(Heard(), ElementsAre("form 13 0", "Inner Click"));
}

TEST_F(KeysTest, ButtonOfAnotherFormThatStillHasTheFocusIsNotPressed) {
  ok.SetFocus();
  Form other(toolkit, "Other");
  CommandButton yes(other, "Yes");
  Listen(yes);
  yes.SetDefault(true);
  other.Show();
  Heard();
  EXPECT_TRUE(toolkit.KeyPressed(other, key::Return, 0));
  EXPECT_THAT(Heard(), ElementsAre("Yes Click"));
}

TEST_F(KeysTest, FormClosedByAKeyHearsNoMoreOfIt) {
  form.SetKeyPreview(true);
  form.On().KeyDown = [this](Control&, int&, int) {
    Log("closes");
    form.Unload();
  };
  box.SetFocus();
  EXPECT_TRUE(toolkit.KeyPressed(form, key::Escape, 0));
  EXPECT_THAT(Heard(), ElementsAre("closes"));
}

TEST_F(KeysTest, BlockedFormHearsNothing) {
  Form ask(toolkit, "AskForm");
  person.ExpectForm("AskForm", [&](Person&, Form& shown) {
    EXPECT_TRUE(toolkit.KeyPressed(form, 'S', shift::Ctrl));
    EXPECT_TRUE(toolkit.CharacterTyped(form, 's'));
    shown.Unload();
  });
  ask.ShowModal(&form);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(KeysTest, FormThatHasNoKeyPreviewIsNotAskedTwice) {
  form.SetKeyPreview(true);
  form.SetFocus();
  toolkit.KeyPressed(form, 'A', 0);
  EXPECT_THAT(Heard(), ElementsAre("form 65 0"));
}

TEST_F(KeysTest, RepeatedStrokeIsDroppedWhileTheFormHandlesOneAndAnotherPressIsNot) {
  form.SetKeyPreview(true);
  Form other(toolkit, "Other");
  other.SetKeyPreview(true);
  other.On().KeyDown = [this](Control&, int&, int) { Log("other"); };
  int depth = 0;
  form.On().KeyDown = [&](Control&, int& code, int) {
    code = 0;
    Log("form");
    if (++depth > 1) return;
    EXPECT_TRUE(toolkit.KeyPressed(form, key::Right, 0, KeyStroke::Repeated));
    toolkit.KeyPressed(other, key::Right, 0, KeyStroke::Repeated);
    toolkit.KeyPressed(form, key::Right, 0);
  };
  toolkit.KeyPressed(form, key::Right, 0);
  EXPECT_THAT(Heard(), ElementsAre("form", "other", "form"));
  toolkit.KeyPressed(form, key::Right, 0, KeyStroke::Repeated);
  EXPECT_THAT(Heard(), ElementsAre("form"));
}

TEST_F(KeysTest, HandlerThatRaisesDoesNotStopLaterRepeats) {
  form.SetKeyPreview(true);
  form.On().KeyDown = [](Control&, int&, int) { throw RuntimeError(error::DiskFull); };
  EXPECT_THROW(toolkit.KeyPressed(form, key::Right, 0), RuntimeError);
  form.On().KeyDown = [this](Control&, int&, int) { Log("form"); };
  toolkit.KeyPressed(form, key::Right, 0, KeyStroke::Repeated);
  EXPECT_THAT(Heard(), ElementsAre("form"));
}

}  // namespace
}  // namespace pixorra
