#include "Tallowfen/src/markers/SelectBigDots.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeEllipses.h"
#include "tests/support/ConsoleCapture.h"

namespace {

using handmade::ellipse;
using handmade::List;
using handmade::sizes;
using kestrune::MarkerSizes;
using kestrune::SelectBigDots;
using testing::ElementsAre;

List ofSizes(const std::vector<double>& semi_axes) {
  List list;
  for (const double semi_a : semi_axes) list.push_back(ellipse(static_cast<double>(list.size()), 0, semi_a));
  return list;
}

struct Outcome {
  bool passed;
  List dots, bigs;
  MarkerSizes sizes;
  std::string err;
};

Outcome select(const std::vector<double>& dots, const std::vector<double>& bigs) {
  Outcome outcome{false, ofSizes(dots), ofSizes(bigs), {true, true, false}, ""};
  ConsoleCapture console;
  outcome.passed = SelectBigDots(outcome.dots, outcome.bigs, outcome.sizes);
  outcome.err = console.err();
  return outcome;
}

TEST(SelectBigDots, TheFourLargestOfOneSizeAreTheMarkers) {
  const Outcome outcome = select({6, 9.5, 5, 6}, {10, 9, 10});
  EXPECT_TRUE(outcome.passed);
  EXPECT_THAT(sizes(outcome.bigs), ElementsAre(10.0, 10.0, 9.5, 9.0));
  EXPECT_THAT(sizes(outcome.dots), ElementsAre(6.0, 6.0, 5.0));
  EXPECT_FALSE(outcome.sizes.rings_small);
  EXPECT_FALSE(outcome.sizes.solid_big);
  EXPECT_TRUE(outcome.sizes.big_dot_board);
  EXPECT_EQ(outcome.err, "");
}

TEST(SelectBigDots, AnEmptyListFailsInSilence) {
  for (const Outcome& outcome : {select({}, {10, 10, 10, 10, 5}), select({10, 10, 10, 10, 5}, {})}) {
    EXPECT_FALSE(outcome.passed);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.sizes.rings_small);
    EXPECT_FALSE(outcome.sizes.big_dot_board);
  }
}

TEST(SelectBigDots, FewerThanFourMembersFailInSilence) {
  const Outcome outcome = select({10}, {10, 10});
  EXPECT_FALSE(outcome.passed);
  EXPECT_EQ(outcome.err, "");
}

TEST(SelectBigDots, FourToSevenMembersAreLookedAtAsTheyAre) {
  EXPECT_TRUE(select({10}, {10, 10, 10}).passed);
  EXPECT_TRUE(select({10, 10, 1, 1}, {10, 10, 1}).passed);
}

TEST(SelectBigDots, ASeventhOffTheMeanExactlyIsACandidate) {
  // Mean (8 + 7 + 7 + 6) / 4 = 7, tolerance 1.
  const Outcome outcome = select({6, 2}, {8, 7, 7});
  EXPECT_TRUE(outcome.passed);
  EXPECT_THAT(sizes(outcome.bigs), ElementsAre(8.0, 7.0, 7.0, 6.0));
}

TEST(SelectBigDots, MoreThanASeventhOffFailsAndLeavesTheLists) {
  // Mean 7, the largest and the smallest 1.0625 off.
  const Outcome outcome = select({5.9375, 2}, {7, 8.0625, 7});
  EXPECT_FALSE(outcome.passed);
  EXPECT_EQ(outcome.err, "Not enough big_black_dots\n");
  EXPECT_THAT(sizes(outcome.dots), ElementsAre(5.9375, 2.0));
  EXPECT_THAT(sizes(outcome.bigs), ElementsAre(7.0, 8.0625, 7.0));
}

TEST(SelectBigDots, AnOversizedOneIsPassedOverAndASmallerTakesItsPlace) {
  // Mean 7 (9 + 6.5 + 6.5 + 6) / 4; 9 is 2 off, the four behind it within 1.
  const Outcome outcome = select({6, 6, 2}, {9, 6.5, 6.5});
  EXPECT_TRUE(outcome.passed);
  EXPECT_THAT(sizes(outcome.bigs), ElementsAre(6.5, 6.5, 6.0, 6.0));
  EXPECT_THAT(sizes(outcome.dots), ElementsAre(9.0, 2.0));
}

TEST(SelectBigDots, MoreThanFourCandidatesAreCutToTheLargest) {
  const Outcome outcome = select({10, 9.9, 9.8, 9.7}, {10, 9.95});
  EXPECT_TRUE(outcome.passed);
  EXPECT_THAT(sizes(outcome.bigs), ElementsAre(10.0, 10.0, 9.95, 9.9));
  EXPECT_THAT(sizes(outcome.dots), ElementsAre(9.8, 9.7));
}

TEST(SelectBigDots, EqualOnesKeepDotsBeforeBigs) {
  Outcome outcome{false, ofSizes({10, 10, 10}), ofSizes({10, 10}), {}, ""};
  for (auto& big : outcome.bigs) big.y = 1;
  EXPECT_TRUE(SelectBigDots(outcome.dots, outcome.bigs, outcome.sizes));
  EXPECT_THAT(handmade::centres(outcome.bigs),
              ElementsAre(std::pair(0.0, 0.0), std::pair(1.0, 0.0), std::pair(2.0, 0.0), std::pair(0.0, 1.0)));
  EXPECT_THAT(handmade::centres(outcome.dots), ElementsAre(std::pair(1.0, 1.0)));
}

TEST(SelectBigDots, TheMeanIsSinglePrecision) {
  // The mean is 1e-7 below 7 and narrows to 7: 8 is a seventh off exactly. In double it would be more.
  EXPECT_TRUE(select({6, 2}, {8, 7, 7 - 4e-7}).passed);
}

TEST(SelectBigDots, TheToleranceIsSinglePrecision) {
  // 10 / 7 is 1.42857146 in single precision, 1.42857143 in double.
  const double off = 1.42857144;
  EXPECT_TRUE(select({10 - off, 2}, {10 + off, 10, 10}).passed);
}

TEST(SelectBigDots, AnOutlierThatLiftsTheMeanTooFarFails) {
  // Mean 13.15, a seventh of it 1.88: 11.2 is below, 19 above.
  EXPECT_FALSE(select({19, 11.2, 11.2, 11.2, 11.1, 11.1}, {11.2}).passed);
}

}  // namespace
