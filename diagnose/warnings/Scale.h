#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/CalibratedCamera.h"
#include "input/StereoCalibParams.h"

namespace diagnose {

/// Two cameras, and the way from the left to the right one: X_right = R X_left + T.
struct CameraPair {
  CalibratedCamera left, right;
  cv::Matx33d R;
  cv::Vec3d T;
};

CameraPair cameraPair(const StereoCalibParams& calib, LensModel model);

/// The point in the middle between two rays, left camera frame; none where they are parallel or a lens does not see it.
std::optional<cv::Vec3d> triangulated(const CameraPair& cameras, const cv::Point2d& left, const cv::Point2d& right);

/// A slope of measured on true distances, and its standard error.
struct Slope {
  double value = 0.0;
  double error = 0.0;
};

/// How much larger points come out than they are (the scale of Umeyama 1991). None with fewer than eight points.
std::optional<Slope> scaleOf(const std::vector<cv::Vec3d>& measured, const std::vector<cv::Vec3d>& truth);

}  // namespace diagnose
