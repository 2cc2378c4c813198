#include "refine/board/BoardPose.h"

#include <gtest/gtest.h>

#include "tools/accuracy/Sight.h"
#include "tools/scene/Lens.h"
#include "tools/scene/PresetRigs.h"

namespace {

const scene::Camera kCamera = scene::brownRig({640, 512, 60.0}).left;
const scene::Pose kTruth{scene::rotationFromAngles({0.3, -0.2, 0.1}), {-60.0, -50.0, 400.0}};

/// Seen by the renderer's own projection, which shares no code with the library.
std::vector<refine::SeenPoint> seenPoints() {
  std::vector<refine::SeenPoint> points;
  for (int x = 0; x <= 120; x += 20) {
    for (int y = 0; y <= 100; y += 20) {
      const auto pixel = scene::project(kCamera, scene::transformed(kTruth, {1.0 * x, 1.0 * y, 0.0}));
      points.push_back({cv::Point3d(x, y, 0.0), {pixel->x, pixel->y}});
    }
  }
  return points;
}

void expectTruth(const refine::BoardPose& pose, double tolerance) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column)
      EXPECT_NEAR(pose.R(row, column), kTruth.rotation.values[static_cast<std::size_t>(3 * row + column)], tolerance);
  }
  EXPECT_NEAR(pose.T[0], kTruth.translation.x, 400.0 * tolerance);
  EXPECT_NEAR(pose.T[2], kTruth.translation.z, 400.0 * tolerance);
}

TEST(BoardPoseFit, IsThePoseThatThePointsWereSeenFrom) {
  const CalibratedCamera camera = accuracy::calibratedCamera(kCamera);
  const auto first = refine::firstPose(camera, seenPoints());
  ASSERT_TRUE(first);
  expectTruth(*first, 1e-3);
  const auto fitted = refine::fitPose(camera, *first, seenPoints());
  ASSERT_TRUE(fitted);
  expectTruth(fitted->pose, 1e-7);
  EXPECT_LT(fitted->rms, 1e-4);
}

TEST(BoardPoseFit, LeavesOutWhatIsFarOff) {
  const CalibratedCamera camera = accuracy::calibratedCamera(kCamera);
  auto points = seenPoints();
  const auto first = refine::firstPose(camera, points);
  points[5].pixel.x += 3.0;
  points[20].pixel.y -= 5.0;
  const auto fitted = refine::fitPose(camera, *first, points);
  ASSERT_TRUE(fitted);
  expectTruth(fitted->pose, 1e-5);
}

TEST(BoardPoseFit, NeedsSixPoints) {
  const CalibratedCamera camera = accuracy::calibratedCamera(kCamera);
  auto points = seenPoints();
  points.resize(5);
  EXPECT_FALSE(refine::firstPose(camera, points));
  EXPECT_FALSE(refine::fitPose(camera, {}, points));
}

TEST(BoardPoseSlope, IsHowPixelsMoveWithTheBoardsPoint) {
  const CalibratedCamera camera = accuracy::calibratedCamera(kCamera);
  const refine::BoardPose front{cv::Matx33d::eye(), {0.0, 0.0, 768.0}};
  const auto slope = refine::slopeOnBoard(camera, front, {0.0, 0.0, 0.0}, 0.01);
  ASSERT_TRUE(slope);
  // On the axis the lens takes nothing off: fx / z and fy / z.
  EXPECT_NEAR((*slope)(0, 0), kCamera.fx / 768.0, 1e-6);
  EXPECT_NEAR((*slope)(1, 1), kCamera.fy / 768.0, 1e-6);
  EXPECT_NEAR((*slope)(0, 1), 0.0, 1e-6);
}

}  // namespace
