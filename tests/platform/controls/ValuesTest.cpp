// Controls that hold a value: buttons, bars, lists, texts, trees, pictures.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Buttons.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/TreeView.h"
#include "tests/platform/controls/Stage.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ValuesTest : public ModelTest {
 protected:
  ValuesTest() { form.Show(); }
  Picture Flat(int width, int height, Colour colour) {
    Bitmap pixels(width, height, PixelFormat::Bgr24);
    pixels.Fill(colour);
    return Picture(std::move(pixels));
  }
};

// --- scroll bars ---------------------------------------------------------------------------------------------------

class BarTest : public ValuesTest {
 protected:
  BarTest() {
    bar.On().Change = [this](Control&) { Log("change " + std::to_string(bar.Value())); };
    bar.On().Scroll = [this](Control&) { Log("scroll " + std::to_string(bar.Value())); };
    bar.SetMax(100);
  }
  ScrollBar bar{form, "Bar", Orientation::Horizontal};
};

TEST_F(BarTest, DifferentValueRaisesChangeWhoeverSetsIt) {
  bar.SetValue(7);
  bar.SetValue(7);
  bar.UserMovedTo(8);
  bar.UserMovedTo(8);
  EXPECT_THAT(Heard(), ElementsAre("change 7", "change 8"));
}

TEST_F(BarTest, HalvesGoToTheEvenNeighbour) {
  bar.SetValue(6.5);
  EXPECT_EQ(bar.Value(), 6);
  bar.SetValue(7.5);
  EXPECT_EQ(bar.Value(), 8);
}

TEST_F(BarTest, ValueBeyondSixteenBitsRaises6AndOutsideTheRange380) {
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(32768); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(-32769); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetMax(32768); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetMin(-40000); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetLargeChange(40000); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(101); }), 380);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(-1); }), 380);
  EXPECT_EQ(bar.Value(), 0);
  EXPECT_EQ(bar.Max(), 100);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(BarTest, RangeThatShutsTheValueOutTakesItAlong) {
  bar.SetValue(50);
  Heard();
  bar.SetMax(60);
  EXPECT_THAT(Heard(), IsEmpty());
  bar.SetMax(30);
  EXPECT_EQ(bar.Value(), 30);
  EXPECT_THAT(Heard(), ElementsAre("change 30"));
  bar.SetMin(40);
  EXPECT_EQ(bar.Value(), 30);
}

TEST_F(BarTest, RangeMayRunBackwards) {
  bar.SetMin(100);
  bar.SetMax(0);
  Heard();
  bar.SetValue(30);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(101); }), 380);
  EXPECT_THAT(Heard(), ElementsAre("change 30"));
}

TEST_F(BarTest, PersonsMoveStaysInTheRangeAndMindsBeingDisabled) {
  bar.UserMovedTo(5000);
  EXPECT_EQ(bar.Value(), 100);
  bar.SetEnabled(false);
  bar.UserMovedTo(5);
  bar.UserScrolledTo(5);
  EXPECT_EQ(bar.Value(), 100);
  bar.SetValue(5);
  EXPECT_THAT(Heard(), ElementsAre("change 100", "change 5"));
}

TEST_F(BarTest, ThumbScrollsAndChangesOnceLetGo) {
  bar.UserLetGo();
  bar.UserScrolledTo(10);
  bar.UserScrolledTo(20);
  bar.UserLetGo();
  bar.UserLetGo();
  EXPECT_THAT(Heard(), ElementsAre("scroll 10", "scroll 20", "change 20"));
}

TEST_F(BarTest, HandlerMaySetAnotherValue) {
  bar.On().Change = [this](Control&) {
    Log("change " + std::to_string(bar.Value()));
    if (bar.Value() < 3) bar.SetValue(bar.Value() + 1);
  };
  bar.SetValue(1);
  EXPECT_THAT(Heard(), ElementsAre("change 1", "change 2", "change 3"));
}

TEST_F(BarTest, ProgressStaysInItsRange) {
  ProgressBar progress(form, "Progress");
  progress.SetMax(10);
  progress.SetValue(10);
  EXPECT_EQ(ErrorOf([&] { progress.SetValue(11); }), 380);
  EXPECT_EQ(ErrorOf([&] { progress.SetValue(-1); }), 380);
  progress.SetMax(4);
  EXPECT_EQ(progress.Value(), 4);
}

// --- buttons -------------------------------------------------------------------------------------------------------

