#include "camera/BrownCamera.h"

#include <gtest/gtest.h>

namespace {

const CameraFloats kCamera = {500, 510, 320, 240, -0.1F, 0.05F, -0.01F, 0.02F, 0.01F, -0.003F, 0.0002F, -0.0001F};

TEST(BrownCamera, DistortsAsTheFreeFunction) {
  const BrownCamera camera(kCamera);
  const BrownCoefficients coefficients = {-0.1F, 0.05F, -0.01F, 0.02F, 0.01F, -0.003F, 0.0002F, -0.0001F};
  cv::Point2d raw;
  ASSERT_TRUE(camera.AddDistortion({0.3, -0.2}, raw));
  EXPECT_EQ(raw, BrownDistort({0.3, -0.2}, coefficients));
}

TEST(BrownCamera, DistortThenUndistortGivesThePixelBack) {
  const BrownCamera camera(kCamera);
  for (double v = 0; v < 480; v += 60)
    for (double u = 0; u < 640; u += 80) {
      cv::Point2d raw;
      cv::Point2d ideal;
      ASSERT_TRUE(camera.DistortPixel({u, v}, raw));
      ASSERT_TRUE(camera.UndistortPixel(raw, ideal));
      EXPECT_NEAR(ideal.x, u, 1e-3);
      EXPECT_NEAR(ideal.y, v, 1e-3);
    }
}

TEST(BrownCamera, OfNumbersAloneHasNoSize) {
  EXPECT_EQ(BrownCamera(kCamera).width(), 0);
  EXPECT_EQ(BrownCamera(kCamera).height(), 0);
}

TEST(BrownCamera, LoadsItsSideOfACalibration) {
  StereoCalibParams calib;
  calib.left.intrinsics = {100, 101, 20, 15, 0.5};
  calib.right.intrinsics = {200, 201, 30, 25, 0.25};
  calib.right.width = 60;
  BrownCamera camera(kCamera);
  EXPECT_FALSE(camera.LoadCalib(calib, 2));
  EXPECT_EQ(camera.K()[0], 500.0);
  ASSERT_TRUE(camera.LoadCalib(calib, 1));
  EXPECT_EQ(camera.K()[4], 201.0);
  EXPECT_EQ(camera.width(), 60);
  cv::Point2d raw;
  camera.AddDistortion({1.0, 0.0}, raw);
  EXPECT_DOUBLE_EQ(raw.x, 1.25);
}

}  // namespace
