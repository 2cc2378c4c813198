#include "platform/Pictures.h"

#include <cstring>

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

void requireHalves(const cv::Mat& left, const cv::Mat& right, int type) {
  for (const cv::Mat* image : {&left, &right}) {
    CV_CheckLE(image->dims, 2, "both halves have rows and columns and nothing else");
    CV_CheckTypeEQ(image->type(), type, "both halves have the picture's type");
    CV_CheckEQ(image->cols, left.cols, "both halves have the left image's columns");
    CV_CheckEQ(image->rows, left.rows, "both halves have the left image's rows");
  }
}

cv::Mat sideBySide(const cv::Mat& left, const cv::Mat& right, int type) {
  requireHalves(left, right, type);
  cv::Mat canvas(left.rows, 2 * left.cols, type);  // Both halves fill it.
  left.copyTo(canvas.colRange(0, left.cols));
  right.copyTo(canvas.colRange(left.cols, canvas.cols));
  return canvas;
}

bool sameBytes(const cv::Mat& a, const cv::Mat& b) {
  if (a.type() != b.type() || a.dims > 2 || b.dims > 2 || a.size() != b.size()) return false;
  const std::size_t row_bytes = static_cast<std::size_t>(a.cols) * a.elemSize();
  for (int row = 0; row < a.rows; ++row) {
    if (std::memcmp(a.ptr(row), b.ptr(row), row_bytes) != 0) return false;
  }
  return true;
}

}  // namespace pictures
