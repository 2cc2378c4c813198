#include "platform/Pictures.h"

namespace pictures {

cv::Mat stretchTo8Bit(const cv::Mat& image) {
  double min = 0.0;
  double max = 0.0;
  cv::minMaxIdx(image, &min, &max);
  cv::Mat stretched;
  if (max == min) return cv::Mat::zeros(image.size(), CV_8UC1);
  image.convertTo(stretched, CV_8U, 255.0 / (max - min), -255.0 * min / (max - min));
  return stretched;
}

cv::Mat sideBySide(const cv::Mat& left, const cv::Mat& right, int type) {
  cv::Mat canvas = cv::Mat::zeros(left.rows, 2 * left.cols, type);
  const auto put = [&canvas](const cv::Mat& image, const cv::Rect& half) {
    CV_CheckTypeEQ(image.type(), canvas.type(), "both halves have the picture's type");
    CV_CheckEQ(image.cols, half.width, "both halves have the left image's columns");
    CV_CheckEQ(image.rows, half.height, "both halves have the left image's rows");
    image.copyTo(canvas(half));
  };
  put(left, cv::Rect(0, 0, left.cols, left.rows));
  put(right, cv::Rect(left.cols, 0, left.cols, left.rows));
  return canvas;
}

}  // namespace pictures
