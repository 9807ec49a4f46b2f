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

}  // namespace
}  // namespace pixorra
