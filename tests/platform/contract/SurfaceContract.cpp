// Picture boxes that take the size of their picture.
#include <gtest/gtest.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/PictureBox.h"
#include "tests/platform/contract/ContractTest.h"

namespace pixorra {
namespace {

Picture Plain(int width, int height) {
  Bitmap bitmap(width, height, PixelFormat::Bgr24);
  bitmap.Fill(0x000000FF);
  return Picture(std::move(bitmap));
}

class SurfaceContract : public FormContract {
 protected:
  SurfaceContract() { box.Move(20, 30, 100, 80); }
  PictureBox box{form, "Box"};
};

TEST_F(SurfaceContract, BoxKeepsItsSizeUnlessItSizesItself) {
  box.SetPicture(Plain(30, 20));
  EXPECT_EQ(box.Bounds(), (Rect{20, 30, 100, 80}));
  box.SetAutoSize(true);
  EXPECT_EQ(box.Bounds(), (Rect{20, 30, 30, 20}));
}

TEST_F(SurfaceContract, EachPictureSizesTheBoxAndNoneLeavesIt) {
  CommandButton button(box, "Button");
  button.Move(5, 5, 10, 10);
  box.SetAutoSize(true);
  EXPECT_EQ(box.Bounds(), (Rect{20, 30, 100, 80}));
  Show();
  box.SetPicture(Plain(60, 50));
  EXPECT_EQ(box.Bounds(), (Rect{20, 30, 60, 50}));
  box.SetPicture(Plain(40, 70));
  EXPECT_EQ(box.Bounds(), (Rect{20, 30, 40, 70}));
  platform->Settle();
  EXPECT_EQ(platform->Look(button).At, (Rect{25, 35, 10, 10}));
  box.SetPicture(Picture());
  EXPECT_EQ(box.Bounds(), (Rect{20, 30, 40, 70}));
}

TEST_F(SurfaceContract, SurfaceOfABoxThatSizedItselfIsOfThatSize) {
  box.SetAutoSize(true);
  box.PSet(90, 70, 0);
  box.SetPicture(Plain(60, 50));
  EXPECT_FALSE(box.HasDrawing());
  box.PSet(0, 0, 0);
  EXPECT_EQ(box.Image().Width(), 60);
  EXPECT_EQ(box.Image().Height(), 50);
  EXPECT_EQ(box.Point(59, 49), 0x000000FFU);
}

// --- what is painted straight onto a form ----------------------------------------------------------------------------

Colour FormPixel(const Form& form, int x, int y) {
  const std::uint8_t* pixel = form.Drawing().Row(y) + static_cast<std::ptrdiff_t>(x) * 3;
  return static_cast<Colour>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

TEST_F(FormContract, WhatIsPaintedOnAFormStaysThroughHidingAndShowing) {
  form.PaintPicture(Plain(30, 20), 10, 20, 60, 40);
  Show();
  form.Hide();
  platform->Settle();
  Show();
  EXPECT_EQ(FormPixel(form, 10, 20), 0x000000FFU);
  EXPECT_EQ(FormPixel(form, 69, 59), 0x000000FFU);
  EXPECT_NE(FormPixel(form, 70, 59), 0x000000FFU);
  EXPECT_NE(FormPixel(form, 9, 20), 0x000000FFU);
}

TEST_F(FormContract, WhatIsPaintedGoesWithClsWithAnUnloadAndWithAPaintInAnotherSize) {
  Show();
  form.PaintPicture(Plain(30, 20), 0, 0, 30, 20);
  form.Cls();
  EXPECT_TRUE(form.Drawing().IsEmpty());
  form.PaintPicture(Plain(30, 20), 0, 0, 30, 20);
  form.SetClientSize(200, 100);
  form.PaintPicture(Plain(30, 20), 100, 50, 1000, 1000);
  EXPECT_EQ(form.DrawingSize(), (PixelSize{200, 100}));
  EXPECT_NE(FormPixel(form, 0, 0), 0x000000FFU);
  EXPECT_EQ(FormPixel(form, 199, 99), 0x000000FFU);
  form.Unload();
  EXPECT_TRUE(form.Drawing().IsEmpty());
}

}  // namespace
}  // namespace pixorra
