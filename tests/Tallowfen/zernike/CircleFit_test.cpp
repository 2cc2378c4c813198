#include "Tallowfen/src/zernike/CircleFit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace {

using kestrune::algebraicMisfit;
using kestrune::dotOfFit;
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

double farthestApart(const cv::RotatedRect& a, const cv::RotatedRect& b) {
  return std::max(cv::norm(a.center - b.center), cv::norm(cv::Point2f(a.size - b.size)));
}

// On an outline that is no ellipse the fits of OpenCV differ; the one meant is that of Fitzgibbon, Pilu and Fisher, in
// its direct form.
TEST(CircleFit, FitIsTheDirectOne) {
  Points points = outlinePoints({30, 22, 0.5, 80});
  for (std::size_t i = 0; i < points.size(); i += 3) points[i] += cv::Point2f(1.2F, -0.7F);
  for (std::size_t i = 0; i < 20; ++i) points[i].y += 1.5F;
  const cv::RotatedRect direct = cv::fitEllipseDirect(points);
  ASSERT_GT(farthestApart(direct, cv::fitEllipse(points)), 0.01);
  ASSERT_GT(farthestApart(direct, cv::fitEllipseAMS(points)), 0.01);
  const auto ellipse = fitCircle(points);
  ASSERT_TRUE(ellipse);
  EXPECT_EQ(ellipse->x, direct.center.x);
  EXPECT_EQ(ellipse->y, direct.center.y);
  EXPECT_EQ(2 * ellipse->semi_a, std::max(direct.size.width, direct.size.height));
  EXPECT_EQ(2 * ellipse->semi_b, std::min(direct.size.width, direct.size.height));
}

class CircleFitTurnedEllipse : public testing::TestWithParam<double> {};

TEST_P(CircleFitTurnedEllipse, AngleIsThatOfTheLongAxis) {
  const double angle = GetParam() * CV_PI / 180;
  const auto ellipse = fitCircle(outlinePoints({30, 18, angle}));
  ASSERT_TRUE(ellipse);
  EXPECT_NEAR(ellipse->semi_a, 30, 0.02);
  EXPECT_NEAR(ellipse->semi_b, 18, 0.02);
  EXPECT_NEAR(std::abs(std::cos(ellipse->angle - angle)), 1, 1e-4);
}

INSTANTIATE_TEST_SUITE_P(Degrees, CircleFitTurnedEllipse, testing::Values(5.0, 30.0, 60.0, 85.0, 100.0, 150.0, 175.0));

TEST(CircleFitDotSize, WidthOfLessThanTwoFifthsOfTheHeightIsFlat) {
  EXPECT_FALSE(hasDotSize({39, 100}));
  EXPECT_TRUE(hasDotSize({40, 100}));
}

TEST(CircleFitDotSize, HeightMayBeAsSmallAsItLikes) {
  EXPECT_TRUE(hasDotSize({100, 40}));
  EXPECT_TRUE(hasDotSize({100, 1}));
}

