#include "MorvenKit/src/contours/RefineSubPixel.h"

#include <gtest/gtest.h>

using kestrune::morvenkit::Contour;
using kestrune::morvenkit::RefineSubPixel;

namespace {

using Points = std::vector<cv::Point2f>;

/// Level 100 at (0, 0); (2, 2) and its four neighbours as told, 100 elsewhere.
cv::Mat cross(int centre, int right, int left, int below, int above) {
  cv::Mat image(5, 5, CV_8UC1, cv::Scalar(100));
  image.at<uchar>(2, 2) = static_cast<uchar>(centre);
  image.at<uchar>(2, 3) = static_cast<uchar>(right);
  image.at<uchar>(2, 1) = static_cast<uchar>(left);
  image.at<uchar>(3, 2) = static_cast<uchar>(below);
  image.at<uchar>(1, 2) = static_cast<uchar>(above);
  return image;
}

const Contour kOriginAndCentre = {{0, 0}, {2, 2}};

}  // namespace

struct RefineCase {
  const char* name;
  int centre, right, left, below, above;
  cv::Point2f expected;
};

class RefineSubPixelCentre : public testing::TestWithParam<RefineCase> {};

TEST_P(RefineSubPixelCentre, ByHand) {
  const RefineCase& c = GetParam();
  const Points refined = RefineSubPixel(kOriginAndCentre, cross(c.centre, c.right, c.left, c.below, c.above));
  EXPECT_EQ(refined, (Points{{0, 0}, c.expected}));
}

INSTANTIATE_TEST_SUITE_P(Neighbours, RefineSubPixelCentre,
                         testing::Values(RefineCase{"AtTheLevelStays", 100, 200, 0, 200, 0, {2, 2}},
                                         RefineCase{"DarkTakesTheRightFirst", 80, 120, 200, 200, 200, {2.5F, 2}},
                                         RefineCase{"DarkTakesTheLeftSecond", 80, 90, 180, 200, 200, {1.8F, 2}},
                                         RefineCase{"DarkTakesBelowThird", 80, 90, 90, 120, 200, {2, 2.5F}},
                                         RefineCase{"DarkTakesAboveLast", 80, 90, 90, 90, 180, {2, 1.8F}},
                                         RefineCase{"DarkWithoutBrighterStays", 80, 90, 90, 90, 90, {2, 2}},
                                         RefineCase{"DarkNeverMovesToTheLevel", 80, 100, 100, 100, 100, {2, 2}},
                                         RefineCase{"BrightTakesTheRightFirst", 140, 60, 0, 0, 0, {2.5F, 2}},
                                         RefineCase{"BrightMovesOntoTheLevel", 140, 100, 0, 0, 0, {3, 2}},
                                         RefineCase{"BrightSkipsBrighter", 140, 101, 60, 0, 0, {1.5F, 2}},
                                         RefineCase{"BrightWithoutDarkerStays", 140, 101, 150, 200, 255, {2, 2}}),
                         [](const auto& entry) { return entry.param.name; });

TEST(RefineSubPixel, OffsetIsOfSinglePrecision) {
  // (80 - 100) / (80 - 140) is a third.
  const Points refined = RefineSubPixel(kOriginAndCentre, cross(80, 140, 0, 0, 0));
  EXPECT_EQ(refined[1].x, 2.0F + 20.0F / 60.0F);
}

TEST(RefineSubPixel, PointsOutsideAreDropped) {
  const cv::Mat image(5, 5, CV_8UC1, cv::Scalar(100));
  const Points refined = RefineSubPixel({{1, 1}, {-1, 2}, {5, 2}, {2, -1}, {2, 5}, {4, 4}}, image);
  EXPECT_EQ(refined, (Points{{1, 1}, {4, 4}}));
}

TEST(RefineSubPixel, LevelIsThatOfTheFirstPointInside) {
  cv::Mat image = cross(80, 120, 0, 0, 0);
  EXPECT_EQ(RefineSubPixel({{-3, 0}, {0, 0}, {2, 2}}, image), (Points{{0, 0}, {2.5F, 2}}));
  EXPECT_TRUE(RefineSubPixel({{-3, 0}, {9, 9}}, image).empty());
  EXPECT_TRUE(RefineSubPixel({}, image).empty());
}

TEST(RefineSubPixel, NeighboursOutsideAreNotAsked) {
  cv::Mat image(3, 3, CV_8UC1, cv::Scalar(100));
  image.at<uchar>(0, 2) = 80;
  image.at<uchar>(0, 1) = 90;
  image.at<uchar>(1, 2) = 120;
  EXPECT_EQ(RefineSubPixel({{0, 0}, {2, 0}}, image), (Points{{0, 0}, {2, 0.5F}}));
}

// Beside the part lies another grey, behind a row's end the next row: neither is a neighbour.
TEST(RefineSubPixel, NeighboursOutsideAPartAreNotAsked) {
  cv::Mat picture(9, 9, CV_8UC1, cv::Scalar(255));
  cv::Mat part = picture(cv::Rect(3, 3, 3, 3));
  part.setTo(100);
  part.at<uchar>(0, 2) = 80;
  part.at<uchar>(2, 0) = 80;
  EXPECT_EQ(RefineSubPixel({{0, 0}, {2, 0}, {0, 2}}, part), (Points{{0, 0}, {2, 0}, {0, 2}}));
}

TEST(RefineSubPixel, FirstPointNeverMoves) {
  const cv::Mat image = cross(80, 255, 255, 255, 255);
  EXPECT_EQ(RefineSubPixel({{2, 2}}, image), (Points{{2, 2}}));
}
