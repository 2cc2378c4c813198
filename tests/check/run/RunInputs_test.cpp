#include "check/run/RunInputs.h"

#include <gtest/gtest.h>

#include "camera/CalibratedPair.h"

namespace polarline {
namespace {

/// Of a set whose pairs were rectified elsewhere.
RunInputs rectifiedElsewhere() {
  RunInputs inputs;
  inputs.set.rectified = "rectified.txt";
  inputs.rectified.focal = 700.0;
  inputs.rectified.baseline = 60.0;
  inputs.rectified.cx = 310.0;
  inputs.rectified.cy = 250.0;
  inputs.rectified.disparity_offset = 12.0;
  return inputs;
}

TEST(RunInputsCameras, OfPairsRectifiedElsewhereAreThePinholesOfTheirFiveNumbers) {
  const RunInputs inputs = rectifiedElsewhere();
  const CalibratedPair cameras(inputs.cameras(), inputs.model());
  const cv::Vec3d point(40.0, -25.0, 500.0);
  const cv::Point2d left = cameras.left.pixelOf(point).value();
  const cv::Point2d right = cameras.right.pixelOf(cameras.R * point + cameras.T).value();
  EXPECT_DOUBLE_EQ(left.x, 310.0 + 700.0 * 40.0 / 500.0);
  EXPECT_DOUBLE_EQ(left.y, 250.0 - 700.0 * 25.0 / 500.0);
  EXPECT_DOUBLE_EQ(right.y, left.y);
  // As the library takes distances from such pairs.
  EXPECT_NEAR(700.0 * 60.0 / (right.x - left.x + 12.0), 500.0, 1e-9);
  EXPECT_EQ(cameras.right.distorted({0.3, 0.2}), cv::Point2d(0.3, 0.2)) << "a pinhole";
}

TEST(RunInputsCameras, AreOtherwiseThoseOfTheCalibration) {
  RunInputs inputs;
  inputs.config.type = 2;
  inputs.calib.right.intrinsics[0] = 650.0;
  EXPECT_EQ(inputs.cameras().right.intrinsics[0], 650.0);
  EXPECT_EQ(inputs.model(), LensModel::kFisheye);
}

TEST(RunInputsFrames, AreNeverRectifiedElsewhere) {
  RunInputs inputs = rectifiedElsewhere();
  inputs.config.frame_work = 1;
  EXPECT_FALSE(inputs.areFrames());
  inputs.set.rectified.clear();
  EXPECT_TRUE(inputs.areFrames());
}

}  // namespace
}  // namespace polarline
