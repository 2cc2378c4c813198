#pragma once

#include <opencv2/core.hpp>
#include <optional>

namespace kestrune::morvenkit {

/// What `ScanLine` gives for a vertical ray, in the place of a count.
inline constexpr int kVerticalRay = -1;

/// Counts how often a two-valued image changes along the ray from one point to another, pixels. No value when the two
/// are the same, or one is outside the image or NaN. A ray that is exactly vertical is not sampled: it gives
/// `kVerticalRay`.
std::optional<int> ScanLine(const cv::Point2f& from, const cv::Point2f& to, const cv::Mat& binary);

}  // namespace kestrune::morvenkit
