#pragma once

#include <cmath>
#include <opencv2/core.hpp>

/// Where the inverse of p = q + D(q) has got to.
struct FixedPoint {
  cv::Point2d point;       ///< The last q.
  cv::Point2d distortion;  ///< D at the last q.
  bool settled = false;    ///< False when the steps ran out, and also when only the last one met the tolerance.
};

inline constexpr double kInverseTolerance = 1e-6;
inline constexpr int kInverseSteps = 200;

/// Solves q + D(q) = target by q <- target - D(q), starting at the target, while `isOff` holds for the sum of the
/// absolute errors.
template <typename Distortion, typename IsOff>
FixedPoint invertByFixedPoint(const cv::Point2d& target, const Distortion& distortionAt, const IsOff& isOff) {
  const auto errorOf = [&target](const FixedPoint& at) {
    return std::abs(at.point.x + at.distortion.x - target.x) + std::abs(at.point.y + at.distortion.y - target.y);
  };
  FixedPoint at{target, distortionAt(target)};
  int steps = 0;
  while (isOff(errorOf(at)) && steps < kInverseSteps) {
    ++steps;
    at.point = target - at.distortion;
    at.distortion = distortionAt(at.point);
  }
  at.settled = steps < kInverseSteps;
  return at;
}
