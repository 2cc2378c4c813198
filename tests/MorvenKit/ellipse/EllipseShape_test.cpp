#include "MorvenKit/src/ellipse/EllipseShape.h"

#include <gtest/gtest.h>

#include <limits>

using namespace kestrune::morvenkit;

namespace {

Ellipse<double> axes(double a, double b) {
  Ellipse<double> result;
  result.semi_a = a;
  result.semi_b = b;
  return result;
}

}  // namespace

TEST(EllipseShape, CircularityOfACircleIsOne) { EXPECT_FLOAT_EQ(ellipseCircularity(axes(7, 7)), 1.0F); }

TEST(EllipseShape, CircularityByHand) {
  // Perimeter 4 * 4 + 2 pi * 6 = 53.699112, area 60 pi: 4 pi * 60 pi / 2883.5946.
  EXPECT_NEAR(ellipseCircularity(axes(10, 6)), 0.821442, 1e-6);
  // With the longer axis second the difference counts negative: perimeter 46.831853.
  EXPECT_NEAR(ellipseCircularity(axes(6, 10)), 1.080011, 1e-6);
}

TEST(EllipseShape, CircularityIsOfSinglePrecision) {
  // One rounding after the other; in double the two are 1 and 0.84489798.
  EXPECT_EQ(ellipseCircularity(axes(7, 7)), 0.99999994F);
  EXPECT_EQ(ellipseCircularity(axes(11, 7)), 0.84489793F);
}

TEST(EllipseShape, CircularityWithoutPerimeterIsOne) {
  EXPECT_EQ(ellipseCircularity(axes(0, 0)), 1.0F);
  EXPECT_EQ(ellipseCircularity(axes(1e-8, 1e-8)), 1.0F);
  EXPECT_NE(ellipseCircularity(axes(1e-6, 0.5e-6)), 1.0F);
}

namespace {

Ellipse<double> box(double x, double y, double a, double b) {
  Ellipse<double> result = axes(a, b);
  result.x = x;
  result.y = y;
  return result;
}

}  // namespace

TEST(EllipseShape, BoxMayReachZeroAndTheNumberOfColumnsAndRows) {
  const cv::Size image(160, 120);
  EXPECT_TRUE(liesWithin(box(80, 60, 80, 60), image));
  EXPECT_FALSE(liesWithin(box(80, 60, 80.25, 60), image));
  EXPECT_FALSE(liesWithin(box(80, 60, 80, 60.25), image));
  EXPECT_FALSE(liesWithin(box(79.75, 60, 80, 60), image)) << "left";
  EXPECT_FALSE(liesWithin(box(80.25, 60, 80, 60), image)) << "right";
  EXPECT_FALSE(liesWithin(box(80, 59.75, 80, 60), image)) << "above";
  EXPECT_FALSE(liesWithin(box(80, 60.25, 80, 60), image)) << "below";
}

TEST(EllipseShape, BoxStandsUprightWhateverTheOrientation) {
  Ellipse<double> turned = box(80, 12, 40, 10);
  turned.angle = 1.5;
  EXPECT_TRUE(liesWithin(turned, {160, 120}));
}

TEST(EllipseShape, WholeAxisRatio) {
  EXPECT_EQ(wholeAxisRatio(axes(11.9, 6.0)), 1);
  EXPECT_EQ(wholeAxisRatio(axes(13.8, 6.9)), 2);
  EXPECT_EQ(wholeAxisRatio(axes(6.9, 12.5)), 2);
  EXPECT_EQ(wholeAxisRatio(axes(1.99, 1.0)), 1);
  EXPECT_EQ(wholeAxisRatio(axes(2147483647.0, 1.0)), 2147483647);
}

TEST(EllipseShape, WholeAxisRatioOfNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(wholeAxisRatio(axes(5, 0.99)), std::nullopt);
  EXPECT_EQ(wholeAxisRatio(axes(0, 0)), std::nullopt);
  EXPECT_EQ(wholeAxisRatio(axes(nan, 5)), std::nullopt);
  EXPECT_EQ(wholeAxisRatio(axes(5, nan)), std::nullopt);
  EXPECT_EQ(wholeAxisRatio(axes(1e12, 5)), std::nullopt);
  EXPECT_EQ(wholeAxisRatio(axes(2147483648.0, 5)), std::nullopt);
}
