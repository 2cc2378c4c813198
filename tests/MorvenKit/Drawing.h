#pragma once

#include <cmath>
#include <numbers>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <vector>

#include "MorvenKit/Ellipse.h"
#include "MorvenKit/src/contours/ContourTree.h"

/// Test pictures and point lists of known geometry.
namespace drawing {

constexpr int kWhite = 215;
constexpr int kBlack = 25;

inline cv::Mat sheet(int cols, int rows, int value = kWhite) { return {rows, cols, CV_8UC1, cv::Scalar(value)}; }

/// An ellipse in the image.
struct Outline {
  double x = 0.0, y = 0.0, a = 1.0, b = 1.0, angle = 0.0;

  cv::Point2d at(double t) const {
    const double u = a * std::cos(t), v = b * std::sin(t);
    return {x + u * std::cos(angle) - v * std::sin(angle), y + u * std::sin(angle) + v * std::cos(angle)};
  }
  bool holds(double px, double py) const {
    const double u = (px - x) * std::cos(angle) + (py - y) * std::sin(angle);
    const double v = (py - y) * std::cos(angle) - (px - x) * std::sin(angle);
    return u * u / (a * a) + v * v / (b * b) <= 1.0;
  }
  std::vector<cv::Point2f> points(int count) const {
    std::vector<cv::Point2f> result;
    for (int i = 0; i < count; ++i) {
      const cv::Point2d p = at(2.0 * std::numbers::pi * i / count + 0.1);
      result.emplace_back(static_cast<float>(p.x), static_cast<float>(p.y));
    }
    return result;
  }
};

/// Fills an ellipse, 8 x 8 samples a pixel, pixel centres on integers.
inline void fill(cv::Mat& image, const Outline& outline, int value) {
  const double reach = std::max(outline.a, outline.b) + 1.0;
  for (int y = std::max(0, static_cast<int>(outline.y - reach));
       y < std::min(image.rows, static_cast<int>(outline.y + reach) + 2); ++y) {
    for (int x = std::max(0, static_cast<int>(outline.x - reach));
         x < std::min(image.cols, static_cast<int>(outline.x + reach) + 2); ++x) {
      int hits = 0;
      for (int s = 0; s < 64; ++s) hits += outline.holds(x - 0.4375 + 0.125 * (s % 8), y - 0.4375 + 0.125 * (s / 8));
      const double mixed = (image.at<uchar>(y, x) * (64 - hits) + value * hits) / 64.0;
      image.at<uchar>(y, x) = cv::saturate_cast<uchar>(mixed);
    }
  }
}

inline void dot(cv::Mat& image, double x, double y, double r) { fill(image, {x, y, r, r}, kBlack); }

inline void ring(cv::Mat& image, double x, double y, double outer, double hollow) {
  fill(image, {x, y, outer, outer}, kBlack);
  fill(image, {x, y, hollow, hollow}, kWhite);
}

inline void solidRing(cv::Mat& image, double x, double y, double outer, double hollow, double core) {
  ring(image, x, y, outer, hollow);
  dot(image, x, y, core);
}

/// A ground that darkens to one side, blurred and with the noise of a camera.
inline void wear(cv::Mat& image, double darkest, double blur, double noise) {
  for (int x = 0; x < image.cols; ++x) image.col(x) *= 1.0 - (1.0 - darkest) * x / image.cols;
  cv::GaussianBlur(image, image, {0, 0}, blur);
  cv::Mat grain(image.size(), CV_8SC1);
  cv::RNG(17).fill(grain, cv::RNG::NORMAL, 0, noise);
  cv::add(image, grain, image, cv::noArray(), CV_8U);
}

/// White above `limit`.
inline cv::Mat split(const cv::Mat& image, double limit = 120.0) {
  cv::Mat binary;
  cv::threshold(image, binary, limit, 255.0, cv::THRESH_BINARY);
  return binary;
}

/// The border pixels of a filled circle, from the first row on.
inline kestrune::morvenkit::Contour discContour(int x, int y, int r) {
  cv::Mat image = cv::Mat::zeros(y + r + 3, x + r + 3, CV_8UC1);
  cv::circle(image, {x, y}, r, 255, cv::FILLED);
  return kestrune::morvenkit::findContourTree(image).points(0);
}

}  // namespace drawing
