#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "camera/CalibratedCamera.h"
#include "camera/PoseFit.h"

namespace refine {

/// Slope of the picture by the board's own x and y at a point of it, pixels by board units; none where it isn't seen.
std::optional<cv::Matx22d> slopeOnBoard(const CalibratedCamera& camera, const CameraPose& pose,
                                        const cv::Point3d& board, double step);

}  // namespace refine
