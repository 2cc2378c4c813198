#include "polar/results/PairObservation.h"

#include <gtest/gtest.h>

namespace {

TEST(PairObservation, SharedDotsAreThoseOfBothImagesInAscendingId) {
  MeasuredPair pair;
  pair.left_by_id = {{7, {1, 2}}, {3, {3, 4}}, {5, {5, 6}}};
  pair.right_by_id = {{3, {13, 14}}, {4, {15, 16}}, {7, {11, 12}}};
  const std::vector<SharedDot> dots = sharedDots(pair);
  ASSERT_EQ(dots.size(), 2U);
  EXPECT_EQ(dots[0].id, 3);
  EXPECT_EQ(dots[0].left, cv::Point2f(3, 4));
  EXPECT_EQ(dots[0].right, cv::Point2f(13, 14));
  EXPECT_EQ(dots[1].id, 7);
  EXPECT_EQ(dots[1].left, cv::Point2f(1, 2));
  EXPECT_EQ(dots[1].right, cv::Point2f(11, 12));
}

TEST(PairObservation, NothingIsSharedWithNothing) {
  MeasuredPair pair;
  pair.left_by_id = {{7, {1, 2}}};
  EXPECT_TRUE(sharedDots(pair).empty());
}

TEST(PairObservation, BeginsEmpty) {
  const PairObservation seen;
  EXPECT_STREQ(seen.evaluation, "");
  EXPECT_EQ(seen.failed[0], nullptr);
  EXPECT_EQ(seen.measurement, 0);
  EXPECT_EQ(seen.found[1], 0U);
  EXPECT_TRUE(seen.raw.empty() && seen.rectified.empty() && seen.positions.empty() && seen.residuals.empty());
  EXPECT_TRUE(seen.predicted_right.empty() && seen.fitted_left.empty());
  EXPECT_EQ(seen.cameras.left_K(0, 0), 0.0);
  EXPECT_EQ(seen.Q(3, 2), 0.0);
}

}  // namespace
