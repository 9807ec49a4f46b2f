// The finer drawing of surfaces, for screens of high density.
#include "platform/controls/ControlArray.h"
#include "platform/controls/PictureBox.h"
#include "platform/headless/HeadlessPlatform.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

class FineSurfaceTest : public HeadlessTest {
 protected:
  FineSurfaceTest() { box.Move(0, 0, 11, 7); }
  Form form{toolkit, "MainForm"};
  PictureBox box{form, "Box"};
};

TEST_F(FineSurfaceTest, CommonScreenNeedsNone) {
  box.PSet(0, 0, 0);
  EXPECT_TRUE(box.FineSurface().IsEmpty());
}

TEST_F(FineSurfaceTest, HasTheScreensPixelsAlsoAtABrokenScale) {
  platform.backend.SetFineness(1.5);
  box.SetBackColor(0x00FFFFFF);
  box.PSet(1, 2, 0x000000FF);
  const Bitmap& fine = box.FineSurface();
  ASSERT_EQ(fine.Width(), 17);
  ASSERT_EQ(fine.Height(), 11);
  int red = 0;
  for (int y = 0; y < 11; ++y) {
    for (int x = 0; x < 17; ++x) red += fine.Row(y)[3 * x] == 0 ? 1 : 0;
  }
  EXPECT_EQ(red, 2) << "from 2 to 3 across, from 3 to 5 down";
  EXPECT_EQ(fine.Row(3)[3 * 2], 0);
}

TEST_F(FineSurfaceTest, ScratchSurfaceOfAHiddenBoxIsDrawnOnce) {
  platform.backend.SetFineness(2);
  box.SetVisible(false);
  box.PSet(0, 0, 0);
  EXPECT_TRUE(box.HasDrawing());
  EXPECT_TRUE(box.FineSurface().IsEmpty());
}

TEST_F(FineSurfaceTest, DrawingFarOutsideChangesNothing) {
  platform.backend.SetFineness(2);
  box.SetBackColor(0x00FFFFFF);
  Bitmap black(2, 2, PixelFormat::Bgr24);
  black.Fill(0);
  box.PaintPicture(Picture(std::move(black)), 2000000000, -2000000000, 2000000000, 1);
  box.Box(-2000000000, -5, 2000000000, 2000000000, 0, false);
  EXPECT_EQ(box.FineSurface().Width(), 22);
  EXPECT_EQ(box.FineSurface().Row(6)[3 * 10], 0xFF);
  EXPECT_EQ(box.Point(5, 3), 0x00FFFFFFU);
}

TEST_F(FineSurfaceTest, PictureBelowTheDrawingIsFineToo) {
  platform.backend.SetFineness(2);
  Bitmap red(3, 3, PixelFormat::Bgr24);
  red.Fill(0x000000FF);
  box.SetBackColor(0x00FFFFFF);
  box.SetPicture(Picture(std::move(red)));
  box.PSet(9, 6, 0);
  EXPECT_EQ(box.FineSurface().Row(5)[3 * 5 + 1], 0);
  EXPECT_EQ(box.FineSurface().Row(5)[3 * 6 + 1], 0xFF);
}

}  // namespace
}  // namespace pixorra
