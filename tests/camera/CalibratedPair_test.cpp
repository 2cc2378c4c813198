#include "camera/CalibratedPair.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// A quarter turn about y, then about x, then about z takes x to -z to y to -x.
TEST(CalibratedPair, TurnsAboutYFirstAndAboutZLast) {
  StereoCalibParams calib;
  const double quarter = std::acos(0.0);
  calib.extrinsics = {quarter, quarter, quarter, -50.0, 0.5, 0.25};
  const CalibratedPair pair(calib, LensModel::kBrownFive);
  const cv::Vec3d turned = pair.R * cv::Vec3d(1, 0, 0);
  EXPECT_NEAR(turned[0], -1.0, 1e-15);
  EXPECT_NEAR(turned[1], 0.0, 1e-15);
  EXPECT_NEAR(turned[2], 0.0, 1e-15);
  EXPECT_EQ(pair.T, cv::Vec3d(-50.0, 0.5, 0.25));
}

TEST(CalibratedPair, KeepsTheSidesApart) {
  StereoCalibParams calib;
  calib.left.intrinsics[0] = 600.0;
  calib.right.intrinsics[0] = 650.0;
  const CalibratedPair pair(calib, LensModel::kBrownFive);
  EXPECT_EQ(pair.left.focal().x, 600.0);
  EXPECT_EQ(pair.right.focal().x, 650.0);
}

}  // namespace
