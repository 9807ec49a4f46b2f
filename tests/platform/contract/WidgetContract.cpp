// Controls with a widget of their own: they show what the model says, and tell it what a person does.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WidgetContract : public FormContract {};

TEST_F(WidgetContract, StandsWhereTheModelSaysAlsoWithinContainers) {
  PictureBox box(form, "Box");
  box.Move(50, 40, 200, 100);
  CommandButton button(box, "Button");
  button.Move(10, 20, 80, 25);
  Show();
  EXPECT_EQ(platform->Look(button).At, (Rect{60, 60, 80, 25}));
  box.SetLeft(70);
  button.SetTop(30);
  platform->Settle();
  EXPECT_EQ(platform->Look(button).At, (Rect{80, 70, 80, 25}));
}

TEST_F(WidgetContract, VisibilityIsItsOwnAndItsContainers) {
  PictureBox box(form, "Box");
  box.Move(50, 40, 200, 100);
  CommandButton button(box, "Button");
  button.Move(10, 20, 80, 25);
  button.SetVisible(false);
  Show();
  EXPECT_FALSE(platform->Look(button).Visible);
  button.SetVisible(true);
  platform->Settle();
  EXPECT_TRUE(platform->Look(button).Visible);
  box.SetVisible(false);
  platform->Settle();
  EXPECT_FALSE(platform->Look(button).Visible);
}

TEST_F(WidgetContract, ButtonShowsItsCaptionAndIsClicked) {
  CommandButton button(form, "Button");
  button.Move(10, 10, 80, 25);
  button.SetCaption("&Go");
  button.On().Click = [this](Control&) { Log("click"); };
  Show();
  EXPECT_EQ(platform->Look(button).Text, "&Go");
  platform->Click(button);
  button.SetEnabled(false);
  platform->Settle();
  EXPECT_FALSE(platform->Look(button).Enabled);
  platform->Click(button);
  EXPECT_THAT(Heard(), ElementsAre("click"));
}

TEST_F(WidgetContract, ButtonMayGoInItsOwnClick) {
  auto button = std::make_unique<CommandButton>(form, "Button");
  button->Move(10, 10, 80, 25);
  button->On().Click = [&](Control&) { button.reset(); };
  Show();
  platform->Click(*button);
  platform->Settle();
  EXPECT_EQ(button, nullptr);
}

TEST_F(WidgetContract, CheckBoxRaisesClickThenMouseUpForAPersonAndClickAloneForCode) {
  CheckBox box(form, "Check");
  box.Move(10, 10, 120, 25);
  Listen(box);
  Show();
  platform->Click(box);
  EXPECT_EQ(box.Value(), 1);
  EXPECT_EQ(platform->Look(box).Value, 1);
  EXPECT_THAT(Heard(), ElementsAre("Check Click", "Check MouseUp"));
  box.SetValue(0);
  platform->Settle();
  EXPECT_EQ(platform->Look(box).Value, 0);
  EXPECT_THAT(Heard(), ElementsAre("Check Click"));
}

TEST_F(WidgetContract, OptionsOfAFrameAreOneGroup) {
  Frame left(form, "Left");
  Frame right(form, "Right");
  left.Move(0, 0, 150, 100);
  right.Move(150, 0, 150, 100);
  OptionButton a(left, "A");
  OptionButton b(left, "B");
  OptionButton c(right, "C");
  a.Move(10, 10, 100, 20);
  b.Move(10, 40, 100, 20);
  c.Move(10, 10, 100, 20);
  for (Control* option : {&a, &b, &c}) option->On().Click = [this](Control& source) { Log(source.Name()); };
  Show();
  platform->Click(a);
  platform->Click(c);
  platform->Click(b);
  platform->Click(b);
  platform->Settle();
  EXPECT_EQ(platform->Look(a).Value, 0);
  EXPECT_EQ(platform->Look(b).Value, 1);
  EXPECT_EQ(platform->Look(c).Value, 1);
  EXPECT_THAT(Heard(), ElementsAre("A", "C", "B"));
}

// --- bars ----------------------------------------------------------------------------------------------------------

class BarContract : public FormContract {
 protected:
  BarContract() {
    bar.Move(10, 250, 300, 17);
    bar.SetMax(100);
    bar.SetLargeChange(10);
    bar.On().Change = [this](Control&) { Log("change " + std::to_string(bar.Value())); };
    Show();
  }
  ScrollBar bar{form, "Bar", Orientation::Horizontal};
};

TEST_F(BarContract, CodesValueIsShownAndRaisesChangeOnce) {
  bar.SetValue(40);
  platform->Settle();
  EXPECT_EQ(platform->Look(bar).Value, 40);
  EXPECT_THAT(Heard(), ElementsAre("change 40"));
}

TEST_F(BarContract, PersonsMoveRaisesChangeOnce) {
  platform->MoveBar(bar, 25);
  platform->Settle();
  EXPECT_EQ(bar.Value(), 25);
  EXPECT_EQ(platform->Look(bar).Value, 25);
  EXPECT_THAT(Heard(), ElementsAre("change 25"));
}

