#include "MorvenKit/OutlineMeasures.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <opencv2/imgproc.hpp>

namespace kestrune::morvenkit {

namespace {

// A step to a diagonal neighbour, as OpenCV rounds it. So short a number that sums of thousands of it are exact, in
// whatever order they are formed.
const double kDiagonal = static_cast<double>(std::sqrt(2.0F));

}  // namespace

OutlineMeasures measureOutline(const std::vector<cv::Point>& outline) {
  if (outline.empty()) return {};
  std::int64_t doubled_area = 0, straight = 0, diagonal = 0;
  bool traced = true;  // From each pixel to a neighbour.
  cv::Point from = outline.back();
  for (const cv::Point& to : outline) {
    const int dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
    traced = traced && dx <= 1 && dy <= 1;
    diagonal += dx & dy;
    straight += dx ^ dy;
    doubled_area += std::int64_t{from.x} * to.y - std::int64_t{to.x} * from.y;
    from = to;
  }
  const double perimeter = static_cast<double>(straight) + static_cast<double>(diagonal) * kDiagonal;
  return {0.5 * static_cast<double>(std::abs(doubled_area)), traced ? perimeter : cv::arcLength(outline, true)};
}

}  // namespace kestrune::morvenkit
