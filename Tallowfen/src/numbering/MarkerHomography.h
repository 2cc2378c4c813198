#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Centre in single precision, pixels: the accuracy in which the coarse numbering works.
cv::Point2f centreOf(const Ellipse& ellipse);
std::vector<cv::Point2f> centresOf(const std::vector<Ellipse>& ellipses);

/// Centres of `all`, pixels, mapped to the model by the least-squares homography through the pairs given. Needs four
/// pairs in general position at least; OpenCV's exception passes otherwise.
std::vector<cv::Point2f> modelFromImage(const std::vector<cv::Point2f>& image_points,
                                        const std::vector<cv::Point2f>& model_points, const std::vector<Ellipse>& all);

/// Nearest multiple of 5 of a model coordinate, halves away from zero; beyond the range of an integer its ends, not a
/// number its lower end.
int nearestFive(float coordinate);

/// A model coordinate with its fraction cut off, with the same ends.
int truncated(float coordinate);

}  // namespace kestrune