TEST_F(BarContract, ThumbScrollsWhileHeldAndChangesOnceAtTheEnd) {
  int scrolls = 0;
  bar.On().Scroll = [&](Control&) { ++scrolls; };
  platform->DragBar(bar, 80);
  platform->Settle();
  EXPECT_EQ(bar.Value(), 80);
  EXPECT_GE(scrolls, 1);
  EXPECT_THAT(Heard(), ElementsAre("change 80"));
}

TEST_F(BarContract, NarrowerRangeTakesTheValueAlongAndTellsItOnce) {
  bar.SetValue(90);
  Heard();
  bar.SetMax(50);
  platform->Settle();
  EXPECT_EQ(platform->Look(bar).Value, 50);
  EXPECT_THAT(Heard(), ElementsAre("change 50"));
}

TEST_F(BarContract, HandlerMayCorrectThePersonsValue) {
  bar.On().Change = [this](Control&) {
    Log("change " + std::to_string(bar.Value()));
    if (bar.Value() == 30) bar.SetValue(20);
  };
  platform->MoveBar(bar, 30);
  platform->Settle();
  EXPECT_EQ(bar.Value(), 20);
  EXPECT_EQ(platform->Look(bar).Value, 20);
  EXPECT_THAT(Heard(), ElementsAre("change 30", "change 20"));
}

TEST_F(BarContract, DisablingAndEnablingTakesTheFocusOff) {
  bar.SetFocus();
  platform->Settle();
  bar.SetEnabled(false);
  bar.SetEnabled(true);
  platform->Settle();
  EXPECT_FALSE(bar.HasFocus());
}

TEST_F(WidgetContract, SliderIsMovedDraggedAndFollowsTheKeys) {
  ScrollBar slider(form, "Slider", Orientation::Horizontal);
  slider.SetSlider(true);
  slider.Move(10, 10, 300, 24);
  slider.SetMin(10);
  slider.SetMax(150);
  slider.SetSmallChange(10);
  slider.SetLargeChange(25);
  slider.SetValue(78);
  slider.On().Change = [&](Control&) { Log("change " + std::to_string(slider.Value())); };
  Show();
  EXPECT_EQ(platform->Look(slider).Value, 78);
  slider.SetFocus();
  platform->Settle();
  platform->Key(key::Right, 0);
  platform->Key(key::Left, 0);
  platform->Key(key::Down, 0);
  platform->Key(key::Up, 0);
  platform->Key(key::PageDown, 0);
  platform->Key(key::PageUp, 0);
  platform->Key(key::End, 0);
  platform->Key(key::Home, 0);
  EXPECT_THAT(Heard(), ElementsAre("change 88", "change 78", "change 88", "change 78", "change 103", "change 78",
                                   "change 150", "change 10"));
  platform->MoveBar(slider, 60);
  EXPECT_THAT(Heard(), ElementsAre("change 60"));
  platform->DragBar(slider, 100);
  EXPECT_THAT(Heard(), ElementsAre("change 100"));
  slider.SetValue(20);
  platform->Settle();
  EXPECT_EQ(platform->Look(slider).Value, 20);
}

TEST_F(BarContract, ProgressShowsHowFarItIs) {
  ProgressBar progress(form, "Progress");
  progress.Move(10, 10, 100, 20);
  progress.SetMax(8);
  form.Show();
  progress.SetValue(3);
  platform->Settle();
  EXPECT_EQ(platform->Look(progress).Value, 3);
}

// --- texts and lists -----------------------------------------------------------------------------------------------

TEST_F(WidgetContract, TextBoxIsTypedInAndShowsTheCodesText) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 24);
  box.On().Change = [&](Control&) { Log(box.Text()); };
  Show();
  platform->Click(box);
  EXPECT_TRUE(box.HasFocus());
  platform->Type("ab");
  EXPECT_EQ(platform->Look(box).Text, "ab");
  box.SetText("code");
  platform->Settle();
  EXPECT_EQ(platform->Look(box).Text, "code");
  EXPECT_THAT(Heard(), ElementsAre("a", "ab", "code"));
}

TEST_F(WidgetContract, TypingReplacesWhatIsSelected) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 24);
  box.SetText("hällo");
  Show();
  box.SetFocus();
  box.Select(1, 2);
  platform->Settle();
  platform->Type("e");
  EXPECT_EQ(box.Text(), "hello");
  EXPECT_EQ(box.SelStart(), 2);
  platform->Key(key::Back, 0);
  EXPECT_EQ(box.Text(), "hllo");
}

TEST_F(WidgetContract, CharacterThatIsRefusedIsNotTyped) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 24);
  box.On().KeyPress = [](Control&, int& code) {
    if (code == 'x') code = 0;
  };
  Show();
  box.SetFocus();
  platform->Settle();
  platform->Type("axb");
  EXPECT_EQ(box.Text(), "ab");
}

