#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/Buttons.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Shape.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/controls/Stage.h"

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
  KeepSurprises();
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

// --- automatic drags -----------------------------------------------------------------------------------------------

class DragTest : public ModelTest {
 protected:
  DragTest() {
    photo.Move(0, 0, 80, 60);
    photo.SetAutomaticDrag(true);
    folder.Move(200, 100, 100, 100);
    for (Control* control : {static_cast<Control*>(&photo), static_cast<Control*>(&folder)}) {
      Listen(*control);
      control->On().DragOver = [this](Control& target, Control& source, double, double, int state) {
        const char* const names[] = {"enters", "leaves", "over"};
        Log(source.Name() + " " + names[state] + " " + target.Name());
      };
      control->On().DragDrop = [this](Control& target, Control& source, double x, double y) {
        EXPECT_EQ(toolkit.Drag().Source, nullptr);
        Log(source.Name() + " dropped on " + target.Name() + " " + std::to_string(static_cast<int>(x)) + "," +
            std::to_string(static_cast<int>(y)));
      };
    }
    form.Show();
  }
  ImageBox photo{form, "Photo"};
  ImageBox folder{form, "Folder"};
};

TEST_F(DragTest, BeginsWithAnEnterOnItselfAtThePress) {
  person.PressAt(form, 10, 10);
  EXPECT_THAT(Heard(), ElementsAre("Photo enters Photo"));
  EXPECT_EQ(toolkit.Drag().Source, &photo);
}

TEST_F(DragTest, LeavesEntersAndGoesOverBeforeTheDrop) {
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 20, 20);
  person.MoveTo(form, 150, 80);
  person.MoveTo(form, 210, 110);
  person.MoveTo(form, 211, 110);
  person.Release();
  EXPECT_THAT(Heard(),
              ElementsAre("Photo enters Photo", "Photo over Photo", "Photo leaves Photo", "Photo enters Folder",
                          "Photo over Folder", "Photo over Folder", "Photo dropped on Folder 11,10"));
}

TEST_F(DragTest, ClickWithoutAMoveIsADropOnItself) {
  person.ClickAt(form, 10, 12);
  EXPECT_THAT(Heard(), ElementsAre("Photo enters Photo", "Photo over Photo", "Photo dropped on Photo 10,12"));
}

TEST_F(DragTest, RightButtonDragsNothing) {
  person.ClickAt(form, 10, 10, button::Right);
  EXPECT_THAT(Heard(), ElementsAre("Photo MouseDown", "Photo MouseUp"));
}

TEST_F(DragTest, DropOutsideTheWindowIsNone) {
  person.PressAt(form, 10, 10);
  person.MoveTo(form, -20, 10);
  person.Release();
  EXPECT_THAT(Heard(), ElementsAre("Photo enters Photo", "Photo leaves Photo"));
  EXPECT_EQ(toolkit.Drag().Source, nullptr);
}

TEST_F(DragTest, LeavingTheFormLeavesTheTarget) {
  person.PressAt(form, 10, 10);
  person.LeaveForm();
  EXPECT_THAT(Heard(), ElementsAre("Photo enters Photo", "Photo leaves Photo"));
  person.MoveTo(form, 210, 110);
  EXPECT_THAT(Heard(), ElementsAre("Photo enters Folder"));
}

TEST_F(DragTest, FormItselfIsATargetToo) {
  form.On().DragDrop = [&](Control& target, Control&, double x, double y) {
    Log(target.Name() + " " + std::to_string(static_cast<int>(x)) + "," + std::to_string(static_cast<int>(y)));
  };
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 150, 20);
  person.Release();
  EXPECT_EQ(Heard().back(), "MainForm 150,20");
}

TEST_F(DragTest, OutlineFollowsThePointerWhereItWasTaken) {
  person.PressAt(form, 10, 15);
  person.MoveTo(form, 110, 65);
  EXPECT_EQ(toolkit.Drag().Outline, (Rect{100, 50, 80, 60}));
  EXPECT_EQ(toolkit.Drag().Over, &form);
}

TEST_F(DragTest, DragIconMayChangeInTheMiddle) {
  folder.On().DragOver = [&](Control&, Control& source, double, double, int state) {
    source.SetDragIcon(state == drag::Leave ? Picture() : platform.artwork.Drawing("DropIcon", 32, 32));
  };
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 210, 110);
  const int changes = platform.backend.DragChanges();
  EXPECT_EQ(toolkit.Drag().Source->DragIcon().ArtName(), "DropIcon");
  person.MoveTo(form, 150, 20);
  EXPECT_TRUE(toolkit.Drag().Source->DragIcon().IsNothing());
  EXPECT_EQ(platform.backend.DragChanges(), changes + 2);
}

TEST_F(DragTest, SourceMayGoWhileItIsDragged) {
  auto gone = std::make_unique<ImageBox>(form, "Gone");
  gone->Move(100, 0, 50, 50);
  gone->SetAutomaticDrag(true);
  person.PressAt(form, 110, 10);
  gone.reset();
  EXPECT_EQ(toolkit.Drag().Source, nullptr);
  person.MoveTo(form, 210, 110);
  person.Release();
  EXPECT_THAT(Heard(), IsEmpty());
  person.ClickAt(form, 210, 110);
  EXPECT_THAT(Heard(), ElementsAre("Folder MouseDown", "Folder MouseUp", "Folder Click"));
}

TEST_F(DragTest, TargetMayGoWhenItIsEntered) {
  auto gone = std::make_unique<ImageBox>(form, "Gone");
  gone->Move(100, 0, 50, 50);
  gone->On().DragOver = [&](Control&, Control&, double, double, int) { gone.reset(); };
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 110, 10);
  person.MoveTo(form, 210, 110);
  person.Release();
  EXPECT_EQ(Heard().back(), "Photo dropped on Folder 10,10");
}

TEST_F(DragTest, HandlerThatRaisesOnTheLastMoveStillEndsTheDrag) {
  KeepSurprises();
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 210, 110);
  folder.On().DragOver = [](Control&, Control&, double, double, int) { throw RuntimeError(error::Overflow); };
  person.Release();
  EXPECT_EQ(toolkit.Drag().Source, nullptr);
}

TEST_F(DragTest, DropMayAskAQuestionWithTheMouseFree) {
  person.ExpectBox("Copy", "sure?", BoxAnswer::Yes);
  folder.On().DragDrop = [&](Control&, Control&, double, double) {
    EXPECT_EQ(platform.dialogs.MsgBox("Are you sure?", BoxIcon::Question, BoxButtons::YesNo, "Copy"), BoxAnswer::Yes);
    Log("copied");
  };
  person.Drag(photo, folder);
  EXPECT_EQ(Heard().back(), "copied");
}

TEST_F(DragTest, CancelledDragDropsNothing) {
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 210, 110);
  Heard();
  toolkit.CancelDrag();
  person.Release();
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(DragTest, DraggedElementsAreTheSourceNotTheControlBelowThem) {
  photo.BringToFront();
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 210, 110);
  EXPECT_EQ(toolkit.ToolTipAt(form, 210, 110), "");
  EXPECT_EQ(Heard().back(), "Photo enters Folder");
}

}  // namespace
}  // namespace pixorra
