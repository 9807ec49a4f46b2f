#include <deque>
#include <gmock/gmock.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Painting.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Shape.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PaintingTest : public ModelTest {
 protected:
  PaintingTest() { form.Show(); }
  std::vector<std::string> Painted(const Rect& exposed) {
    std::vector<std::string> names;
    for (const PaintItem& item : ItemsToPaint(form, exposed)) names.push_back(item.Source->Name());
    return names;
  }
  HeadlessWindow::Exposed Exposed() { return platform.backend.WindowOf(form)->TakeExposed(); }
  static constexpr Rect Whole{0, 0, 400, 300};
};

TEST_F(PaintingTest, GoesFromTheBackToTheFrontAndIntoContainers) {
  ImageBox back(form, "Back");
  PictureBox box(form, "Box");
  Label front(form, "Front");
  Label inner(box, "Inner");
  ImageBox innerBack(box, "InnerBack");
  innerBack.SendToBack();
  for (Control* control : {static_cast<Control*>(&back), static_cast<Control*>(&box), static_cast<Control*>(&front),
                           static_cast<Control*>(&inner), static_cast<Control*>(&innerBack)}) {
    control->Move(0, 0, 50, 50);
  }
  EXPECT_THAT(Painted(Whole), ElementsAre("Back", "Box", "InnerBack", "Inner", "Front"));
  back.BringToFront();
  EXPECT_THAT(Painted(Whole), ElementsAre("Box", "InnerBack", "Inner", "Front", "Back"));
}

TEST_F(PaintingTest, LeavesOutWhatIsHiddenOrElsewhereOrHasAWidget) {
  ImageBox image(form, "Image");
  image.Move(0, 0, 50, 50);
  CommandButton button(form, "Button");
  button.Move(0, 0, 50, 50);
  PictureBox box(form, "Box");
  box.Move(100, 0, 50, 50);
  ImageBox inner(box, "Inner");
  inner.Move(0, 0, 50, 50);
  EXPECT_THAT(Painted({0, 0, 100, 100}), ElementsAre("Image"));
  EXPECT_THAT(Painted({50, 0, 50, 100}), IsEmpty());
  EXPECT_THAT(Painted({149, 49, 1, 1}), ElementsAre("Box", "Inner"));
  box.SetVisible(false);
  EXPECT_THAT(Painted({100, 0, 50, 50}), IsEmpty());
}

TEST_F(PaintingTest, ClipsToContainersAndTheExposedPart) {
  PictureBox box(form, "Box");
  box.Move(100, 50, 60, 40);
  ImageBox inner(box, "Inner");
  inner.Move(-10, 30, 200, 20);
  const auto items = ItemsToPaint(form, {0, 0, 130, 300});
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].At, (Rect{100, 50, 60, 40}));
  EXPECT_EQ(items[0].Clip, (Rect{100, 50, 30, 40}));
  EXPECT_EQ(items[1].At, (Rect{90, 80, 200, 20}));
  EXPECT_EQ(items[1].Clip, (Rect{100, 80, 30, 10}));
}

TEST_F(PaintingTest, BordersOfShapesStandOut) {
  Shape shape(form, "Shape");
  shape.Move(100, 100, 50, 50);
  EXPECT_THAT(Painted({97, 97, 1, 1}), ElementsAre("Shape"));
  EXPECT_THAT(Painted({90, 90, 6, 6}), IsEmpty());
}

TEST_F(PaintingTest, MovingRepaintsTheOldPlaceAndTheNew) {
  ImageBox image(form, "Image");
  image.Move(0, 0, 20, 20);
  Exposed();
  image.SetLeft(100);
  const auto exposed = Exposed();
  EXPECT_EQ(exposed.Parts, 2);
  EXPECT_EQ(exposed.Area, (Rect{0, 0, 120, 20}));
}

TEST_F(PaintingTest, MovingAShapeTakesItsBorderAlong) {
  Shape shape(form, "Shape");
  shape.Move(100, 100, 50, 50);
  Exposed();
  shape.SetLeft(101);
  EXPECT_EQ(Exposed().Area, (Rect{96, 96, 59, 58}));
}

