#include "MorvenKit/src/binarise/OutlineThreshold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "Drawing.h"
#include "MorvenKit/src/contours/RefineSubPixel.h"

using namespace kestrune::morvenkit;

namespace {

/// Weighted along the columns and the rows, mirrored at the border pixels, over the sum of all weights; halves go up.
cv::Mat smoothed(const cv::Mat& image, const std::vector<float>& weights) {
  cv::Mat_<float> sums;
  cv::sepFilter2D(image, sums, CV_32F, weights, weights, {-1, -1}, 0.0, cv::BORDER_REFLECT_101);
  const double total = cv::sum(weights)[0];
  cv::Mat_<uchar> result(image.size());
  std::transform(sums.begin(), sums.end(), result.begin(),
                 [total](float sum) { return static_cast<uchar>(std::floor(sum / (total * total) + 0.5)); });
  return result;
}

/// 200 where the rounded length of the central differences is above that of the pixel at 97.5 % of the ranking.
cv::Mat strongestEdges(const cv::Mat& image) {
  cv::Mat_<int> length(image.size(), 0);
  for (int y = 5; y < image.rows - 5; ++y) {
    for (int x = 5; x < image.cols - 5; ++x) {
      const double gx = image.at<uchar>(y, x + 1) - image.at<uchar>(y, x - 1);
      const double gy = image.at<uchar>(y + 1, x) - image.at<uchar>(y - 1, x);
      length(y, x) = static_cast<int>(std::hypot(gx, gy) + 0.5);
    }
  }
  std::vector<int> ranking(length.begin(), length.end());
  std::sort(ranking.begin(), ranking.end());
  const int limit = ranking[static_cast<std::size_t>(0.975 * static_cast<double>(ranking.size()))];
  return (length > limit) & 200;
}

/// Shorter than 8.5 times the detector's own greatest radius, which makes fewer than the 600 points of a marker.
bool isMarker(const Contour& outline) {
  const double perimeter = cv::arcLength(outline, true);
  const double circularity = 4 * CV_PI * cv::moments(outline).m00 / (perimeter * perimeter);
  return outline.size() >= 31 && outline.size() < 425 && circularity > 0.3;
}

/// The method step by step, for the detector's own limits.
struct StepByStep {
  explicit StepByStep(const cv::Mat& grey)
      : smooth(smoothed(grey, {1, 2, 1})), canvas(strongestEdges(smoothed(grey, {1, 4, 6, 4, 1}))) {
    cv::findContours(canvas, outlines, hierarchy, cv::RETR_TREE, cv::CHAIN_APPROX_NONE);
    if (!outlines.empty()) walk(0);
  }

  void walk(int index) {
    for (; index >= 0; index = hierarchy[static_cast<std::size_t>(index)][0]) {
      const Contour& outline = outlines[static_cast<std::size_t>(index)];
      if (isMarker(outline)) {
        threshold(fitEllipseRobust(RefineSubPixel(outline, smooth)));
      } else {
        walk(hierarchy[static_cast<std::size_t>(index)][2]);
      }
    }
  }

  void threshold(const Ellipse<double>& e) {
    const int a = static_cast<int>(e.semi_a), b = static_cast<int>(e.semi_b);
    if (std::max(a, b) >= 2 * std::min(a, b)) return;
    const cv::Point first(static_cast<int>(e.x - 2 * e.semi_a), static_cast<int>(e.y - 2 * e.semi_b));
    const cv::Point last(static_cast<int>(e.x + 2 * e.semi_a), static_cast<int>(e.y + 2 * e.semi_b));
    const cv::Rect around = cv::Rect(first, last + cv::Point(1, 1)) & cv::Rect({0, 0}, smooth.size());
    cv::Mat local;
    cv::threshold(smooth(around), local, 0, 255, cv::THRESH_OTSU);
    cv::Mat(255 - local).copyTo(canvas(around));
    ++thresholded;
  }

  cv::Mat smooth, canvas;
  std::vector<Contour> outlines;
  std::vector<cv::Vec4i> hierarchy;
  int thresholded = 0;
};

}  // namespace

