#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Model units from dot to dot in the search for seeds: a dot is at its column and row times this.
inline constexpr int kGridStep = 10;

/// Centres of `all`, pixels, mapped to the model by the least-squares homography through the pairs given. Needs four
/// pairs in general position at least; OpenCV's exception passes otherwise.
std::vector<cv::Point2f> modelFromImage(const std::vector<cv::Point2f>& image_points,
                                        const std::vector<cv::Point2f>& model_points, const std::vector<Ellipse>& all);

/// Nearest multiple of 5 of a model coordinate, halves away from zero. Beyond the range of an integer its ends, for NaN
/// the lower end.
int nearestFive(float coordinate);

/// A model coordinate with its fraction cut off, with the same ends.
int truncated(float coordinate);

}  // namespace kestrune
