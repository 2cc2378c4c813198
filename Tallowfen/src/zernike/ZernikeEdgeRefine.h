#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

namespace kestrune {

/// Zernike moments of the grey values around a point, not normalised.
struct EdgeMoments {
  double x = 0;       ///< Real part of the first moment.
  double y = 0;       ///< Imaginary part of the first moment.
  double radial = 0;  ///< The moment of 2 r^2 - 1.
};

/// The place of the step edge, pixels, in the `size` x `size` pixels around `point`, by their moments. Nothing when the
/// step is not above 1.27 grey levels, or not nearer than 1/sqrt(2) of half that size.
std::optional<cv::Point2d> edgePoint(const cv::Point& point, const EdgeMoments& moments, int size);

/// Moves the points of contours to the sub-pixel step edge in the N x N neighbourhood of each, by its Zernike moments
/// (Ghosal and Mehrotra 1993). `image` is 8-bit, one channel. Points too near to the image's edge, on weak
/// steps, or farther than 1/sqrt(2) of the neighbourhood's half width from the step give no edge point; contours with
/// fewer than 8 edge points are left out of the result.
std::vector<std::vector<cv::Point2d>> ZernikeEdgeRefine(const cv::Mat& image,
                                                        const std::vector<std::vector<cv::Point>>& contours, int size);

}  // namespace kestrune
