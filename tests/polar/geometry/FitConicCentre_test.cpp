#include "polar/geometry/FitConicCentre.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

struct EllipseCase {
  const char* name;
  double x, y, a, b, angle;
};

std::vector<cv::Point2f> outline(const EllipseCase& e, int count) {
  std::vector<cv::Point2f> points;
  for (int k = 0; k < count; ++k) {
    const double t = 2.0 * CV_PI * k / count;
    const double u = e.a * std::cos(t);
    const double v = e.b * std::sin(t);
    points.emplace_back(static_cast<float>(e.x + u * std::cos(e.angle) - v * std::sin(e.angle)),
                        static_cast<float>(e.y + u * std::sin(e.angle) + v * std::cos(e.angle)));
  }
  return points;
}

class FitConicCentreKnownEllipse : public testing::TestWithParam<EllipseCase> {};

TEST_P(FitConicCentreKnownEllipse, GivesItsCentre) {
  cv::Point2f centre(-1, -1);
  EXPECT_EQ(FitConicCentre(outline(GetParam(), 24), centre), 1);
  EXPECT_NEAR(centre.x, GetParam().x, 0.01);
  EXPECT_NEAR(centre.y, GetParam().y, 0.01);
}

INSTANTIATE_TEST_SUITE_P(Shapes, FitConicCentreKnownEllipse,
                         testing::Values(EllipseCase{"Circle", 50, 60, 10, 10, 0},
                                         EllipseCase{"Lying", 120.25, 80.5, 14, 7, 0},
                                         EllipseCase{"Turned", 200, 150.75, 12, 8, 0.7},
                                         EllipseCase{"Standing", 33, 44, 5, 9, -0.2}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(FitConicCentre, PartOfTheOutlineIsEnough) {
  std::vector<cv::Point2f> points = outline({"", 40, 30, 12, 8, 0.3}, 40);
  points.resize(26);
  cv::Point2f centre;
  EXPECT_EQ(FitConicCentre(points, centre), 1);
  EXPECT_NEAR(centre.x, 40, 0.05);
  EXPECT_NEAR(centre.y, 30, 0.05);
}

TEST(FitConicCentre, FourPointsAreTooFewFiveAreEnough) {
  std::vector<cv::Point2f> points = outline({"", 40, 30, 12, 8, 0.3}, 5);
  cv::Point2f centre(7, 8);
  EXPECT_EQ(FitConicCentre({points.begin(), points.begin() + 4}, centre), 0);
  EXPECT_EQ(centre, cv::Point2f(7, 8));
  EXPECT_EQ(FitConicCentre({}, centre), 0);
  EXPECT_EQ(FitConicCentre(points, centre), 1);
  EXPECT_NEAR(centre.x, 40, 0.1);
}

TEST(FitConicCentre, HugeSpreadLeavesTheOutputAlone) {
  // The squared term is 1 / variance: below the single-precision epsilon from a deviation of some 2900 on.
  cv::Point2f centre(7, 8);
  EXPECT_EQ(FitConicCentre(outline({"", 0, 0, 6000, 6000, 0}, 24), centre), 1);
  EXPECT_EQ(centre, cv::Point2f(7, 8));
  EXPECT_EQ(FitConicCentre(outline({"", 0, 0, 3500, 3500, 0}, 24), centre), 1);
  EXPECT_NEAR(centre.x, 0, 1.0);
}

TEST(FitConicCentre, PointsWithoutSpreadAreNotGuarded) {
  cv::Point2f centre(7, 8);
  EXPECT_EQ(FitConicCentre(std::vector<cv::Point2f>(6, {3, 4}), centre), 1);
  EXPECT_TRUE(std::isnan(centre.x));
}

TEST(FitConicCentre, IsFittedInSinglePrecision) {
  // Six points of an upright ellipse, a quarter of a pixel to either side. At column 4096 the squares lose that
  // quarter in single precision: the points have no spread then, and no centre.
  const auto pointsAbout = [](float x, float dx) {
    return std::vector<cv::Point2f>{{x - dx, 98}, {x - dx, 102}, {x + dx, 98}, {x + dx, 102}, {x, 96}, {x, 104}};
  };
  cv::Point2f centre;
  EXPECT_EQ(FitConicCentre(pointsAbout(16.0F, 0.25F), centre), 1);
  EXPECT_NEAR(centre.x, 16.0, 1e-3);
  EXPECT_NEAR(centre.y, 100.0, 1e-2);
  EXPECT_EQ(FitConicCentre(pointsAbout(4096.0F, 0.25F), centre), 1);
  EXPECT_TRUE(std::isnan(centre.x));
}

}  // namespace
