#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/CalibratedPair.h"

namespace diagnose {

/// The point in the middle between two rays, left camera frame; none where they are parallel or a lens does not see it.
std::optional<cv::Vec3d> triangulated(const CalibratedPair& cameras, const cv::Point2d& left, const cv::Point2d& right);

/// A slope of measured on true distances, and its standard error.
struct Slope {
  double value = 0.0;
  double error = 0.0;
};

/// How much larger points come out than they are (the scale of Umeyama 1991). None with fewer than eight points.
std::optional<Slope> scaleOf(const std::vector<cv::Vec3d>& measured, const std::vector<cv::Vec3d>& truth);

}  // namespace diagnose
