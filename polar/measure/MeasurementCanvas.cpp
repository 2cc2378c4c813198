#include "polar/measure/MeasurementCanvas.h"

#include <opencv2/imgproc.hpp>
#include <string>

#include "platform/Pictures.h"
#include "polar/measure/ImageNormalisation.h"

namespace {

/// Whether each half becomes grey by itself; images of more bits share one stretch.
bool areNormalisedApart(int type) { return type == CV_8UC1 || type == CV_8UC3 || type == CV_8UC4; }

/// Each half goes straight to its place: pictures of the size of both are dear to touch for the first time.
cv::Mat greyHalves(const cv::Mat& left_image, const cv::Mat& right_image) {
  pictures::requireHalves(left_image, right_image, left_image.type());
  cv::Mat picture(left_image.rows, 2 * left_image.cols, CV_8UC3);
  cv::Mat left_half = picture.colRange(0, left_image.cols);
  cv::Mat right_half = picture.colRange(left_image.cols, picture.cols);
  cv::cvtColor(normaliseTo8Bit(left_image), left_half, cv::COLOR_GRAY2BGR);
  cv::cvtColor(normaliseTo8Bit(right_image), right_half, cv::COLOR_GRAY2BGR);
  return picture;
}

cv::Mat pictureOf(const cv::Mat& left_image, const cv::Mat& right_image) {
  // The measurement ends at the empty image, so nobody sees this picture.
  if (left_image.empty() || right_image.empty()) return cv::Mat::zeros(left_image.rows, 2 * left_image.cols, CV_8UC3);
  if (areNormalisedApart(left_image.type())) return greyHalves(left_image, right_image);
  cv::Mat picture = normaliseTo8Bit(pictures::sideBySide(left_image, right_image, left_image.type()));
  if (picture.type() == CV_8UC1) cv::cvtColor(picture, picture, cv::COLOR_GRAY2BGR);
  return picture;
}

}  // namespace

MeasurementCanvas::MeasurementCanvas(const cv::Mat& left_image, const cv::Mat& right_image)
    : left_cols_(left_image.cols), picture_(pictureOf(left_image, right_image)) {}

void MeasurementCanvas::markPoint(Side side, std::int32_t id, const cv::Point2d& centre) {
  const cv::Scalar red(0, 0, 255);
  const cv::Point2f place(static_cast<float>(centre.x) + shiftOf(side), static_cast<float>(centre.y));
  cv::circle(picture_, cv::Point(place), 2, red, 1, cv::LINE_8);
  cv::putText(picture_, std::to_string(id), cv::Point(place + cv::Point2f(20.0F, 5.0F)), cv::FONT_HERSHEY_SIMPLEX, 1.0,
              red, 1, cv::LINE_8);
}

void MeasurementCanvas::markEdge(Side side, const std::vector<cv::Point2f>& edge_pixels) {
  const cv::Scalar colour = side == Side::kLeft ? cv::Scalar(0, 255, 0) : cv::Scalar(255, 0, 0);
  for (const cv::Point2f& pixel : edge_pixels) {
    cv::circle(picture_, cv::Point(pixel + cv::Point2f(shiftOf(side), 0.0F)), 1, colour, 1, cv::LINE_8);
  }
}
