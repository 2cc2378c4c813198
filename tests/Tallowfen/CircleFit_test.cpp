#include "Tallowfen/src/CircleFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

using kestrune::algebraicResidual;
using kestrune::fitCircle;
using kestrune::hasDotSize;
using Points = std::vector<cv::Point2f>;

struct Outline {
  double semi_a = 20;
  double semi_b = 20;
  double angle = 0;
  int count = 100;
  double turn = 1;  ///< Share of the whole outline.
};

Points outlinePoints(const Outline& outline) {
  Points points;
  for (int i = 0; i < outline.count; ++i) {
    const double t = 2 * CV_PI * outline.turn * i / outline.count;
    const double u = outline.semi_a * std::cos(t), v = outline.semi_b * std::sin(t);
    points.emplace_back(static_cast<float>(100.25 + u * std::cos(outline.angle) - v * std::sin(outline.angle)),
                        static_cast<float>(80.5 + u * std::sin(outline.angle) + v * std::cos(outline.angle)));
  }
  return points;
}

TEST(CircleFit, RecordOfACircle) {
  const Points points = outlinePoints({});
  const auto ellipse = fitCircle(points);
  ASSERT_TRUE(ellipse);
  EXPECT_NEAR(ellipse->x, 100.25, 1e-3);
  EXPECT_NEAR(ellipse->y, 80.5, 1e-3);
  EXPECT_NEAR(ellipse->semi_a, 20, 1e-2);
  EXPECT_NEAR(ellipse->semi_b, 20, 1e-2);
  EXPECT_GE(ellipse->semi_a, ellipse->semi_b);
  EXPECT_EQ(ellipse->sigma, 0);
  EXPECT_EQ(ellipse->id, -1);
  EXPECT_EQ(ellipse->flag, 0);
  EXPECT_EQ(ellipse->point_class, kestrune::morvenkit::kRejected);
  EXPECT_EQ(ellipse->edge_points, points);
  // A regular polygon of n sides: pi / (n tan(pi / n)).
  EXPECT_NEAR(ellipse->roundness, CV_PI / (100 * std::tan(CV_PI / 100)), 1e-5);
}

class TurnedEllipse : public testing::TestWithParam<double> {};

TEST_P(TurnedEllipse, AngleIsThatOfTheLongAxis) {
  const double angle = GetParam() * CV_PI / 180;
  const auto ellipse = fitCircle(outlinePoints({30, 18, angle}));
  ASSERT_TRUE(ellipse);
  EXPECT_NEAR(ellipse->semi_a, 30, 0.02);
  EXPECT_NEAR(ellipse->semi_b, 18, 0.02);
  EXPECT_NEAR(std::abs(std::cos(ellipse->angle - angle)), 1, 1e-4);
}

INSTANTIATE_TEST_SUITE_P(Degrees, TurnedEllipse, testing::Values(5.0, 30.0, 60.0, 85.0, 100.0, 150.0, 175.0));

TEST(HasDotSize, WidthOfLessThanTwoFifthsOfTheHeightIsFlat) {
  EXPECT_FALSE(hasDotSize({39, 100}));
  EXPECT_TRUE(hasDotSize({40, 100}));
}

TEST(HasDotSize, HeightMayBeAsSmallAsItLikes) {
  EXPECT_TRUE(hasDotSize({100, 40}));
  EXPECT_TRUE(hasDotSize({100, 1}));
}

TEST(HasDotSize, BothSidesDecideOnHugeAndTiny) {
  EXPECT_FALSE(hasDotSize({321, 321}));
  EXPECT_TRUE(hasDotSize({320, 321}));
  EXPECT_TRUE(hasDotSize({321, 320}));
  EXPECT_FALSE(hasDotSize({9.9F, 9.9F}));
  EXPECT_TRUE(hasDotSize({10, 9.9F}));
  EXPECT_TRUE(hasDotSize({9.9F, 10}));
}

// With the width r, the height 1 and the outline evenly sampled, the residual's e is r^2 cos^2 t + sin^2 t / r^2 - 1.
// Its root mean square is 1.74 at r = 0.5 and 2.43 at r = 0.44: outlines get too flat for the residual before they get
// too flat for the size limits.
TEST(CircleFit, FlatOutlineHasTooLargeAResidual) {
  EXPECT_TRUE(fitCircle(outlinePoints({40, 20, 0.3})));
  EXPECT_FALSE(fitCircle(outlinePoints({40, 17.6, 0.3})));
  EXPECT_TRUE(hasDotSize({35.2F, 80}));
}

