#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Size limits of a dot's fitted ellipse, pixels: not huge, not tiny, not flat. Only a height far above the width
/// counts as flat: it is meant so.
bool hasDotSize(const cv::Size2f& size);

/// Root mean square of the ellipse equation's error over the points, without a unit. The width is laid on the rotated y
/// and the height on x: it is meant so.
double algebraicResidual(const std::vector<cv::Point2f>& points, const cv::RotatedRect& ellipse);

/// The ellipse through the edge points of one outline, pixels, in order around it (direct fit: Fitzgibbon, Pilu and
/// Fisher 1999). Nothing when the points leave a gap or don't look like a dot. Needs five points at least.
std::optional<Ellipse> fitCircle(const std::vector<cv::Point2f>& edge_points);

/// The record of an ellipse that was fitted to these edge points. Nothing when the two don't look like a dot, or when
/// the fit is not finite. A residual that is not a number, as a fit without height can have, does not count against it:
/// it is not above the limit.
std::optional<Ellipse> dotOfFit(const cv::RotatedRect& fit, const std::vector<cv::Point2f>& edge_points);

}  // namespace kestrune
