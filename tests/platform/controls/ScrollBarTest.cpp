#include <gmock/gmock.h>

#include "platform/controls/ProgressBar.h"
#include "platform/controls/ScrollBar.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BarTest : public ShownModelTest {
 protected:
  BarTest() {
    bar.On().Change = [this](Control&) { Log("change " + std::to_string(bar.Value())); };
    bar.On().Scroll = [this](Control&) { Log("scroll " + std::to_string(bar.Value())); };
    bar.SetMax(100);
  }
  ScrollBar bar{form, "Bar", Orientation::Horizontal};
};

TEST_F(BarTest, DifferentValueRaisesChangeWhoeverSetsIt) {
  bar.SetValue(7);
  bar.SetValue(7);
  bar.UserMovedTo(8);
  bar.UserMovedTo(8);
  EXPECT_THAT(Heard(), ElementsAre("change 7", "change 8"));
}

TEST_F(BarTest, HalvesGoToTheEvenNeighbour) {
  bar.SetValue(6.5);
  EXPECT_EQ(bar.Value(), 6);
  bar.SetValue(7.5);
  EXPECT_EQ(bar.Value(), 8);
}

TEST_F(BarTest, ValueBeyondSixteenBitsRaises6AndOutsideTheRange380) {
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(32768); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(-32769); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetMax(32768); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetMin(-40000); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetLargeChange(40000); }), 6);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(101); }), 380);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(-1); }), 380);
  EXPECT_EQ(bar.Value(), 0);
  EXPECT_EQ(bar.Max(), 100);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(BarTest, RangeThatShutsTheValueOutTakesItAlong) {
  bar.SetValue(50);
  Heard();
  bar.SetMax(60);
  EXPECT_THAT(Heard(), IsEmpty());
  bar.SetMax(30);
  EXPECT_EQ(bar.Value(), 30);
  EXPECT_THAT(Heard(), ElementsAre("change 30"));
  bar.SetMin(40);
  EXPECT_EQ(bar.Value(), 30);
}

TEST_F(BarTest, RangeMayRunBackwards) {
  bar.SetMin(100);
  bar.SetMax(0);
  Heard();
  bar.SetValue(30);
  EXPECT_EQ(ErrorOf([&] { bar.SetValue(101); }), 380);
  EXPECT_THAT(Heard(), ElementsAre("change 30"));
}

TEST_F(BarTest, PersonsMoveStaysInTheRangeAndMindsBeingDisabled) {
  bar.UserMovedTo(5000);
  EXPECT_EQ(bar.Value(), 100);
  bar.SetEnabled(false);
  bar.UserMovedTo(5);
  bar.UserScrolledTo(5);
  EXPECT_EQ(bar.Value(), 100);
  bar.SetValue(5);
  EXPECT_THAT(Heard(), ElementsAre("change 100", "change 5"));
}

TEST_F(BarTest, ThumbScrollsAndChangesOnceLetGo) {
  bar.UserLetGo();
  bar.UserScrolledTo(10);
  bar.UserScrolledTo(20);
  bar.UserLetGo();
  bar.UserLetGo();
  EXPECT_THAT(Heard(), ElementsAre("scroll 10", "scroll 20", "change 20"));
}

TEST_F(BarTest, HandlerMaySetAnotherValue) {
  bar.On().Change = [this](Control&) {
    Log("change " + std::to_string(bar.Value()));
    if (bar.Value() < 3) bar.SetValue(bar.Value() + 1);
  };
  bar.SetValue(1);
  EXPECT_THAT(Heard(), ElementsAre("change 1", "change 2", "change 3"));
}

TEST_F(BarTest, ProgressStaysInItsRange) {
  ProgressBar progress(form, "Progress");
  progress.SetMax(10);
  progress.SetValue(10);
  EXPECT_EQ(ErrorOf([&] { progress.SetValue(11); }), 380);
  EXPECT_EQ(ErrorOf([&] { progress.SetValue(-1); }), 380);
  progress.SetMax(4);
  EXPECT_EQ(progress.Value(), 4);
}

}  // namespace
}  // namespace pixorra
