#include "Tallowfen/src/TargetDrawing.h"

#include <array>
#include <cstdint>
#include <opencv2/imgproc.hpp>
#include <string>

#include "Tallowfen/src/Assertion.h"

namespace kestrune {
namespace {

/// Blue, green, red, alpha.
const std::array<cv::Scalar, 6>& colours() {
  static const std::array<cv::Scalar, 6> kColours = {cv::Scalar(0, 0, 255, 0),   cv::Scalar(0, 255, 0, 0),
                                                     cv::Scalar(255, 0, 0, 0),   cv::Scalar(255, 0, 255, 0),
                                                     cv::Scalar(255, 255, 0, 0), cv::Scalar(0, 255, 255, 0)};
  return kColours;
}

constexpr std::int32_t kHighestLayer = 6;

cv::RotatedRect scaledBox(const Ellipse& ellipse, double scale) {
  const cv::Point2f centre(static_cast<float>((ellipse.x + 0.5) * scale + 0.5),
                           static_cast<float>((ellipse.y + 0.5) * scale + 0.5));
  const cv::Size2f size(static_cast<float>(2.0 * ellipse.semi_a * scale),
                        static_cast<float>(2.0 * ellipse.semi_b * scale));
  return {centre, size, static_cast<float>(ellipse.angle / CV_PI * 180.0)};
}

void drawOutline(cv::Mat& dst, const cv::RotatedRect& box, const cv::Scalar& colour) {
  cv::ellipse(dst, box, colour, 2, cv::LINE_8);
}

void drawId(cv::Mat& dst, const cv::RotatedRect& box, std::int32_t id) {
  const cv::Point position(cvRound(box.center.x - 5.0F), cvRound(box.center.y));
  const cv::Scalar colour = cv::Scalar::all(255) - colours()[5];
  const double width = box.size.width;
  cv::putText(dst, std::to_string(id & 0xffff), position, cv::FONT_HERSHEY_SIMPLEX, width * 0.015, colour,
              static_cast<int>(width * 0.03), cv::LINE_8, false);
}

void drawIdentified(cv::Mat& dst, const Ellipse& ellipse, double scale) {
  if ((ellipse.id >> 16 & 0xff) > kHighestLayer) return;
  const cv::RotatedRect box = scaledBox(ellipse, scale);
  drawOutline(dst, box, colours()[0]);
  drawId(dst, box, ellipse.id);
}

void drawUnidentified(cv::Mat& dst, const Ellipse& ellipse, double scale) {
  const cv::RotatedRect box = scaledBox(ellipse, scale);
  drawOutline(dst, box, colours()[4]);
  const cv::Point centre(cvRound(box.center.x), cvRound(box.center.y));
  cv::circle(dst, centre, 2, colours()[4], cv::FILLED, cv::LINE_8, 0);
}

}  // namespace

void drawTarget(const cv::Mat& src, cv::Mat& dst, double scale, const std::vector<Ellipse>& identified,
                const std::vector<Ellipse>& unidentified) {
  assertThat(src.type() == CV_8UC1 || src.type() == CV_8UC3, "src.type() == CV_8UC1 || src.type() == CV_8UC3",
             "kestrune::RingTarget::draw");
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
