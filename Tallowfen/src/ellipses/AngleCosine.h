#pragma once

#include <cmath>
#include <opencv2/core.hpp>

namespace kestrune {

/// Cosine of the angle between two vectors, in single precision throughout. Not a number when one of them is zero.
inline float cosineBetween(const cv::Point2f& u, const cv::Point2f& v) {
  const float dot = u.x * v.x + u.y * v.y;
  const float length_u = std::sqrt(u.x * u.x + u.y * u.y);
  const float length_v = std::sqrt(v.x * v.x + v.y * v.y);
  return dot / (length_u * length_v);
}

}  // namespace kestrune
