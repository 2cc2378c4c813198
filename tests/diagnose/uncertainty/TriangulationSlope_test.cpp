#include "diagnose/uncertainty/TriangulationSlope.h"

#include <gtest/gtest.h>

#include <cmath>

#include "polar/geometry/PairTriangulation.h"
#include "polar/geometry/Triangulation.h"
#include "support/ExactPair.h"

namespace {

/// A rig without lenses, and one dot that it sees.
struct TriangulationSlopeOfAPair : testing::Test {
  ExactPair exact;
  scene::Point3 point{-60.0, 45.0, 520.0};
  cv::Point2f left, right;

  TriangulationSlopeOfAPair() {
    exact.rig.left.lens = {};
    exact.rig.right.lens = {};
    left = ExactPair::pixelOf(exact.rig.left, point);
    right = ExactPair::pixelOf(exact.rig.right, scene::rightFromLeft(exact.rig, point));
  }
  TriangulationSlope slope() const {
    return slopeAt(cv::Point3f(static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)),
                   seenCameras(exact.cameras()));
  }
  /// The point that the library makes of the pixels, moved by a pixel along one coordinate.
  cv::Point3f movedPoint(int coordinate, float by) const {
    cv::Point2f moved_left = left;
    cv::Point2f moved_right = right;
    (coordinate < 2 ? (coordinate == 0 ? moved_left.x : moved_left.y)
                    : (coordinate == 2 ? moved_right.x : moved_right.y)) += by;
    const BrownPairModel model({}, {});
    return TriangulatePair(moved_left, moved_right, exact.cameras(), model)[0];
  }
};

TEST_F(TriangulationSlopeOfAPair, IsTheDifferenceOfTriangulatedPoints) {
  const TriangulationSlope told = slope();
  for (int coordinate = 0; coordinate < 4; ++coordinate) {
    const cv::Point3f way = movedPoint(coordinate, 0.5F) - movedPoint(coordinate, -0.5F);
    const Eigen::Vector3d column = told.position.col(coordinate);
    EXPECT_NEAR(column.x(), way.x, 0.02 * column.norm() + 0.002) << coordinate;
    EXPECT_NEAR(column.y(), way.y, 0.02 * column.norm() + 0.002) << coordinate;
    EXPECT_NEAR(column.z(), way.z, 0.02 * column.norm() + 0.002) << coordinate;
  }
}

TEST_F(TriangulationSlopeOfAPair, ResidualIsHalfTheRowDifference) {
  const TriangulationSlope told = slope();  // Cameras almost side by side: each picture takes its half.
  EXPECT_NEAR(told.residual[1], -0.5, 0.03);
  EXPECT_NEAR(told.residual[3], 0.5, 0.03);
  EXPECT_LT(std::abs(told.residual[0]), 0.05);
  EXPECT_NEAR(told.residual_axis.norm(), 1.0, 1e-12);
  EXPECT_GT(told.residual_axis.y(), 0.99);
}

TEST_F(TriangulationSlopeOfAPair, PointThatNoCameraSeesHasNone) {
  const SeenCameras cameras = seenCameras(exact.cameras());
  for (const cv::Point3f& unseen : {cv::Point3f(0, 0, -100), cv::Point3f(0, 0, 0), cv::Point3f(NAN, 0, 500)}) {
    EXPECT_EQ(slopeAt(unseen, cameras).position.norm(), 0.0);
    EXPECT_EQ(slopeAt(unseen, cameras).residual.norm(), 0.0);
  }
}

/// Principal point (100, 200), focal length 1000, baseline 64.
const cv::Matx44d kQ(1, 0, 0, -100, 0, 1, 0, -200, 0, 0, 0, 1000, 0, 0, 1.0 / 64, 0);

TEST(TriangulationSlope, CloudPointIsThatOfTheMatrix) {
  EXPECT_EQ(cloudPoint({1, {150, 260}, {86, 260}}, kQ), Eigen::Vector3d(50, 60, 1000));
}

TEST(TriangulationSlope, OfTheCloudByHand) {
  // Disparity 64: a pixel is one unit across, and 1000 / 64 along the depth, which carries x and y with it.
  const TriangulationSlope slope = slopeAt(SharedDot{1, {150, 260}, {86, 260}}, kQ);
  const double along = 1000.0 / 64.0;
  Eigen::Matrix<double, 3, 4> expected;
  expected << 1.0 - 50.0 / 64.0, 0.0, 50.0 / 64.0, 0.0,  //
      -60.0 / 64.0, 1.0, 60.0 / 64.0, 0.0,               //
      -along, 0.0, along, 0.0;
  EXPECT_LT((slope.position - expected).norm(), 1e-12);
}

TEST(TriangulationSlope, DotWithoutDisparityHasNone) {
  EXPECT_EQ(slopeAt(SharedDot{1, {150, 260}, {150, 260}}, kQ).position.norm(), 0.0);
}

TEST(TriangulationSlope, PixelMovesWithThePoint) {
  const cv::Matx33d K(800, 0, 300, 0, 700, 200, 0, 0, 1);
  Eigen::Matrix<double, 2, 3> expected;
  expected << 2.0, 0.0, -2.0 * 0.25, 0.0, 1.75, 1.75 * 0.5;
  EXPECT_LT((pixelSlope(K, {100.0, -200.0, 400.0}) - expected).norm(), 1e-12);
}

}  // namespace
