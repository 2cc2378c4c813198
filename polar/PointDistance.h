#pragma once

#include <cmath>
#include <opencv2/core.hpp>

/// Length between two points of a cloud: differences, squares and their sum in single precision, the root in double.
/// Narrowed, it is the length in single precision throughout.
inline double pointDistance(const cv::Point3f& a, const cv::Point3f& b) {
  const float dx = a.x - b.x;
  const float dy = a.y - b.y;
  const float dz = a.z - b.z;
  const float square_sum = dx * dx + dy * dy + dz * dz;
  return std::sqrt(static_cast<double>(square_sum));
}
