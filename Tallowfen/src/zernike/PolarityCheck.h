#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/zernike/DotContour.h"

namespace kestrune {

/// Thresholds against the mean of the `block` x `block` pixels around each, less 2.5, and finds all contours of the
/// result, in two levels: outlines and the holes in them. `type` is that of the threshold, plain or inverted.
void findContoursByLocalMean(const cv::Mat& grey, int block, int type, cv::Mat& bin, std::vector<Contour>& contours,
                             std::vector<cv::Vec4i>& hierarchy);

/// Counts the round contours of dot size that have no parent and prints the count. With fewer than ten the polarity is
/// taken to be wrong: `bin`, `contours` and `hierarchy` are made anew with the inverted threshold. Every round contour
/// of that size, also one with a parent, is appended to `candidates`, which our detector does not read.
void PolarityCheck(const cv::Mat& grey, cv::Mat& bin, std::vector<Contour>& contours, std::vector<Contour>& candidates,
                   std::vector<cv::Vec4i>& hierarchy, int block);

}  // namespace kestrune