TEST(CircleFitDotSize, BothSidesDecideOnHugeAndTiny) {
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

// The hull is formed where the fit does not tell already: the answer must be the hull's for all.
TEST(CircleFit, CavedOrNotIsDecidedByTheHull) {
  int taken = 0, refused = 0;
  for (int waves = 3; waves < 12; ++waves) {
    for (double depth = 0; depth < 6; depth += 0.125) {
      Points points;
      for (int i = 0; i < 300; ++i) {
        const double t = 2 * CV_PI * i / 300, r = 30 + depth * std::cos(waves * t);
        points.emplace_back(static_cast<float>(100 + r * std::cos(t)), static_cast<float>(100 + 0.9 * r * std::sin(t)));
      }
      Points hull;
      cv::convexHull(points, hull);
      const bool convex = cv::contourArea(points) / cv::contourArea(hull) >= 0.85;
      ASSERT_EQ(fitCircle(points).has_value(), convex) << waves << " waves of " << depth;
      ++(convex ? taken : refused);
    }
  }
  EXPECT_GT(taken, 100);
  EXPECT_GT(refused, 50);
}

// Eight wide dents to three tenths of the radius: 0.847 of the hull, and 0.77 of the ellipse around, the most that a
// refused outline was found to fill.
TEST(CircleFit, WideDentsAreDecidedByTheHullToo) {
  Points points;
  for (int i = 0; i < 360; ++i) {
    const double t = 2 * CV_PI * i / 360, u = std::remainder(t, CV_PI / 4) / 0.376;
    const double r = 30 * (1 - 0.3 * std::exp(-u * u));
    points.emplace_back(static_cast<float>(100 + r * std::cos(t)), static_cast<float>(100 + r * std::sin(t)));
  }
  Points hull;
  cv::convexHull(points, hull);
  ASSERT_NEAR(cv::contourArea(points) / cv::contourArea(hull), 0.847, 0.002);
  EXPECT_FALSE(fitCircle(points));
}

TEST(CircleFit, LineOfPointsIsNoDot) {
  Points line;
  for (int i = 0; i < 40; ++i) line.emplace_back(static_cast<float>(i), 0.5F * static_cast<float>(i));
  EXPECT_FALSE(fitCircle(line));
  EXPECT_FALSE(fitCircle(Points(12, {7, 7})));
}

/// The polygon with these corners, its points at most 4 px apart.
Points along(const Points& corners) {
  Points points;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const cv::Point2f from = corners[i], way = corners[(i + 1) % corners.size()] - from;
    const auto parts = static_cast<int>(std::ceil(cv::norm(way) / 4));
    for (int k = 0; k < parts; ++k) points.push_back(from + way * (static_cast<float>(k) / static_cast<float>(parts)));
  }
  return points;
}

// A box has pi w h / (w + h)^2, which is 0.4 where it is 0.176123 times as high as wide.
TEST(CircleFitDot, RoundnessMustReachTwoFifths) {
  const auto isTaken = [](float height) {
    const cv::RotatedRect fit({50, height / 2}, {70, 70}, 0);
    return dotOfFit(fit, along({{0, 0}, {100, 0}, {100, height}, {0, height}})).has_value();
  };
  EXPECT_TRUE(isTaken(17.62F));
  EXPECT_FALSE(isTaken(17.60F));
}

// A square of 40 px with a notch of 12 px: 20 deep it has 0.85 of its hull, which is less than 0.85 in single
// precision.
TEST(CircleFitDot, ShareOfTheHullIsComparedInSinglePrecision) {
  const auto isTaken = [](float depth) {
    const float end = 40 - depth;
    const Points notched = along({{0, 0}, {40, 0}, {40, 40}, {26, 40}, {26, end}, {14, end}, {14, 40}, {0, 40}});
    return dotOfFit({{20, 20}, {50, 50}, 0}, notched).has_value();
  };
  EXPECT_FALSE(isTaken(20));
  EXPECT_TRUE(isTaken(20 - 0x1p-5F));
}

// Width 20 and height 10, not turned: e of (10, 0) is 100 / 25 - 1 = 3, e of (0, 5) is 25 / 100 - 1 = -0.75.
TEST(CircleFitAlgebraicMisfit, WidthGoesWithYAndHeightWithX) {
  const cv::RotatedRect ellipse({50, 60}, {20, 10}, 0);
  EXPECT_NEAR(algebraicMisfit({{60, 60}, {50, 65}}, ellipse).residual, std::sqrt((9 + 0.5625) / 2), 1e-12);
}

// Turned by a right angle the same points lie on it: the width then stands upright for the formula.
TEST(CircleFitAlgebraicMisfit, AngleTurnsThePointsBack) {
  const cv::RotatedRect ellipse({50, 60}, {20, 10}, 90);
  EXPECT_NEAR(algebraicMisfit({{60, 60}, {50, 65}}, ellipse).residual, 0, 1e-12);
  // By 30 degrees: the point at 10 px in the direction -60 degrees has X = 0, Y = -10.
  const double t = -60 * CV_PI / 180;
  const cv::Point2f point(static_cast<float>(50 + 10 * std::cos(t)), static_cast<float>(60 + 10 * std::sin(t)));
  EXPECT_NEAR(algebraicMisfit({point}, cv::RotatedRect({50, 60}, {20, 10}, 30)).residual, 0, 1e-6);
}

