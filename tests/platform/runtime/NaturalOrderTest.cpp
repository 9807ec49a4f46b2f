#include <algorithm>
#include <gmock/gmock.h>
#include <random>
#include <string>
#include <vector>

#include "platform/runtime/NaturalOrder.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Sorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end(), NaturalLess);
  return names;
}

TEST(NaturalOrderTest, NumbersInNamesCountByTheirValue) {
  EXPECT_THAT(Sorted({"DSC10", "DSC9", "DSC100", "DSC1"}), ElementsAre("DSC1", "DSC9", "DSC10", "DSC100"));
  EXPECT_THAT(Sorted({"2024-10-3", "2024-9-30", "2024-10-12"}), ElementsAre("2024-9-30", "2024-10-3", "2024-10-12"));
  EXPECT_THAT(Sorted({"10", "9", "a", "-"}), ElementsAre("-", "9", "10", "a"));
}

TEST(NaturalOrderTest, CaseDecidesOnlyBetweenNamesThatAreEqualOtherwise) {
  EXPECT_THAT(Sorted({"b2", "A10", "a9", "B1"}), ElementsAre("a9", "A10", "B1", "b2"));
  EXPECT_THAT(Sorted({"a", "A"}), ElementsAre("A", "a"));
  EXPECT_THAT(Sorted({"\xC3\xA4"
                      "2",
                      "\xC3\x84"
                      "10",
                      "\xC3\xA4"
                      "1"}),
              ElementsAre("\xC3\xA4"
                          "1",
                          "\xC3\xA4"
                          "2",
                          "\xC3\x84"
                          "10"));
}

TEST(NaturalOrderTest, LeadingZerosCountForNothingButEqualNumbersStayApart) {
  EXPECT_THAT(Sorted({"p10", "p009", "p08"}), ElementsAre("p08", "p009", "p10"));
  EXPECT_THAT(Sorted({"p1", "p01", "p001"}), ElementsAre("p001", "p01", "p1"));
  EXPECT_THAT(Sorted({"p0", "p00", "p"}), ElementsAre("p", "p0", "p00"));
}

TEST(NaturalOrderTest, NumbersMayBeLongerThanAnyMachineNumber) {
  const std::string big(400, '9');
  EXPECT_TRUE(NaturalLess("n" + big, "n1" + std::string(400, '0')));
  EXPECT_FALSE(NaturalLess("n1" + std::string(400, '0'), "n" + big));
}

TEST(NaturalOrderTest, StartOfANameComesBeforeTheName) {
  EXPECT_TRUE(NaturalLess("", "a"));
  EXPECT_TRUE(NaturalLess("trip", "trip 2"));
  EXPECT_FALSE(NaturalLess("trip", "trip"));
}

// What sorting relies on: exactly one of two different names is less, and less goes on from one to the next.
TEST(NaturalOrderTest, AnyNamesHaveOneOrder) {
  std::mt19937 random(7);
  const std::string letters = "0019aAb./:\xC3\xA4";
  std::vector<std::string> names;
  for (int i = 0; i < 120; ++i) {
    std::string name;
    for (std::size_t length = random() % 6; name.size() < length;) name += letters[random() % letters.size()];
    names.push_back(name);
  }
  for (const std::string& a : names) {
    for (const std::string& b : names) {
      ASSERT_EQ(NaturalLess(a, b) || NaturalLess(b, a), a != b) << a << " | " << b;
      for (const std::string& c : names) {
        if (NaturalLess(a, b) && NaturalLess(b, c)) {
          ASSERT_TRUE(NaturalLess(a, c)) << a << " | " << b << " | " << c;
        }
      }
    }
  }
}

}  // namespace
}  // namespace pixorra
