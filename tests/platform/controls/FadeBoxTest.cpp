// Two pictures that fade, as the model has them.
#include "platform/controls/FadeBox.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

class FadeBoxTest : public ShownModelTest {
 protected:
  FadeBoxTest() {
    box.Move(10, 20, 100, 80);
    window->TakeExposed();
  }
  static Picture Plain() { return Picture(Bitmap::Cleared(2, 2, PixelFormat::Bgra32)); }

  FadeBox box{form, "Box"};
  HeadlessWindow* window = platform.backend.WindowOf(form);
};

TEST_F(FadeBoxTest, EachStepIsPainted) {
  const Picture lower = Plain();
  const Picture upper = Plain();
  box.Show(lower, upper, 0.25);
  EXPECT_EQ(window->TakeExposed().Area, (Rect{10, 20, 100, 80}));
  box.Show(lower, upper, 0.5);
  EXPECT_EQ(window->TakeExposed().Area, (Rect{10, 20, 100, 80}));
  box.Show(lower, upper, 0.5);
  EXPECT_EQ(window->TakeExposed().Parts, 0) << "what is the same is not painted again";
}

TEST_F(FadeBoxTest, TheShareEndsAtNoneAndAtAll) {
  box.Show(Plain(), Plain(), -1);
  EXPECT_EQ(box.Share(), 0);
  box.Show(Plain(), Plain(), 7);
  EXPECT_EQ(box.Share(), 1);
}

TEST_F(FadeBoxTest, ItLeavesTheMouseToWhatIsBelow) {
  Listen(form);
  person.ClickAt(form, 50, 50);
  EXPECT_EQ(Heard().front(), "MainForm MouseDown");
}

}  // namespace
}  // namespace pixorra
