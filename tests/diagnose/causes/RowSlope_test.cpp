#include "diagnose/causes/RowSlope.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/causes/SeenScene.h"

namespace {

TEST(RowSlopeOf, ATurnedFrame) {
  const double angle = 0.1;
  const cv::Matx33d about_x(1, 0, 0, 0, std::cos(angle), -std::sin(angle), 0, std::sin(angle), std::cos(angle));
  EXPECT_NEAR(rowSlopeOf(about_x, cv::Vec2d(0.3, 0.0)), -std::tan(angle), 1e-12);
  EXPECT_DOUBLE_EQ(rowSlopeOf(cv::Matx33d::eye(), cv::Vec2d(0.3, 0.25)), 0.25);
}

TEST(RowSlopeOf, APixelThroughTheLens) {
  const SeenSet set = SeenScene(LensModel::kFisheye).seen(twoDistances());
  const CalibratedCamera camera(set.calib, 0, set.model);
  EXPECT_NEAR(*rowSlopeOf(camera, cv::Matx33d::eye(), camera.centre()), 0.0, 1e-9);
  const cv::Point2d pixel = *camera.pixelOf({0.1, 0.2, 1.0});
  EXPECT_NEAR(*rowSlopeOf(camera, cv::Matx33d::eye(), pixel), 0.2, 1e-6);
  EXPECT_FALSE(rowSlopeOf(camera, cv::Matx33d::eye(), cv::Point2d(1e9, 0.0)));
}

}  // namespace
