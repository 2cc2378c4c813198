#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "camera/CalibratedCamera.h"

/// Row of a point of the rectified picture as a slope: pixels from the middle by the focal length.
/// @param frame From the camera's own frame into the rectified one.
/// @param ideal Normalised, the lens taken out.
double rowSlopeOf(const cv::Matx33d& frame, const cv::Vec2d& ideal);

/// The same of a pixel; none where the lens does not see it.
std::optional<double> rowSlopeOf(const CalibratedCamera& camera, const cv::Matx33d& frame, const cv::Point2d& pixel);
