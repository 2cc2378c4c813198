#pragma once

#include "tools/scene/Vectors.h"

namespace scene {

/// A board's place in a camera's frame: X_camera = R X_board + t, millimetres. The camera looks along +z.
struct Pose {
  Matrix3 rotation;
  Point3 translation;
};

inline Point3 transformed(const Pose& camera_from_board, const Point3& point_board) {
  return camera_from_board.rotation * point_board + camera_from_board.translation;
}

}  // namespace scene
