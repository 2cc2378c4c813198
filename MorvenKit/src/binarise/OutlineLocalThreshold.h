#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Whether an outline is round and its length is one that the outline walks look at: 31 to 599 points.
bool isMarkerOutline(const Contour& outline, const EllipseDetectorParams& params);

/// Walks the outlines from contour 0. Around each one that fits an ellipse not much longer than wide, the rectangle of
/// twice the semi-axes is thresholded in `smoothed` (8-bit) and written, inverted, over the same rectangle of `canvas`.
/// Outlines that are no marker's are replaced by their children.
void OutlineLocalThreshold(const cv::Mat& smoothed, const ContourTree& outlines, const EllipseDetectorParams& params,
                           cv::Mat& canvas);

}  // namespace kestrune::morvenkit
