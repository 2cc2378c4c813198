#pragma once

#include <cstddef>
#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Outlines of fewer points are too small for a marker.
inline constexpr std::size_t kShortestOutline = 31;

/// Whether an outline can be that of a marker: round, and of 31 to 599 points.
bool isMarkerOutline(const Contour& outline, const EllipseDetectorParams& params);

/// Goes over the outlines from contour 0; in the place of one that cannot be a marker's come its children. Around each
/// that fits an ellipse less than twice as long as wide, a rectangle of twice the semi-axes to each side is thresholded
/// in `smoothed` (8-bit) and written, inverted, over the same rectangle of `canvas`.
void OutlineLocalThreshold(const cv::Mat& smoothed, const ContourTree& outlines, const EllipseDetectorParams& params,
                           cv::Mat& canvas);

}  // namespace kestrune::morvenkit
