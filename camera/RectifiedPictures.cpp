#include "camera/RectifiedPictures.h"

#include <opencv2/imgproc.hpp>

#include "platform/Pictures.h"

namespace {

cv::Mat converted(const cv::Mat& image, int code) {
  cv::Mat picture;
  cv::cvtColor(image, picture, code);
  return picture;
}

}  // namespace

cv::Mat drawablePicture(const cv::Mat& image) {
  switch (image.type()) {
    case CV_8UC1:
      return converted(image, cv::COLOR_GRAY2BGR);
    case CV_8UC4:
      return converted(image, cv::COLOR_BGRA2BGR);
    case CV_16UC1:
      return converted(pictures::stretchTo8Bit(image), cv::COLOR_GRAY2BGR);
    default:
      return image;
  }
}

cv::Mat polarLineCanvas(const cv::Mat& left, const cv::Mat& right) {
  constexpr int kRowsBetweenLines = 32;
  const cv::Scalar green(0, 255, 0, 0);
  cv::Mat canvas = pictures::sideBySide(left, right, CV_8UC3);
  for (int row = 0; row < canvas.rows; row += kRowsBetweenLines) {
    cv::line(canvas, cv::Point(0, row), cv::Point(canvas.cols, row), green, 1, cv::LINE_8, 0);
  }
  return canvas;
}
