// Automatic drags.
#include <gmock/gmock.h>
#include <memory>

#include "platform/controls/ImageBox.h"
#include "platform/controls/Toolkit.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DragTest : public ModelTest {
 protected:
  DragTest() {
    photo.Move(0, 0, 80, 60);
    photo.SetAutomaticDrag(true);
    folder.Move(200, 100, 100, 100);
    for (Control* control : {static_cast<Control*>(&photo), static_cast<Control*>(&folder)}) {
      Listen(*control);
      control->On().DragOver = [this](Control& target, const DragArgs& drag) {
        const char* const names[] = {"enters", "leaves", "over"};
        Log(drag.Source.Name() + " " + names[static_cast<int>(drag.State)] + " " + target.Name());
      };
      control->On().DragDrop = [this](Control& target, const DragArgs& drag) {
        EXPECT_EQ(toolkit.Drag().Source, nullptr);
        EXPECT_EQ(drag.State, DragState::Over);
        Log(drag.Source.Name() + " dropped on " + target.Name() + " " + std::to_string(static_cast<int>(drag.X)) + "," +
            std::to_string(static_cast<int>(drag.Y)));
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
  form.On().DragDrop = [&](Control& target, const DragArgs& drag) {
    Log(target.Name() + " " + std::to_string(static_cast<int>(drag.X)) + "," +
        std::to_string(static_cast<int>(drag.Y)));
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
  folder.On().DragOver = [&](Control&, const DragArgs& drag) {
    drag.Source.SetDragIcon(drag.State == DragState::Leave ? Picture() : platform.artwork.Drawing("DropIcon", 32, 32));
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
  gone->On().DragOver = [&](Control&, const DragArgs&) { gone.reset(); };
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 110, 10);
  person.MoveTo(form, 210, 110);
  person.Release();
  EXPECT_EQ(Heard().back(), "Photo dropped on Folder 10,10");
}

TEST_F(DragTest, HandlerThatRaisesOnTheLastMoveStillEndsTheDrag) {
  KeepFailures();
  person.PressAt(form, 10, 10);
  person.MoveTo(form, 210, 110);
  folder.On().DragOver = [](Control&, const DragArgs&) { throw RuntimeError(error::Overflow); };
  person.Release();
  EXPECT_EQ(toolkit.Drag().Source, nullptr);
}

TEST_F(DragTest, DropMayAskAQuestionWithTheMouseFree) {
  person.ExpectBox("Copy", "sure?", BoxAnswer::Yes);
  folder.On().DragDrop = [&](Control&, const DragArgs&) {
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
