#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "Drawing.h"
#include "MorvenKit/Ellipse.h"

using kestrune::morvenkit::Ellipse;
using kestrune::morvenkit::fitEllipseRobust;

namespace {

using Points = std::vector<cv::Point2f>;

/// Centre of the least squares conic x^2 + B x y + C y^2 + D x + E y + F = 0 with scaled coordinates, solved by
/// elimination with pivoting on the augmented normal equations. `scaled` gives the figures of the scale, `fitted` the
/// equations.
cv::Point2d conicCentre(const Points& scaled, const Points& fitted) {
  long double mx = 0, my = 0, xx = 0, yy = 0;
  const auto n = static_cast<long double>(scaled.size());
  for (const auto& p : scaled) {
    mx += p.x / n;
    my += p.y / n;
  }
  for (const auto& p : scaled) {
    xx += (p.x - mx) * (p.x - mx) / n;
    yy += (p.y - my) * (p.y - my) / n;
  }
  const long double sx = std::sqrt(xx), sy = std::sqrt(yy);
  std::array<std::array<long double, 6>, 5> m{};
  for (const auto& p : fitted) {
    const long double u = (p.x - mx) / sx, v = (p.y - my) / sy;
    const std::array<long double, 6> row = {u * v, v * v, u, v, 1, -u * u};
    for (std::size_t i = 0; i < 5; ++i) {
      for (std::size_t j = 0; j < 6; ++j) m[i][j] += row[i] * row[j];
    }
  }
  for (std::size_t k = 0; k < 5; ++k) {
    std::size_t pivot = k;
    for (std::size_t i = k; i < 5; ++i) {
      if (std::abs(m[i][k]) > std::abs(m[pivot][k])) pivot = i;
    }
    std::swap(m[k], m[pivot]);
    for (std::size_t i = 0; i < 5; ++i) {
      if (i == k) continue;
      const long double factor = m[i][k] / m[k][k];
      for (std::size_t j = 0; j < 6; ++j) m[i][j] -= factor * m[k][j];
    }
  }
  const auto c = [&m](std::size_t k) { return m[k][5] / m[k][k]; };
  // The gradient vanishes: 2 u + B v + D = 0, B u + 2 C v + E = 0.
  const long double det = 4 * c(1) - c(0) * c(0);
  const long double u = (c(0) * c(3) - 2 * c(1) * c(2)) / det, v = (c(0) * c(2) - 2 * c(3)) / det;
  return {static_cast<double>(mx + sx * u), static_cast<double>(my + sy * v)};
}

const drawing::Outline kTruth{40.3, 52.7, 14.0, 9.0, 0.4};

/// 24 points of the ellipse; the one at `where` lies `off` pixels further out.
Points withOutlier(std::size_t where, double off) {
  Points points = kTruth.points(24);
  const cv::Point2d centre(kTruth.x, kTruth.y);
  const cv::Point2d ray = cv::Point2d(points[where]) - centre;
  const cv::Point2d moved = centre + ray * (1.0 + off / cv::norm(ray));
  points[where] = cv::Point2f(static_cast<float>(moved.x), static_cast<float>(moved.y));
  return points;
}

}  // namespace

TEST(EllipseFit, DefaultsOfAnEllipse) {
  const Ellipse<double> e;
  EXPECT_EQ(e.x, 0.0);
  EXPECT_EQ(e.y, 0.0);
  EXPECT_EQ(e.id, -1);
  EXPECT_EQ(e.flag, 0);
  EXPECT_EQ(e.point_class, 255);
  EXPECT_EQ(e.semi_a, 0.0);
  EXPECT_EQ(e.semi_b, 0.0);
  EXPECT_EQ(e.angle, 0.0);
  EXPECT_EQ(e.sigma, -1.0);
  EXPECT_EQ(e.roundness, 0.0);
  EXPECT_TRUE(e.edge_points.empty());
}

TEST(EllipseFit, FewerThanFivePointsStayDefault) {
  for (const std::size_t count : {0U, 1U, 4U}) {
    Points points = kTruth.points(24);
    points.resize(count);
    const Ellipse<double> e = fitEllipseRobust(points);
    EXPECT_EQ(e.sigma, -1.0);
    EXPECT_EQ(e.semi_a, 0.0);
    EXPECT_EQ(e.x, 0.0);
    EXPECT_EQ(e.edge_points, points);
  }
}

TEST(EllipseFit, FivePointsSuffice) {
  Points points = kTruth.points(5);
  const Ellipse<double> e = fitEllipseRobust(points);
  EXPECT_NEAR(e.x, kTruth.x, 1e-4);
  EXPECT_NEAR(e.semi_a, kTruth.a, 1e-3);
}

class EllipseFitTurned : public testing::TestWithParam<double> {};

