#include "MorvenKit/src/binarise/OutlineFill.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "Drawing.h"
#include "MorvenKit/src/edges/GaussianEdgeCanny.h"

using namespace kestrune::morvenkit;

namespace {

/// Shorter than 8.5 times the detector's own greatest radius, which makes fewer than the 600 points of a marker.
bool isRound(const Contour& outline) {
  const double perimeter = cv::arcLength(outline, true);
  const double circularity = 4 * CV_PI * cv::moments(outline).m00 / (perimeter * perimeter);
  return outline.size() < 425 && circularity > 0.3;
}

/// The method step by step, for the detector's own limits.
struct StepByStep {
  explicit StepByStep(const cv::Mat& grey) {
    cv::Mat_<float> image(grey.size());
    for (int y = 0; y < grey.rows; ++y) {
      for (int x = 0; x < grey.cols; ++x) image(y, x) = grey.at<uchar>(y, x);
    }
    binary = GaussianEdgeCanny(image);
    cv::findContours(binary, outlines, hierarchy, cv::RETR_TREE, cv::CHAIN_APPROX_NONE);
    if (!outlines.empty()) walk(0);
  }

  const Contour& points(int index) const { return outlines[static_cast<std::size_t>(index)]; }
  int next(int index) const { return hierarchy[static_cast<std::size_t>(index)][0]; }
  int child(int index) const { return hierarchy[static_cast<std::size_t>(index)][2]; }

  void walk(int index) {
    cv::Mat sheet = cv::Mat::zeros(binary.size(), CV_8UC1);
    for (; index >= 0; index = next(index)) {
      if (!isRound(points(index)) || points(index).size() < 31) {
        walk(child(index));
        continue;
      }
      cv::drawContours(sheet, outlines, filled(index), 255, cv::FILLED);
      binary = sheet.clone();
      ++fills;
    }
  }

  int filled(int index) const {
    const int inner = child(index);
    if (inner <= 0 || !isRound(points(inner)) || points(inner).size() < 31) return index;
    int innermost = inner;
    while (child(innermost) >= 0) innermost = child(innermost);
    return isRound(points(innermost)) && points(innermost).size() >= 31 ? innermost : inner;
  }

  cv::Mat binary;
  std::vector<Contour> outlines;
  std::vector<cv::Vec4i> hierarchy;
  int fills = 0;
};

}  // namespace

// Dots, rings and rings with a core.
TEST(OutlineFill, ChainOfSteps) {
  cv::Mat grey = drawing::sheet(300, 240);
  for (int i = 0; i < 12; ++i) {
    const double x = 39.3 + 73.7 * (i % 4), y = 42.8 + 76.9 * (i / 4);
    if (i % 3 == 0) drawing::dot(grey, x, y, 21.4);
    if (i % 3 == 1) drawing::ring(grey, x, y, 27.2, 18.3);
    if (i % 3 == 2) drawing::solidRing(grey, x, y, 28.7, 20.2, 10.8);
  }
  drawing::wear(grey, 0.8, 0.8, 4.0);
  const StepByStep expected(grey);
  EXPECT_GE(expected.fills, 12);
  EXPECT_EQ(cv::countNonZero(OutlineFill(grey, {}) != expected.binary), 0);
}

TEST(OutlineFill, DotsAreFilledWithWhite) {
  cv::Mat grey = drawing::sheet(240, 120);
  drawing::dot(grey, 60.2, 60.3, 15);
  drawing::dot(grey, 170.4, 55.1, 22);
  const cv::Mat before = grey.clone();
  const cv::Mat binary = OutlineFill(grey, {});
  EXPECT_EQ(cv::countNonZero(grey != before), 0);
  EXPECT_EQ(cv::countNonZero(binary), cv::countNonZero(binary == 255));
  EXPECT_EQ(binary.at<uchar>(60, 60), 255);
  EXPECT_EQ(binary.at<uchar>(55, 170), 255);
  EXPECT_EQ(binary.at<uchar>(60, 110), 0);
  // The inner border of a one pixel wide outline runs along its own pixels.
  EXPECT_NEAR(cv::countNonZero(binary(cv::Rect(0, 0, 115, 120))), CV_PI * 15 * 15, 70);
  EXPECT_NEAR(cv::countNonZero(binary(cv::Rect(115, 0, 125, 120))), CV_PI * 22 * 22, 100);
}

TEST(OutlineFill, WithoutAMarkerTheEdgesAreLeft) {
  cv::Mat grey = drawing::sheet(60, 50, 40);
  grey(cv::Rect(30, 0, 30, 50)).setTo(200);
  const cv::Mat binary = OutlineFill(grey, {});
  EXPECT_GT(cv::countNonZero(binary), 0);
  EXPECT_LE(cv::countNonZero(binary), 2 * 48);
}
