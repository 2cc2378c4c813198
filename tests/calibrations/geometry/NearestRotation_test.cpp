#include "calibrations/geometry/NearestRotation.h"

#include <gtest/gtest.h>

#include "calibrations/geometry/Angles.h"

namespace {

using calibrations::deviationOf;
using calibrations::nearestRotation;

const cv::Matx33d kRotation = calibrations::rotationOf({0.3, -0.2, 0.5});

TEST(NearestRotation, KeepsARotation) { EXPECT_LT(cv::norm(*nearestRotation(kRotation) - kRotation), 1e-15); }

TEST(NearestRotation, TakesAStretchOut) {
  // R S with a symmetric S near the identity is the polar decomposition: R is the nearest rotation.
  const cv::Matx33d stretch(1 + 1e-4, 2e-5, 0, 2e-5, 1 - 1e-4, 1e-5, 0, 1e-5, 1);
  EXPECT_LT(cv::norm(*nearestRotation(kRotation * stretch) - kRotation), 1e-15);
}

TEST(NearestRotation, RefusesAMirror) { EXPECT_FALSE(nearestRotation(cv::Matx33d(1, 0, 0, 0, 1, 0, 0, 0, -1))); }

TEST(NearestRotation, RefusesFromOneInAThousandOn) {
  EXPECT_TRUE(nearestRotation(cv::Matx33d::eye() * 1.000499));  // 1.000499^2 - 1 = 9.98e-4
  EXPECT_FALSE(nearestRotation(cv::Matx33d::eye() * 1.0005));   // 1.00025e-3
  EXPECT_FALSE(nearestRotation(cv::Matx33d::zeros()));
}

TEST(NearestRotationDeviation, IsTheLargestElement) {
  EXPECT_NEAR(deviationOf(cv::Matx33d(1.1, 0, 0, 0, 1, 0, 0, 0, 1)), 0.21, 1e-15);
  EXPECT_NEAR(deviationOf(cv::Matx33d(1, 0.25, 0, 0, 1, 0, 0, 0, 1)), 0.25, 1e-15);
  EXPECT_NEAR(deviationOf(cv::Matx33d::zeros()), 1.0, 1e-15);
}

}  // namespace
