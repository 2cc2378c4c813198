#include "Tallowfen/src/numbering/ModelCoordinates.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <opencv2/calib3d.hpp>
#include <utility>

#include "BoardView.h"
#include "Tallowfen/src/ellipses/Centres.h"

namespace {

using kestrune::modelFromImage;
using kestrune::nearestFive;
using kestrune::truncated;

TEST(ModelCoordinatesNearestFive, HalvesGoAwayFromZero) {
  EXPECT_EQ(nearestFive(0.0F), 0);
  EXPECT_EQ(nearestFive(2.4F), 0);
  EXPECT_EQ(nearestFive(2.5F), 5);
  EXPECT_EQ(nearestFive(7.4F), 5);
  EXPECT_EQ(nearestFive(7.5F), 10);
  EXPECT_EQ(nearestFive(12.5F), 15) << "not to the even multiple";
  EXPECT_EQ(nearestFive(-2.4F), 0);
  EXPECT_EQ(nearestFive(-2.5F), -5);
  EXPECT_EQ(nearestFive(-12.5F), -15);
}

TEST(ModelCoordinatesNearestFive, StaysWithinAnInteger) {
  EXPECT_EQ(nearestFive(1e20F), std::numeric_limits<int>::max());
  EXPECT_EQ(nearestFive(-1e20F), std::numeric_limits<int>::min());
  EXPECT_EQ(nearestFive(std::numeric_limits<float>::infinity()), std::numeric_limits<int>::max());
  EXPECT_EQ(nearestFive(std::numeric_limits<float>::quiet_NaN()), std::numeric_limits<int>::min());
}

TEST(ModelCoordinatesTruncated, CutsTheFraction) {
  EXPECT_EQ(truncated(17.5F), 17);
  EXPECT_EQ(truncated(-17.5F), -17);
  EXPECT_EQ(truncated(2147483648.0F), std::numeric_limits<int>::max());
  EXPECT_EQ(truncated(-2147483648.0F), std::numeric_limits<int>::min());
}

TEST(ModelCoordinatesModelFromImage, FourPairsLayEveryDotOnTheModel) {
  const BoardView view(9, 11, tiltedCamera(30, 1, 0.01));
  std::vector<cv::Point2f> image, model;
  for (const auto& [column, row] : {std::pair(0, 0), {10, 0}, {10, 8}, {0, 8}}) {
    image.push_back(kestrune::centreOf(view.all[view.position(column, row)]));
    model.emplace_back(static_cast<float>(column) * 10.0F, static_cast<float>(row) * 10.0F);
  }
  const std::vector<cv::Point2f> mapped = modelFromImage(image, model, view.all);
  ASSERT_EQ(mapped.size(), 99U);
  for (std::size_t i = 0; i < mapped.size(); ++i) {
    EXPECT_NEAR(mapped[i].x, 10.0 * static_cast<double>(i % 11), 0.01);
    EXPECT_NEAR(mapped[i].y, 10.0 * static_cast<double>(i / 11), 0.01);
  }
}

/// Five markers of a board, one of them off its place: a fit that may leave it out follows the other four.
struct OutlyingMarker {
  OutlyingMarker() {
    const BoardView view(9, 11, tiltedCamera(30, 1, 0.01));
    for (const auto& [column, row] : {std::pair(1, 2), {1, 1}, {9, 1}, {9, 7}, {1, 7}}) {
      markers.push_back(view.all[view.position(column, row)]);
      model.emplace_back(static_cast<float>(column) * 10.0F, static_cast<float>(row) * 10.0F);
    }
    markers[0].y += 50;  // The first column runs along x: off its line.
    image = kestrune::centresOf(markers);
  }
  std::vector<kestrune::Ellipse> markers;
  std::vector<cv::Point2f> image, model;
};

double sumOfSquares(const std::vector<cv::Point2f>& mapped, const std::vector<cv::Point2f>& model) {
  double sum = 0;
  for (std::size_t i = 0; i < model.size(); ++i) sum += (mapped[i] - model[i]).ddot(mapped[i] - model[i]);
  return sum;
}

TEST(ModelCoordinatesModelFromImage, OutlyingPairIsNotLeftOut) {
  const OutlyingMarker given;
  const std::vector<cv::Point2f> mapped = modelFromImage(given.image, given.model, given.markers);
  const cv::Mat homography = cv::findHomography(given.image, given.model, 0, 3.0, cv::noArray(), 2000, 0.995);
  std::vector<cv::Point2f> expected;
  cv::perspectiveTransform(given.image, expected, homography);
  EXPECT_EQ(mapped, expected);
  const cv::Mat robust = cv::findHomography(given.image, given.model, cv::RANSAC);
  ASSERT_FALSE(robust.empty());
  cv::perspectiveTransform(given.image, expected, robust);
  EXPECT_GT(sumOfSquares(expected, given.model), 1.1 * sumOfSquares(mapped, given.model));
}

// The least sum of squares: every coefficient of the homography, moved to either side, makes it greater.
TEST(ModelCoordinatesModelFromImage, SquaresInTheModelAreLeast) {
  const OutlyingMarker given;
  const auto mapped = modelFromImage(given.image, given.model, given.markers);
  const cv::Mat_<double> least = cv::findHomography(given.image, mapped);
  for (int i = 0; i < 8; ++i) {
    for (const double factor : {0.999, 1.001}) {
      cv::Mat_<double> moved = least.clone();
      moved(i / 3, i % 3) *= factor;
      std::vector<cv::Point2f> there;
      cv::perspectiveTransform(given.image, there, moved);
      EXPECT_GT(sumOfSquares(there, given.model), sumOfSquares(mapped, given.model)) << i << ", " << factor;
    }
  }
}

}  // namespace
