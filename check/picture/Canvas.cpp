#include "check/picture/Canvas.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace {

constexpr int kFont = cv::FONT_HERSHEY_SIMPLEX;
/// Letters are drawn larger on canvases beyond this width, by its share.
constexpr double kPlainWidth = 2400.0;
constexpr double kLetters = 0.36;
/// How much of the image's contrast stays, and what is added.
constexpr double kFaded = 0.7;
constexpr double kLightened = 50.0;
/// Pixels a side that a canvas has at most by enlarging.
constexpr int kLargestCanvas = 4096;
/// Pixels of the canvas that the radius of a dot has at least.
constexpr double kLeastRadius = 8.0;
/// Of coordinates: a sixteenth of a pixel.
constexpr int kShift = 4;

cv::Mat eightBit(const cv::Mat& image) {
  if (image.depth() == CV_8U) return image;
  cv::Mat grey;
  cv::normalize(image, grey, 0.0, 255.0, cv::NORM_MINMAX, CV_8U);
  return grey;
}

/// Of an image of one to four channels; any other gives a blank one.
cv::Mat bgrOf(const cv::Mat& image) {
  cv::Mat bgr;
  switch (image.channels()) {
    case 1:
      cv::cvtColor(eightBit(image), bgr, cv::COLOR_GRAY2BGR);
      return bgr;
    case 3:
      return eightBit(image).clone();
    case 4:
      cv::cvtColor(eightBit(image), bgr, cv::COLOR_BGRA2BGR);
      return bgr;
    default:
      return {image.size(), CV_8UC3, cv::Scalar::all(128)};
  }
}

cv::Point fixedPoint(const cv::Point2d& place) {
  return {cvRound(place.x * (1 << kShift)), cvRound(place.y * (1 << kShift))};
}

}  // namespace

Canvas::Canvas(const cv::Mat& image, int factor) : factor_(factor) {
  cv::resize(bgrOf(image), picture_, cv::Size(), factor, factor, cv::INTER_LINEAR);
  picture_.convertTo(picture_, -1, kFaded, kLightened);
  const double growth = std::max(1.0, picture_.cols / kPlainWidth);
  letters_ = kLetters * growth;
  thickness_ = std::max(1, cvRound(growth));
}

void Canvas::outline(const cv::Point2d& centre, double a, double b, double angle, const cv::Scalar& colour) {
  if (!std::isfinite(a + b + angle + centre.x + centre.y)) return;
  const cv::Point axes = fixedPoint({std::max(a, 0.5) * factor_, std::max(b, 0.5) * factor_});
  cv::ellipse(picture_, fixedPoint(at(centre)), cv::Size(axes.x, axes.y), angle * 180.0 / CV_PI, 0.0, 360.0, colour,
              thickness_, cv::LINE_AA, kShift);
}

void Canvas::line(const cv::Point2d& from, const cv::Point2d& to, const cv::Scalar& colour) {
  cv::line(picture_, fixedPoint(at(from)), fixedPoint(at(to)), colour, thickness_, cv::LINE_AA, kShift);
}

void Canvas::cross(const cv::Point2d& centre, double reach, const cv::Scalar& colour) {
  line(centre - cv::Point2d(reach, 0), centre + cv::Point2d(reach, 0), colour);
  line(centre - cv::Point2d(0, reach), centre + cv::Point2d(0, reach), colour);
}

void Canvas::text(const std::string& text, const cv::Point& corner, const cv::Scalar& colour) {
  const cv::Point inner = corner + cv::Point(thickness_ + 1, -thickness_ - 1);
  cv::putText(picture_, text, inner, kFont, letters_, cv::Scalar::all(0), 3 * thickness_, cv::LINE_AA);
  cv::putText(picture_, text, inner, kFont, letters_, colour, thickness_, cv::LINE_AA);
}

cv::Size Canvas::sizeOf(const std::string& text) const {
  int below = 0;
  const cv::Size size = cv::getTextSize(text, kFont, letters_, thickness_, &below);
  return size + cv::Size(2 * thickness_ + 2, 2 * thickness_ + 2);
}

int factorFor(const cv::Size& image, double dot_radius) {
  const int side = std::max({image.width, image.height, 1});
  const int most = std::max(1, kLargestCanvas / side);
  return dot_radius > 0.0 ? std::clamp(static_cast<int>(std::ceil(kLeastRadius / dot_radius)), 1, most) : 1;
}
