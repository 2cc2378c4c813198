#include "polar/geometry/RigidOntoBoard.h"

#include <gtest/gtest.h>

#include <Eigen/Dense>
#include <cmath>
#include <limits>

namespace {

using Points = std::vector<Eigen::Vector3d>;

/// Pairs of opposite points on the axes, farthest along x, nearest along z.
Points axisCross() { return {{3, 0, 0}, {-3, 0, 0}, {0, 2, 0}, {0, -2, 0}, {0, 0, 1}, {0, 0, -1}}; }

Points moved(const Points& points, const Eigen::Matrix3d& R, const Eigen::Vector3d& t) {
  Points result;
  for (const Eigen::Vector3d& point : points) result.push_back(R * point + t);
  return result;
}

TEST(RigidOntoBoard, FindsTheMotionOfAMovedSet) {
  // A third of a turn about the space diagonal: x to y, y to z, z to x.
  Eigen::Matrix3d R;
  R << 0, 0, 1, 1, 0, 0, 0, 1, 0;
  const Eigen::Vector3d t(10, -20, 30);
  const RigidMotion motion = FitRigidOntoBoard(axisCross(), moved(axisCross(), R, t));
  EXPECT_LT((motion.R - R).norm(), 1e-14);
  EXPECT_LT((motion.t - t).norm(), 1e-13);
}

class RigidOntoBoardMirroredSet : public ::testing::TestWithParam<int> {};

TEST_P(RigidOntoBoardMirroredSet, GivesAProperRotation) {
  // The reflection itself would fit without any error; the best proper rotation turns the shortest axis over as well.
  Eigen::Matrix3d mirror = Eigen::Matrix3d::Identity();
  mirror(GetParam(), GetParam()) = -1.0;
  Eigen::Matrix3d expected = mirror;
  expected(2, 2) = -expected(2, 2);
  const RigidMotion motion = FitRigidOntoBoard(axisCross(), moved(axisCross(), mirror, Eigen::Vector3d(1, 2, 3)));
  EXPECT_NEAR(motion.R.determinant(), 1.0, 1e-14);
  EXPECT_LT((motion.R - expected).norm(), 1e-14);
  EXPECT_LT((motion.t - Eigen::Vector3d(1, 2, 3)).norm(), 1e-14);
}

INSTANTIATE_TEST_SUITE_P(Axes, RigidOntoBoardMirroredSet, ::testing::Values(0, 1, 2));

TEST(RigidOntoBoard, CoplanarBoardGivesAProperRotation) {
  Points plane = axisCross();
  for (Eigen::Vector3d& point : plane) point.z() = 0.0;
  Eigen::Matrix3d R;
  R << 0, -1, 0, 1, 0, 0, 0, 0, 1;
  const RigidMotion motion = FitRigidOntoBoard(plane, moved(plane, R, Eigen::Vector3d(0, 0, 5)));
  EXPECT_LT((motion.R - R).norm(), 1e-14);
}

TEST(RigidOntoBoard, SourceIsBroughtToTargetAndNotBack) {
  const RigidMotion motion = FitRigidOntoBoard({{1, 1, 1}}, {{4, 6, 8}});
  EXPECT_LT((motion.R * Eigen::Vector3d(1, 1, 1) + motion.t - Eigen::Vector3d(4, 6, 8)).norm(), 1e-14);
}

TEST(RigidOntoBoard, NoNumbersGiveNoNumbers) {
  Points source = axisCross();
  source[2].y() = std::numeric_limits<double>::quiet_NaN();
  const RigidMotion motion = FitRigidOntoBoard(source, axisCross());
  EXPECT_TRUE(std::isnan(motion.R(0, 0)));
  EXPECT_TRUE(std::isnan(motion.t(0)));
}

TEST(RigidOntoBoard, ShorterTargetIsRefused) {
  EXPECT_THROW(FitRigidOntoBoard(axisCross(), {{1, 2, 3}}), std::out_of_range);
}

}  // namespace
