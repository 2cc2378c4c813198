#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/zernike/DotLimits.h"

namespace kestrune {

using Contour = std::vector<cv::Point>;

/// Threshold against the local mean of `block` x `block` pixels, less a margin, and all contours of the result on two
/// levels. `type` is that of the threshold, plain or inverted.
void findContoursByLocalMean(const cv::Mat& grey, int block, int type, cv::Mat& bin, std::vector<Contour>& contours,
                             std::vector<cv::Vec4i>& hierarchy);

/// 4 pi area / perimeter^2, 0 for a contour without a perimeter.
double circularityOf(const Contour& contour);

/// Whether the contour's length and circularity lie within the limits.
bool isDot(const Contour& contour, const DotLimits& limits);

/// Counts the round contours of dot size that have no parent and prints the count. With fewer than ten the polarity is
/// taken to be wrong: `bin`, `contours` and `hierarchy` are made anew with the inverted threshold. Every round contour
/// of that size is appended to `candidates`.
void PolarityCheck(const cv::Mat& grey, cv::Mat& bin, std::vector<Contour>& contours, std::vector<Contour>& candidates,
                   std::vector<cv::Vec4i>& hierarchy, int block);

}  // namespace kestrune
