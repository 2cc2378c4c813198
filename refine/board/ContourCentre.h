#pragma once

#include <optional>

#include "camera/PoseFit.h"

namespace refine {

/// Centre of the imaged outline of a circle on the board less the image of the circle's centre, pixels: through the
/// whole lens, with the estimator that the dots are measured with, an ellipse fitted to the outline by its dual conic
/// with all parts of the outline alike. For a pinhole this is what Heikkila (2000) tells. None where the circle is not
/// whole in front of the camera.
std::optional<cv::Point2d> contourBias(const CalibratedCamera& camera, const CameraPose& pose, const cv::Point3d& board,
                                       double radius);

}  // namespace refine
