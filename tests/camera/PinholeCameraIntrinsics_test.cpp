#include "camera/PinholeCameraIntrinsics.h"

#include <gtest/gtest.h>

#include <limits>

#include "Near.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
const cv::Point2d kUntouched(-77.0, -78.0);

/// A lens that moves every point by (0.25, 0.5), and whose inverse can be made to fail.
class ShiftingCamera : public PinholeCameraIntrinsics {
 public:
  explicit ShiftingCamera(double scale = 1.0, double fx = 100, double fy = 200, double cx = 40, double cy = 30)
      : PinholeCameraIntrinsics(80, 60, fx, fy, cx, cy, scale) {}
  bool LoadCalib(StereoCalibParams, int) override { return false; }
  bool AddDistortion(const cv::Point2d& ideal, cv::Point2d& raw) const override {
    raw = ideal + cv::Point2d(0.25, 0.5);
    return true;
  }
  bool RemoveDistortion(const cv::Point2d& raw, cv::Point2d& ideal) const override {
    ideal = raw - cv::Point2d(0.25, 0.5);
    return invertible;
  }
  bool invertible = true;
};

TEST(PinholeCameraIntrinsics, KeepsWhatItWasMadeOf) {
  const ShiftingCamera camera(1.5);
  EXPECT_EQ(camera.width(), 80);
  EXPECT_EQ(camera.height(), 60);
  EXPECT_EQ(camera.K(), (std::array<double, 9>{100, 0, 40, 0, 200, 30, 0, 0, 1}));
  EXPECT_EQ(camera.scale(), 1.5);
}

TEST(PinholeCameraIntrinsics, ConvertsBetweenPixelsAndNormalisedPoints) {
  const ShiftingCamera camera(2.0);
  cv::Point2d out;
  ASSERT_TRUE(camera.NormalizedToPixel({0.5, -0.1}, out));
  EXPECT_THAT(out, PointNear(cv::Point2d(90, 10), 1e-12));
  ASSERT_TRUE(camera.NormalizedToPixelScaled({0.5, -0.1}, out));
  EXPECT_THAT(out, PointNear(cv::Point2d(140, -10), 1e-12));
  ASSERT_TRUE(camera.PixelToNormalized({90, 10}, out));
  EXPECT_THAT(out, PointNear(cv::Point2d(0.5, -0.1), 1e-15));
  ASSERT_TRUE(camera.PixelToNormalizedScaled({90, 10}, out));
  EXPECT_THAT(out, PointNear(cv::Point2d(0.25, -0.05), 1e-15));
}

TEST(PinholeCameraIntrinsics, IdealPixelsLiveInTheScaledCameraAndRawOnesInTheUnscaled) {
  const ShiftingCamera camera(2.0);
  cv::Point2d out;
  // (90 - 40) / 200 = 0.25, shifted 0.5, times 100 + 40; (10 - 30) / 400 = -0.05, shifted 0.45, times 200 + 30.
  ASSERT_TRUE(camera.DistortPixel({90, 10}, out));
  EXPECT_THAT(out, PointNear(cv::Point2d(90, 120), 1e-12));
  // (90 - 40) / 100 = 0.5, shifted 0.25, times 200 + 40; (120 - 30) / 200 = 0.45, shifted -0.05, times 400 + 30.
  ASSERT_TRUE(camera.UndistortPixel({90, 120}, out));
  EXPECT_THAT(out, PointNear(cv::Point2d(90, 10), 1e-12));
}

TEST(PinholeCameraIntrinsics, BackProjectsAlongTheScaledRay) {
  const ShiftingCamera camera(2.0);
  cv::Vec3d point;
  ASSERT_TRUE(camera.BackProject({190, 430}, 4.0, point));  // Ray (0.75, 1.0), shifted back to (0.5, 0.5).
  EXPECT_EQ(point, cv::Vec3d(2, 2, 4));
}

TEST(PinholeCameraIntrinsics, ProjectsThroughTheLensIntoTheUnscaledCamera) {
  const ShiftingCamera camera(2.0);
  cv::Point2d pixel;
  ASSERT_TRUE(camera.Project({2, -1, 4}, pixel));  // (0.5, -0.25) shifted to (0.75, 0.25).
  EXPECT_EQ(pixel, cv::Point2d(115, 80));
}

TEST(PinholeCameraIntrinsics, ProjectThenBackProjectGivesThePointBack) {
  const ShiftingCamera camera;
  for (const cv::Vec3d& point : {cv::Vec3d(0.1, 0.2, 1.5), cv::Vec3d(-3, 2, 7), cv::Vec3d(0, 0, 1e-3)}) {
    cv::Point2d pixel;
    cv::Vec3d back;
    ASSERT_TRUE(camera.Project(point, pixel));
    ASSERT_TRUE(camera.BackProject(pixel, point[2], back));
    EXPECT_LE(cv::norm(back - point), 1e-12);
  }
}

TEST(PinholeCameraIntrinsics, ProjectNeedsAPointInFront) {
  const ShiftingCamera camera;
  for (const double depth : {0.0, -0.0, -1.0, kNan}) {
    cv::Point2d pixel = kUntouched;
    EXPECT_FALSE(camera.Project({1, 1, depth}, pixel));
    EXPECT_EQ(pixel, kUntouched);
  }
}

