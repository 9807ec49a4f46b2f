// A property that changes what is seen reaches the screen, however it is set.
#include <functional>
#include <gtest/gtest.h>

#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/headless/HeadlessWindow.h"
#include "tests/platform/controls/ModelTest.h"

namespace pixorra {
namespace {

class SettersTest : public ShownModelTest {
 protected:
  // What of the window is out of date after the statement.
  Rect Outdated(const std::function<void()>& statement) {
    HeadlessWindow& window = *platform.backend.WindowOf(form);
    window.TakeExposed();
    statement();
    return window.TakeExposed().Area;
  }
  static constexpr Rect At{10, 20, 100, 30};
};

TEST_F(SettersTest, AButtonThatBecomesTheDefaultOneOrBoldIsShownSo) {
  CommandButton button(form, "Button");
  button.Move(At.Left, At.Top, At.Width, At.Height);
  EXPECT_EQ(Outdated([&] { button.SetDefault(true); }), At);
  EXPECT_EQ(Outdated([&] { button.SetCancel(true); }), At);
  EXPECT_EQ(Outdated([&] { button.SetBold(true); }), At);
  EXPECT_TRUE(Outdated([&] {
                button.SetDefault(true);
                button.SetCancel(true);
                button.SetBold(true);
              }).IsEmpty());
}

TEST_F(SettersTest, ABoxThatIsLockedOrTakesSeveralLinesIsShownSo) {
  TextBox box(form, "Box");
  box.Move(At.Left, At.Top, At.Width, At.Height);
  EXPECT_EQ(Outdated([&] { box.SetLocked(true); }), At);
  EXPECT_EQ(Outdated([&] { box.SetMultiLine(true); }), At);
}

TEST_F(SettersTest, AListThatCanBeTypedInAndABarThatBecomesASliderAreShownSo) {
  ComboBox list(form, "List");
  list.Move(At.Left, At.Top, At.Width, At.Height);
  EXPECT_EQ(Outdated([&] { list.SetEditable(true); }), At);
  ScrollBar bar(form, "Bar", Orientation::Horizontal);
  bar.Move(At.Left, At.Top, At.Width, At.Height);
  EXPECT_EQ(Outdated([&] { bar.SetSlider(true); }), At);
}

TEST_F(SettersTest, ALabelWhoseCaptionShortensOrShrinksIsPaintedSo) {
  Label label(form, "Label");
  label.Move(At.Left, At.Top, At.Width, At.Height);
  EXPECT_EQ(Outdated([&] { label.SetShortensInMiddle(true); }), At);
  EXPECT_EQ(Outdated([&] { label.SetShrinks(true); }), At);
}

}  // namespace
}  // namespace pixorra
