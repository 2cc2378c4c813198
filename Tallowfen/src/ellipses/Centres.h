#pragma once

#include <cmath>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Centre of an ellipse in single precision, pixels: the recognition and the coarse numbering of the markers work on
/// it.
cv::Point2f centreOf(const Ellipse& ellipse);
std::vector<cv::Point2f> centresOf(const std::vector<Ellipse>& ellipses);

/// Cosine of the angle between two differences of centres, in single precision throughout. NaN when one of them is
/// zero.
inline float cosineBetween(const cv::Point2f& u, const cv::Point2f& v) {
  const float dot = u.x * v.x + u.y * v.y;
  const float length_u = std::sqrt(u.x * u.x + u.y * u.y);
  const float length_v = std::sqrt(v.x * v.x + v.y * v.y);
  return dot / (length_u * length_v);
}

}  // namespace kestrune
