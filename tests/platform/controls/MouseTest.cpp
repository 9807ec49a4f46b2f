#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Shape.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MouseTest : public ModelTest {
 protected:
  MouseTest() {
    back.Move(0, 0, 100, 100);
    front.Move(50, 50, 100, 100);
    Listen(form);
    Listen(back);
    Listen(front);
    form.Show();
  }
  Control* At(int x, int y) { return toolkit.ControlAt(form, x, y); }

  ImageBox back{form, "Back"};
  ImageBox front{form, "Front"};
};

TEST_F(MouseTest, TheOneInFrontIsHit) {
  EXPECT_EQ(At(75, 75), &front);
  EXPECT_EQ(At(49, 75), &back);
  back.BringToFront();
  EXPECT_EQ(At(75, 75), &back);
  EXPECT_EQ(At(300, 200), &form);
}

TEST_F(MouseTest, RightAndBottomEdgesLieOutside) {
  EXPECT_EQ(At(149, 149), &front);
  EXPECT_EQ(At(150, 149), &form);
  EXPECT_EQ(At(149, 150), &form);
}

TEST_F(MouseTest, HiddenAndDisabledControlsLetThePressThrough) {
  front.SetEnabled(false);
  EXPECT_EQ(At(75, 75), &back);
  back.SetVisible(false);
  EXPECT_EQ(At(75, 75), &form);
  front.SetEnabled(true);
  EXPECT_EQ(At(75, 75), &front);
}

TEST_F(MouseTest, ShapesTakeNoMouse) {
  Shape shape(form, "Frame");
  shape.Move(0, 0, 400, 300);
  EXPECT_EQ(At(75, 75), &front);
}

TEST_F(MouseTest, ControlsWithinAContainerAreCutToIt) {
  PictureBox box(form, "Box");
  box.Move(200, 100, 50, 50);
  ImageBox inner(box, "Inner");
  inner.Move(-10, 40, 200, 200);
  EXPECT_EQ(At(205, 145), &inner);
  EXPECT_EQ(At(205, 120), &box);
  EXPECT_EQ(At(195, 145), &form);
  EXPECT_EQ(At(205, 155), &form);
}

TEST_F(MouseTest, DisabledContainerHidesWhatItHoldsFromTheMouse) {
  PictureBox box(form, "Box");
  box.Move(200, 100, 50, 50);
  ImageBox inner(box, "Inner");
  inner.Move(0, 0, 50, 50);
  box.SetEnabled(false);
  EXPECT_EQ(At(205, 105), &form);
}

TEST_F(MouseTest, ClickComesAfterTheRelease) {
  person.ClickAt(form, 10, 10);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseUp", "Back Click"));
}

TEST_F(MouseTest, CoordinatesAreTheControlsOwn) {
  back.On().MouseDown = {};
  PictureBox box(form, "Box");
  box.Move(200, 100, 50, 50);
  Label inner(box, "Inner");
  inner.Move(10, 20, 30, 30);
  MouseArgs got;
  inner.On().MouseDown = [&](Control&, const MouseArgs& args) { got = args; };
  person.PressAt(form, 215, 127, button::Right, shift::Ctrl);
  EXPECT_EQ(got.X, 5);
  EXPECT_EQ(got.Y, 7);
  EXPECT_EQ(got.Button, button::Right);
  EXPECT_EQ(got.Shift, shift::Ctrl);
  person.Release();
}

TEST_F(MouseTest, OnlyTheLeftButtonClicks) {
  person.ClickAt(form, 10, 10, button::Right);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseUp"));
}

TEST_F(MouseTest, ReleaseElsewhereGoesToThePressedControlAndIsNoClick) {
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 120, 120);
  person.Release();
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseUp"));
}

TEST_F(MouseTest, PressedControlKeepsTheMovesUntilTheRelease) {
  const auto moved = [this](Control& source, const MouseArgs& args) {
    Log(source.Name() + " " + std::to_string(args.Button) + " " + std::to_string(static_cast<int>(args.X)));
  };
  back.On().MouseMove = moved;
  front.On().MouseMove = moved;
  person.MoveTo(form, 120, 120);
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 120, 120);
  person.Release();
  person.MoveTo(form, 121, 120);
  EXPECT_THAT(Heard(), ElementsAre("Front 0 70", "Back MouseDown", "Back 1 120", "Back MouseUp", "Front 0 71"));
}

