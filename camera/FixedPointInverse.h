#pragma once

#include <cmath>
#include <opencv2/core.hpp>

/// What the search for q in p = q + D(q) found.
struct InverseResult {
  cv::Point2d point;       ///< The last q.
  cv::Point2d distortion;  ///< D at the last q.
  /// False when the steps ran out. Meant: also when the very last step met the tolerance.
  bool converged = false;
};

/// In the sum of the absolute errors of x and y, normalised coordinates: a thousandth of a pixel at a focal length of
/// 1000.
inline constexpr double kInverseTolerance = 1e-6;
/// Real lenses need some tens of steps; a point that needs this many counts as one without an inverse.
inline constexpr int kInverseSteps = 200;

/// Solves q + D(q) = target by q <- target - D(q), starting at the target. `needsStep` judges the sum of the absolute
/// errors, so that a model can choose what NaN means.
template <typename Distortion, typename NeedsStep>
InverseResult invertByFixedPoint(const cv::Point2d& target, const Distortion& distortionAt,
                                 const NeedsStep& needsStep) {
  const auto errorOf = [&target](const InverseResult& at) {
    return std::abs(at.point.x + at.distortion.x - target.x) + std::abs(at.point.y + at.distortion.y - target.y);
  };
  InverseResult at{target, distortionAt(target)};
  int steps = 0;
  while (needsStep(errorOf(at)) && steps < kInverseSteps) {
    ++steps;
    at.point = target - at.distortion;
    at.distortion = distortionAt(at.point);
  }
  at.converged = steps < kInverseSteps;
  return at;
}
