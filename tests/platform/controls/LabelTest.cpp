// Labels that are as large as their captions.
#include <gtest/gtest.h>

#include "platform/controls/Label.h"
#include "tests/platform/controls/ModelTest.h"

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

TEST_F(LabelTest, AnAutoSizeLabelGrowsNoWiderThanItMay) {
  Label label(form, "Label");
  label.Move(100, 10, 0, 13);
  label.SetAlignment(Alignment::Center);
  label.SetAutoSize(true);
  label.SetMaxWidth(40);
  label.SetCaption("ten chars.");
  EXPECT_EQ(label.Bounds(), (Rect{80, 10, 40, 13}));
  label.SetMaxWidth(0);
  EXPECT_EQ(label.Bounds(), (Rect{70, 10, 60, 13}));
  label.SetMaxWidth(100);
  EXPECT_EQ(label.Width(), 60);
}

TEST_F(LabelTest, TonesStandForColoursOfTheDesktop) {
  static constexpr Tone tones[] = {{0x00111111, 0x00EEEEEE}, {0x00222222, 0x00DDDDDD}};
  toolkit.SetTones(tones);
  EXPECT_EQ(toolkit.PlainColour(ToneColour(1), false), 0x00222222U);
  EXPECT_EQ(toolkit.PlainColour(ToneColour(1), true), 0x00DDDDDDU);
  // Colours as they stand, those of the system, and a tone that nobody has told.
  EXPECT_EQ(toolkit.PlainColour(0x00123456, true), 0x00123456U);
  EXPECT_EQ(toolkit.PlainColour(ButtonFace, true), ButtonFace);
  EXPECT_EQ(toolkit.PlainColour(ToneColour(2), true), 0U);
}

}  // namespace
}  // namespace pixorra