// The farthest point, at (10, 0), is at 2 in units of the turned axes: an ellipse of four times the area holds it.
TEST(CircleFitAlgebraicMisfit, AreaAroundHoldsTheFarthestPoint) {
  const cv::RotatedRect ellipse({50, 60}, {20, 10}, 0);
  EXPECT_NEAR(algebraicMisfit({{60, 60}, {50, 65}}, ellipse).area_around, 4 * CV_PI * 10 * 5, 1e-9);
  EXPECT_NEAR(algebraicMisfit({{50, 70}}, ellipse).area_around, CV_PI * 10 * 5, 1e-9);
  // Without height, a point straight across has no number, and the other's is beyond all.
  EXPECT_TRUE(std::isinf(algebraicMisfit({{50, 61}, {50, 62}}, {{50, 60}, {40, 0}, 0}).area_around));
  EXPECT_TRUE(std::isinf(algebraicMisfit({{51, 61}, {50, 62}}, {{50, 60}, {40, 0}, 0}).area_around));
}

TEST(CircleFitDot, NothingOfAFitThatIsNotFinite) {
  const Points points = outlinePoints({});
  const cv::RotatedRect good({100.25F, 80.5F}, {40, 40}, 0);
  ASSERT_TRUE(dotOfFit(good, points));
  for (const float bad : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    EXPECT_FALSE(dotOfFit({{bad, 80.5F}, {40, 40}, 0}, points));
    EXPECT_FALSE(dotOfFit({{100.25F, bad}, {40, 40}, 0}, points));
    EXPECT_FALSE(dotOfFit({good.center, {bad, 40}, 0}, points));
    EXPECT_FALSE(dotOfFit({good.center, {40, bad}, 0}, points));
    EXPECT_FALSE(dotOfFit({good.center, {40, 40}, bad}, points));
  }
}

// Evenly around, a fit of r times the radius has e = 1 / r^2 - 1 in every point: 2 at r = sqrt(1 / 3).
TEST(CircleFitDot, ResidualMustNotBeAboveTwo) {
  const Points points = outlinePoints({});
  const auto scaled = [](double r) {
    const auto side = static_cast<float>(40 * r);
    return cv::RotatedRect({100.25F, 80.5F}, {side, side}, 0);
  };
  const double limit = std::sqrt(1.0 / 3);
  EXPECT_TRUE(dotOfFit(scaled(limit + 0.001), points));
  EXPECT_FALSE(dotOfFit(scaled(limit - 0.001), points));
}

// Around (0, 0), with a width and a height of 16, e is (x^2 + y^2 - 64) / 64. The numerators here are 81, 105, 170,
// 217, 105, 82 and 58, whose squares add up to 7 * 128^2: the root mean square of e is 2, without any rounding.
TEST(CircleFitDot, ResidualOfExactlyTwoIsTaken) {
  const Points points = {{12, -1}, {13, 0}, {15, 3}, {16, 5}, {12, 5}, {11, 5}, {11, 1}};
  const cv::RotatedRect fit({0, 0}, {16, 16}, 0);
  ASSERT_EQ(algebraicMisfit(points, fit).residual, 2.0);
  EXPECT_TRUE(dotOfFit(fit, points));
  EXPECT_FALSE(dotOfFit({{0, 0}, {16, std::nextafter(16.0F, 0.0F)}, 0}, points));
}

// Without height, 0 / 0 for points that stand straight across the centre. Such a residual is not above the limit.
TEST(CircleFitDot, ResidualThatIsNotANumberIsNotAboveTheLimit) {
  Points points = outlinePoints({});
  for (auto& p : points) p -= cv::Point2f(100.25F, 80.5F);
  points[25].x = 0;
  const cv::RotatedRect flat({0, 0}, {40, 0}, 0);
  ASSERT_TRUE(std::isnan(algebraicMisfit(points, flat).residual));
  const auto ellipse = dotOfFit(flat, points);
  ASSERT_TRUE(ellipse);
  EXPECT_EQ(ellipse->semi_b, 0);
  points[25].x = 0.5F;
  points[75].x = 0.5F;
  ASSERT_TRUE(std::isinf(algebraicMisfit(points, flat).residual));
  EXPECT_FALSE(dotOfFit(flat, points));
}

TEST(CircleFitAlgebraicMisfit, NotANumberForAFitThatFailed) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(std::isnan(algebraicMisfit({{1, 1}}, cv::RotatedRect({nan, 0}, {20, 20}, 0)).residual));
}

}  // namespace
