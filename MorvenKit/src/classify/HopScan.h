#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/src/classify/ContourStatus.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Centre of gravity of the area within a contour, pixels, single precision. NaN for a contour without area.
cv::Point2f contourCentroid(const Contour& contour);

/// Tells a dot, a ring and a ring with a core apart by the changes between black and white on eight rays from
/// `centroid` to points of the contour, which has 8 points or more. `index` is its place in the list, for the line on
/// standard error when no ray could be drawn.
ContourStatus HopScan(int index, const Contour& contour, const cv::Point2f& centroid, const cv::Mat& binary);

}  // namespace kestrune::morvenkit
