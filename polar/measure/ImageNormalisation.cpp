#include "polar/measure/ImageNormalisation.h"

#include <opencv2/imgproc.hpp>

#include "platform/Pictures.h"

namespace {

cv::Mat converted(const cv::Mat& image, int code) {
  cv::Mat grey;
  cv::cvtColor(image, grey, code);
  return grey;
}

}  // namespace

cv::Mat normaliseTo8Bit(const cv::Mat& image) {
  if (image.empty()) return image;
  switch (image.type()) {
    case CV_16UC1:
      return pictures::stretchTo8Bit(image);
    case CV_8UC3:
      return converted(image, cv::COLOR_BGR2GRAY);
    case CV_8UC4:
      return converted(image, cv::COLOR_BGRA2GRAY);
    default:
      return image;
  }
}
