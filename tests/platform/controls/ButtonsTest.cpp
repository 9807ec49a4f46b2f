#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Buttons.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ButtonsTest : public ShownModelTest {};

TEST_F(ButtonsTest, CheckBoxRaisesClickForADifferentValueAndMouseUpForAPerson) {
  CheckBox box(form, "Check");
  Listen(box);
  box.SetValue(1);
  box.SetValue(1);
  EXPECT_THAT(Heard(), ElementsAre("Check Click"));
  box.UserClicked();
  EXPECT_EQ(box.Value(), 0);
  EXPECT_THAT(Heard(), ElementsAre("Check Click", "Check MouseUp"));
  EXPECT_EQ(ErrorOf([&] { box.SetValue(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { box.SetValue(-1); }), 380);
  box.SetEnabled(false);
  box.UserClicked();
  EXPECT_EQ(box.Value(), 0);
}

TEST_F(ButtonsTest, OptionsOfOneContainerExcludeEachOther) {
  Frame group(form, "Group");
  OptionButton a(form, "A");
  OptionButton b(form, "B");
  OptionButton c(group, "C");
  for (Control* option : {&a, &b, &c}) Listen(*option);
  a.SetValue(true);
  c.SetValue(true);
  b.UserClicked();
  EXPECT_FALSE(a.Value());
  EXPECT_TRUE(b.Value());
  EXPECT_TRUE(c.Value());
  EXPECT_THAT(Heard(), ElementsAre("A Click", "C Click", "B Click"));
}

TEST_F(ButtonsTest, OptionRaisesClickOnlyWhenItComesOn) {
  OptionButton a(form, "A");
  OptionButton b(form, "B");
  Listen(a);
  Listen(b);
  a.SetValue(true);
  a.SetValue(true);
  a.UserClicked();
  a.SetValue(false);
  EXPECT_THAT(Heard(), ElementsAre("A Click"));
  b.SetEnabled(false);
  b.UserClicked();
  EXPECT_FALSE(b.Value());
}

TEST_F(ButtonsTest, OthersOfTheGroupAreOffWhenClickIsHeard) {
  OptionButton a(form, "A");
  OptionButton b(form, "B");
  a.SetValue(true);
  b.On().Click = [&](Control&) { Log(a.Value() ? "both" : "one"); };
  b.SetValue(true);
  EXPECT_THAT(Heard(), ElementsAre("one"));
}

TEST_F(ButtonsTest, ButtonsMayGoInTheirOwnClick) {
  auto check = std::make_unique<CheckBox>(form, "Check");
  check->On().Click = [&](Control&) { check.reset(); };
  check->UserClicked();
  EXPECT_EQ(check, nullptr);
  auto option = std::make_unique<OptionButton>(form, "Option");
  option->On().Click = [&](Control&) { option.reset(); };
  option->UserClicked();
  EXPECT_EQ(option, nullptr);
  auto command = std::make_unique<CommandButton>(form, "Command");
  command->On().Click = [&](Control&) { command.reset(); };
  command->UserClicked();
  EXPECT_EQ(command, nullptr);
}

TEST_F(ButtonsTest, ButtonThatIsDisabledOrHiddenIsNotClicked) {
  CommandButton button(form, "Button");
  Listen(button);
  button.SetEnabled(false);
  button.UserClicked();
  button.SetEnabled(true);
  button.SetVisible(false);
  button.UserClicked();
  EXPECT_THAT(Heard(), IsEmpty());
}

}  // namespace
}  // namespace pixorra
