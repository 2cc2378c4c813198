#pragma once

#include "tools/scene/Camera.h"
#include "tools/scene/Pose.h"

namespace scene {

/// A camera, and how its picture is rectified.
struct RectifiedView {
  const Camera& camera;  ///< That took the picture.
  const Camera& given;   ///< By which the lens is taken out.
  const Matrix3& turn;   ///< Rectified frame from the given camera's frame.
};

/// The centre of a circle's image in the rectified picture, normalised (x / z, y / z): traced through the camera that
/// took the picture and back through the given one. Not a number where the given lens has no inverse.
Point2 rectifiedCentre(const RectifiedView& view, const Pose& camera_from_board, const Point3& centre_board,
                       double radius);

}  // namespace scene
