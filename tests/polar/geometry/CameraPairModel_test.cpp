#include "polar/geometry/CameraPairModel.h"

#include <gtest/gtest.h>

#include "camera/PinholeCameraIntrinsicsPOL.h"

namespace {

/// A camera of one cell whose lens moves every point by a constant.
PinholeCameraIntrinsicsPOL shiftCamera(float x, float y) {
  PolyTables tables;
  tables.cells_x = 1;
  tables.cells_y = 1;
  tables.x[0] = -x;
  tables.y[0] = -y;
  return PinholeCameraIntrinsicsPOL(640, 480, 500, 500, 320, 240, 1.0, tables);
}

TEST(CameraPairModelBrown, TakesEachSidesOwnEightCoefficients) {
  // Radial coefficient k1 alone: x (1 + k1 r^2).
  CameraFloats left{};
  CameraFloats right{};
  left.k1 = 0.25F;
  right.k1 = -0.5F;
  const BrownPairModel model(left, right);
  EXPECT_DOUBLE_EQ(model.distortLeft({0.5, 0.0}).x, 0.5 * (1.0 + 0.25 * 0.25));
  EXPECT_DOUBLE_EQ(model.distortRight({0.5, 0.0}).x, 0.5 * (1.0 - 0.5 * 0.25));
  EXPECT_FALSE(model.marksFailures());
}

TEST(CameraPairModelBrown, ReadsTheTangentialPairLast) {
  CameraFloats camera{};
  camera.p1 = 0.125F;
  camera.p2 = 0.25F;
  const BrownPairModel model(camera, camera);
  const cv::Point2d raw = model.distortLeft({0.5, 1.0});
  EXPECT_DOUBLE_EQ(raw.x, 0.5 + 2 * 0.125 * 0.5 + 0.25 * (1.25 + 2 * 0.25));
  EXPECT_DOUBLE_EQ(raw.y, 1.0 + 2 * 0.25 * 0.5 + 0.125 * (1.25 + 2 * 1.0));
}

TEST(CameraPairModelBrown, UndistortsWhatItDistorted) {
  CameraFloats camera{};
  camera.k1 = -0.1F;
  camera.p1 = 0.001F;
  const BrownPairModel model(camera, camera);
  cv::Point2d ideal;
  ASSERT_TRUE(model.undistortRight(model.distortRight({0.3, -0.2}), ideal));
  EXPECT_NEAR(ideal.x, 0.3, 2e-6);
  EXPECT_NEAR(ideal.y, -0.2, 2e-6);
}

TEST(CameraPairModelObject, AsksEachSidesOwnCamera) {
  const auto left = shiftCamera(0.25F, 0.0F);
  const auto right = shiftCamera(0.0F, -0.5F);
  const ObjectPairModel model(left, right);
  EXPECT_EQ(model.distortLeft({0.125, 0.125}), cv::Point2d(0.375, 0.125));
  EXPECT_EQ(model.distortRight({0.125, 0.125}), cv::Point2d(0.125, -0.375));
  cv::Point2d ideal;
  ASSERT_TRUE(model.undistortLeft({0.375, 0.125}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(0.125, 0.125));
  ASSERT_TRUE(model.undistortRight({0.125, -0.375}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(0.125, 0.125));
  EXPECT_TRUE(model.marksFailures());
}

}  // namespace
