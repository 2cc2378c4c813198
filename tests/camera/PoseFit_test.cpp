#include "camera/PoseFit.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tools/scene/Lens.h"
#include "tools/scene/Pose.h"
#include "tools/scene/PresetRigs.h"

namespace {

const scene::Camera kCamera = scene::brownRig({640, 512, 60.0}).left;
const scene::Pose kTruth{scene::rotationFromAngles({0.3, -0.2, 0.1}), {-60.0, -50.0, 400.0}};

CalibratedCamera calibrated() {
  StereoCalibParams calib;
  calib.left.intrinsics = {kCamera.fx, kCamera.fy, kCamera.cx, kCamera.cy};
  std::copy(kCamera.lens.begin(), kCamera.lens.end(), calib.left.intrinsics.begin() + 4);
  return {calib, 0, LensModel::kBrownEight};
}

/// Seen by the renderer's own projection, which shares no code with the library.
std::vector<PosePoint> seenPoints() {
  std::vector<PosePoint> points;
  for (int x = 0; x <= 120; x += 20) {
    for (int y = 0; y <= 100; y += 20) {
      const auto pixel = scene::project(kCamera, scene::transformed(kTruth, {1.0 * x, 1.0 * y, 0.0}));
      points.push_back({cv::Point3d(x, y, 0.0), {pixel->x, pixel->y}});
    }
  }
  return points;
}

void expectTruth(const CameraPose& pose, double tolerance) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column)
      EXPECT_NEAR(pose.R(row, column), kTruth.rotation.values[static_cast<std::size_t>(3 * row + column)], tolerance);
  }
  EXPECT_NEAR(pose.T[0], kTruth.translation.x, 400.0 * tolerance);
  EXPECT_NEAR(pose.T[2], kTruth.translation.z, 400.0 * tolerance);
}

TEST(PoseFit, IsThePoseThatThePointsWereSeenFrom) {
  const CalibratedCamera camera = calibrated();
  const auto first = firstPose(camera, seenPoints());
  ASSERT_TRUE(first);
  expectTruth(*first, 1e-3);
  const auto fitted = fitPose(camera, *first, seenPoints());
  ASSERT_TRUE(fitted);
  expectTruth(fitted->pose, 1e-7);
  EXPECT_LT(fitted->rms, 1e-4);
}

TEST(PoseFit, LeavesOutWhatIsFarOff) {
  const CalibratedCamera camera = calibrated();
  auto points = seenPoints();
  const auto first = firstPose(camera, points);
  points[5].pixel.x += 3.0;
  points[20].pixel.y -= 5.0;
  const auto fitted = fitPose(camera, *first, points);
  ASSERT_TRUE(fitted);
  expectTruth(fitted->pose, 1e-5);
}

TEST(PoseFit, NeedsSixPoints) {
  const CalibratedCamera camera = calibrated();
  auto points = seenPoints();
  points.resize(5);
  EXPECT_FALSE(firstPose(camera, points));
  EXPECT_FALSE(fitPose(camera, {}, points));
}

}  // namespace
