#pragma once

#include <vector>

#include "MorvenKit/CtrlPoint.h"

namespace kestrune::morvenkit {

/// A detected ellipse: centre, semi-axes and orientation of a contour's sub-pixel edge points.
template <typename T>
struct Ellipse : CtrlPoint<T> {
  T semi_a = 0;     ///< First semi-axis, pixels.
  T semi_b = 0;     ///< Second semi-axis, pixels.
  T angle = 0;      ///< Orientation, radians.
  T sigma = -1;     ///< Root mean square edge residual, pixels; -1 until fitted or when the fit failed.
  T roundness = 0;  ///< 4 pi area / perimeter^2 of the refined contour; set by the Zernike detector only.
};

/// Fits an ellipse to sub-pixel edge points: direct conic fit by least squares, outlier trimming, repeated until
/// nothing is trimmed. The points become the ellipse's `edge_points`. Fewer than 5 points give a default ellipse, also
/// none at all. Points exactly on an ellipse give a `sigma` of 0, which counts as failed. Throws `std::runtime_error`
/// on a degenerate conic; every other failure is a `sigma` not above 0 (NaN when the points lie on a line).
Ellipse<double> fitEllipseRobust(std::vector<cv::Point2f> points);

}  // namespace kestrune::morvenkit
