#include "camera/PolarLineCanvas.h"

#include <opencv2/imgproc.hpp>

#include "platform/Pictures.h"

cv::Mat polarLineCanvas(const cv::Mat& left, const cv::Mat& right) {
  constexpr int kRowsBetweenLines = 32;
  const cv::Scalar green(0, 255, 0, 0);
  cv::Mat canvas = pictures::sideBySide(left, right, CV_8UC3);
  for (int row = 0; row < canvas.rows; row += kRowsBetweenLines) {
    cv::line(canvas, cv::Point(0, row), cv::Point(canvas.cols, row), green, 1, cv::LINE_8, 0);
  }
  return canvas;
}
