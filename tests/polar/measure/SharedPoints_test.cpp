#include "polar/measure/SharedPoints.h"

#include <gtest/gtest.h>

namespace {

MeasuredPair somePair() {
  MeasuredPair pair;
  pair.left_by_id = {{9, {9, 0}}, {2, {2, 0}}, {5, {5, 0}}};
  pair.right_by_id = {{5, {5, 1}}, {9, {9, 1}}, {7, {7, 1}}};
  return pair;
}

TEST(SharedPoints, FirstPointOfAnIdStays) {
  PointsById points;
  keepFirst(points, 4, {1, 2});
  keepFirst(points, 4, {3, 4});
  EXPECT_EQ(points, (PointsById{{4, {1, 2}}}));
}

TEST(SharedPoints, ListsAreOrderedByIdAndAppended) {
  MeasuredPair pair = somePair();
  pair.left_points = {{0, 0}};
  pair.right_points = {{1, 1}};
  appendShared(pair);
  EXPECT_EQ(pair.left_points, (std::vector<cv::Point2f>{{0, 0}, {5, 0}, {9, 0}}));
  EXPECT_EQ(pair.right_points, (std::vector<cv::Point2f>{{1, 1}, {5, 1}, {9, 1}}));
  EXPECT_EQ(pair.left_by_id.size(), 3u);
}

TEST(SharedPoints, UnsharedIdsLeaveBothMaps) {
  MeasuredPair pair = somePair();
  dropUnshared(pair);
  EXPECT_EQ(pair.left_by_id, (PointsById{{5, {5, 0}}, {9, {9, 0}}}));
  EXPECT_EQ(pair.right_by_id, (PointsById{{5, {5, 1}}, {9, {9, 1}}}));
}

}  // namespace