TEST(CircleFit, TinyAndHugeOutlinesAreRejected) {
  EXPECT_FALSE(fitCircle(outlinePoints({4.9, 4.9})));
  EXPECT_TRUE(fitCircle(outlinePoints({5.1, 5.1})));
  EXPECT_TRUE(fitCircle(outlinePoints({159, 159, 0, 400})));
  EXPECT_FALSE(fitCircle(outlinePoints({161, 161, 0, 400})));
}

TEST(CircleFit, NeighboursMayLieFivePixelsApart) {
  Points square;
  for (const cv::Point2f& p :
       {cv::Point2f(0, 0), {5, 0}, {10, 0}, {15, 5}, {15, 10}, {10, 15}, {5, 15}, {0, 10}, {0, 5}}) {
    square.push_back(p);
  }
  square.insert(square.begin() + 3, {12.5F, 2.5F});
  square.insert(square.begin() + 6, {12.5F, 12.5F});
  square.insert(square.begin() + 9, {2.5F, 12.5F});
  EXPECT_TRUE(fitCircle(square)) << "the widest gaps are 5.0 px";
  square[1].x = 5.01F;
  EXPECT_TRUE(fitCircle({square.begin() + 1, square.end()})) << "the way back to the start is no gap";
  square[0].y = -0.1F;
  EXPECT_FALSE(fitCircle(square));
}

TEST(CircleFit, OutlineMustBeRoundEnough) {
  // Half a circle closed by its diameter: 4 pi (pi r^2 / 2) / (pi r + 2 r)^2 = 0.747; a quarter: 4 pi (r^2 (pi / 4 - 1
  // / 2)) over (r pi / 2 + sqrt(2) r)^2 = 0.403; a fifth is below 0.4.
  EXPECT_TRUE(fitCircle(outlinePoints({20, 20, 0, 200, 0.5})));
  EXPECT_FALSE(fitCircle(outlinePoints({20, 20, 0, 200, 0.2})));
}

TEST(CircleFit, OutlineMustNotBeCaved) {
  // A star of 8 waves: the deeper one covers less than 0.85 of its hull.
  const auto star = [](double depth) {
    Points points;
    for (int i = 0; i < 400; ++i) {
      const double t = 2 * CV_PI * i / 400, r = 30 + depth * std::cos(8 * t);
      points.emplace_back(static_cast<float>(100 + r * std::cos(t)), static_cast<float>(100 + r * std::sin(t)));
    }
    return points;
  };
  EXPECT_TRUE(fitCircle(star(1)));
  EXPECT_FALSE(fitCircle(star(5)));
}

TEST(CircleFit, LineOfPointsIsNoDot) {
  Points line;
  for (int i = 0; i < 40; ++i) line.emplace_back(static_cast<float>(i), 0.5F * static_cast<float>(i));
  EXPECT_FALSE(fitCircle(line));
  EXPECT_FALSE(fitCircle(Points(12, {7, 7})));
}

// Width 20 and height 10, not turned: e of (10, 0) is 100 / 25 - 1 = 3, e of (0, 5) is 25 / 100 - 1 = -0.75.
TEST(AlgebraicResidual, WidthGoesWithYAndHeightWithX) {
  const cv::RotatedRect ellipse({50, 60}, {20, 10}, 0);
  EXPECT_NEAR(algebraicResidual({{60, 60}, {50, 65}}, ellipse), std::sqrt((9 + 0.5625) / 2), 1e-12);
}

// Turned by a right angle the same points lie on it: the width then stands upright for the formula.
TEST(AlgebraicResidual, AngleTurnsThePointsBack) {
  const cv::RotatedRect ellipse({50, 60}, {20, 10}, 90);
  EXPECT_NEAR(algebraicResidual({{60, 60}, {50, 65}}, ellipse), 0, 1e-12);
  // By 30 degrees: the point at 10 px in the direction -60 degrees has X = 0, Y = -10.
  const double t = -60 * CV_PI / 180;
  const cv::Point2f point(static_cast<float>(50 + 10 * std::cos(t)), static_cast<float>(60 + 10 * std::sin(t)));
  EXPECT_NEAR(algebraicResidual({point}, cv::RotatedRect({50, 60}, {20, 10}, 30)), 0, 1e-6);
}

TEST(AlgebraicResidual, NotANumberForAFitThatFailed) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(std::isnan(algebraicResidual({{1, 1}}, cv::RotatedRect({nan, 0}, {20, 20}, 0))));
}

}  // namespace
