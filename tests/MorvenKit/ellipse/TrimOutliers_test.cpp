#include "MorvenKit/src/ellipse/TrimOutliers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <opencv2/core.hpp>
#include <vector>

using namespace kestrune::morvenkit;

namespace {

Ellipse<double> ellipse(double x, double y, double a, double b, double angle = 0.0) {
  Ellipse<double> result;
  result.x = x;
  result.y = y;
  result.semi_a = a;
  result.semi_b = b;
  result.angle = angle;
  return result;
}

/// `count` points on the circle of radius 10 about 0, on the axes, and one `off` pixels outside it, at place `where`.
std::vector<cv::Point2f> withOutlier(std::size_t count, float off, std::size_t where = 0) {
  static const std::vector<cv::Point2f> kAxes = {{10, 0}, {0, 10}, {-10, 0}, {0, -10}};
  std::vector<cv::Point2f> points;
  for (std::size_t i = 0; i < count; ++i) points.push_back(kAxes[i % 4]);
  points.insert(points.begin() + static_cast<std::ptrdiff_t>(where), {10 + off, 0});
  return points;
}

const Ellipse<double> kCircle = ellipse(0, 0, 10, 10);

}  // namespace

struct ResidualCase {
  const char* name;
  float x, y, expected;
};

class TrimOutliersRadialResidual : public testing::TestWithParam<ResidualCase> {};

TEST_P(TrimOutliersRadialResidual, ByHand) {
  EXPECT_FLOAT_EQ(radialResidual(GetParam().x, GetParam().y, 5, 3), GetParam().expected);
}

// On the diagonal the ellipse 5, 3 is met at 15 / sqrt(34) in both coordinates; 2.5724787 each.
INSTANTIATE_TEST_SUITE_P(
    Branches, TrimOutliersRadialResidual,
    testing::Values(ResidualCase{"OnTheLongAxis", 6.5F, 0, 1.5F}, ResidualCase{"OnTheLongAxisLeft", -4, 0, 1},
                    ResidualCase{"OnTheShortAxis", 0, 4, 1}, ResidualCase{"OnTheShortAxisAbove", 0, -1, 2},
                    ResidualCase{"Centre", 0, 0, 5},
                    ResidualCase{"Diagonal", 4, 4, 1.4275213F * std::numbers::sqrt2_v<float>},
                    ResidualCase{"OppositeDiagonal", -4, -4, 1.4275213F * std::numbers::sqrt2_v<float>},
                    ResidualCase{"FallingDiagonal", 4, -4, 1.4275213F * std::numbers::sqrt2_v<float>}),
    [](const auto& entry) { return entry.param.name; });

TEST(TrimOutliers, EmptyListFails) {
  std::vector<cv::Point2f> none;
  EXPECT_EQ(trimOutliers(kCircle, none), -1.0);
}

TEST(TrimOutliers, PointsAreTurnedIntoTheFrame) {
  // Long axis along (0.8, 0.6): its end lies at (4, 3) from the centre, the short one's at (-1.2, 1.6).
  const Ellipse<double> turned = ellipse(20, 30, 5, 2, std::atan2(3.0, 4.0));
  std::vector<cv::Point2f> on = {{24, 33}, {16, 27}, {18.8F, 31.6F}, {21.2F, 28.4F}};
  EXPECT_NEAR(trimOutliers(turned, on), 0.0, 2e-6);
  std::vector<cv::Point2f> off = {{24.4F, 33.3F}, {15.6F, 26.7F}};
  EXPECT_NEAR(trimOutliers(turned, off), 0.5, 1e-5);
}

TEST(TrimOutliers, RmsOfExactlyOneStillTrims) {
  auto points = withOutlier(8, 3.0F, 4);
  EXPECT_EQ(trimOutliers(kCircle, points), 1.0);
  EXPECT_EQ(points,
            (std::vector<cv::Point2f>{{10, 0}, {0, 10}, {-10, 0}, {0, -10}, {10, 0}, {0, 10}, {-10, 0}, {0, -10}}));
}

TEST(TrimOutliers, RmsAboveOneFailsAndKeepsThePoints) {
  auto points = withOutlier(8, 3.00001F);
  const auto before = points;
  EXPECT_EQ(trimOutliers(kCircle, points), -1.0);
  EXPECT_EQ(points, before);
}

TEST(TrimOutliers, RmsBelowFloatPrecisionIsZeroAndKeepsThePoints) {
  // One of 400 points is off by the last place of 10: 9.5e-7 / sqrt(400) = 4.8e-8.
  auto points = withOutlier(399, 0.0F);
  points[0].x = std::nextafter(10.0F, 20.0F);
  EXPECT_EQ(trimOutliers(kCircle, points), 0.0);
  EXPECT_EQ(points.size(), 400U);
}

TEST(TrimOutliers, RmsJustAboveFloatPrecisionTrims) {
  // One of 40: 1.5e-7.
  auto points = withOutlier(39, 0.0F);
  points[0].x = std::nextafter(10.0F, 20.0F);
  EXPECT_NEAR(trimOutliers(kCircle, points), 1.508e-7, 1e-10);
  EXPECT_EQ(points.size(), 39U);
}

TEST(TrimOutliers, LimitLiesBetweenTheRootsOfEightAndNine) {
  // A single outlier among n points has sqrt(n) times the rms: 2.83 stays, 3 goes.
  auto eight = withOutlier(7, 1.0F), nine = withOutlier(8, 1.0F);
  EXPECT_NEAR(trimOutliers(kCircle, eight), 0.35355339, 1e-7);
  EXPECT_EQ(eight.size(), 8U);
  EXPECT_NEAR(trimOutliers(kCircle, nine), 1.0 / 3.0, 1e-7);
  EXPECT_EQ(nine.size(), 8U);
}

