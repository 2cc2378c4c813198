#pragma once

#include "calibrations/document/Node.h"
#include "calibrations/geometry/Pose.h"

/// The parts of a pose that several formats share.
namespace calibrations {

/// A rotation as a file printed it, made one: refused when it is none. `deviation` becomes the largest so far.
cv::Matx33d rotationOf(const Node& node, double& deviation);

/// A 4 x 4 pose.
Pose poseOf(const Node& node, double& deviation);

}  // namespace calibrations
