#include "tools/scene/StereoRig.h"

#include <algorithm>

namespace scene {

Matrix3 rotationFromAngles(const Angles& angles) {
  const double cx = std::cos(angles.rx), sx = std::sin(angles.rx);
  const double cy = std::cos(angles.ry), sy = std::sin(angles.ry);
  const double cz = std::cos(angles.rz), sz = std::sin(angles.rz);
  const Matrix3 about_x{{1, 0, 0, 0, cx, -sx, 0, sx, cx}};
  const Matrix3 about_y{{cy, 0, sy, 0, 1, 0, -sy, 0, cy}};
  const Matrix3 about_z{{cz, -sz, 0, sz, cz, 0, 0, 0, 1}};
  return about_z * about_x * about_y;
}

Angles anglesFromRotation(const Matrix3& r) {
  return {std::asin(std::clamp(r.at(2, 1), -1.0, 1.0)), std::atan2(-r.at(2, 0), r.at(2, 2)),
          std::atan2(-r.at(0, 1), r.at(1, 1))};
}

Point3 rightFromLeft(const StereoRig& rig, const Point3& point_left) {
  return rotationFromAngles(rig.right_from_left_angles) * point_left + rig.right_from_left_translation;
}

}  // namespace scene