TEST(TrimOutliers, LimitLiesBetweenTwoPointNineOneAndTwoPointNineThree) {
  // Eight points at a residual s and one at 1: 1 / rms is sqrt(9 / (1 + 8 s^2)).
  const auto kept = [](float s) {
    auto points = withOutlier(8, 1.0F, 8);
    for (std::size_t i = 0; i < 8; ++i) points[i] *= 1.0F + s / 10.0F;
    EXPECT_GT(trimOutliers(kCircle, points), 0.0);
    return points.size();
  };
  EXPECT_EQ(kept(0.08861F), 9U);  // 2.91
  EXPECT_EQ(kept(0.07774F), 8U);  // 2.93
}

TEST(TrimOutliers, ResidualOfJustTheLimitGoes) {
  // In 64ths: 73, 14 and 10 beside six of nothing have the rms 25, and 2.92 times that is 73.
  auto points = withOutlier(8, 73.0F / 64, 0);
  points[1].x += 14.0F / 64;
  points[2].y += 10.0F / 64;
  EXPECT_EQ(trimOutliers(kCircle, points), 25.0 / 64);
  EXPECT_EQ(points.size(), 8U);
}

TEST(TrimOutliers, TurnsThePointsInSinglePrecision) {
  // Along (0.8, 0.6) the point lies at (5, 0): as floats, the two products of the second component are equal. In double
  // precision they differ by 6e-8, which is far off the axis of so thin an ellipse.
  std::vector<cv::Point2f> points = {{4, 3}};
  EXPECT_EQ(trimOutliers(ellipse(0, 0, 4.5, 1e-7, std::atan2(3.0, 4.0)), points), 0.5);
}

TEST(TrimOutliers, WorksInSinglePrecision) {
  // The centre is narrowed: 1e-9 beside 100 is nothing.
  std::vector<cv::Point2f> points = {{110, 50}, {90, 50}, {100, 60}, {100, 40}};
  EXPECT_EQ(trimOutliers(ellipse(100 + 1e-9, 50, 10, 10), points), 0.0);
}

TEST(TrimOutliers, LimitIsFormedInDouble) {
  // Eight points at a residual of `eight` and one at `ninth`, in units of the last place of 10, so that no rounding but
  // that of the rms comes in. In the first case 2.92 in single precision would keep the ninth point, in the second one
  // a single-precision product would drop it.
  const auto kept = [](float eight, float ninth) {
    auto points = withOutlier(8, ninth * 0x1p-20F, 8);
    std::fill_n(points.begin(), 8, cv::Point2f(0, 10.0F + eight * 0x1p-20F));
    EXPECT_GT(trimOutliers(kCircle, points), 0.0);
    return points.size();
  };
  EXPECT_EQ(kept(69317, 831882), 8U);
  EXPECT_EQ(kept(61424, 737157), 9U);
}

TEST(TrimOutliers, CentreIsNarrowed) {
  // 1e-6 beside 100 is nothing in single precision, and an rms of 7e-7 otherwise.
  std::vector<cv::Point2f> points = {{110, 50}, {90, 50}, {100, 60}, {100, 40}};
  EXPECT_EQ(trimOutliers(ellipse(100 + 1e-6, 50, 10, 10), points), 0.0);
  std::vector<cv::Point2f> upright = {{60, 100}, {40, 100}, {50, 110}, {50, 90}};
  EXPECT_EQ(trimOutliers(ellipse(50, 100 + 1e-6, 10, 10), upright), 0.0);
}

// Along an axis the distance is a difference; by the formula for all others this one were a bit more.
TEST(TrimOutliers, PointsOnEitherAxisAmongOthersHaveTheirOwnResidual) {
  std::vector<cv::Point2f> on_x(4, {55.5F, 100.0F}), on_y(4, {50.0F, 103.71F});
  EXPECT_EQ(trimOutliers(ellipse(50, 100, 5, 3.21), on_x), 0.5);
  EXPECT_EQ(trimOutliers(ellipse(50, 100, 5, 3.21), on_y), static_cast<double>(103.71F - 100.0F - 3.21F));
}

// Four points are taken at once, and those on an axis by themselves: however many there are, and wherever those stand,
// the mean is that of each point's own residual.
TEST(TrimOutliers, RmsIsOfEachPointsOwnResidual) {
  const Ellipse<double> tilted = ellipse(30.25, 41.5, 9, 6, 0.7);
  const float cosine = std::cos(0.7F), sine = std::sin(0.7F);
  cv::RNG random(3);
  for (std::size_t count = 1; count < 14; ++count) {
    for (std::size_t on_axis = 0; on_axis <= count; ++on_axis) {
      std::vector<cv::Point2f> points;
      for (std::size_t i = 0; i < count; ++i) {
        const double t = random.uniform(0.0, 6.28), u = 9.2 * std::cos(t), v = 6.1 * std::sin(t);
        points.emplace_back(static_cast<float>(30.25 + u * std::cos(0.7) - v * std::sin(0.7)),
                            static_cast<float>(41.5 + u * std::sin(0.7) + v * std::cos(0.7)));
      }
      if (on_axis < count) points[on_axis] = {30.25F, 41.5F};
      float sum = 0.0F;
      for (const cv::Point2f& point : points) {
        const float dx = point.x - 30.25F, dy = point.y - 41.5F;
        const float residual = radialResidual(cosine * dx + sine * dy, cosine * dy - sine * dx, 9.0F, 6.0F);
        sum += residual * residual;
      }
      const float rms = std::sqrt(sum / static_cast<float>(count));
      ASSERT_EQ(trimOutliers(tilted, points), rms > 1.0F ? -1.0 : static_cast<double>(rms)) << count << ' ' << on_axis;
    }
  }
}
