#include "polar/evaluate/raw/ResidualDrawing.h"

#include <cmath>
#include <opencv2/imgproc.hpp>

void drawResidual(cv::Mat& picture, const cv::Point2f& measured, double error) {
  const cv::Scalar red(0, 0, 255);
  const cv::Scalar green(0, 255, 0);
  const cv::Point start(measured);
  const cv::Point end(cv::Point2f(measured.x, static_cast<float>(measured.y + 300.0 * error)));
  cv::circle(picture, start, 1, red, 1, 8);
  cv::arrowedLine(picture, start, end, std::abs(error) < 0.03 ? green : red, 3, 8, 0, 0.3);
}
