#include "refine/board/ContourCentre.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/accuracy/Sight.h"
#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/Lens.h"
#include "tools/scene/PresetRigs.h"

namespace {

const scene::Pose kPose{scene::rotationFromAngles({0.6, -0.3, 0.1}), {20.0, -30.0, 300.0}};
constexpr double kRadius = 8.0;

CameraPose libraryPose() {
  CameraPose pose;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column)
      pose.R(row, column) = kPose.rotation.values[static_cast<std::size_t>(3 * row + column)];
  }
  pose.T = {kPose.translation.x, kPose.translation.y, kPose.translation.z};
  return pose;
}

TEST(ContourCentreBias, OfAPinholeIsThatOfTheDualConic) {
  scene::Camera camera = scene::brownRig({640, 512, 60.0}).left;
  camera.lens = {};
  const auto bias = refine::contourBias(accuracy::calibratedCamera(camera), libraryPose(), {5.0, -4.0, 0.0}, kRadius);
  ASSERT_TRUE(bias);
  const scene::Point3 centre{5.0, -4.0, 0.0};
  const scene::Point2 ellipse = scene::pixelFromRaw(camera, scene::idealEllipseCentre(kPose, centre, kRadius));
  const auto image = scene::project(camera, scene::transformed(kPose, centre));
  EXPECT_NEAR(bias->x, ellipse.x - image->x, 1e-6);
  EXPECT_NEAR(bias->y, ellipse.y - image->y, 1e-6);
  EXPECT_GT(std::hypot(bias->x, bias->y), 0.02);
}

class ContourCentreLens : public ::testing::TestWithParam<scene::StereoRig> {};

/// The centroid of the imaged outline's area, traced through the renderer's lens, is another estimator of the same
/// figure; they differ by what the lens bends within a dot, of fourth order in its size.
TEST_P(ContourCentreLens, IsNearTheCentroidOfTheImagedOutline) {
  const scene::Camera& camera = GetParam().left;
  const scene::Point3 centre{-30.0, 25.0, 0.0};
  const auto bias = refine::contourBias(accuracy::calibratedCamera(camera), libraryPose(), {-30.0, 25.0, 0.0}, kRadius);
  ASSERT_TRUE(bias);
  const scene::ImagedEllipse e = scene::imagedEllipse(camera, kPose, centre, kRadius);
  const auto image = scene::project(camera, scene::transformed(kPose, centre));
  EXPECT_NEAR(bias->x, e.centre.x - image->x, 2e-3);
  EXPECT_NEAR(bias->y, e.centre.y - image->y, 2e-3);
}

INSTANTIATE_TEST_SUITE_P(Models, ContourCentreLens,
                         ::testing::Values(scene::brownRig({640, 512, 60.0}), scene::fisheyeRig({640, 512, 60.0}),
                                           scene::polyRig({640, 512, 60.0})));

TEST(ContourCentreBias, IsNoneOfACircleBehindTheCamera) {
  const scene::Camera camera = scene::brownRig({640, 512, 60.0}).left;
  const CameraPose behind{cv::Matx33d::eye(), {0.0, 0.0, -10.0}};
  EXPECT_FALSE(refine::contourBias(accuracy::calibratedCamera(camera), behind, {0.0, 0.0, 0.0}, 1.0));
}

}  // namespace
