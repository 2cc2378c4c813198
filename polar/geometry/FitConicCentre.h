#pragma once

#include <opencv2/core.hpp>
#include <vector>

/// Centre of the ellipse through the points: direct conic fit by the normal equations on normalised coordinates
/// (Fitzgibbon, Pilu and Fisher 1999), in single precision throughout. Returns 1 when there are at least 5 points,
/// otherwise 0. `centre` stays as it was with fewer points and for a conic without a squared term.
int FitConicCentre(const std::vector<cv::Point2f>& points, cv::Point2f& centre);
