#include "Tallowfen/src/TargetDrawing.h"

#include <array>
#include <cstdint>
#include <opencv2/imgproc.hpp>
#include <string>

namespace kestrune {
namespace {

/// Blue, green, red, alpha.
const std::array<cv::Scalar, 6>& colours() {
  static const std::array<cv::Scalar, 6> kColours = {cv::Scalar(0, 0, 255, 0),   cv::Scalar(0, 255, 0, 0),
                                                     cv::Scalar(255, 0, 0, 0),   cv::Scalar(255, 0, 255, 0),
                                                     cv::Scalar(255, 255, 0, 0), cv::Scalar(0, 255, 255, 0)};
  return kColours;
}

// The places in the table of colours; those of ids are its complement.
constexpr std::size_t kRed = 0;
constexpr std::size_t kCyan = 4;
constexpr std::size_t kYellow = 5;

// Meant: what is numbered in a higher layer is not drawn.
constexpr std::int32_t kHighestLayer = 6;

// Pixels.
constexpr int kLineWidth = 2;
constexpr int kDotRadius = 2;
constexpr float kIdLeftOfCentre = 5.0F;
// Of the ellipse's width: size and thickness of its id.
constexpr double kIdSize = 0.015;
constexpr double kIdThickness = 0.03;

cv::RotatedRect scaledBox(const Ellipse& ellipse, double scale) {
  const cv::Point2f centre(static_cast<float>((ellipse.x + 0.5) * scale + 0.5),
                           static_cast<float>((ellipse.y + 0.5) * scale + 0.5));
  const cv::Size2f size(static_cast<float>(2.0 * ellipse.semi_a * scale),
                        static_cast<float>(2.0 * ellipse.semi_b * scale));
  return {centre, size, static_cast<float>(ellipse.angle / CV_PI * 180.0)};
}

void drawOutline(cv::Mat& dst, const cv::RotatedRect& box, const cv::Scalar& colour) {
  cv::ellipse(dst, box, colour, kLineWidth, cv::LINE_8);
}

void drawId(cv::Mat& dst, const cv::RotatedRect& box, std::int32_t id) {
  const cv::Point position(cvRound(box.center.x - kIdLeftOfCentre), cvRound(box.center.y));
  const cv::Scalar colour = cv::Scalar::all(255) - colours()[kYellow];
  const double width = box.size.width;
  cv::putText(dst, std::to_string(boardIndexOf(id)), position, cv::FONT_HERSHEY_SIMPLEX, width * kIdSize, colour,
              static_cast<int>(width * kIdThickness), cv::LINE_8, false);
}

void drawIdentified(cv::Mat& dst, const Ellipse& ellipse, double scale) {
  if (layerOf(ellipse.id) > kHighestLayer) return;
  const cv::RotatedRect box = scaledBox(ellipse, scale);
  drawOutline(dst, box, colours()[kRed]);
  drawId(dst, box, ellipse.id);
}

void drawUnidentified(cv::Mat& dst, const Ellipse& ellipse, double scale) {
  const cv::RotatedRect box = scaledBox(ellipse, scale);
  drawOutline(dst, box, colours()[kCyan]);
  const cv::Point centre(cvRound(box.center.x), cvRound(box.center.y));
  cv::circle(dst, centre, kDotRadius, colours()[kCyan], cv::FILLED, cv::LINE_8, 0);
}

}  // namespace

void drawTarget(const cv::Mat& src, cv::Mat& dst, double scale, const std::vector<Ellipse>& identified,
                const std::vector<Ellipse>& unidentified) {
  // Not `CV_Assert`, which would name this function: callers know the operation of the target.
  if (src.type() != CV_8UC1 && src.type() != CV_8UC3) {
    cv::error(cv::Error::StsAssert, "src.type() == CV_8UC1 || src.type() == CV_8UC3", "kestrune::RingTarget::draw",
              __FILE__, __LINE__);
  }
  if (src.type() == CV_8UC1) {
    cv::cvtColor(src, dst, cv::COLOR_GRAY2BGR);
  } else {
    dst = src.clone();
  }
  cv::resize(dst, dst, cv::Size(), scale, scale, cv::INTER_LINEAR);
  for (const Ellipse& ellipse : identified) drawIdentified(dst, ellipse, scale);
  for (const Ellipse& ellipse : unidentified) drawUnidentified(dst, ellipse, scale);
}

}  // namespace kestrune
