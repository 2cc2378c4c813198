#include "polar/geometry/PairTriangulation.h"

#include <gtest/gtest.h>

#include "support/ExactPair.h"

namespace {

TriangulatedPair triangulated(const ExactPair& exact) {
  const BrownPairModel model(ExactPair::floatsOf(exact.rig.left), ExactPair::floatsOf(exact.rig.right));
  return triangulateShared(exact.points, exact.cameras(), model);
}

TEST(PairTriangulation, FillsIdPixelsPointAndPrediction) {
  ExactPair exact;
  exact.makeBoard(2, 3);
  exact.seeBoard();
  const TriangulatedPair pair = triangulated(exact);
  ASSERT_EQ(pair.records.size(), 6u);
  const PairPointRecord& record = pair.records[4];
  EXPECT_EQ(record.id, 4);
  EXPECT_EQ(cv::Point2f(record.left_x, record.left_y), exact.points.left_points[4]);
  EXPECT_EQ(cv::Point2f(record.right_x, record.right_y), exact.points.right_points[4]);
  EXPECT_EQ(cv::Point3f(record.x, record.y, record.z), pair.points_left[4]);
  EXPECT_NEAR(record.z, exact.pointLeft(exact.board[4]).z, 0.02);
  EXPECT_NEAR(pair.predicted_right[4].x, record.right_x, 0.002);
  EXPECT_NEAR(pair.predicted_right[4].y, record.right_y, 0.002);
  EXPECT_EQ(record.right_err, 0.0F);
}

TEST(PairTriangulation, IdsOfOneImageOnlyRunAheadOfThePoints) {
  ExactPair exact;
  exact.makeBoard(2, 3);
  exact.leftOnly(0, {11, 12});
  for (std::int32_t id : {1, 2, 4}) exact.see(id, exact.pointLeft(exact.board[static_cast<std::size_t>(id)]));
  exact.leftOnly(3, {13, 14});
  const TriangulatedPair pair = triangulated(exact);
  ASSERT_EQ(pair.records.size(), 3u);
  EXPECT_EQ(pair.records[0].id, 0);
  EXPECT_EQ(pair.records[1].id, 1);
  EXPECT_EQ(pair.records[2].id, 2);
  EXPECT_NEAR(pair.records[2].x, exact.pointLeft(exact.board[4]).x, 0.02);
}

TEST(PairTriangulation, NoCommonPointGivesEmptyLists) {
  ExactPair exact;
  exact.leftOnly(7, {1, 2});
  EXPECT_TRUE(triangulated(exact).records.empty());
}

}  // namespace
