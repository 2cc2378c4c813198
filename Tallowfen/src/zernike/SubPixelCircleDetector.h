#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/zernike/PolarityCheck.h"

namespace kestrune {

/// Whether a contour is worth an ellipse: of a dot's length and roundness, and without a parent. `relatives` are its
/// next, previous, first child and parent, -1 for none.
bool canBeDot(const Contour& contour, const cv::Vec4i& relatives);

/// Finds dots in an 8-bit image (grey or BGR) by an adaptive threshold, sub-pixel edge points from Zernike moments and
/// a direct ellipse fit. Bright dots are the plain case: ten or more round ones that no contour holds. With fewer the
/// threshold is inverted, which finds dark dots. `ellipses` is replaced; their classes are given by the caller. The
/// pixels of `image` are not changed.
void SubPixelCircleDetector(const cv::Mat& image, std::vector<Ellipse>& ellipses);

}  // namespace kestrune
