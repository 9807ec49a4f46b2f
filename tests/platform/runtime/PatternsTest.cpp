// Wildcard patterns of file names.
#include <gtest/gtest.h>
#include <string>

#include "platform/runtime/Text.h"

namespace pixorra {
namespace {

TEST(MatchesPattern, AnEmptyTextMatchesEveryName) {
  EXPECT_TRUE(MatchesPattern("photo.jpg", ""));
  EXPECT_TRUE(MatchesPattern("README", ""));
}

TEST(MatchesPattern, StarPointStarMatchesNamesWithoutAFullStopToo) {
  EXPECT_TRUE(MatchesPattern("photo.jpg", "*.*"));
  EXPECT_TRUE(MatchesPattern("README", "*.*"));
  EXPECT_TRUE(MatchesPattern("README", "*.jpg;*.*"));
}

TEST(MatchesPattern, AnyOfSeveralPatternsWillDo) {
  const std::string photos = "*.jpg;*.bmp;*.gif;*.jpeg";
  EXPECT_TRUE(MatchesPattern("a.jpg", photos));
  EXPECT_TRUE(MatchesPattern("a.gif", photos));
  EXPECT_TRUE(MatchesPattern("a.jpeg", photos));
  EXPECT_FALSE(MatchesPattern("a.jpe", photos));
  EXPECT_FALSE(MatchesPattern("a.jpg.txt", photos));
  EXPECT_FALSE(MatchesPattern("ajpg", photos));
}

TEST(MatchesPattern, IgnoresCase) {
  EXPECT_TRUE(MatchesPattern("DSC0001.JPG", "dsc*.jpg"));
  EXPECT_TRUE(MatchesPattern("ÜBUNG.jpg", "übung*"));
}

TEST(MatchesPattern, AStarTakesAnyRunAnEmptyOneIncluded) {
  EXPECT_TRUE(MatchesPattern("PXR.jpg", "PXR*.jpg"));
  EXPECT_TRUE(MatchesPattern("PXR00001.jpg", "PXR*.jpg"));
  EXPECT_TRUE(MatchesPattern("a.b.c.jpg", "a*c*.jpg"));
  EXPECT_TRUE(MatchesPattern("aaab", "*ab"));
  EXPECT_TRUE(MatchesPattern("", "*"));
  EXPECT_TRUE(MatchesPattern("x", "**x**"));
  EXPECT_FALSE(MatchesPattern("PX.jpg", "PXR*.jpg"));
}

TEST(MatchesPattern, AQuestionMarkIsOneWholeCharacter) {
  EXPECT_TRUE(MatchesPattern("a1.jpg", "a?.jpg"));
  EXPECT_TRUE(MatchesPattern("a写.jpg", "a?.jpg"));
  EXPECT_FALSE(MatchesPattern("a.jpg", "a?.jpg"));
  EXPECT_FALSE(MatchesPattern("a12.jpg", "a?.jpg"));
  EXPECT_TRUE(MatchesPattern("a\xFF.jpg", "a?.jpg"));
}

TEST(MatchesPattern, BracketsAndOtherSignsStandForThemselves) {
  EXPECT_TRUE(MatchesPattern("a[1]#.jpg", "a[1]#.jpg"));
  EXPECT_FALSE(MatchesPattern("a1.jpg", "a[1].jpg"));
}

TEST(MatchesPattern, AnEmptyPatternAmongOthersMatchesNothing) {
  EXPECT_FALSE(MatchesPattern("a.txt", "*.jpg;"));
  EXPECT_FALSE(MatchesPattern("a.txt", ";"));
  EXPECT_TRUE(MatchesPattern("a.jpg", ";;*.jpg"));
}

TEST(MatchesPattern, TheDollarPatternMatchesNoPhoto) {
  EXPECT_FALSE(MatchesPattern("a.jpg", "$"));
}

TEST(MatchesPattern, AnEndIsComparedByWholeCharactersWithCaseIgnored) {
  EXPECT_TRUE(MatchesPattern("x.\u00c9\u00c9", "*.\u00e9\u00e9"));
  EXPECT_FALSE(MatchesPattern("x.gi", "*.gif"));
  EXPECT_FALSE(MatchesPattern("gif", "*.gif"));
  EXPECT_TRUE(MatchesPattern(".gif", "*.gif"));
  EXPECT_TRUE(MatchesPattern("\u5199.gif", "*.gif"));
}

TEST(MatchesPattern, ManyStarsDoNotMultiplyTheWork) {
  std::string pattern;
  for (int star = 0; star < 60; ++star) pattern += "*a";
  // With a way back to every star this would outlast the machine.
  EXPECT_FALSE(MatchesPattern(std::string(250, 'a') + "b", pattern));
  EXPECT_TRUE(MatchesPattern(std::string(250, 'a'), pattern));
}

}  // namespace
}  // namespace pixorra
