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
  // The area by trapezoids, as around a closed outline their sum is that of the cross products.
  std::int64_t doubled_area = 0, straight = 0, diagonal = 0;
  int farthest = 0;  // Bits of all steps: 1 where each leads from a pixel to a neighbour.
  cv::Point from = outline.back();
  for (const cv::Point& to : outline) {
    const int dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
    farthest |= dx | dy;
    diagonal += dx & dy;
    straight += dx ^ dy;
    doubled_area += (std::int64_t{from.x} + to.x) * (to.y - from.y);
    from = to;
  }
  const double perimeter = static_cast<double>(straight) + static_cast<double>(diagonal) * kDiagonal;
  return {0.5 * static_cast<double>(std::abs(doubled_area)), farthest <= 1 ? perimeter : cv::arcLength(outline, true)};
}

}  // namespace kestrune::morvenkit