TEST_F(WidgetContract, BoxOfSeveralLinesTakesLineEnds) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 100);
  box.SetMultiLine(true);
  box.SetText("first\r\nthird");
  Show();
  box.SetFocus();
  box.Select(5, 0);
  platform->Settle();
  platform->Key(key::Return, 0);
  platform->Type("2nd");
  EXPECT_EQ(box.Text(), "first\r\n2nd\r\nthird");
  EXPECT_EQ(box.SelStart(), 10);
  EXPECT_EQ(platform->Look(box).Text, "first\r\n2nd\r\nthird");
}

TEST_F(WidgetContract, LineEndOfABoxOfSeveralLinesIsTakenAwayWhole) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 100);
  box.SetMultiLine(true);
  box.SetText("ab\r\ncd");
  Show();
  box.SetFocus();
  box.Select(4, 0);
  platform->Settle();
  platform->Key(key::Back, 0);
  EXPECT_EQ(box.Text(), "abcd");
  EXPECT_EQ(box.SelStart(), 2);
  box.SetText("ab\r\ncd");
  box.Select(2, 0);
  platform->Settle();
  platform->Key(key::Delete, 0);
  EXPECT_EQ(box.Text(), "abcd");
}

TEST_F(WidgetContract, HomeAndEndStayInTheLineOfABoxOfSeveralLines) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 100);
  box.SetMultiLine(true);
  box.SetText("one\r\ntwo\r\nthree");
  Show();
  box.SetFocus();
  box.Select(6, 0);
  platform->Settle();
  platform->Key(key::Home, 0);
  EXPECT_EQ(box.SelStart(), 5);
  platform->Key(key::End, 0);
  EXPECT_EQ(box.SelStart(), 8);
}

TEST_F(WidgetContract, SelectionOfSeveralLinesIsReplaced) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 100);
  box.SetMultiLine(true);
  box.SetText("ä\r\nö\r\nü");
  Show();
  box.SetFocus();
  box.Select(2, 6);
  platform->Settle();
  platform->Type("x");
  EXPECT_EQ(box.Text(), "äxü");
  EXPECT_EQ(box.SelStart(), 3);
}

TEST_F(WidgetContract, LockedBoxOfSeveralLinesIsReadOnly) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 100);
  box.SetMultiLine(true);
  box.SetText("a\r\nb");
  box.SetLocked(true);
  Show();
  box.SetFocus();
  platform->Settle();
  platform->Type("x");
  platform->Key(key::Return, 0);
  platform->Key(key::Delete, 0);
  EXPECT_EQ(box.Text(), "a\r\nb");
}

TEST_F(WidgetContract, LockedBoxIsReadOnly) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 24);
  box.SetText("fixed");
  box.SetLocked(true);
  Show();
  platform->Click(box);
  platform->Type("x");
  EXPECT_EQ(box.Text(), "fixed");
}

TEST_F(WidgetContract, ListTellsThePersonsChoiceOnce) {
  ListBox list(form, "List");
  list.Move(10, 10, 150, 120);
  list.AddItem("one");
  list.AddItem("two");
  list.On().Click = [&](Control&) { Log(list.List(list.ListIndex())); };
  Show();
  EXPECT_EQ(platform->Look(list).Count, 2);
  platform->Choose(list, 1);
  EXPECT_EQ(list.ListIndex(), 1);
  list.SetListIndex(0);
  list.AddItem("three");
  platform->Settle();
  EXPECT_EQ(platform->Look(list).Value, 0);
  EXPECT_EQ(platform->Look(list).Count, 3);
  EXPECT_THAT(Heard(), ElementsAre("two", "one"));
}

TEST_F(WidgetContract, ComboTellsThePersonsChoiceOnceAndIsClearedQuietly) {
  ComboBox box(form, "Combo");
  box.Move(10, 10, 150, 24);
  box.AddItem("one");
  box.AddItem("two");
  box.On().Click = [&](Control&) { Log(box.Text()); };
  Show();
  platform->Choose(box, 1);
  EXPECT_EQ(platform->Look(box).Value, 1);
  EXPECT_EQ(platform->Look(box).Text, "two");
  box.Clear();
  platform->Settle();
  EXPECT_EQ(platform->Look(box).Count, 0);
  EXPECT_THAT(Heard(), ElementsAre("two"));
}

TEST_F(WidgetContract, WidgetThatIsHiddenLosesTheFocus) {
  TextBox box(form, "Box");
  box.Move(10, 10, 200, 24);
  box.On().LostFocus = [this](Control&) { Log("lost"); };
  Show();
  platform->Click(box);
  box.SetVisible(false);
  platform->Settle();
  EXPECT_FALSE(box.HasFocus());
  EXPECT_THAT(Heard(), ElementsAre("lost"));
}

}  // namespace
}  // namespace pixorra
