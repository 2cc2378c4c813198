#include "polar/geometry/FourPointMethod.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using four_points::Measured;
using four_points::Truth;

TEST(FourPointMethod, MissingIsTheTruncatedSum) {
  Measured points = {cv::Point3f(5, 0, 0), cv::Point3f(5, 0, 0), cv::Point3f(5, 0, 0), cv::Point3f(5, 0, 0)};
  EXPECT_EQ(four_points::firstMissing(points, 0), -1);
  points[2] = {3.0F, -2.5F, 0.25F};  // 0.75
  EXPECT_EQ(four_points::firstMissing(points, 0), 2) << "a real point whose sum truncates to 0 counts as missing";
  points[1] = {-4.0F, 3.0F, 0.25F};  // -0.75 truncates towards zero
  EXPECT_EQ(four_points::firstMissing(points, 0), 1);
  points[1] = {1.0F, 0.0F, 0.0F};
  points[2] = {-1.0F, 0.0F, 0.0F};
  EXPECT_EQ(four_points::firstMissing(points, 0), -1);
}

TEST(FourPointMethod, PolynomialFormTakesThirty) {
  Measured points = {cv::Point3f(0, 0, 0), cv::Point3f(10, 10, 11), cv::Point3f(10, 10, 10.9F),
                     cv::Point3f(10, 10, 10)};
  EXPECT_EQ(four_points::firstMissing(points, 30), 2);
}

TEST(FourPointMethod, CoordinatesBeyondAnIntegerAreNotMissing) {
  const Measured points = {cv::Point3f(1e30F, 0, 0), cv::Point3f(1e30F, 0, 0), cv::Point3f(-1e30F, 0, 0),
                           cv::Point3f(0, 0, 1e30F)};
  EXPECT_EQ(four_points::firstMissing(points, 0), -1);
}

TEST(FourPointMethod, TextNamesThePointFromOne) {
  EXPECT_EQ(four_points::missingText(0), "Fail detect foursix method point1");
  EXPECT_EQ(four_points::missingText(3), "Fail detect foursix method point4");
}

TEST(FourPointMethod, ErrorsAreMeasuredLessTrueInTheOrderOfThePairs) {
  // Measured rectangle 3 x 4, true rectangle 6 x 8: lengths 3, 4, 4, 3 and two diagonals of 5, against the double.
  const Measured points = {cv::Point3f(0, 0, 9), cv::Point3f(3, 0, 9), cv::Point3f(0, 4, 9), cv::Point3f(3, 4, 9)};
  const Truth truth = {{{0, 0, 0}, {6, 0, 0}, {0, 8, 0}, {6, 8, 0}}};
  EXPECT_EQ(four_points::distanceErrors(points, truth), (std::array<float, 6>{-3, -4, -4, -3, -5, -5}));
}

TEST(FourPointMethod, SquaresAreSummedInSinglePrecision) {
  // 4096^2 + 1 needs 25 bits: the small square is lost in single precision.
  const Measured points = {cv::Point3f(0, 0, 0), cv::Point3f(4096, 1, 0), cv::Point3f(0, 0, 0), cv::Point3f(0, 0, 0)};
  const Truth truth = {{{0, 0, 0}, {4096, 0, 0}, {0, 0, 0}, {0, 0, 0}}};
  EXPECT_EQ(four_points::distanceErrors(points, truth)[0], 0.0F);
}

TEST(FourPointMethod, TruthWithoutThreeValuesIsAnError) {
  EXPECT_THROW(four_points::distanceErrors(Measured{}, Truth{}), std::out_of_range);
}

TEST(FourPointMethod, LargeAndOriginErrorsBecomeAConstant) {
  const Measured points = {cv::Point3f(0, 0, 0), cv::Point3f(1, 0, 0), cv::Point3f(2, 0, 0), cv::Point3f(3, 0, 0)};
  std::array<float, 6> errors = {1, 2, 100.0F, 100.5F, 3, -500};
  four_points::replaceImplausible(points, errors);
  // 1-2, 1-3 and 1-4 touch the origin; 2-4 is exactly 100 and stays, 3-4 is above; -500 stays, the sign counts.
  EXPECT_EQ(errors, (std::array<float, 6>{0.001F, 0.001F, 100.0F, 0.001F, 0.001F, -500}));
}

TEST(FourPointMethod, ExtremesKeepTheirSignAndTheFirstOfEqualsWins) {
  EXPECT_EQ(four_points::withExtremes({2, -1, 1, -7, 7, 3}), (std::array<float, 8>{2, -1, 1, -7, 7, 3, -1, -7}));
}

}  // namespace
