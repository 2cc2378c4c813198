#pragma once

#include <opencv2/core.hpp>
#include <optional>

namespace calibrations {

/// Largest element of |M^T M - I| of a printed matrix that is still a rotation. The digits of a print leave 1e-16 to
/// 1e-6.
inline constexpr double kMostDeviation = 1e-3;

/// Largest element of |M^T M - I|.
double deviationOf(const cv::Matx33d& matrix);

/// The rotation with the least sum of squared differences to a printed one: U V^T of its singular value decomposition
/// (Schoenemann 1966). None for a matrix that is no rotation: too large a deviation, or a mirror.
std::optional<cv::Matx33d> nearestRotation(const cv::Matx33d& matrix);

}  // namespace calibrations
