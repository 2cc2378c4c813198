#include "bench/Floor.h"

#include <array>
#include <cstddef>
#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace {

using Outline = std::vector<cv::Point>;
using Outlines = std::vector<Outline>;

// Of the detection's own description; they are told once more here, as the floor is no part of what it is the floor of.
constexpr int kTile = 200;
constexpr int kEqualisedTile = 100;
constexpr int kMeanBlock = 37;
constexpr std::size_t kShortestOfRings = 8;
constexpr std::size_t kShortestOfDots = 30;
constexpr std::size_t kShortestOfZernike = 30;
constexpr std::size_t kLongest = 500;

volatile double kept;  // So that no call is left out as nobody reads what it gives.

cv::Mat scaled(const cv::Mat& image) {
  const double scale = image.cols <= 320 ? 4.0 : image.cols <= 640 ? 2.0 : 0.5;
  cv::Mat result;
  cv::resize(image, result, cv::Size(static_cast<int>(image.cols * scale), static_cast<int>(image.rows * scale)), 0.0,
             0.0, cv::INTER_LINEAR);
  return result;
}

void smooth(cv::Mat& image) { cv::GaussianBlur(image, image, {3, 3}, 0.0, 0.0, cv::BORDER_DEFAULT); }

cv::Mat blackAndWhite(cv::Mat image) {
  smooth(image);
  const cv::Mat kernel = (cv::Mat_<schar>(3, 3) << 0, -1, 0, -1, 5, -1, 0, -1, 0);
  cv::filter2D(image, image, CV_8U, kernel, {-1, -1}, 0.0, cv::BORDER_DEFAULT);
  cv::createCLAHE(1.0, {image.cols / kEqualisedTile, image.rows / kEqualisedTile})->apply(image, image);
  smooth(image);
  const int tiles = image.cols / kTile, width = image.cols / tiles, height = image.rows / tiles;
  cv::Mat thresholds(tiles, tiles, CV_8UC1), scratch, binary;
  for (int i = 0; i < tiles; ++i) {
    for (int j = 0; j < tiles; ++j) {
      thresholds.at<uchar>(i, j) = cv::saturate_cast<uchar>(
          cv::threshold(image(cv::Rect(j * width, i * height, width, height)), scratch, 0.0, 255.0, cv::THRESH_OTSU));
    }
  }
  cv::resize(thresholds, thresholds, image.size(), 0.0, 0.0, cv::INTER_CUBIC);
  cv::compare(thresholds, image, binary, cv::CMP_LT);
  return binary;
}

/// Area and length decide whether an outline is round; rings need their centroid too, dots their area as a polygon.
void judge(const Outline& outline, bool big_dots) {
  kept = cv::moments(outline, false).m00 + cv::arcLength(outline, true);
  kept = big_dots ? cv::contourArea(outline) : cv::moments(outline, false).m10;
}

void scaledFloor(const cv::Mat& image, bool big_dots) {
  Outlines outlines;
  std::vector<cv::Vec4i> hierarchy;
  cv::findContours(blackAndWhite(scaled(image)), outlines, hierarchy, cv::RETR_TREE, cv::CHAIN_APPROX_NONE);
  for (const Outline& outline : outlines) {
    if (outline.size() >= (big_dots ? kShortestOfDots : kShortestOfRings)) judge(outline, big_dots);
  }
}

Outlines outlinesByMean(const cv::Mat& image, int type) {
  cv::Mat binary;
  cv::adaptiveThreshold(image, binary, 255.0, cv::ADAPTIVE_THRESH_MEAN_C, type, kMeanBlock, 2.5);
  Outlines outlines;
  std::vector<cv::Vec4i> hierarchy;
  cv::findContours(binary, outlines, hierarchy, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
  return outlines;
}

bool isDotLong(const Outline& outline) { return outline.size() >= kShortestOfZernike && outline.size() <= kLongest; }

double roundnessOf(const Outline& outline) { return cv::contourArea(outline) / cv::arcLength(outline, true); }

void fitDot(const Outline& outline) {
  const std::vector<cv::Point2f> edge(outline.begin(), outline.end());
  std::vector<cv::Point2f> hull;
  const cv::RotatedRect fit = cv::fitEllipseDirect(edge);
  cv::convexHull(edge, hull, false, true);
  kept = fit.center.x + cv::contourArea(edge) + cv::arcLength(edge, true) + cv::contourArea(hull);
}

/// Both polarities: which of them shows the dots is not known before.
void unscaledFloor(const cv::Mat& image) {
  cv::Mat smoothed;
  cv::GaussianBlur(image, smoothed, {7, 7}, 0.65, 0.0, cv::BORDER_DEFAULT);
  for (const Outline& outline : outlinesByMean(smoothed, cv::THRESH_BINARY)) {
    if (isDotLong(outline)) kept = roundnessOf(outline);
  }
  for (const Outline& outline : outlinesByMean(smoothed, cv::THRESH_BINARY_INV)) {
    if (!isDotLong(outline)) continue;
    kept = roundnessOf(outline);
    fitDot(outline);
  }
}

void mapToBoard(const cv::Size& size, int dots) {
  const auto width = static_cast<float>(size.width), height = static_cast<float>(size.height);
  const std::vector<cv::Point2f> markers = {{0.0F, 0.0F}, {width, 1.0F}, {width - 1.0F, height}, {1.0F, height - 2.0F}};
  const std::vector<cv::Point2f> places = {{0.0F, 0.0F}, {90.0F, 0.0F}, {90.0F, 90.0F}, {0.0F, 90.0F}};
  std::vector<cv::Point2f> centres(static_cast<std::size_t>(dots), {width / 2.0F, height / 2.0F}), mapped;
  cv::perspectiveTransform(centres, mapped, cv::findHomography(markers, places));
}

}  // namespace

void floorOfDetection(const cv::Mat& image, bool big_dots, int dots) {
  const bool unscaled = image.cols > 640 && image.cols < 2048;
  unscaled ? unscaledFloor(image) : scaledFloor(image, big_dots);
  mapToBoard(image.size(), dots);
}
