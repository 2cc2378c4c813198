#include "camera/FixedPointInverse.h"

#include <gtest/gtest.h>

namespace {

const auto kNeedsStep = [](double error) { return error > kInverseTolerance; };

/// D(q) = k q along x: the error before step n + 1 is k^(n + 1) |t|, so the number of steps follows from t.
InverseResult invertScaling(double k, double target) {
  return invertByFixedPoint(
      cv::Point2d(target, 0), [k](const cv::Point2d& q) { return cv::Point2d(k * q.x, 0); }, kNeedsStep);
}

TEST(FixedPointInverse, NoDistortionNeedsNoStep) {
  int calls = 0;
  const InverseResult found = invertByFixedPoint(
      cv::Point2d(0.3, 0.4),
      [&calls](const cv::Point2d&) {
        ++calls;
        return cv::Point2d();
      },
      kNeedsStep);
  EXPECT_TRUE(found.converged);
  EXPECT_EQ(found.point, cv::Point2d(0.3, 0.4));
  EXPECT_EQ(calls, 1);
}

TEST(FixedPointInverse, AnErrorOfTheToleranceIsGoodEnough) {
  const auto shiftedBy = [](double shift) {
    return invertByFixedPoint(
        cv::Point2d(), [shift](const cv::Point2d&) { return cv::Point2d(shift, 0); }, kNeedsStep);
  };
  EXPECT_EQ(shiftedBy(1e-6).point.x, 0.0);
  const double next = std::nextafter(1e-6, 1.0);
  EXPECT_EQ(shiftedBy(next).point.x, -next);
}

TEST(FixedPointInverse, ErrorIsTheSumOverBothAxes) {
  const auto shift = [](const cv::Point2d&) { return cv::Point2d(0.8e-6, 0.8e-6); };
  EXPECT_NE(invertByFixedPoint(cv::Point2d(), shift, kNeedsStep).point, cv::Point2d());
}

TEST(FixedPointInverse, StepOneHundredAndNinetyNineSettlesAndTwoHundredDoesNot) {
  const double k = 0.966;
  const double least = 1e-6 / std::pow(k, 200);  // Its error falls to the tolerance with step 199.
  EXPECT_TRUE(invertScaling(k, least * 0.99).converged);
  const InverseResult late = invertScaling(k, least * 1.01);
  EXPECT_FALSE(late.converged);
  // The last step met the tolerance all the same: it came too late.
  EXPECT_LE(std::abs(late.point.x + late.distortion.x - least * 1.01), kInverseTolerance);
}

TEST(FixedPointInverse, StopsAfterTwoHundredSteps) {
  int calls = 0;
  const InverseResult found = invertByFixedPoint(
      cv::Point2d(),
      [&calls](const cv::Point2d&) {
        ++calls;
        return cv::Point2d(calls % 2, 0);
      },
      [](double) { return true; });
  EXPECT_FALSE(found.converged);
  EXPECT_EQ(calls, 201);
}

}  // namespace
