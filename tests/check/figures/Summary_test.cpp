#include "check/figures/Summary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "HandMadeCheck.h"

namespace polarline {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(SummaryName, CountsTheEntriesOfLists) {
  EXPECT_EQ(entryName(hand_made::figure("dy_means", {1.0}), 0), "dy_means");
  EXPECT_EQ(entryName(hand_made::figure("tri_dis", {1.0}, true), 3), "tri_dis[3]");
}

TEST(SummaryOfPairs, IsMeanDeviationAndRangeByHand) {
  // 2, 4, 4, 4, 5, 5, 7, 9 less 5: mean 0, sum of squares 32, sample variance 32 / 7.
  std::vector<PairCheck> pairs;
  for (const double value : {-3.0, -1.0, -1.0, -1.0, 0.0, 0.0, 2.0, 4.0})
    pairs.push_back(hand_made::pair(pairs.size() + 10, {value}, {}));
  const auto summary = summaryOf(pairs);
  ASSERT_EQ(summary.size(), 1U);
  EXPECT_EQ(summary[0].name, "dy_means");
  EXPECT_EQ(summary[0].unit, "pixels");
  EXPECT_EQ(summary[0].count, 8U);
  EXPECT_NEAR(summary[0].mean, 0.0, 1e-15);
  EXPECT_NEAR(summary[0].sd, std::sqrt(32.0 / 7.0), 1e-15);
  EXPECT_EQ(summary[0].min, -3.0);
  EXPECT_EQ(summary[0].max, 4.0);
  EXPECT_EQ(summary[0].worst_pair, 17U);
}

TEST(SummaryOfPairs, LosesNothingWhereTheMeanIsLarge) {
  // The squares of such numbers have no room for the differences.
  const auto summary = summaryOf(
      {hand_made::pair(0, {1e9 + 1}, {}), hand_made::pair(1, {1e9 + 2}, {}), hand_made::pair(2, {1e9 + 3}, {})});
  EXPECT_EQ(summary.at(0).sd, 1.0);
}

TEST(SummaryOfPairs, WorstIsFarthestFromZeroAndTheFirstOfEquals) {
  EXPECT_EQ(summaryOf({hand_made::pair(0, {1.0}, {}), hand_made::pair(1, {-2.0}, {})}).at(0).worst_pair, 1U);
  EXPECT_EQ(summaryOf({hand_made::pair(0, {2.0}, {}), hand_made::pair(1, {-2.0}, {})}).at(0).worst_pair, 0U);
}

TEST(SummaryOfPairs, LeavesOutWhoHasNoValue) {
  const auto summary = summaryOf({hand_made::pair(0, {}, {}), hand_made::pair(1, {kNoNumber}, {}),
                                  hand_made::givenUp(hand_made::pair(2, {9.0}, {9.0})), hand_made::pair(3, {1.0}, {})});
  ASSERT_EQ(summary.size(), 1U);
  EXPECT_EQ(summary[0].count, 1U);
  EXPECT_EQ(summary[0].max, 1.0);
  EXPECT_TRUE(std::isnan(summary[0].sd));
}

TEST(SummaryOfPairs, FromFivePairsOnTheMeanHasAnInterval) {
  std::vector<PairCheck> pairs;
  for (const double value : {1.0, 2.0, 3.0, 4.0}) pairs.push_back(hand_made::pair(pairs.size(), {value}, {}));
  pairs.push_back(hand_made::givenUp(hand_made::pair(4, {9.0}, {})));
  EXPECT_TRUE(std::isnan(summaryOf(pairs).at(0).sd_mean));
  EXPECT_TRUE(std::isnan(summaryOf(pairs).at(0).low95));
  pairs.push_back(hand_made::pair(5, {5.0}, {}));
  const FigureSummary summary = summaryOf(pairs).at(0);
  EXPECT_NEAR(summary.sd_mean, std::sqrt(2.5 / 5.0), 1e-15);  // Sample variance 10 / 4.
  EXPECT_LT(summary.low95, 2.0);
  EXPECT_GT(summary.high95, 4.0);
}

TEST(SummaryOfRefined, CountsTheRefinedFiguresOfFinishedPairsOnly) {
  const auto summary = refinedSummaryOf(
      {hand_made::refined(hand_made::pair(3, {9.0}, {9.0}), {0.5}, {}), hand_made::pair(4, {9.0}, {9.0}),
       hand_made::givenUp(hand_made::refined(hand_made::pair(5, {9.0}, {}), {8.0}, {})),
       hand_made::refined(hand_made::pair(6, {9.0}, {9.0}), {-1.5}, {})});
  ASSERT_EQ(summary.size(), 1U);
  EXPECT_EQ(summary[0].name, "dy_means");
  EXPECT_EQ(summary[0].count, 2U);
  EXPECT_EQ(summary[0].mean, -0.5);
  EXPECT_EQ(summary[0].worst_pair, 6U);
}

TEST(SummaryOfPairs, HasEachEntryOfAList) {
  const auto summary = summaryOf({hand_made::pair(0, {}, {1.0}), hand_made::pair(1, {}, {3.0, 5.0})});
  ASSERT_EQ(summary.size(), 2U);
  EXPECT_EQ(summary[0].name, "tri_dis[0]");
  EXPECT_EQ(summary[0].mean, 2.0);
  EXPECT_EQ(summary[1].name, "tri_dis[1]");
  EXPECT_EQ(summary[1].count, 1U);
}

TEST(SummaryOfPairs, OfNobodyIsEmpty) {
  EXPECT_TRUE(summaryOf({}).empty());
  EXPECT_TRUE(summaryOf({hand_made::pair(0, {}, {})}).empty());
}

}  // namespace
}  // namespace polarline
