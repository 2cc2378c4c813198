#pragma once

#include <opencv2/core.hpp>

/// Marks a measured point on a BGR picture: a red circle and an arrow straight down, 300 times as long as the error.
/// The arrow is green below 0.03 pixels, otherwise red. `error` is a number, pixels.
void drawResidual(cv::Mat& picture, const cv::Point2f& measured, double error);
