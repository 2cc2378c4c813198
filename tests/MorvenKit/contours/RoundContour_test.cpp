#include "MorvenKit/src/contours/RoundContour.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "Drawing.h"

using namespace kestrune::morvenkit;

namespace {

/// `count` points once around a circle, rounded to pixels.
Contour circle(int count, double r = 100.0) {
  Contour contour;
  for (int i = 0; i < count; ++i) {
    const double t = 2.0 * std::numbers::pi * i / count;
    contour.emplace_back(static_cast<int>(std::lround(200 + r * std::cos(t))),
                         static_cast<int>(std::lround(200 + r * std::sin(t))));
  }
  return contour;
}

const Contour kSquare = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

}  // namespace

TEST(RoundContour, CircularityOfASquareIsAQuarterOfPi) {
  EXPECT_DOUBLE_EQ(contourCircularity(kSquare), std::numbers::pi / 4);
}

TEST(RoundContour, DirectionDoesNotMatter) {
  EXPECT_DOUBLE_EQ(contourCircularity({kSquare.rbegin(), kSquare.rend()}), std::numbers::pi / 4);
}

TEST(RoundContour, CircularityLimitIsExclusive) {
  EllipseDetectorParams params;
  params.min_circularity = contourCircularity(kSquare);
  EXPECT_FALSE(isRoundContour(kSquare, params));
  params.min_circularity = std::nextafter(params.min_circularity, 0.0);
  EXPECT_TRUE(isRoundContour(kSquare, params));
}

TEST(RoundContour, LengthLimitIsExclusive) {
  EllipseDetectorParams params;  // 50 * 8.5 = 425
  EXPECT_TRUE(isRoundContour(circle(424), params));
  EXPECT_FALSE(isRoundContour(circle(425), params));
  params.max_radius = 50.05;  // 425.425
  EXPECT_TRUE(isRoundContour(circle(425), params));
}

TEST(RoundContour, ASinglePointIsNotRound) {
  EllipseDetectorParams params;
  params.min_circularity = -1.0;
  EXPECT_FALSE(isRoundContour({{5, 5}}, params));
}

TEST(RoundContour, FirstChildMustBeRound) {
  ContourTree tree;
  tree.contours = {circle(60), circle(40, 6), {{0, 0}, {30, 0}, {30, 1}, {0, 1}}};
  tree.hierarchy = {{-1, -1, 1, -1}, {2, -1, -1, 0}, {-1, 1, -1, 0}};
  const EllipseDetectorParams params;
  EXPECT_EQ(roundChild(tree, 0, params), 1);
  EXPECT_EQ(roundChild(tree, 1, params), std::nullopt);
  tree.hierarchy[0][2] = 2;
  EXPECT_EQ(roundChild(tree, 0, params), std::nullopt);
}

TEST(RoundContour, ContourZeroIsNobodysChild) {
  ContourTree tree;
  tree.contours = {circle(60), circle(40, 6)};
  tree.hierarchy = {{-1, -1, -1, 1}, {-1, -1, 0, -1}};
  EXPECT_EQ(roundChild(tree, 1, {}), std::nullopt);
}
