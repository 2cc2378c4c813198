#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune {

/// Moves the points of contours to the sub-pixel step edge in the N x N neighbourhood of each, by its Zernike moments
/// (Ghosal and Mehrotra 1993). `image` is 8-bit, one channel, continuous. Points too near to the image's edge, on weak
/// steps, or farther than 1/sqrt(2) of the neighbourhood's half width from the step give no edge point; contours with
/// fewer than 8 edge points are left out of the result.
std::vector<std::vector<cv::Point2d>> ZernikeEdgeRefine(const cv::Mat& image,
                                                        const std::vector<std::vector<cv::Point>>& contours, int size);

}  // namespace kestrune
