#include "diagnose/warnings/Scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/calib3d.hpp>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

std::vector<cv::Vec3d> grid() {
  std::vector<cv::Vec3d> points;
  for (int id = 0; id < 35; ++id) points.emplace_back(id % 7 * 20.0, id / 7 * 20.0, 0.0);
  return points;
}

TEST(ScaleOfMovedPoints, IsWhatTheyWereStretchedBy) {
  cv::Matx33d turn;
  cv::Rodrigues(cv::Vec3d(0.3, -0.5, 1.0), turn);
  std::vector<cv::Vec3d> measured;
  for (const cv::Vec3d& point : grid()) measured.push_back(1.02 * (turn * point) + cv::Vec3d(5.0, -7.0, 400.0));
  const auto slope = scaleOf(measured, grid());
  ASSERT_TRUE(slope);
  EXPECT_NEAR(slope->value, 1.02, 1e-12);
  EXPECT_NEAR(slope->error, 0.0, 1e-6);
}

TEST(ScaleOfMovedPoints, IsAsUnsureAsThePoints) {
  std::vector<cv::Vec3d> measured = grid();
  double sign = 1.0;
  for (cv::Vec3d& point : measured) {
    sign = -sign;
    point += cv::Vec3d(sign, 0.0, sign);
  }
  const auto slope = scaleOf(measured, grid());
  ASSERT_TRUE(slope);
  double spread = 0.0;  // Sum of squares around the middle: 5 rows of 7 columns, 20 apart.
  for (int k = 0; k < 7; ++k) spread += 5.0 * 400.0 * (k - 3) * (k - 3);
  for (int k = 0; k < 5; ++k) spread += 7.0 * 400.0 * (k - 2) * (k - 2);
  EXPECT_NEAR(slope->error, std::sqrt(2.0 * 35.0 / 98.0 / spread), 0.1 * slope->error);
}

TEST(ScaleOfMovedPoints, NeedsEight) {
  const std::vector<cv::Vec3d> seven(7, cv::Vec3d(1.0, 2.0, 3.0));
  EXPECT_FALSE(scaleOf(seven, seven));
}

TEST(ScaleTriangulation, FindsWhereTheSceneHasItsDots) {
  for (const scene::StereoRig& rig : {scene::brownRig({320, 256, 60.0}), scene::fisheyeRig({320, 200, 60.0})}) {
    WatchedScene watched(rig);
    watched.tellFacts();
    watched.scene.left_from_board.push_back(scene::fitPose(rig, watched.scene.board, {6.0, -9.0, 3.0, 0.9}));
    const CalibratedPair cameras(*watched.facts.calib, watched.facts.model);
    for (const scene::DotTruth& dot : scene::pairTruth(watched.scene, 0).dots) {
      const auto point =
          triangulated(cameras, {dot.pixel_left.x, dot.pixel_left.y}, {dot.pixel_right.x, dot.pixel_right.y});
      ASSERT_TRUE(point);
      EXPECT_NEAR(cv::norm(*point - cv::Vec3d(dot.point_left.x, dot.point_left.y, dot.point_left.z)), 0.0, 0.01);
    }
  }
}

TEST(ScaleTriangulation, KnowsNoPointOfParallelRays) {
  WatchedScene watched(scene::rectifiedRig({320, 256, 60.0}));
  watched.tellFacts();
  const CalibratedPair cameras(*watched.facts.calib, watched.facts.model);
  EXPECT_FALSE(triangulated(cameras, {100.0, 100.0}, {100.0, 100.0}));
}

}  // namespace
}  // namespace diagnose
