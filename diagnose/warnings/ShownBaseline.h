#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "camera/PoseFit.h"
#include "polarline/warning.h"

namespace diagnose {

/// The way between the cameras that two poses of one board before them show: T of X_right = R X_left + T, board unit.
cv::Vec3d shownBaseline(const CameraPose& left, const CameraPose& right);

/// Compares it with the one that the calibration tells: another length means other units ("baseline_unit"), another
/// direction exchanged sides ("sides_exchanged").
std::optional<polarline::Warning> judgeBaseline(const cv::Vec3d& shown, const cv::Vec3d& told, int pair);

}  // namespace diagnose