// The ground's valleys are nearly as dark as the dots, so that it can be seen where a rectangle ends. Around the bar
// there are the strongest edges, and no outline of a dot.
TEST(OutlineThreshold, ChainOfSteps) {
  cv::Mat grey(330, 420, CV_8UC1);
  for (int y = 0; y < grey.rows; ++y) {
    for (int x = 0; x < grey.cols; ++x) {
      grey.at<uchar>(y, x) = cv::saturate_cast<uchar>(150 + 65 * std::sin(x / 12.0) * std::sin(y / 13.0));
    }
  }
  for (int i = 0; i < 12; ++i) {
    drawing::fill(grey, {18.3 + 53 * (i % 4), 17.8 + 53 * (i / 4), 11.3, 10.6, 0.4 * i}, drawing::kBlack);
  }
  grey(cv::Rect(300, 20, 12, 60)).setTo(0);
  drawing::wear(grey, 0.8, 0.8, 4.0);
  const StepByStep expected(grey);
  EXPECT_EQ(expected.thresholded, 12);
  EXPECT_EQ(cv::countNonZero(OutlineThreshold(grey, {}) != (expected.canvas > 254)), 0);
}

TEST(OutlineThreshold, SparseDotsAreWhiteOnBlack) {
  cv::Mat grey = drawing::sheet(400, 300);
  const std::vector<cv::Point2d> centres = {{80.2, 90.3}, {220.4, 150.1}, {330.3, 220.2}};
  for (const auto& c : centres) drawing::dot(grey, c.x, c.y, 14);
  cv::GaussianBlur(grey, grey, {0, 0}, 0.6);
  const cv::Mat before = grey.clone();
  const cv::Mat binary = OutlineThreshold(grey, {});
  EXPECT_EQ(cv::countNonZero(grey != before), 0);
  EXPECT_EQ(binary.type(), CV_8UC1);
  EXPECT_EQ(cv::countNonZero(binary), cv::countNonZero(binary == 255));
  for (const auto& c : centres) {
    const cv::Mat around = binary(cv::Rect(static_cast<int>(c.x) - 25, static_cast<int>(c.y) - 25, 51, 51));
    EXPECT_NEAR(cv::countNonZero(around), CV_PI * 14 * 14, 45);
    const cv::Moments m = cv::moments(around, true);
    EXPECT_NEAR(m.m10 / m.m00 + static_cast<int>(c.x) - 25, c.x, 0.3);
    EXPECT_NEAR(m.m01 / m.m00 + static_cast<int>(c.y) - 25, c.y, 0.3);
  }
  EXPECT_NEAR(cv::countNonZero(binary), 3 * CV_PI * 14 * 14, 135);
}

TEST(OutlineThreshold, EdgesByThemselvesAreNotWhite) {
  // A straight edge across the picture: strong, but no marker.
  cv::Mat grey = drawing::sheet(400, 300);
  grey(cv::Rect(0, 150, 400, 150)).setTo(30);
  EXPECT_EQ(cv::countNonZero(OutlineThreshold(grey, {})), 0);
}

TEST(OutlineThreshold, LinesOfEveryOtherRowOrColumnAreSmoothedAway) {
  // Three by three smoothing makes 140 of 65 and 215 in turn, nearer to the sheet's 215 than to the dot's 25.
  for (const bool rows : {true, false}) {
    cv::Mat grey = drawing::sheet(120, 120);
    drawing::dot(grey, 60, 60, 14);
    for (int k = 0; k < 6; k += 2) grey(rows ? cv::Rect(45, 80 + k, 30, 1) : cv::Rect(80 + k, 45, 1, 30)).setTo(65);
    const cv::Mat binary = OutlineThreshold(grey, {});
    EXPECT_NEAR(cv::countNonZero(binary), CV_PI * 14 * 14, 45) << rows;
    EXPECT_EQ(cv::countNonZero(binary(rows ? cv::Rect(45, 80, 30, 6) : cv::Rect(80, 45, 6, 30))), 0) << rows;
  }
}