TEST_P(EllipseFitTurned, GeometryComesBack) {
  drawing::Outline truth = kTruth;
  truth.angle = GetParam();
  const Points points = truth.points(60);
  const Ellipse<double> e = fitEllipseRobust(points);
  EXPECT_NEAR(e.x, truth.x, 1e-5);
  EXPECT_NEAR(e.y, truth.y, 1e-5);
  EXPECT_NEAR(e.semi_a, truth.a, 1e-5);
  EXPECT_NEAR(e.semi_b, truth.b, 1e-5);
  EXPECT_NEAR(e.angle, truth.angle, 1e-5);
  EXPECT_GT(e.sigma, 0.0);
  EXPECT_LT(e.sigma, 1e-5);
  EXPECT_EQ(e.edge_points, points);
}

INSTANTIATE_TEST_SUITE_P(Angles, EllipseFitTurned, testing::Values(-1.2, -0.4, 0.3, 0.9, 1.5));

TEST(EllipseFit, PointsExactlyOnACircleGiveSigmaZero) {
  // Multiples of 3-4-5 triangles are exact in floats.
  Points points;
  for (const auto& [x, y] : std::vector<std::pair<float, float>>{
           {5, 0}, {4, 3}, {3, 4}, {0, 5}, {-3, 4}, {-4, 3}, {-5, 0}, {-4, -3}, {-3, -4}, {0, -5}, {3, -4}, {4, -3}}) {
    points.emplace_back(10 + x / 16, 20 + y / 16);
  }
  const Ellipse<double> e = fitEllipseRobust(points);
  EXPECT_EQ(e.sigma, 0.0);
  EXPECT_NEAR(e.semi_a, 5.0 / 16, 1e-12);
  EXPECT_NEAR(e.x, 10.0, 1e-12);
}

TEST(EllipseFit, SymmetricPixelCircleIsFitted) {
  Points points;
  for (const cv::Point& p : drawing::discContour(30, 30, 12)) points.emplace_back(p);
  const Ellipse<double> e = fitEllipseRobust(points);
  EXPECT_GT(e.sigma, 0.0);
  EXPECT_LT(e.sigma, 0.6);
  EXPECT_NEAR(e.x, 30.0, 1e-9);
}

TEST(EllipseFit, OneOutlierOfRmsAboveOneFails) {
  const Ellipse<double> e = fitEllipseRobust(withOutlier(5, 12.0));
  EXPECT_EQ(e.sigma, -1.0);
  EXPECT_GT(e.semi_a, 0.0);
}

TEST(EllipseFit, SecondPassFitsTheFirstPointsOfTheWholeList) {
  // The outlier stands first, so the second pass still holds it and does without the last point instead.
  const Points points = withOutlier(0, 2.0);
  const Ellipse<double> e = fitEllipseRobust(points);
  const Points first(points.begin(), points.end() - 1);
  const Points kept(points.begin() + 1, points.end());
  const cv::Point2d expected = conicCentre(points, first);
  EXPECT_NEAR(e.x, expected.x, 1e-5);
  EXPECT_NEAR(e.y, expected.y, 1e-5);
  const cv::Point2d allPoints = conicCentre(points, points), keptPoints = conicCentre(points, kept);
  EXPECT_GT(std::hypot(e.x - allPoints.x, e.y - allPoints.y), 1e-3);
  EXPECT_GT(std::hypot(e.x - keptPoints.x, e.y - keptPoints.y), 1e-3);
}

TEST(EllipseFit, OutlierAtTheEndIsGoneInTheSecondPass) {
  const Points points = withOutlier(23, 2.0);
  const Ellipse<double> e = fitEllipseRobust(points);
  EXPECT_NEAR(e.x, kTruth.x, 1e-4);
  EXPECT_NEAR(e.y, kTruth.y, 1e-4);
  EXPECT_LT(e.sigma, 1e-4);
  EXPECT_EQ(e.edge_points.size(), 24U);
}

TEST(EllipseFit, SecondPassScalesByAllPoints) {
  // The conic is normalised by its u^2 term, so the scale matters as soon as the fit is not exact.
  Points points = withOutlier(23, 2.0);
  for (std::size_t i = 0; i < 20; i += 2) points[i].x += 0.2F;
  const Ellipse<double> e = fitEllipseRobust(points);
  const Points first(points.begin(), points.end() - 1);
  const cv::Point2d expected = conicCentre(points, first);
  EXPECT_NEAR(e.x, expected.x, 1e-5);
  EXPECT_NEAR(e.y, expected.y, 1e-5);
}

TEST(EllipseFit, PointsOnAVerticalLineAreNoFit) {
  Points points;
  for (int i = 0; i < 12; ++i) points.emplace_back(7.0F, static_cast<float>(i));
  EXPECT_FALSE(fitEllipseRobust(points).sigma > 0.0);
}
