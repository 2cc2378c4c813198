#include "polar/evaluate/ErrorArrow.h"

#include <cmath>
#include <opencv2/imgproc.hpp>

namespace {

void drawArrow(cv::Mat& picture, const cv::Point2f& point, float end_row, int radius, bool is_small) {
  const cv::Scalar red(0, 0, 255);
  const cv::Scalar green(0, 255, 0);
  const cv::Point start(point);
  const cv::Point end(cv::Point2f(point.x, end_row));
  cv::circle(picture, start, radius, red, 1, 8);
  cv::arrowedLine(picture, start, end, is_small ? green : red, 3, 8, 0, 0.3);
}

}  // namespace

void drawResidual(cv::Mat& picture, const cv::Point2f& measured, double error) {
  drawArrow(picture, measured, static_cast<float>(measured.y + 300.0 * error), 1, std::abs(error) < 0.03);
}

void drawRowDifference(cv::Mat& picture, const cv::Point2f& pixel_left, float dy, bool is_small) {
  drawArrow(picture, pixel_left, pixel_left.y + 300.0F * dy, 2, is_small);
}