TEST_F(ValuesTest, CheckBoxRaisesClickForADifferentValueAndMouseUpForAPerson) {
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

TEST_F(ValuesTest, OptionsOfOneContainerExcludeEachOther) {
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

TEST_F(ValuesTest, OptionRaisesClickOnlyWhenItComesOn) {
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

TEST_F(ValuesTest, OthersOfTheGroupAreOffWhenClickIsHeard) {
  OptionButton a(form, "A");
  OptionButton b(form, "B");
  a.SetValue(true);
  b.On().Click = [&](Control&) { Log(a.Value() ? "both" : "one"); };
  b.SetValue(true);
  EXPECT_THAT(Heard(), ElementsAre("one"));
}

TEST_F(ValuesTest, ButtonsMayGoInTheirOwnClick) {
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

TEST_F(ValuesTest, ButtonThatIsDisabledOrHiddenIsNotClicked) {
  CommandButton button(form, "Button");
  Listen(button);
  button.SetEnabled(false);
  button.UserClicked();
  button.SetEnabled(true);
  button.SetVisible(false);
  button.UserClicked();
  EXPECT_THAT(Heard(), IsEmpty());
}

// --- texts and lists -----------------------------------------------------------------------------------------------

TEST_F(ValuesTest, DifferentTextRaisesChangeAndTakesTheSelectionToItsStart) {
  TextBox box(form, "Box");
  box.On().Change = [&](Control&) { Log(box.Text() + " " + std::to_string(box.SelStart())); };
  box.SetText("hello");
  box.Select(1, 3);
  box.SetText("hello");
  EXPECT_EQ(box.SelLength(), 3);
  box.SetText("world");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
  EXPECT_THAT(Heard(), ElementsAre("hello 0", "world 0"));
}

TEST_F(ValuesTest, SelectionStaysWithinTheText) {
  TextBox box(form, "Box");
  box.SetText("hello");
  box.Select(3, 100);
  EXPECT_EQ(box.SelLength(), 2);
  box.Select(-5, -5);
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
  box.Select(2, 3);
  box.UserTyped("he");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelLength(), 0);
  box.UserSelected(7, 7);
  EXPECT_EQ(box.SelStart(), 2);
}

TEST_F(ValuesTest, LockedAndDisabledBoxesAreNotTypedIn) {
  TextBox box(form, "Box");
  box.SetLocked(true);
  box.UserTyped("x");
  box.SetLocked(false);
  box.SetEnabled(false);
  box.UserTyped("x");
  EXPECT_EQ(box.Text(), "");
  box.SetText("code may");
  EXPECT_EQ(box.Text(), "code may");
}

TEST_F(ValuesTest, ListKeepsItsEntriesAndTheirNumbers) {
  ListBox list(form, "List");
  Listen(list);
  list.AddItem("b");
  list.AddItem("c");
  list.SetListIndex(1);
  list.AddItem("a", 0);
  list.SetItemData(0, 42);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(list.List(0), "a");
  EXPECT_EQ(list.ItemData(0), 42);
  EXPECT_EQ(ErrorOf([&] { list.List(3); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.SetListIndex(3); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.AddItem("x", 4); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(-1); }), error::BadSubscript);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_THAT(Heard(), ElementsAre("List Click"));
}

TEST_F(ValuesTest, ComboShowsTheChosenEntryAndNoneThatHasGone) {
  ComboBox box(form, "Combo");
  Listen(box);
  box.AddItem("one");
  box.AddItem("two");
  box.UserChose(1);
  box.UserChose(2);
  EXPECT_EQ(box.Text(), "two");
  box.RemoveItem(1);
  EXPECT_EQ(box.Text(), "");
  box.SetListIndex(0);
  box.Clear();
  EXPECT_EQ(box.Text(), "");
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_THAT(Heard(), ElementsAre("Combo Click", "Combo Click"));
}

TEST_F(ValuesTest, TreeFillsANodeWhenItIsFirstOpened) {
  TreeView tree(form, "Tree");
  tree.On().Change = [&](Control&) { Log("selected " + (tree.Selected() ? tree.Selected()->Key : "none")); };
  tree.SetFiller([this](TreeView& filled, TreeView::Node& node) {
    Log("fill " + node.Key);
    if (node.Key == "C:") filled.Add(node, "C:\\a", "a", true);
  });
  TreeView::Node& drive = tree.Add(tree.Root(), "C:", "Drive", true);
  tree.UserExpanded(drive, true);
  tree.UserExpanded(drive, false);
  tree.UserExpanded(drive, true);
  TreeView::Node* folder = tree.Find("C:\\a");
  ASSERT_NE(folder, nullptr);
  tree.Expand(*folder);
  EXPECT_FALSE(folder->HasChildren);
  EXPECT_FALSE(folder->Expanded);
  drive.Expanded = false;
  tree.Select(folder);
  tree.Select(folder);
  EXPECT_TRUE(drive.Expanded);
  tree.Clear();
  EXPECT_EQ(tree.Selected(), nullptr);
  EXPECT_THAT(Heard(), ElementsAre("fill C:", "fill C:\\a", "selected C:\\a"));
}

// --- pictures and labels -------------------------------------------------------------------------------------------

TEST_F(ValuesTest, ImageTakesItsPicturesSizeUnlessItStretches) {
  ImageBox image(form, "Image");
  image.Move(5, 5, 10, 10);
  image.SetPicture(Flat(30, 20, 0));
  EXPECT_EQ(image.Bounds(), (Rect{5, 5, 30, 20}));
  image.SetStretch(true);
  image.SetPicture(Flat(8, 8, 0));
  EXPECT_EQ(image.Bounds(), (Rect{5, 5, 30, 20}));
  image.SetPicture(Picture());
  image.SetStretch(false);
  EXPECT_EQ(image.Bounds(), (Rect{5, 5, 30, 20}));
}

TEST_F(ValuesTest, LabelThatSizesItselfKeepsItsLeftEdge) {
  Label label(form, "Label");
  label.Move(50, 10, 5, 5);
  label.SetAutoSize(true);
  label.SetCaption("ten chars.");
  EXPECT_EQ(label.Bounds(), (Rect{50, 10, 60, 13}));
  label.SetFont(Font{"", 16.5, false});
  EXPECT_EQ(label.Bounds(), (Rect{50, 10, 120, 26}));
}

TEST_F(ValuesTest, LabelThatSizesItselfHasRoomForAllItsLines) {
  Label label(form, "Label");
  label.SetAutoSize(true);
  label.SetCaption("first\r\nsecond line");
  EXPECT_EQ(label.Width(), 11 * 6);
  EXPECT_EQ(label.Height(), 2 * 13);
}

TEST_F(ValuesTest, PictureBoxKeepsWhatIsDrawnAndCutsWhatLiesOutside) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  box.SetBackColor(0x00FF0000);
  EXPECT_FALSE(box.HasDrawing());
  box.PSet(3, 4, 0x00123456);
  box.PSet(20, 4, 0x00FFFFFF);
  box.PSet(-1, -1, 0x00FFFFFF);
  EXPECT_TRUE(box.HasDrawing());
  EXPECT_EQ(box.Point(3, 4), 0x00123456U);
  EXPECT_EQ(box.Point(4, 4), 0x00FF0000U);
  EXPECT_EQ(box.Point(20, 4), 0xFFFFFFFFU);
  box.Box(-5, -5, 100, 100, 0x000000FF, true);
  EXPECT_EQ(box.Point(19, 9), 0x000000FFU);
  box.Cls();
  EXPECT_EQ(box.Point(3, 4), 0x00FF0000U);
}

TEST_F(ValuesTest, PictureBoxGivesItsPictureWholeUntilItIsDrawnOn) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  const Picture picture = Flat(40, 30, 0x0000FF00);
  box.SetPicture(picture);
  EXPECT_EQ(box.Image(), picture);
  box.PSet(0, 0, 0);
  EXPECT_EQ(box.Image().Width(), 20);
  EXPECT_EQ(box.Point(5, 5), 0x0000FF00U);
  box.SetPicture(Picture());
  EXPECT_FALSE(box.HasDrawing());
}

TEST_F(ValuesTest, PaintingNothingRaises481) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  EXPECT_EQ(ErrorOf([&] { box.PaintPicture(Picture(), 0, 0, 5, 5); }), error::BadPicture);
}

TEST_F(ValuesTest, BoxOutlineIsOnePixelWideWithBothEndsIn) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  box.SetBackColor(0x00FFFFFF);
  box.Box(2, 2, 6, 5, 0, false);
  EXPECT_EQ(box.Point(2, 2), 0U);
  EXPECT_EQ(box.Point(6, 5), 0U);
  EXPECT_EQ(box.Point(4, 5), 0U);
  EXPECT_EQ(box.Point(3, 3), 0x00FFFFFFU);
  EXPECT_EQ(box.Point(7, 5), 0x00FFFFFFU);
}

TEST_F(ValuesTest, TextDrawnOnABoxCanBeSeen) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 50, 20);
  box.SetBackColor(0x00FFFFFF);
  box.SetForeColor(0x000000FF);
  EXPECT_EQ(box.TextWidth("abc"), 18);
  EXPECT_EQ(box.TextHeight("abc"), 13);
  box.PrintAt(0, 0, "abc");
  EXPECT_EQ(box.Point(2, 10), 0x000000FFU);
}

}  // namespace
}  // namespace pixorra
