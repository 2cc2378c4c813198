#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Moves each point of a contour to where the grey value between it and a neighbour crosses that of the contour's first
/// point, by linear interpolation. `grey` is 8-bit, one channel. Points outside the image are dropped; the others keep
/// their order. The level is that of the first point inside the image.
std::vector<cv::Point2f> RefineSubPixel(const Contour& contour, const cv::Mat& grey);

}  // namespace kestrune::morvenkit
