#include <gmock/gmock.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/Control.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Shape.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ControlTest : public ModelTest {};

TEST_F(ControlTest, PositionsAreWholePixelsWithHalvesToTheEvenNeighbour) {
  ImageBox image(form, "Image");
  image.Move(10.5, 11.5, 20.49, 30.51);
  EXPECT_EQ(image.Bounds(), (Rect{10, 12, 20, 31}));
  image.SetLeft(-0.5);
  EXPECT_EQ(image.Left(), 0);
}

TEST_F(ControlTest, SizeBelowNothingRaises380AndChangesNothing) {
  ImageBox image(form, "Image");
  image.Move(1, 2, 3, 4);
  EXPECT_EQ(ErrorOf([&] { image.SetWidth(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { image.Move(9, 9, 9, -9); }), 380);
  EXPECT_EQ(ErrorOf([&] { image.SetLeft(3e9); }), 6);
  EXPECT_EQ(image.Bounds(), (Rect{1, 2, 3, 4}));
}

TEST_F(ControlTest, AContainerKnowsWhereEachOfItsControlsIsWhateverComesAndGoes) {
  PictureBox canvas(form, "Canvas");
  ControlArray<ImageBox> images(canvas, "Images");
  images(0).Move(1, 2, 30, 40);
  const auto expectPlaces = [&canvas] {
    ASSERT_EQ(canvas.Places().size(), canvas.Controls().size());
    for (std::size_t i = 0; i < canvas.Controls().size(); ++i)
      EXPECT_EQ(canvas.Places()[i], canvas.Controls()[i]->Bounds()) << i;
  };
  for (int i = 1; i <= 9; ++i) images.Load(i);
  expectPlaces();
  for (int i = 1; i <= 9; ++i) images(i).Move(10.0 * i, i, i, i);
  expectPlaces();
  for (const int gone : {9, 1, 5}) images.Unload(gone);
  expectPlaces();
  images.Load(1);
  images(7).SetLeft(700);
  images(2).SetHeight(3);
  expectPlaces();
}

TEST_F(ControlTest, ShownNeedsEveryContainerVisible) {
  PictureBox outer(form, "Outer");
  ImageBox inner(outer, "Inner");
  EXPECT_FALSE(inner.IsShown());
  form.Show();
  EXPECT_TRUE(inner.IsShown());
  outer.SetVisible(false);
  EXPECT_FALSE(inner.IsShown());
  EXPECT_TRUE(inner.Visible());
}

TEST_F(ControlTest, PlaceOnTheFormIsCutToWhatContainersShow) {
  PictureBox outer(form, "Outer");
  outer.Move(100, 50, 60, 40);
  ImageBox inner(outer, "Inner");
  inner.Move(-10, 30, 200, 20);
  EXPECT_EQ(inner.FormRect(), (Rect{90, 80, 200, 20}));
  EXPECT_EQ(inner.ShownRect(), (Rect{100, 80, 60, 10}));
}

TEST_F(ControlTest, NewControlsStandInFrontAndLoadedOnesBehind) {
  ImageBox first(form, "First");
  ControlArray<ImageBox> array(form, "Array");
  ImageBox last(form, "Last");
  ImageBox& one = array.Load(1);
  ImageBox& two = array.Load(2);
  EXPECT_LT(first.ZOrder(), last.ZOrder());
  EXPECT_LT(one.ZOrder(), first.ZOrder());
  EXPECT_LT(two.ZOrder(), one.ZOrder());
  one.BringToFront();
  EXPECT_GT(one.ZOrder(), last.ZOrder());
  last.SendToBack();
  EXPECT_LT(last.ZOrder(), two.ZOrder());
}

TEST_F(ControlTest, BringingTheFrontOneToTheFrontKeepsIt) {
  ImageBox first(form, "First");
  ImageBox last(form, "Last");
  const int before = last.ZOrder();
  last.BringToFront();
  EXPECT_EQ(last.ZOrder(), before);
  EXPECT_LT(first.ZOrder(), last.ZOrder());
}

// --- control arrays -----------------------------------------------------------------------------------------------

TEST_F(ControlTest, ArrayElementsCopyTheTemplateAndAreHidden) {
  ControlArray<Label> array(form, "Names");
  array(0).Move(5, 6, 70, 14);
  array(0).SetCaption("name");
  array(0).SetTag("tag");
  array(0).SetAutomaticDrag(true);
  array(0).SetForeColor(0x00123456);
  const Label& one = array.Load(1);
  EXPECT_EQ(one.Name(), "Names");
  EXPECT_EQ(one.Index(), 1);
  EXPECT_EQ(one.Bounds(), (Rect{5, 6, 70, 14}));
  EXPECT_EQ(one.Caption(), "name");
  EXPECT_EQ(one.Tag(), "tag");
  EXPECT_TRUE(one.AutomaticDrag());
  EXPECT_EQ(one.ForeColor(), 0x00123456U);
  EXPECT_FALSE(one.Visible());
}

TEST_F(ControlTest, ArrayRaises340ForWhatIsNotLoadedAnd360ForWhatIs) {
  ControlArray<ImageBox> array(form, "Array");
  array.Load(2);
  EXPECT_EQ(ErrorOf([&] { array(1); }), 340);
  EXPECT_EQ(ErrorOf([&] { array(3); }), 340);
  EXPECT_EQ(ErrorOf([&] { array(-1); }), 340);
  EXPECT_EQ(ErrorOf([&] { array.Load(2); }), 360);
  EXPECT_EQ(ErrorOf([&] { array.Load(0); }), 360);
  EXPECT_EQ(ErrorOf([&] { array.Load(-1); }), 340);
  EXPECT_EQ(ErrorOf([&] { array.Unload(1); }), 340);
  EXPECT_EQ(ErrorOf([&] { array.Unload(0); }), 340);
  EXPECT_EQ(array.UBound(), 2);
}

TEST_F(ControlTest, ArraysUpperBoundIsTheHighestThatIsLoaded) {
  ControlArray<ImageBox> array(form, "Array");
  array.Load(1);
  array.Load(4);
  EXPECT_EQ(array.UBound(), 4);
  EXPECT_FALSE(array.IsLoaded(3));
  array.Unload(4);
  EXPECT_EQ(array.UBound(), 1);
  array.Unload(1);
  EXPECT_EQ(array.UBound(), 0);
  EXPECT_EQ(array.Load(1).Index(), 1);
}

TEST_F(ControlTest, ArrayHandlersServeElementsLoadedLater) {
  form.Show();
  ControlArray<ImageBox> array(form, "Array");
  array(0).Move(0, 0, 20, 20);
  array.On().Click = [&](Control& source) { Log(std::to_string(source.Index())); };
  array.Load(3).SetVisible(true);
  person.ClickAt(form, 5, 5);
  EXPECT_THAT(Heard(), ElementsAre("3"));
}

TEST_F(ControlTest, ElementMayUnloadItselfInItsOwnClick) {
  form.Show();
  ControlArray<ImageBox> array(form, "Array");
  array(0).Move(0, 0, 20, 20);
  array.Load(1).SetVisible(true);
  array.On().Click = [&](Control& source) {
    array.Unload(source.Index());
    Log("unloaded");
  };
  person.ClickAt(form, 5, 5);
  EXPECT_THAT(Heard(), ElementsAre("unloaded"));
  EXPECT_EQ(array.UBound(), 0);
  person.ClickAt(form, 5, 5);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(ControlTest, ElementMayUnloadItselfInEveryMouseEvent) {
  form.Show();
  ControlArray<ImageBox> array(form, "Array");
  array(0).Move(0, 0, 20, 20);
  const auto unload = [&](Control& source, const MouseArgs&) { array.Unload(source.Index()); };
  array.On().MouseDown = unload;
  array.Load(1).SetVisible(true);
  person.ClickAt(form, 5, 5);
  array.On().MouseDown = {};
  array.On().MouseUp = unload;
  array.On().Click = [&](Control&) { ADD_FAILURE(); };
  array.Load(1).SetVisible(true);
  person.ClickAt(form, 5, 5);
  array.On().MouseUp = {};
  array.On().MouseMove = unload;
  array.Load(1).SetVisible(true);
  person.MoveTo(form, 5, 5);
  EXPECT_EQ(array.UBound(), 0);
}

TEST_F(ControlTest, HandlerMayReplaceItselfWhileItRuns) {
  form.Show();
  ImageBox image(form, "Image");
  image.Move(0, 0, 20, 20);
  image.On().Click = [&, text = std::string("a long text that lives in the handler itself")](Control&) {
    image.On().Click = {};
    Log(text);
  };
  person.Click(image);
  person.Click(image);
  EXPECT_THAT(Heard(), ElementsAre("a long text that lives in the handler itself"));
}

// --- focus --------------------------------------------------------------------------------------------------------

class FocusTest : public ModelTest {
 protected:
  FocusTest() {
    first.Move(0, 0, 50, 20);
    second.Move(0, 30, 50, 20);
    form.Show();
    Listen(first);
    Listen(second);
  }
  TextBox first{form, "First"};
  TextBox second{form, "Second"};
};

TEST_F(FocusTest, OneLosesItBeforeTheOtherTakesIt) {
  first.SetFocus();
  second.SetFocus();
  EXPECT_THAT(Heard(), ElementsAre("First GotFocus", "First LostFocus", "Second GotFocus"));
  EXPECT_TRUE(second.HasFocus());
  second.SetFocus();
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(FocusTest, DisablingTakesItOffAndEnablingDoesNotGiveItBack) {
  first.SetFocus();
  first.SetEnabled(false);
  first.SetEnabled(true);
  EXPECT_FALSE(first.HasFocus());
  EXPECT_THAT(Heard(), ElementsAre("First GotFocus", "First LostFocus"));
}

TEST_F(FocusTest, HidingItOrWhatHoldsItTakesItOff) {
  first.SetFocus();
  first.SetVisible(false);
  EXPECT_EQ(toolkit.Focus(), nullptr);
  PictureBox outer(form, "Outer");
  TextBox inner(outer, "Inner");
  inner.SetFocus();
  outer.SetVisible(false);
  EXPECT_EQ(toolkit.Focus(), nullptr);
  second.SetFocus();
  form.Hide();
  EXPECT_EQ(toolkit.Focus(), nullptr);
}

TEST_F(FocusTest, PersonCannotGiveItToWhatIsDisabled) {
  first.SetEnabled(false);
  toolkit.UserFocused(first);
  EXPECT_EQ(toolkit.Focus(), nullptr);
}

TEST_F(FocusTest, HandlerOfTheLossMaySendItElsewhere) {
  TextBox third(form, "Third");
  Listen(third);
  first.SetFocus();
  first.On().LostFocus = [&](Control&) { third.SetFocus(); };
  second.SetFocus();
  EXPECT_TRUE(third.HasFocus());
  EXPECT_THAT(Heard(), ElementsAre("First GotFocus", "Second LostFocus", "Third GotFocus"));
}

TEST_F(FocusTest, ControlMayGoWhenItLosesIt) {
  auto third = std::make_unique<TextBox>(form, "Third");
  third->On().LostFocus = [&](Control&) { third.reset(); };
  third->SetFocus();
  third->SetVisible(false);
  EXPECT_EQ(third, nullptr);
  third = std::make_unique<TextBox>(form, "Third");
  third->On().LostFocus = [&](Control&) { third.reset(); };
  third->SetFocus();
  third->SetEnabled(false);
  EXPECT_EQ(third, nullptr);
  EXPECT_EQ(toolkit.Focus(), nullptr);
}

TEST_F(FocusTest, FormThatTakesItComesToTheFrontAndLeavesItToItsControl) {
  Form other(toolkit, "Other");
  first.SetFocus();
  other.Show();
  form.SetFocus();
  EXPECT_EQ(toolkit.ActiveForm(), &form);
  EXPECT_TRUE(first.HasFocus());
}

TEST_F(ControlTest, AWatchOfNoControlIsEmpty) {
  EXPECT_FALSE(Watch<Control>::Of(nullptr));
  EXPECT_EQ(Watch<Form>::Of(&form).Get(), &form);
}

}  // namespace
}  // namespace pixorra