TEST_F(PaintingTest, ValueThatIsThereAlreadyRepaintsNothing) {
  ImageBox image(form, "Image");
  image.Move(0, 0, 20, 20);
  Label label(form, "Label");
  label.Move(0, 30, 20, 20);
  label.SetCaption("text");
  Exposed();
  image.SetLeft(0);
  image.SetVisible(true);
  image.SetEnabled(true);
  image.SetPicture(Picture());
  label.SetCaption("text");
  EXPECT_EQ(Exposed().Parts, 0);
}

TEST_F(PaintingTest, WhatIsNotShownRepaintsNothing) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 100, 100);
  ImageBox inner(box, "Inner");
  inner.Move(0, 0, 10, 10);
  box.SetVisible(false);
  Exposed();
  inner.SetLeft(50);
  inner.SetVisible(false);
  EXPECT_EQ(Exposed().Parts, 0);
}

TEST_F(PaintingTest, ControlThatGoesIsPaintedOver) {
  {
    ImageBox image(form, "Image");
    image.Move(10, 10, 20, 20);
    Exposed();
  }
  EXPECT_EQ(Exposed().Area, (Rect{10, 10, 20, 20}));
}

// --- many light controls -------------------------------------------------------------------------------------------

constexpr int Many = 100000;

// A canvas that is far wider than its window, with slots side by side, of which four can be seen.
class ManyTest : public ModelTest {
 protected:
  ManyTest() {
    window.Move(0, 0, 388, 105);
    canvas.Move(0, 0, 97.0 * Many, 105);
    slots(0).Move(0, 0, 97, 105);
    for (int i = 1; i <= Many; ++i) {
      ImageBox& slot = slots.Load(i);
      slot.SetLeft(97.0 * (i - 1));
      slot.SetVisible(true);
    }
    form.Show();
  }
  HeadlessWindow::Exposed Exposed() { return platform.backend.WindowOf(form)->TakeExposed(); }

  PictureBox window{form, "Window"};
  PictureBox canvas{window, "Canvas"};
  ControlArray<ImageBox> slots{canvas, "Slots"};
};

TEST_F(ManyTest, OnlyThoseThatAreSeenArePainted) {
  EXPECT_EQ(ItemsToPaint(form, {0, 0, 400, 300}).size(), 2U + 4U);
  canvas.SetLeft(-97.0 * 50000);
  const auto items = ItemsToPaint(form, {0, 0, 400, 300});
  ASSERT_EQ(items.size(), 2U + 4U);
  EXPECT_EQ(items.back().Source->Name(), "Slots");
}

TEST_F(ManyTest, OnlyThoseThatAreSeenRepaintWhenAllAreMoved) {
  Exposed();
  for (int i = 1; i <= Many; ++i) slots(i).SetTop(1);
  EXPECT_EQ(Exposed().Parts, 2 * 4);
  for (int i = 1; i <= Many; ++i) slots(i).SetVisible(false);
  EXPECT_EQ(Exposed().Parts, 4);
}

TEST_F(ManyTest, MovingTheCanvasIsOneRepaint) {
  Exposed();
  canvas.SetLeft(-97);
  EXPECT_LE(Exposed().Parts, 2);
}

TEST_F(ManyTest, NoneHasAPeerAndTheyCanGoFromTheLastOn) {
  EXPECT_EQ(slots(Many).GetPeer(), nullptr);
  EXPECT_FALSE(canvas.HasNatives());
  for (int i = Many; i >= 1; --i) slots.Unload(i);
  EXPECT_EQ(slots.UBound(), 0);
  EXPECT_EQ(canvas.Controls().size(), 1U);
}

TEST_F(ManyTest, TheyCanGoFromTheFirstOn) {
  for (int i = 1; i <= Many; ++i) slots.Unload(i);
  EXPECT_EQ(canvas.Controls().size(), 1U);
  EXPECT_EQ(toolkit.ControlAt(form, 10, 10), &canvas);
}

TEST(HiddenFormTest, WhatChangesWhileAFormIsHiddenIsPaintedWhenItIsShownAgain) {
  HeadlessPlatform platform;
  Form form(platform.toolkit, "MainForm");
  form.SetClientSize(400, 300);
  Label label(form, "Label");
  label.Move(10, 10, 50, 20);
  form.Show();
  platform.backend.WindowOf(form)->TakeExposed();
  form.SetVisible(false);
  label.Move(200, 100, 50, 20);
  form.SetVisible(true);
  EXPECT_EQ(platform.backend.WindowOf(form)->TakeExposed().Area, (Rect{0, 0, 400, 300}));
}

}  // namespace
}  // namespace pixorra
