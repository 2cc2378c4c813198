#include "refine/board/BiasField.h"

#include <gtest/gtest.h>

#include <opencv2/calib3d.hpp>

#include "refine/board/ContourCentre.h"
#include "tools/accuracy/Sight.h"
#include "tools/scene/PresetRigs.h"

namespace {

std::vector<cv::Point3d> gridOf(int columns, int rows, double step) {
  std::vector<cv::Point3d> places;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column)
      places.emplace_back(step * (column - 0.5 * (columns - 1)), step * (row - 0.5 * (rows - 1)), 0.0);
  }
  return places;
}

CameraPose tilted() {
  CameraPose pose;
  cv::Rodrigues(cv::Vec3d(0.6, -0.2, 0.1), pose.R);
  pose.T = {5.0, -8.0, 300.0};
  return pose;
}

struct LensCase {
  scene::StereoRig rig;
  double tolerance;  ///< Pixels.
};

class BiasFieldLens : public ::testing::TestWithParam<LensCase> {};

/// Of outlines that are traced one by one, at every place and for another radius, too.
TEST_P(BiasFieldLens, IsThatOfTheOutlines) {
  const CalibratedCamera camera = accuracy::calibratedCamera(GetParam().rig.left);
  const std::vector<cv::Point3d> places = gridOf(20, 16, 12.0);
  const refine::BiasField field(camera, tilted(), places, 4.0);
  double largest = 0.0;
  for (const cv::Point3d& place : places) {
    for (const double radius : {4.0, 5.5}) {
      const auto field_bias = field.biasOf(place, radius);
      const auto traced = refine::contourBias(camera, tilted(), place, radius);
      ASSERT_TRUE(field_bias && traced);
      EXPECT_NEAR(field_bias->x, traced->x, GetParam().tolerance) << place;
      EXPECT_NEAR(field_bias->y, traced->y, GetParam().tolerance) << place;
      largest = std::max(largest, cv::norm(*traced));
    }
  }
  EXPECT_GT(largest, 0.02);
}

/// The corner of a strong lens, where the largest bias is 0.07 pixels, is farthest off. The cells of a polynomial lens
/// bend a little each for itself.
INSTANTIATE_TEST_SUITE_P(Models, BiasFieldLens,
                         ::testing::Values(LensCase{scene::brownRig({640, 512, 60.0}), 1.2e-3},
                                           LensCase{scene::fisheyeRig({640, 512, 60.0}), 5e-4},
                                           LensCase{scene::polyRig({640, 512, 60.0}), 5e-3}));

TEST(BiasFieldPlaces, AreTooFewOrInALineForAField) {
  const CalibratedCamera camera = accuracy::calibratedCamera(scene::brownRig({640, 512, 60.0}).left);
  EXPECT_FALSE(refine::BiasField(camera, tilted(), gridOf(5, 5, 12.0), 4.0).biasOf({}, 4.0));
  EXPECT_FALSE(refine::BiasField(camera, tilted(), gridOf(40, 1, 5.0), 4.0).biasOf({}, 4.0));
}

}  // namespace
