#include "diagnose/quality/Coverage.h"

#include <opencv2/imgproc.hpp>

namespace diagnose {

std::vector<cv::Point2f> boardOutline(const std::vector<DotFrame>& frames) {
  std::vector<cv::Point2f> corners;
  for (const DotFrame& frame : frames) {
    for (const cv::Vec2d& corner :
         {cv::Vec2d(-0.5, -0.5), cv::Vec2d(0.5, -0.5), cv::Vec2d(0.5, 0.5), cv::Vec2d(-0.5, 0.5)}) {
      const cv::Vec2d offset = frame.axes * corner;
      corners.emplace_back(static_cast<float>(frame.pixel.x + offset[0]),
                           static_cast<float>(frame.pixel.y + offset[1]));
    }
  }
  if (corners.empty()) return corners;
  std::vector<cv::Point2f> outline;
  cv::convexHull(corners, outline);
  return outline;
}

void Coverage::add(const std::vector<cv::Point2f>& outline, const cv::Size& picture) {
  if (outline.empty() || picture.empty()) return;
  std::vector<cv::Point> polygon;
  polygon.reserve(outline.size());
  for (const cv::Point2f& corner : outline)
    polygon.emplace_back(cvFloor(corner.x * kCells / static_cast<float>(picture.width)),
                         cvFloor(corner.y * kCells / static_cast<float>(picture.height)));
  cv::fillConvexPoly(cells_, polygon, cv::Scalar(1));
}

double Coverage::share() const { return static_cast<double>(cv::countNonZero(cells_)) / (kCells * kCells); }

}  // namespace diagnose
