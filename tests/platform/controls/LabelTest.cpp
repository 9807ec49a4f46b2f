// Labels that are as large as their captions.
#include <gtest/gtest.h>

#include "platform/controls/Label.h"
#include "tests/platform/controls/Stage.h"

namespace pixorra {
namespace {

using LabelTest = ShownModelTest;

TEST_F(LabelTest, CentredLabelGrowsAndShrinksAroundItsMiddle) {
  Label label(form, "Label");
  label.Move(50, 10, 20, 13);
  label.SetAlignment(Alignment::Center);
  label.SetAutoSize(true);
  label.SetCaption("ten chars.");
  EXPECT_EQ(label.Bounds(), (Rect{30, 10, 60, 13}));
  label.SetCaption("four");
  EXPECT_EQ(label.Bounds(), (Rect{48, 10, 24, 13}));
}

TEST_F(LabelTest, LabelSetToTheRightKeepsItsRightEdge) {
  Label label(form, "Label");
  label.Move(50, 10, 20, 13);
  label.SetAlignment(Alignment::Right);
  label.SetAutoSize(true);
  label.SetCaption("ten chars.");
  EXPECT_EQ(label.Bounds(), (Rect{10, 10, 60, 13}));
}

}  // namespace
}  // namespace pixorra