TEST(PinholeCameraIntrinsics, AFailedInverseEndsTheChain) {
  ShiftingCamera camera;
  camera.invertible = false;
  cv::Point2d pixel = kUntouched;
  EXPECT_FALSE(camera.UndistortPixel({10, 10}, pixel));
  EXPECT_EQ(pixel, kUntouched);
  cv::Vec3d point(7, 8, 9);
  EXPECT_FALSE(camera.BackProject({10, 10}, 2.0, point));
  EXPECT_EQ(point, cv::Vec3d(7, 8, 9));
}

class PinholeCameraIntrinsicsUnusableCamera : public testing::TestWithParam<ShiftingCamera> {};

TEST_P(PinholeCameraIntrinsicsUnusableCamera, EveryConversionFailsAndLeavesItsOutput) {
  const ShiftingCamera& camera = GetParam();
  cv::Point2d out = kUntouched;
  EXPECT_FALSE(camera.NormalizedToPixel({0, 0}, out));
  EXPECT_FALSE(camera.NormalizedToPixelScaled({0, 0}, out));
  EXPECT_FALSE(camera.PixelToNormalized({0, 0}, out));
  EXPECT_FALSE(camera.PixelToNormalizedScaled({0, 0}, out));
  EXPECT_FALSE(camera.DistortPixel({0, 0}, out));
  EXPECT_FALSE(camera.UndistortPixel({0, 0}, out));
  EXPECT_FALSE(camera.Project({0, 0, 1}, out));
  EXPECT_EQ(out, kUntouched);
  cv::Vec3d point(7, 8, 9);
  EXPECT_FALSE(camera.BackProject({0, 0}, 1, point));
  EXPECT_EQ(point, cv::Vec3d(7, 8, 9));
}

INSTANTIATE_TEST_SUITE_P(PrincipalPointOnTheBorder, PinholeCameraIntrinsicsUnusableCamera,
                         testing::Values(ShiftingCamera(1, 100, 200, 0, 30), ShiftingCamera(1, 100, 200, 40, 0)));
INSTANTIATE_TEST_SUITE_P(NoFocalLength, PinholeCameraIntrinsicsUnusableCamera,
                         testing::Values(ShiftingCamera(1, 0, 200, 40, 30), ShiftingCamera(1, 100, 0, 40, 30)));
INSTANTIATE_TEST_SUITE_P(Negative, PinholeCameraIntrinsicsUnusableCamera,
                         testing::Values(ShiftingCamera(1, -1, 200, 40, 30), ShiftingCamera(1, 100, -1, 40, 30),
                                         ShiftingCamera(1, 100, 200, -1, 30), ShiftingCamera(1, 100, 200, 40, -1)));
INSTANTIATE_TEST_SUITE_P(NoNumber, PinholeCameraIntrinsicsUnusableCamera,
                         testing::Values(ShiftingCamera(1, kNan, 200, 40, 30), ShiftingCamera(1, 100, 200, 40, kNan)));

TEST(PinholeCameraIntrinsics, TheSmallestPositiveCentreConverts) {
  const double least = std::numeric_limits<double>::denorm_min();
  const ShiftingCamera camera(1, least, least, least, least);
  cv::Point2d out;
  EXPECT_TRUE(camera.NormalizedToPixel({0, 0}, out));
}

using Setter = bool (PinholeCameraIntrinsics::*)(const std::vector<double>&);
class PinholeCameraIntrinsicsParamsSetter : public testing::TestWithParam<Setter> {};

TEST_P(PinholeCameraIntrinsicsParamsSetter, TakesSixValues) {
  ShiftingCamera camera(2.0);
  ASSERT_TRUE((camera.*GetParam())({1920.9, 1200.5, 1.5, 2.5, 3.5, 4.5}));
  EXPECT_EQ(camera.width(), 1920);
  EXPECT_EQ(camera.height(), 1200);
  EXPECT_EQ(camera.K(), (std::array<double, 9>{1.5, 0, 3.5, 0, 2.5, 4.5, 0, 0, 1}));
  EXPECT_EQ(camera.scale(), 1.0);
}

TEST_P(PinholeCameraIntrinsicsParamsSetter, AnyOtherNumberOfValuesChangesNothing) {
  ShiftingCamera camera(2.0);
  const auto before = camera.K();
  EXPECT_FALSE((camera.*GetParam())({1, 2, 3, 4, 5, 6, 7}));
  EXPECT_FALSE((camera.*GetParam())({1, 2, 3, 4, 5}));
  EXPECT_FALSE((camera.*GetParam())({}));
  EXPECT_EQ(camera.K(), before);
  EXPECT_EQ(camera.scale(), 2.0);
  EXPECT_EQ(camera.width(), 80);
}

INSTANTIATE_TEST_SUITE_P(AllThree, PinholeCameraIntrinsicsParamsSetter,
                         testing::Values(&PinholeCameraIntrinsics::SetParams, &PinholeCameraIntrinsics::SetModelParams,
                                         &PinholeCameraIntrinsics::SetRawParams));

TEST(PinholeCameraIntrinsics, ASideBeyondSixteenBitsIsHeldWithinThem) {
  EXPECT_EQ(toImageSide(65535.9), 65535);
  EXPECT_EQ(toImageSide(1e300), 65535);
  EXPECT_EQ(toImageSide(-5.0), 0);
  EXPECT_EQ(toImageSide(kNan), 0);
  EXPECT_EQ(toImageSide(0.99), 0);
}

}  // namespace
