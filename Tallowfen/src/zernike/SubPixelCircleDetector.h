#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/ContourCounts.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/zernike/DotContour.h"

namespace kestrune {

/// Whether a contour gets an ellipse: of a dot's length and roundness, and without a parent.
bool canBeDot(const Contour& contour, const cv::Vec4i& relatives);

/// How the ellipses were come by.
struct CircleSearch {
  cv::Mat binary;  ///< The two-valued image that was traced, dots white.
  morvenkit::ContourCounts contours;
};

/// Finds dots in an 8-bit image (grey or BGR) by an adaptive threshold, sub-pixel edge points from Zernike moments and
/// a direct ellipse fit. Bright dots are looked for first: ten or more round contours without a parent. With fewer the
/// threshold is inverted, which finds dark dots. `ellipses` is replaced; the caller gives them their classes. The
/// pixels of `image` are not changed. Returns what became of the contours.
CircleSearch SubPixelCircleDetector(const cv::Mat& image, std::vector<Ellipse>& ellipses);

}  // namespace kestrune
