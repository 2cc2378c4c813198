#include "camera/DrawablePicture.h"

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