TEST_F(MouseTest, SecondButtonGoesToTheControlThatIsHeld) {
  toolkit.MousePressed(form, 10, 10, button::Left, 0);
  toolkit.MousePressed(form, 120, 120, button::Right, 0);
  toolkit.MouseReleased(form, 120, 120, button::Right, 0);
  toolkit.MouseReleased(form, 10, 10, button::Left, 0);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseDown", "Back MouseUp", "Back MouseUp", "Back Click"));
}

TEST_F(MouseTest, DoubleClickIsNoSecondClick) {
  person.DoubleClickAt(form, 10, 10);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseUp", "Back Click", "Back DblClick", "Back MouseUp"));
  person.ClickAt(form, 10, 10);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseUp", "Back Click"));
}

TEST_F(MouseTest, DoubleClickThatRaisesIsNoClickEither) {
  KeepFailures();
  back.On().DblClick = [](Control&) { throw RuntimeError(error::Overflow); };
  person.DoubleClickAt(form, 10, 10);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown", "Back MouseUp", "Back Click", "Back MouseUp"));
}

TEST_F(MouseTest, SecondPressOfTheRightButtonIsAPress) {
  toolkit.MouseDoubleClicked(form, 10, 10, button::Right, 0);
  EXPECT_THAT(Heard(), ElementsAre("Back MouseDown"));
}

TEST_F(MouseTest, PressThatBringsUpABoxIsNeitherReleasedNorAClick) {
  person.ExpectBox("Title", "Text");
  back.On().MouseDown = [&](Control&, const MouseArgs&) {
    platform.dialogs.MsgBox("Text", BoxIcon::None, BoxButtons::Ok, "Title");
    Log("box closed");
  };
  person.ClickAt(form, 10, 10);
  EXPECT_THAT(Heard(), ElementsAre("box closed"));
  person.ClickAt(form, 120, 120);
  EXPECT_THAT(Heard(), ElementsAre("Front MouseDown", "Front MouseUp", "Front Click"));
}

TEST_F(MouseTest, NothingIsHeardWhileABoxIsUp) {
  person.ExpectBox("Title", "", BoxAnswer::Ok, [&] {
    toolkit.MousePressed(form, 10, 10, button::Left, 0);
    toolkit.MouseReleased(form, 10, 10, button::Left, 0);
    EXPECT_EQ(toolkit.ToolTipAt(form, 10, 10), "");
  });
  back.SetToolTipText("tip");
  platform.dialogs.MsgBox("Text", BoxIcon::None, BoxButtons::Ok, "Title");
  EXPECT_THAT(Heard(), IsEmpty());
  EXPECT_EQ(toolkit.ToolTipAt(form, 10, 10), "tip");
}

TEST_F(MouseTest, PointerIsTheOneOfTheControlBelowUnlessTheFormHasItsOwn) {
  back.SetMousePointer(pointer::Custom);
  back.SetMouseIcon(platform.artwork.Drawing("HandPointer", 32, 32));
  EXPECT_EQ(toolkit.PointerFor(form).Pointer, pointer::Default);
  person.MoveTo(form, 10, 10);
  EXPECT_EQ(toolkit.PointerFor(form).Pointer, pointer::Custom);
  EXPECT_EQ(toolkit.PointerFor(form).Icon.ArtName(), "HandPointer");
  form.SetMousePointer(pointer::Hourglass);
  EXPECT_EQ(toolkit.PointerFor(form).Pointer, pointer::Hourglass);
  form.SetMousePointer(pointer::Default);
  person.LeaveForm();
  EXPECT_EQ(toolkit.PointerFor(form).Pointer, pointer::Default);
}

TEST_F(MouseTest, ControlThatGoesUnderThePointerLeavesTheDefault) {
  auto gone = std::make_unique<ImageBox>(form, "Gone");
  gone->Move(200, 200, 20, 20);
  gone->SetMousePointer(pointer::Hourglass);
  person.MoveTo(form, 210, 210);
  gone.reset();
  EXPECT_EQ(toolkit.PointerFor(form).Pointer, pointer::Default);
  person.MoveTo(form, 211, 210);
}

