#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Whether a fitted ellipse has a dot's size, pixels: not huge, not tiny, not flat. Meant: flat is only a height of
/// more than 2.5 times the width, not the other way round.
bool hasDotSize(const cv::Size2f& size);

/// How points lie about an ellipse.
struct Misfit {
  double residual;     ///< Root mean square error of the ellipse's equation, without a unit.
  double area_around;  ///< Of an ellipse that surely holds all points, square pixels; infinite where the residual is no
                       ///< finite number.
};

/// Meant: the width goes with the rotated y and the height with x.
Misfit algebraicMisfit(const std::vector<cv::Point2f>& points, const cv::RotatedRect& ellipse);

/// The ellipse fitted to the edge points of one outline, pixels, in order around it (direct fit: Fitzgibbon, Pilu and
/// Fisher 1999). Nothing when the points leave a gap or don't look like a dot. Needs five points at least.
std::optional<Ellipse> fitCircle(std::vector<cv::Point2f> edge_points);

/// The record of an ellipse that was fitted to these edge points. Nothing when the two don't look like a dot, or when
/// the fit is not finite. A residual of NaN, as a fit without height can have, passes: it is not above the limit.
std::optional<Ellipse> dotOfFit(const cv::RotatedRect& fit, std::vector<cv::Point2f> edge_points);

}  // namespace kestrune
