#include "MorvenKit/src/classify/HopScan.h"

#include <gtest/gtest.h>

#include <array>
#include <numbers>

#include "Drawing.h"
#include "support/ConsoleCapture.h"

using namespace kestrune::morvenkit;

namespace {

const cv::Point2f kCentre(50, 50);

/// Eight rays from the centre fan out to the right. Each gets its own number of transitions, 0 to 4, painted where the
/// rays are apart from each other; the fan's root is black.
struct Fan {
  cv::Mat binary = cv::Mat::zeros(101, 101, CV_8UC1);
  Contour contour;

  explicit Fan(const std::array<int, 8>& transitions) {
    for (int k = 0; k < 8; ++k) {
      const cv::Point end(95, 15 + 10 * k);
      contour.push_back(end);
      for (int x = 75; x <= 95; ++x) {
        const int changes = std::min(transitions[static_cast<std::size_t>(k)], (x - 70) / 5);
        const int y = static_cast<int>(50 + (end.y - 50) * (x - 50) / 45.0);
        for (int dy = -1; dy <= 2; ++dy) binary.at<uchar>(std::clamp(y + dy, 0, 100), x) = changes % 2 ? 255 : 0;
      }
    }
  }
  ContourStatus status() const { return HopScan(7, contour, kCentre, binary); }
};

ContourStatus statusOf(const cv::Mat& image, double x, double y) {
  const cv::Mat binary = drawing::split(image);
  const ContourTree tree = findContourTree(binary);
  for (int i = 0; i < tree.count(); ++i) {
    const cv::Point2f centre = contourCentroid(tree.points(i));
    if (std::hypot(centre.x - x, centre.y - y) < 1.0 && tree.points(i).size() > 60)
      return HopScan(i, tree.points(i), centre, binary);
  }
  ADD_FAILURE() << "no contour there";
  return kStatusLost;
}

}  // namespace

struct TallyCase {
  const char* name;
  std::array<int, 8> transitions;
  ContourStatus expected;
};

class HopScanTally : public testing::TestWithParam<TallyCase> {};

TEST_P(HopScanTally, DecidesTheStatus) { EXPECT_EQ(Fan(GetParam().transitions).status(), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Rules, HopScanTally,
    testing::Values(TallyCase{"SixOfOneMakeADot", {1, 1, 1, 1, 1, 1, 0, 0}, kStatusDot},
                    TallyCase{"SixOfOneBeatTwoOfThree", {3, 1, 1, 1, 1, 1, 3, 1}, kStatusDot},
                    TallyCase{"FiveOfOneDoNot", {1, 1, 1, 1, 1, 0, 0, 0}, kStatusLost},
                    TallyCase{"SixOfTwoMakeARing", {2, 2, 2, 2, 2, 2, 1, 1}, kStatusRing},
                    TallyCase{"FiveOfTwoThreeOfOneAreLost", {2, 2, 2, 2, 2, 1, 1, 1}, kStatusLost},
                    TallyCase{"FiveOfTwoOneOfThreeAreUnknown", {2, 2, 2, 2, 2, 1, 1, 3}, kStatusUnknown},
                    TallyCase{"FiveOfThreeMakeASolidRing", {3, 3, 3, 3, 3, 1, 2, 0}, kStatusSolidRing},
                    TallyCase{"FourOfThreeAreUnknown", {3, 3, 3, 3, 2, 1, 2, 0}, kStatusUnknown},
                    TallyCase{"OtherCountsAreInNoTally", {4, 4, 4, 4, 4, 4, 4, 4}, kStatusLost},
                    TallyCase{"NoTransitionsAreLost", {0, 0, 0, 0, 0, 0, 0, 0}, kStatusLost}),
    [](const auto& entry) { return entry.param.name; });

TEST(HopScan, DrawnDotRingAndSolidRing) {
  cv::Mat image = drawing::sheet(160, 160);
  drawing::dot(image, 40.3, 40.2, 14);
  drawing::ring(image, 110.4, 40.1, 18, 10);
  drawing::solidRing(image, 60.2, 110.3, 24, 16, 7);
  EXPECT_EQ(statusOf(image, 40.3, 40.2), kStatusDot);
  EXPECT_EQ(statusOf(image, 110.4, 40.1), kStatusRing);
  EXPECT_EQ(statusOf(image, 60.2, 110.3), kStatusSolidRing);
}

TEST(HopScan, TakesTheLastPointOfEachEighth) {
  // 19 points: stride 2, the points 1, 3, ... 15. Only these lead to white pixels.
  cv::Mat binary = cv::Mat::zeros(101, 101, CV_8UC1);
  Contour contour;
  for (int i = 0; i < 19; ++i) {
    const bool taken = i % 2 == 1 && i <= 15;
    contour.emplace_back(95, 5 + 5 * i);
    if (taken) binary.at<uchar>(contour.back()) = 255;
  }
  EXPECT_EQ(HopScan(0, contour, kCentre, binary), kStatusDot);
}

TEST(HopScan, VerticalRaysCountForNothing) {
  // Two of eight rays are vertical: six of one still make a dot, and a third vertical ray undoes it.
  Fan fan({1, 1, 1, 1, 1, 1, 1, 1});
  fan.contour[0] = {50, 5};
  fan.contour[1] = {50, 95};
  EXPECT_EQ(fan.status(), kStatusDot);
  fan.contour[2] = {50, 90};
  EXPECT_EQ(fan.status(), kStatusLost);
}

TEST(HopScan, NoRayAtAllIsTold) {
  const Contour contour(8, cv::Point(50, 50));
  const ConsoleCapture console;
  EXPECT_EQ(HopScan(12, contour, kCentre, cv::Mat::zeros(101, 101, CV_8UC1)), kStatusLost);
  EXPECT_EQ(console.err(), "No detected hop times in circle: 12\xEF\xBC\x81\n");
  EXPECT_EQ(console.out(), "");
}

TEST(HopScan, AVerticalRayIsARay) {
  Contour contour(8, cv::Point(50, 50));
  contour[3] = {50, 60};
  const ConsoleCapture console;
  EXPECT_EQ(HopScan(12, contour, kCentre, cv::Mat::zeros(101, 101, CV_8UC1)), kStatusLost);
  EXPECT_EQ(console.err(), "");
}

TEST(HopScan, CentroidOfATriangle) {
  const cv::Point2f centre = contourCentroid({{0, 0}, {9, 0}, {0, 6}});
  EXPECT_FLOAT_EQ(centre.x, 3.0F);
  EXPECT_FLOAT_EQ(centre.y, 2.0F);
}
