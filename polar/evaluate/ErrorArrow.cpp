#include "polar/evaluate/ErrorArrow.h"

#include <cmath>
#include <opencv2/imgproc.hpp>

namespace {

constexpr double kEnlargement = 300.0;   ///< Length of an arrow, pixels for each pixel of error.
constexpr double kSmallResidual = 0.03;  ///< Pixels, exclusive.
constexpr int kResidualRadius = 1;
constexpr int kRowDifferenceRadius = 2;

void drawArrow(cv::Mat& picture, const cv::Point2f& point, float end_row, int radius, bool is_small) {
  const cv::Scalar red(0, 0, 255);
  const cv::Scalar green(0, 255, 0);
  const cv::Point start(point);
  const cv::Point end(cv::Point2f(point.x, end_row));
  cv::circle(picture, start, radius, red, 1, cv::LINE_8);
  cv::arrowedLine(picture, start, end, is_small ? green : red, 3, cv::LINE_8, 0, 0.3);
}

}  // namespace

void drawResidual(cv::Mat& picture, const cv::Point2f& measured, double error) {
  drawArrow(picture, measured, static_cast<float>(measured.y + kEnlargement * error), kResidualRadius,
            std::abs(error) < kSmallResidual);
}

void drawRowDifference(cv::Mat& picture, const cv::Point2f& pixel_left, float dy, bool is_small) {
  drawArrow(picture, pixel_left, pixel_left.y + static_cast<float>(kEnlargement) * dy, kRowDifferenceRadius, is_small);
}
