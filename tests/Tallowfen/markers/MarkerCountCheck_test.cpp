#include "Tallowfen/src/markers/MarkerCountCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "HandMadeEllipses.h"

namespace {

using handmade::centres;
using handmade::corners;
using handmade::ellipse;
using handmade::List;
using kestrune::MarkerCountCheck;
using testing::ElementsAre;

const cv::Mat kNoImage;

TEST(MarkerCountCheck, FewerThanWantedFail) {
  List none;
  EXPECT_FALSE(MarkerCountCheck(kNoImage, none, 1));
  List three = {ellipse(0, 0, 5), ellipse(1, 0, 5), ellipse(2, 0, 5)};
  EXPECT_FALSE(MarkerCountCheck(kNoImage, three, 4));
}

TEST(MarkerCountCheck, ExactlyTheOneWantedPasses) {
  List one = {ellipse(0, 0, 5)};
  EXPECT_TRUE(MarkerCountCheck(kNoImage, one, 1));
}

TEST(MarkerCountCheck, MoreThanOneWantedFailWithoutACut) {
  for (const std::size_t size : {2U, 3U, 4U, 5U}) {
    List several(size, ellipse(0, 0, 5, 1, 0.9));
    EXPECT_FALSE(MarkerCountCheck(kNoImage, several, 1));
    EXPECT_EQ(several.size(), size);
  }
}

TEST(MarkerCountCheck, AnotherCountWantedPassesWithMoreThanThat) {
  List three = {ellipse(0, 0, 5), ellipse(1, 0, 5), ellipse(2, 0, 5)};
  EXPECT_TRUE(MarkerCountCheck(kNoImage, three, 2));
  EXPECT_EQ(three.size(), 3U);
}

TEST(MarkerCountCheck, FourAroundTheirMeanPass) {
  List four = corners(9);
  EXPECT_TRUE(MarkerCountCheck(kNoImage, four, 4));
}

/// Four points on the axes: two at 1 and two at `far` from their mean.
List cross(double far) { return {ellipse(-far, 0, 1), ellipse(far, 0, 1), ellipse(0, -1, 1), ellipse(0, 1, 1)}; }

TEST(MarkerCountCheck, FarthestToNearestOfTwoExactlyPasses) {
  List four = cross(2.0);
  EXPECT_TRUE(MarkerCountCheck(kNoImage, four, 4));
}

TEST(MarkerCountCheck, FarthestToNearestAboveTwoFails) {
  List four = cross(2.0 + 1e-9);
  EXPECT_FALSE(MarkerCountCheck(kNoImage, four, 4));
}

TEST(MarkerCountCheck, OneAtTheMeanFails) {
  List four = {ellipse(0, 0, 1), ellipse(3, 0, 1), ellipse(-3, 3, 1), ellipse(0, -3, 1)};
  EXPECT_FALSE(MarkerCountCheck(kNoImage, four, 4));
}

TEST(MarkerCountCheck, UncertainOnesAreErasedAndTheirFollowersPassedOver) {
  List list = corners(9);
  list.insert(list.begin(), {ellipse(1, 1, 9, 1, 0.6), ellipse(2, 2, 9, 1, 0.6)});
  // The first goes, the second is passed over: five stay, and the two-valued image decides.
  cv::Mat binary(400, 400, CV_8UC1, cv::Scalar(0));
  binary(cv::Rect(0, 0, 14, 14)) = 255;
  EXPECT_TRUE(MarkerCountCheck(binary, list, 4));
  EXPECT_EQ(centres(list), centres(corners(9)));
}

TEST(MarkerCountCheck, PassedOverOneSurvivesAsACandidate) {
  List list = corners(9);
  list[1].sigma = 0.6;
  list.insert(list.begin() + 1, ellipse(200, 200, 9, 1, 0.6));
  // Erased at index 1; the corner behind it moves there and is not looked at.
  EXPECT_TRUE(MarkerCountCheck(kNoImage, list, 4));
  EXPECT_EQ(centres(list), centres(corners(9)));
}

TEST(MarkerCountCheck, ResidualOfOneHalfExactlyStays) {
  List list = corners(9);
  list.insert(list.begin(), ellipse(200, 200, 9, 1, 0.5));
  cv::Mat binary(400, 400, CV_8UC1, cv::Scalar(0));
  binary(cv::Rect(190, 190, 20, 20)) = 255;
  EXPECT_TRUE(MarkerCountCheck(binary, list, 4));
  EXPECT_EQ(centres(list), centres(corners(9)));
}

TEST(MarkerCountCheck, ErasuresStayWhenTheCheckFails) {
  List list = cross(5.0);
  list.push_back(ellipse(50, 50, 1, 1, 0.7));
  EXPECT_FALSE(MarkerCountCheck(kNoImage, list, 4));
  EXPECT_EQ(centres(list), centres(cross(5.0)));
}

TEST(MarkerCountCheck, FewerThanFourAfterTheErasuresFail) {
  List list(6, ellipse(0, 0, 5, 1, 0.9));
  EXPECT_FALSE(MarkerCountCheck(kNoImage, list, 4));
  // Every second one is erased.
  EXPECT_EQ(list.size(), 3U);
}

TEST(MarkerCountCheck, CountsWhitePixelsWithTheEndExclusive) {
  // Semi-axis 8: the square of a centre (c, c) spans c - 10 to c + 10, the end left out. White ends of the corners'
  // squares must not count, white beginnings must.
  cv::Mat binary(400, 400, CV_8UC1, cv::Scalar(0));
  for (const auto& [x, y] : centres(corners(8))) {
    binary(cv::Rect(static_cast<int>(x) + 10, static_cast<int>(y) - 10, 1, 21)) = 255;
  }
  // The fifth has 20 white pixels inside; mean 4, so it is 16 off while the corners are 4 off.
  binary(cv::Rect(190, 190, 1, 20)) = 255;
  List list = corners(8);
  list.insert(list.begin(), ellipse(200, 200, 8));
  EXPECT_TRUE(MarkerCountCheck(binary, list, 4));
  EXPECT_EQ(centres(list), centres(corners(8)));
}

/// An ellipse whose square has other pixels when the semi-axis and the margin are added before they are taken off.
struct RoundedSquare {
  const char* name;
  double centre, semi_a;
  int column;         ///< The pixels in question.
  int corner_pixels;  ///< Of each corner: what the square would hold with the other rounding.
};

class MarkerCountCheckRounding : public testing::TestWithParam<RoundedSquare> {
 protected:
  /// Eight white pixels in the column in question, beside the middle of the image's left edge.
  cv::Mat picture() const {
    cv::Mat binary(400, 400, CV_8UC1, cv::Scalar(0));
    binary(cv::Rect(GetParam().column, 196, 1, 8)) = 255;
    for (const auto& [x, y] : centres(corners(8))) {
      binary(cv::Rect(static_cast<int>(x), static_cast<int>(y), 1, GetParam().corner_pixels)) = 255;
    }
    return binary;
  }
};

// The odd one out by its count, unless the rounding makes it equal to the corners: then it would stay, as the first.
TEST_P(MarkerCountCheckRounding, TermsAreTakenFromLeftToRight) {
  List across = corners(8);
  across.insert(across.begin(), ellipse(GetParam().centre, 200, GetParam().semi_a));
  EXPECT_TRUE(MarkerCountCheck(picture(), across, 4));
  EXPECT_EQ(centres(across), centres(corners(8)));

  List down = corners(8);
  down.insert(down.begin(), ellipse(200, GetParam().centre, GetParam().semi_a));
  EXPECT_TRUE(MarkerCountCheck(picture().t(), down, 4));
  EXPECT_EQ(centres(down), centres(corners(8)));
}

// 41.8 - 8.8 - 2 is 31, 41.8 - 10.8 a little less. The other pair ends at 65, or just below it.
INSTANTIATE_TEST_SUITE_P(Ends, MarkerCountCheckRounding,
                         testing::Values(RoundedSquare{"First", 41.8, 8.8, 30, 8},
                                         RoundedSquare{"Last", 54.49999999999999, 8.499999999999998, 64, 0}),
                         [](const auto& tested) { return tested.param.name; });

TEST(MarkerCountCheck, MeanCountIsAnIntegerDivision) {
  // Counts 0, 0, 0, 3, 1: sum 4, mean 0 (not 0.8), differences 0, 0, 0, 3, 1. The one with 3 goes.
  List list = corners(8);
  list.insert(list.begin() + 3, ellipse(200, 200, 8));
  cv::Mat binary(400, 400, CV_8UC1, cv::Scalar(0));
  binary(cv::Rect(200, 200, 3, 1)) = 255;
  binary.at<std::uint8_t>(300, 100) = 255;
  EXPECT_TRUE(MarkerCountCheck(binary, list, 4));
  // In order of the differences, the corner with one white pixel last.
  EXPECT_EQ(centres(list), centres(corners(8)));
}

TEST(MarkerCountCheck, SquaresOutsideTheImageAreClippedOrEmpty) {
  List list = {ellipse(-100, -100, 5), ellipse(100, -100, 5), ellipse(100, 100, 5), ellipse(-100, 100, 5),
               ellipse(10, 10, 5)};
  const cv::Mat binary(20, 20, CV_8UC1, cv::Scalar(255));
  EXPECT_TRUE(MarkerCountCheck(binary, list, 4));
  EXPECT_THAT(centres(list), testing::Not(testing::Contains(std::pair(10.0, 10.0))));
}

TEST(MarkerCountCheck, SquaresOutsideInOneDirectionAloneAreEmpty) {
  List list = {ellipse(10, -100, 5), ellipse(100, 10, 5), ellipse(10, 100, 5), ellipse(-100, 10, 5),
               ellipse(10, 10, 5)};
  EXPECT_TRUE(MarkerCountCheck(cv::Mat(20, 20, CV_8UC1, cv::Scalar(255)), list, 4));
  EXPECT_THAT(centres(list), testing::Not(testing::Contains(std::pair(10.0, 10.0))));
}

TEST(MarkerCountCheck, BoundlessCoordinatesDoNoHarm) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  List list = corners(8);
  list.push_back(ellipse(nan, inf, 1e300));
  list.push_back(ellipse(1e300, -inf, nan));
  EXPECT_NO_THROW(MarkerCountCheck(cv::Mat(20, 20, CV_8UC1, cv::Scalar(255)), list, 4));
}

TEST(MarkerCountCheck, CandidatesThatDoNotSurroundTheirMeanLeaveTheListAsErased) {
  List list = handmade::joined(cross(5.0), {ellipse(5, 5, 1), ellipse(60, 60, 1, 1, 0.7)});
  EXPECT_FALSE(MarkerCountCheck(kNoImage, list, 4));
  EXPECT_EQ(list.size(), 5U);
}

}  // namespace
