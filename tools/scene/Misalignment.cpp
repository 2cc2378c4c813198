#include "tools/scene/Misalignment.h"

#include "tools/scene/IdealRectification.h"

namespace scene {
namespace {

bool movesTheCamera(const Misalignment& m) {
  return m.rotation_x != 0.0 || m.rotation_y != 0.0 || m.rotation_z != 0.0 || m.baseline_y != 0.0 ||
         m.baseline_z != 0.0;
}

/// Turns and shifts the right camera.
void move(StereoRig& rig, const Misalignment& m) {
  const Matrix3 rectified_from_right = idealRectification(rig).right;
  const Matrix3 right_from_rectified = transposed(rectified_from_right);
  const Matrix3 turn = rotationFromAngles({radians(m.rotation_x), radians(m.rotation_y), radians(m.rotation_z)});
  const Point3 translation_rectified =
      rectified_from_right * rig.right_from_left_translation + Point3{0.0, m.baseline_y, m.baseline_z};
  rig.right_from_left_angles = anglesFromRotation(right_from_rectified * turn * rectified_from_right *
                                                  rotationFromAngles(rig.right_from_left_angles));
  rig.right_from_left_translation = right_from_rectified * (turn * translation_rectified);
}

}  // namespace

StereoRig misaligned(const StereoRig& calibrated, const Misalignment& misalignment) {
  StereoRig rig = calibrated;
  if (movesTheCamera(misalignment)) move(rig, misalignment);
  rig.right.fx *= 1.0 + misalignment.focal_ratio;
  rig.right.fy *= 1.0 + misalignment.focal_ratio;
  rig.right.cy += misalignment.row_offset;
  rig.right.lens[0] += misalignment.k1;
  return rig;
}

}  // namespace scene
