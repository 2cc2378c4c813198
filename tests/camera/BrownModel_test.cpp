#include "camera/BrownModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <opencv2/calib3d.hpp>
#include <string>

#include "LensLaws.h"
#include "Near.h"

namespace {

TEST(BrownModelBrownCoefficientsOf, AreTheLastEightNumbersOfACamera) {
  const BrownCoefficients expected = {5, 6, 7, 8, 9, 10, 11, static_cast<double>(0.1F)};
  EXPECT_EQ(brownCoefficientsOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0.1F}), expected);
}

TEST(BrownModelDistort, WithoutCoefficientsIsTheIdentity) {
  EXPECT_EQ(BrownDistort({0.3, -0.7}, {}), cv::Point2d(0.3, -0.7));
}

struct BrownTerm {
  std::string name;
  BrownCoefficients coefficients;
  cv::Point2d raw;  ///< Of the ideal point (1, 2): r^2 = 5, r^4 = 25, r^6 = 125.
};
class BrownModelTerms : public testing::TestWithParam<BrownTerm> {};

TEST_P(BrownModelTerms, ByHand) {
  EXPECT_THAT(BrownDistort({1, 2}, GetParam().coefficients), PointNear(GetParam().raw, 1e-13));
}

INSTANTIATE_TEST_SUITE_P(Each, BrownModelTerms,
                         testing::Values(BrownTerm{"K1", {0.5}, {3.5, 7}}, BrownTerm{"K2", {0, 0.5}, {13.5, 27}},
                                         BrownTerm{"K3", {0, 0, 0.5}, {63.5, 127}},
                                         BrownTerm{"K4", {0, 0, 0, 0.2}, {0.5, 1}},
                                         BrownTerm{"K5", {0, 0, 0, 0, 0.04}, {0.5, 1}},
                                         BrownTerm{"K6", {0, 0, 0, 0, 0, 0.008}, {0.5, 1}},
                                         BrownTerm{"P1", {0, 0, 0, 0, 0, 0, 0.5}, {3, 8.5}},
                                         BrownTerm{"P2", {0, 0, 0, 0, 0, 0, 0, 0.5}, {4.5, 4}}),
                         [](const auto& each) { return each.param.name; });

const BrownCoefficients kStrong = {-0.31, 0.12, -0.02, 0.04, -0.01, 0.003, 0.0011, -0.0007};

TEST(BrownModelDistort, AgreesWithTheProjectionOfOpenCv) {
  const auto& [K1, K2, K3, K4, K5, K6, P1, P2] = kStrong;
  const std::vector<double> D = {K1, K2, P1, P2, K3, K4, K5, K6};
  const std::vector<cv::Point3d> points = {{0.1, 0.2, 1}, {-0.7, 0.5, 1}, {0.6, -0.4, 1}};
  std::vector<cv::Point2d> projected;
  cv::projectPoints(points, cv::Vec3d(), cv::Vec3d(), cv::Matx33d::eye(), D, projected);
  for (std::size_t k = 0; k < points.size(); ++k) {
    EXPECT_THAT(BrownDistort({points[k].x, points[k].y}, kStrong), PointNear(projected[k], 1e-14));
  }
}

TEST(BrownModelUndistort, DistortThenUndistortGivesThePointBack) {
  const auto distort = [](const cv::Point2d& ideal, cv::Point2d& raw) {
    raw = BrownDistort(ideal, kStrong);
    return true;
  };
  const auto undistort = [](const cv::Point2d& raw, cv::Point2d& ideal) { return BrownUndistort(raw, kStrong, ideal); };
  // The residual is 1e-6; the slope of the model turns it into a few of these in the point.
  const RoundTrip trip = roundTrip(distort, undistort, {-0.8, -0.5, 1.6, 1.0}, 161, 3e-6);
  EXPECT_TRUE(trip.never_back.empty());
  EXPECT_TRUE(trip.far.empty());
  EXPECT_LE(trip.worst_residual, 1e-6 + 1e-15);
}

/// With so large a first and fourth coefficient f is their quotient 1.966 everywhere: the distortion is 0.966 q.
const BrownCoefficients kScaling = {1.966e30, 0, 0, 1e30, 0, 0, 0, 0};

TEST(BrownModelUndistort, ConvergingOnTheLastStepIsTooLate) {
  const double least = 1e-6 / std::pow(0.966, 200);
  cv::Point2d ideal;
  ASSERT_TRUE(BrownUndistort({least * 0.99, 0}, kScaling, ideal));
  EXPECT_NEAR(ideal.x, least * 0.99 / 1.966, 1e-6);
  EXPECT_FALSE(BrownUndistort({least * 1.01, 0}, kScaling, ideal));
}

TEST(BrownModelUndistort, AFailureLeavesTheLastDistortionInTheOutput) {
  cv::Point2d output;
  ASSERT_FALSE(BrownUndistort({1, 0}, kScaling, output));
  // 200 steps of q <- 1 - 0.966 q, then 0.966 q once more.
  const double last_point = 1 / 1.966 + (1 - 1 / 1.966) * std::pow(-0.966, 200);
  EXPECT_NEAR(output.x, 0.966 * last_point, 1e-12);
}

TEST(BrownModelUndistort, ErrorOfJustTheToleranceIsGoodEnough) {
  // P2 alone takes (0, 1) to (P2, 1): the start is off by P2.
  cv::Point2d ideal;
  ASSERT_TRUE(BrownUndistort({0, 1}, {0, 0, 0, 0, 0, 0, 0, 1e-6}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(0, 1));
  ASSERT_TRUE(BrownUndistort({0, 1}, {0, 0, 0, 0, 0, 0, 0, std::nextafter(1e-6, 1.0)}, ideal));
  EXPECT_NEAR(ideal.x, -1e-6, 1e-12);
}

TEST(BrownModelUndistort, OutputMayBeTheInput) {
  cv::Point2d point = BrownDistort({0.2, 0.3}, kStrong);
  ASSERT_TRUE(BrownUndistort(point, kStrong, point));
  EXPECT_THAT(point, PointNear(cv::Point2d(0.2, 0.3), 2e-6));
}

TEST(BrownModelUndistort, NanAsksForNoStep) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  cv::Point2d ideal;
  EXPECT_TRUE(BrownUndistort({nan, nan}, kStrong, ideal));
  EXPECT_TRUE(std::isnan(ideal.x));
}

}  // namespace
