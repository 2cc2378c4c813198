#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Moves each point of a contour, by linear interpolation, to where the grey values between it and a neighbour cross a
/// level: the grey value of the contour's first point inside the image. `grey` is 8-bit, one channel. Points outside
/// the image are dropped; the others keep their order.
std::vector<cv::Point2f> RefineSubPixel(const Contour& contour, const cv::Mat& grey);

}  // namespace kestrune::morvenkit
