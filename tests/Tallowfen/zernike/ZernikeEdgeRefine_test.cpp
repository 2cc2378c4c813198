#include "Tallowfen/src/zernike/ZernikeEdgeRefine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <vector>

#include "StepImage.h"

namespace {

using kestrune::edgePoint;
using kestrune::ZernikeEdgeRefine;
using Contour = std::vector<cv::Point>;
using EdgePoints = std::vector<std::vector<cv::Point2d>>;

constexpr int kSide = 31;
constexpr int kCentre = 15;

// Eight times the same point, since fewer make no contour.
EdgePoints refineAt(const cv::Mat& image, cv::Point point) { return ZernikeEdgeRefine(image, {Contour(8, point)}, 7); }

class ZernikeEdgeRefineStepEdge : public testing::TestWithParam<std::tuple<double, double>> {};

// The moments are those of the unit disk, the pixels are squares that stand out of it: this leaves less than 0.08 px
// near the point. What has to hold is that the point lies on the edge, straight across from where the contour
// was.
TEST_P(ZernikeEdgeRefineStepEdge, IsFoundToAFractionOfAPixel) {
  const auto [distance, degrees] = GetParam();
  const double angle = degrees * CV_PI / 180;
  const EdgePoints edges = refineAt(renderStep(kSide, distance, angle, 40, 200), {kCentre, kCentre});
  ASSERT_EQ(edges.size(), 1U);
  const cv::Point2d offset = edges[0][0] - cv::Point2d(kCentre, kCentre);
  const double along = offset.x * std::cos(angle) + offset.y * std::sin(angle);
  const double aside = -offset.x * std::sin(angle) + offset.y * std::cos(angle);
  EXPECT_NEAR(along, distance, 0.08);
  EXPECT_NEAR(aside, 0, 0.08);
}

INSTANTIATE_TEST_SUITE_P(DistancesAndDirections, ZernikeEdgeRefineStepEdge,
                         testing::Combine(testing::Values(-1.3, -0.6, -0.25, 0.0, 0.1, 0.4, 0.8, 1.2),
                                          testing::Values(0.0, 17.0, 45.0, 90.0, 135.0, 180.0, 211.0, 270.0, 330.0)));

// Columns 0 and on to the right of the centre are bright. With x the cell's column centre, only the bright columns'
// sums count: l = sum M_20 / sum M_x over them plus the dark ones' share of M_20 (M_x sums to zero over all).
TEST(ZernikeEdgeRefine, StepBetweenPixelsByHand) {
  cv::Mat image(kSide, kSide, CV_8UC1, cv::Scalar(0));
  image.colRange(kCentre + 1, kSide).setTo(100);
  // Columns 5, 6 and 7 of the mask. Inner cells are (2/7)^2 large with X = 2/7, 4/7; the last column reaches to the
  // circle.
  const double c = 2.0 / 7, area = c * c;
  double mx = 0, m20 = 0;
  for (const int column : {1, 2}) {
    for (const int row : {-2, -1, 0, 1, 2}) {
      const double x = column * c, y = row * c;
      mx += x * area;
      m20 += (2 * (x * x + y * y) + c * c / 3 - 1) * area;
    }
    // First and last row: y from 5/7 to the circle, twice.
    const double a = column * c - c / 2, b = column * c + c / 2, y0 = 5.0 / 7;
    const auto circle = [](double x) { return std::sqrt(1 - x * x); };
    mx += 2 * ((-std::pow(circle(b), 3) + std::pow(circle(a), 3)) / 3 - y0 * (b * b - a * a) / 2);
    constexpr int kParts = 2000;
    for (int i = 0; i < kParts; ++i) {
      const double x = a + (b - a) * (i + 0.5) / kParts, y1 = circle(x);
      m20 += 2 * ((2 * x * x - 1) * (y1 - y0) + 2 * (y1 * y1 * y1 - y0 * y0 * y0) / 3) * (b - a) / kParts;
    }
  }
  constexpr int kParts = 20000;
  for (int i = 0; i < kParts; ++i) {
    const double y = -5.0 / 7 + 10.0 / 7 * (i + 0.5) / kParts, x0 = 5.0 / 7, x1 = std::sqrt(1 - y * y);
    mx += (x1 * x1 - x0 * x0) / 2 * (10.0 / 7) / kParts;
    m20 += ((2 * y * y - 1) * (x1 - x0) + 2 * (x1 * x1 * x1 - x0 * x0 * x0) / 3) * (10.0 / 7) / kParts;
  }
  const EdgePoints edges = refineAt(image, {kCentre, kCentre});
  ASSERT_EQ(edges.size(), 1U);
  EXPECT_NEAR(edges[0][0].x, kCentre + 3.5 * m20 / mx, 1e-6);
  EXPECT_NEAR(edges[0][0].y, kCentre, 1e-9);
}

// A step of height d has k near d. The limit is 1.27.
TEST(ZernikeEdgeRefine, WeakStepsGiveNoEdge) {
  EXPECT_TRUE(refineAt(renderStep(kSide, 0.5, 0, 100, 101), {kCentre, kCentre}).empty());
  EXPECT_FALSE(refineAt(renderStep(kSide, 0.5, 0, 100, 102), {kCentre, kCentre}).empty());
  EXPECT_TRUE(refineAt(cv::Mat(kSide, kSide, CV_8UC1, cv::Scalar(0)), {kCentre, kCentre}).empty());
}

// 1 / sqrt(2) of 3.5 px is 2.47 px.
TEST(ZernikeEdgeRefine, StepsTooFarFromThePointGiveNoEdge) {
  for (const double direction : {0.0, CV_PI / 2, CV_PI}) {
    EXPECT_FALSE(refineAt(renderStep(kSide, 2.2, direction, 40, 200), {kCentre, kCentre}).empty());
    EXPECT_TRUE(refineAt(renderStep(kSide, 2.7, direction, 40, 200), {kCentre, kCentre}).empty());
  }
}

// Without a radial moment the edge passes through the point and k is 1.5 times the first moment.
TEST(ZernikeEdgeRefineEdgePoint, StepMustBeAboveTheLimit) {
  const auto isTaken = [](double x) { return edgePoint({15, 15}, {x, 0, 0}, 7).has_value(); };
  double limit = 1.27 / 1.5;
  while (limit * 1.5 < 1.27) limit = std::nextafter(limit, 1.0);
  while (limit * 1.5 > 1.27) limit = std::nextafter(limit, 0.0);
  ASSERT_EQ(limit * 1.5, 1.27);
  double above = limit, below = limit;
  while (above * 1.5 == 1.27) above = std::nextafter(above, 1.0);
  while (below * 1.5 == 1.27) below = std::nextafter(below, 0.0);
  EXPECT_FALSE(isTaken(below));
  EXPECT_FALSE(isTaken(limit));
  EXPECT_TRUE(isTaken(above));
}

// Off the point, k grows by 1 / (1 - l^2)^1.5: at l = 0.6 that is 1 / 0.512.
TEST(ZernikeEdgeRefineEdgePoint, StepIsMeasuredAtItsDistance) {
  const auto isTaken = [](double k) {
    const double x = k * 0.512 / 1.5;
    return edgePoint({15, 15}, {0, x, 0.6 * x}, 7).has_value();
  };
  EXPECT_FALSE(isTaken(1.27 - 1e-9));
  EXPECT_TRUE(isTaken(1.27 + 1e-9));
}

// A first moment of 8 leaves the quotient exact.
TEST(ZernikeEdgeRefineEdgePoint, DistanceMustBeBelowTheLimit) {
  const auto isTaken = [](double l) { return edgePoint({15, 15}, {8, 0, 8 * l}, 7).has_value(); };
  const double limit = 1 / std::sqrt(2.0);
  for (const double sign : {-1.0, 1.0}) {
    EXPECT_TRUE(isTaken(sign * std::nextafter(limit, 0.0)));
    EXPECT_FALSE(isTaken(sign * limit));
    EXPECT_FALSE(isTaken(sign * std::nextafter(limit, 1.0)));
  }
}

// The first moment (3, 4) is 5 long in the direction (0.6, 0.8); l = 2.5 / 5, half of the 3.5 px.
TEST(ZernikeEdgeRefineEdgePoint, LiesAlongTheFirstMoment) {
  const auto edge = edgePoint({15, 20}, {3, 4, 2.5}, 7);
  ASSERT_TRUE(edge);
  EXPECT_NEAR(edge->x, 15 + 0.6 * 1.75, 1e-12);
  EXPECT_NEAR(edge->y, 20 + 0.8 * 1.75, 1e-12);
}

TEST(ZernikeEdgeRefineEdgePoint, FlatNeighbourhoodHasNone) {
  EXPECT_FALSE(edgePoint({15, 15}, {0, 0, 0}, 7));
  EXPECT_FALSE(edgePoint({15, 15}, {0, 0, 3}, 7));
}

struct BorderCase {
  cv::Point point;
  bool taken;
};

class ZernikeEdgeRefineBorderPoint : public testing::TestWithParam<BorderCase> {};

// Bright wherever x + y is large, so that an edge passes each of the points tried.
TEST_P(ZernikeEdgeRefineBorderPoint, NeedsFourPixelsToTheEdgeOfTheImage) {
  const cv::Point point = GetParam().point;
  const cv::Mat image =
      renderShape({40, 30}, 200, 40, [&](double x, double y) { return x + y > point.x + point.y + 0.3; });
  EXPECT_EQ(refineAt(image, point).size(), GetParam().taken ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(AllSides, ZernikeEdgeRefineBorderPoint,
                         testing::Values(BorderCase{{4, 15}, true}, BorderCase{{3, 15}, false},
                                         BorderCase{{20, 4}, true}, BorderCase{{20, 3}, false},
                                         BorderCase{{35, 15}, true}, BorderCase{{36, 15}, false},
                                         BorderCase{{20, 25}, true}, BorderCase{{20, 26}, false},
                                         BorderCase{{0, 0}, false}, BorderCase{{39, 29}, false}));

TEST(ZernikeEdgeRefine, ContoursOfFewerThanEightEdgePointsAreLeftOut) {
  const cv::Mat image = renderStep(kSide, 0.3, 0, 40, 200);
  const cv::Point good(kCentre, kCentre), bad(2, 2);
  Contour seven(7, good), eight(8, good);
  seven.insert(seven.end(), 20, bad);
  eight.insert(eight.begin(), 20, bad);
  const EdgePoints edges = ZernikeEdgeRefine(image, {seven, eight, Contour{}}, 7);
  ASSERT_EQ(edges.size(), 1U);
  EXPECT_EQ(edges[0].size(), 8U);
}

TEST(ZernikeEdgeRefine, OrderOfThePointsIsKept) {
  const cv::Mat image = renderStep(kSide, 0.3, 0, 40, 200);
  Contour contour;
  for (int y = 8; y < 20; ++y) contour.emplace_back(kCentre, y);
  const EdgePoints edges = ZernikeEdgeRefine(image, {contour}, 7);
  ASSERT_EQ(edges.size(), 1U);
  ASSERT_EQ(edges[0].size(), contour.size());
  for (std::size_t i = 0; i < contour.size(); ++i) EXPECT_NEAR(edges[0][i].y, contour[i].y, 1e-9);
}

// Four points are taken at once: each gets the edge that it has alone, however many there are.
TEST(ZernikeEdgeRefine, EachPointHasItsOwnEdge) {
  const cv::Mat image = renderStep(kSide, 0.3, 0.4, 40, 200);
  Contour contour;
  for (int k = 0; k < 11; ++k) {
    contour.emplace_back(kCentre + k % 2, 10 + k);
    if (contour.size() < 8) continue;
    const EdgePoints edges = ZernikeEdgeRefine(image, {contour}, 7);
    ASSERT_EQ(edges.size(), 1U);
    ASSERT_EQ(edges[0].size(), contour.size());
    for (std::size_t i = 0; i < contour.size(); ++i) {
      const EdgePoints alone = refineAt(image, contour[i]);
      ASSERT_EQ(alone.size(), 1U);
      EXPECT_EQ(edges[0][i], alone[0][0]) << i << " of " << contour.size();
    }
  }
}

TEST(ZernikeEdgeRefine, APartOfAWiderPictureIsAPicture) {
  const cv::Mat image = renderStep(kSide, 0.3, 0.4, 40, 200);
  cv::Mat wider(kSide + 5, kSide + 9, CV_8UC1, cv::Scalar(77));
  cv::Mat part = wider(cv::Rect(4, 2, kSide, kSide));
  image.copyTo(part);
  EXPECT_EQ(refineAt(part, {kCentre, kCentre}), refineAt(image, {kCentre, kCentre}));
}

}  // namespace
