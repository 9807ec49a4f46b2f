// Which moves of a mouse are a person's.
#include <gtest/gtest.h>

#include "slideshow/PointerWatch.h"

namespace pixorra {
namespace {

TEST(PointerWatchTest, TheFirstPlaceIsNoMoveWheneverItIsTold) {
  PointerWatch watch(100);
  EXPECT_FALSE(watch.IsMove(0, 500, 500, 103));
}

TEST(PointerWatchTest, MovesOfTheFirstHalfSecondDoNotCount) {
  PointerWatch watch(100);
  EXPECT_FALSE(watch.IsMove(0, 0, 0, 100));
  EXPECT_FALSE(watch.IsMove(0, 300, 0, 100.4));
  EXPECT_FALSE(watch.IsMove(0, 309, 0, 100.6)) << "what follows is counted from there";
  EXPECT_TRUE(watch.IsMove(0, 311, 0, 100.7));
}

TEST(PointerWatchTest, AMouseThatTremblesStaysWithinTenPixels) {
  PointerWatch watch(0);
  EXPECT_FALSE(watch.IsMove(0, 100, 100, 1));
  for (int i = 0; i < 100; ++i) {
    EXPECT_FALSE(watch.IsMove(0, 100 + i % 8, 100 - i % 6, 1 + i));
  }
  EXPECT_FALSE(watch.IsMove(0, 106, 108, 200)) << "ten pixels away";
  EXPECT_TRUE(watch.IsMove(0, 107, 108, 200));
}

TEST(PointerWatchTest, EachScreenHasPlacesOfItsOwn) {
  PointerWatch watch(0);
  EXPECT_FALSE(watch.IsMove(0, 1000, 10, 1));
  EXPECT_FALSE(watch.IsMove(1, 2, 10, 2));
  EXPECT_TRUE(watch.IsMove(1, 30, 10, 3));
}

}  // namespace
}  // namespace pixorra
