#pragma once

#include <opencv2/core.hpp>

// An error of a measured point on a BGR picture: a red circle at the point and an arrow along the column, 300 times as
// long as the error, green for a small error and red for a large one.

/// Reprojection residual, pixels: the arrow points straight down and is green below 0.03 pixels. `error` must not be
/// NaN.
void drawResidual(cv::Mat& picture, const cv::Point2f& measured, double error);

/// Row difference, pixels: the arrow has the sign of the difference, and the caller says whether it is small.
void drawRowDifference(cv::Mat& picture, const cv::Point2f& pixel_left, float dy, bool is_small);
