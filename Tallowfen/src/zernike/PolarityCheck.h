#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/zernike/DotContour.h"

namespace kestrune {

/// By how much each pixel of an 8-bit picture is darker than the mean, rounded, of the `block` x `block` pixels around
/// it; 0 where it is brighter. The outermost pixels go on outside. Throws `cv::Exception` for any other picture.
cv::Mat belowLocalMean(const cv::Mat& grey, int block);

/// Which pixels are white, by how much they are `belowLocalMean`.
enum class Polarity : std::uint8_t {
  kBright,  ///< At most 2 below it.
  kDark,    ///< 2 or more below it. Meant: what is just 2 below is white by either.
};

/// Makes the two-valued picture and finds all its contours, in two levels: outlines and the holes in them.
void findContoursByLocalMean(const cv::Mat& below_mean, Polarity polarity, cv::Mat& bin, std::vector<Contour>& contours,
                             std::vector<cv::Vec4i>& hierarchy);

/// Counts the round contours of dot size that have no parent and prints the count. With fewer than ten the polarity is
/// taken to be wrong: `bin`, `contours` and `hierarchy` are made anew with dark pixels white. Every round contour
/// of that size, also one with a parent, is appended to `candidates`, which our detector does not read.
void PolarityCheck(const cv::Mat& below_mean, cv::Mat& bin, std::vector<Contour>& contours,
                   std::vector<Contour>& candidates, std::vector<cv::Vec4i>& hierarchy);

}  // namespace kestrune
