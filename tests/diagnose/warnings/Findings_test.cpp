#include "diagnose/warnings/Findings.h"

#include <gtest/gtest.h>

namespace diagnose {
namespace {

struct Told {
  std::vector<Finding> findings;
  std::size_t pairs;
  const char* text;
  int pair;
};

class FindingsAreTold : public ::testing::TestWithParam<Told> {};

TEST_P(FindingsAreTold, OnceWithTheirPlace) {
  const auto one = told("blurred", GetParam().findings, GetParam().pairs);
  ASSERT_TRUE(one);
  EXPECT_EQ(one->text, GetParam().text);
  EXPECT_EQ(one->pair, GetParam().pair);
  EXPECT_FALSE(one->advice.empty());
}

Finding at(std::size_t pair, int side, double weight = 0.0, const char* text = "Wide") {
  return {pair, side, weight, text};
}
constexpr int kPair = Finding::kPair;

INSTANTIATE_TEST_SUITE_P(
    Places, FindingsAreTold,
    ::testing::Values(
        Told{{at(3, 0)}, 9, "Wide, in the left picture of pair 3", 3},
        Told{{at(0, 0), at(0, 1)}, 1, "Wide, in both pictures of pair 0", 0},
        Told{{at(0, 1), at(1, 1)}, 2, "Wide, in the right pictures of all 2 pairs", -1},
        Told{{at(0, kPair), at(2, kPair), at(5, kPair)}, 9, "Wide, in pairs 0, 2 and 5", -1},
        Told{{at(1, 0, 1.0), at(2, 0, 3.0, "Wider")}, 9, "Wider, in the left pictures of pairs 1 and 2", -1},
        Told{{at(1, 0), at(2, 0), at(3, 0), at(4, 0), at(5, 0), at(6, 0), at(7, 0)},
             9,
             "Wide, in the left pictures of 7 of 9 pairs, the first is 1",
             -1}));

TEST(FindingsOfNothing, AreNoWarning) { EXPECT_FALSE(told("blurred", {}, 3)); }

}  // namespace
}  // namespace diagnose
