// Pictures, labels, and what is drawn on boxes.
#include <array>
#include <gtest/gtest.h>

#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

class PictureBoxTest : public ShownModelTest {
 protected:
  static Picture Flat(int width, int height, Colour colour) {
    Bitmap pixels(width, height, PixelFormat::Bgr24);
    pixels.Fill(colour);
    return Picture(std::move(pixels));
  }
};

TEST_F(PictureBoxTest, ImageTakesItsPicturesSizeUnlessItStretches) {
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

TEST_F(PictureBoxTest, LabelThatSizesItselfKeepsItsLeftEdge) {
  Label label(form, "Label");
  label.Move(50, 10, 5, 5);
  label.SetAutoSize(true);
  label.SetCaption("ten chars.");
  EXPECT_EQ(label.Bounds(), (Rect{50, 10, 60, 13}));
  label.SetFont(Font{"", 16.5, false});
  EXPECT_EQ(label.Bounds(), (Rect{50, 10, 120, 26}));
}

TEST_F(PictureBoxTest, LabelThatSizesItselfHasRoomForAllItsLines) {
  Label label(form, "Label");
  label.SetAutoSize(true);
  label.SetCaption("first\r\nsecond line");
  EXPECT_EQ(label.Width(), 11 * 6);
  EXPECT_EQ(label.Height(), 2 * 13);
}

TEST_F(PictureBoxTest, PictureBoxKeepsWhatIsDrawnAndCutsWhatLiesOutside) {
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

TEST_F(PictureBoxTest, PictureBoxGivesItsPictureWholeUntilItIsDrawnOn) {
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

TEST_F(PictureBoxTest, AnImageStaysAsItWasWhenTheBoxIsDrawnOnOrCleared) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  box.PSet(1, 1, 0x000000FF);
  const Picture first = box.Image();
  EXPECT_EQ(box.Image(), first);
  EXPECT_TRUE(box.HasDrawing());
  EXPECT_EQ(box.Point(1, 1), 0x000000FFU);
  box.PSet(2, 1, 0x0000FF00);
  EXPECT_EQ(box.Point(1, 1), 0x000000FFU) << "what was drawn before is still there";
  const Picture second = box.Image();
  EXPECT_EQ(second.Pixels().Row(1)[2 * 3 + 1], 0xFF);
  EXPECT_EQ(first.Pixels().Row(1)[2 * 3 + 1], 0xC0);
  box.Cls();
  EXPECT_FALSE(box.HasDrawing());
  EXPECT_EQ(box.Point(2, 1), 0x00C0C0C0U);
  EXPECT_EQ(second.Pixels().Row(1)[2 * 3 + 1], 0xFF);
}

TEST_F(PictureBoxTest, WhatIsDrawnOnAColourOfTheProgramsOwnHasItsLightValue) {
  static constexpr std::array<Tone, 2> Tones{{{0x00000001, 0x00000002}, {0x00A0B0C0, 0x00102030}}};
  toolkit.SetTones(Tones);
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  box.SetBackColor(ToneColour(1));
  box.PSet(0, 0, 0);
  EXPECT_EQ(box.Point(1, 1), 0x00A0B0C0U);
}

TEST_F(PictureBoxTest, PaintingNothingRaises481) {
  PictureBox box(form, "Box");
  box.Move(0, 0, 20, 10);
  EXPECT_EQ(ErrorOf([&] { box.PaintPicture(Picture(), 0, 0, 5, 5); }), error::BadPicture);
}

TEST_F(PictureBoxTest, BoxOutlineIsOnePixelWideWithBothEndsIn) {
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

TEST_F(PictureBoxTest, TextDrawnOnABoxCanBeSeen) {
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
