#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "polarline/warning.h"

namespace diagnose {

/// A board's pose before a camera: X_camera = R X_board + T.
struct SeenPose {
  cv::Matx33d R;
  cv::Vec3d T;
};

/// The way between the cameras that two poses of one board show: T of X_right = R X_left + T, board unit.
cv::Vec3d shownBaseline(const SeenPose& left, const SeenPose& right);

/// Compares it with the one that the calibration tells: another length means other units ("baseline_unit"), another
/// direction exchanged sides ("sides_exchanged").
std::optional<polarline::Warning> judgeBaseline(const cv::Vec3d& shown, const cv::Vec3d& told, int pair);

}  // namespace diagnose
