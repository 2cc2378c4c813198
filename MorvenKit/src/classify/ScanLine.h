#pragma once

#include <opencv2/core.hpp>
#include <optional>

namespace kestrune::morvenkit {

/// Count of a ray without samples.
inline constexpr int kVerticalRay = -1;

/// Counts how often a two-valued image changes along the ray from one point to another, pixels. No count when the two
/// are the same, and none when one lies outside the image or is not a number. A ray that is exactly vertical is not
/// sampled: it gives `kVerticalRay`.
std::optional<int> ScanLine(const cv::Point2f& from, const cv::Point2f& to, const cv::Mat& binary);

}  // namespace kestrune::morvenkit