// --- the wheel -------------------------------------------------------------------------------------------------------

class WheelTest : public ShownModelTest {
 protected:
  WheelTest() {
    box.Move(100, 50, 200, 200);
    image.Move(10, 20, 80, 60);
  }
  void ListenToWheel(Control& control) {
    control.On().MouseWheel = [this](Control& turned, const WheelArgs& turn) {
      Log(turned.Name());
      last = turn;
    };
  }

  PictureBox box{form, "Box"};
  ImageBox image{box, "Image"};
  WheelArgs last;
};

TEST_F(WheelTest, TheControlUnderThePointerIsToldInItsOwnPixels) {
  ListenToWheel(box);
  ListenToWheel(image);
  EXPECT_TRUE(toolkit.WheelTurned(form, 115, 77, {.NotchesY = 1.5, .Shift = shift::Ctrl}));
  EXPECT_THAT(Heard(), ElementsAre("Image"));
  EXPECT_EQ(last.NotchesY, 1.5);
  EXPECT_EQ(last.Shift, shift::Ctrl);
  EXPECT_EQ(last.X, 5);
  EXPECT_EQ(last.Y, 7);
}

TEST_F(WheelTest, WhatAControlHasNoUseForIsItsContainers) {
  ListenToWheel(box);
  EXPECT_TRUE(toolkit.WheelTurned(form, 115, 77, {.NotchesY = 1}));
  EXPECT_THAT(Heard(), ElementsAre("Box"));
  EXPECT_EQ(last.X, 15);
  EXPECT_EQ(last.Y, 27);
  EXPECT_FALSE(toolkit.WheelTurned(form, 20, 20, {.NotchesY = 1}));
  ListenToWheel(form);
  EXPECT_TRUE(toolkit.WheelTurned(form, 20, 20, {.NotchesY = 1}));
  EXPECT_THAT(Heard(), ElementsAre("MainForm"));
}

TEST_F(WheelTest, ShiftTurnsItSideways) {
  ListenToWheel(image);
  toolkit.WheelTurned(form, 115, 77, {.NotchesY = 2, .Shift = shift::Shift});
  EXPECT_EQ(last.NotchesX, 2);
  EXPECT_EQ(last.NotchesY, 0);
  toolkit.WheelTurned(form, 115, 77, {.PixelsX = 5, .PixelsY = 1, .Shift = shift::Shift});
  EXPECT_EQ(last.PixelsX, 5) << "a device that has both directions keeps them";
  EXPECT_EQ(last.PixelsY, 1);
}

TEST_F(WheelTest, AWidgetKeepsItsOwnWheelUnlessItHasAHandler) {
  ScrollBar bar(box, "Bar", Orientation::Vertical);
  bar.Move(150, 0, 17, 100);
  ListenToWheel(box);
  EXPECT_FALSE(toolkit.WheelTurned(form, 255, 60, {.NotchesY = 1}));
  EXPECT_THAT(Heard(), IsEmpty());
  ListenToWheel(bar);
  EXPECT_TRUE(toolkit.WheelTurned(form, 255, 60, {.NotchesY = 1}));
  EXPECT_THAT(Heard(), ElementsAre("Bar"));
}

TEST_F(WheelTest, NothingIsTurnedInADragOrBehindAModalForm) {
  ListenToWheel(form);
  image.SetAutomaticDrag(true);
  person.Press(image);
  EXPECT_FALSE(toolkit.WheelTurned(form, 20, 20, {.NotchesY = 1}));
  person.Release();
  Form ask(toolkit, "AskForm");
  person.ExpectForm("AskForm", [this](Person&, Form& asked) {
    EXPECT_FALSE(toolkit.WheelTurned(form, 20, 20, {.NotchesY = 1}));
    asked.Hide();
  });
  ask.ShowModal(&form);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(WheelTest, AHandlerMayDestroyItsControl) {
  auto gone = std::make_unique<ImageBox>(form, "Gone");
  gone->Move(0, 0, 50, 50);
  gone->On().MouseWheel = [&gone](Control&, const WheelArgs&) { gone.reset(); };
  EXPECT_TRUE(toolkit.WheelTurned(form, 20, 20, {.NotchesY = 1}));
  EXPECT_EQ(gone, nullptr);
}

}  // namespace
}  // namespace pixorra
