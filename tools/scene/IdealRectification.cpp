#include "tools/scene/IdealRectification.h"

#include <algorithm>

namespace scene {
namespace {

/// Rotation by a vector's length about its direction (Rodrigues).
Matrix3 rotationFromVector(const Point3& vector) {
  const double angle = norm(vector);
  if (angle < 1e-15) return {};
  const Point3 k = (1.0 / angle) * vector;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const auto turned = [&](const Point3& p) { return c * p + s * cross(k, p) + ((1.0 - c) * dot(k, p)) * k; };
  return fromColumns(turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1}));
}

/// The axis times the angle of a rotation of less than half a turn.
Point3 vectorFromRotation(const Matrix3& r) {
  const Point3 axis{0.5 * (r.at(2, 1) - r.at(1, 2)), 0.5 * (r.at(0, 2) - r.at(2, 0)), 0.5 * (r.at(1, 0) - r.at(0, 1))};
  const double sine = norm(axis);
  if (sine < 1e-15) return {};
  const double cosine = 0.5 * (r.at(0, 0) + r.at(1, 1) + r.at(2, 2) - 1.0);
  return (std::atan2(sine, cosine) / sine) * axis;
}

/// The smallest turn that brings the vector onto the x axis, whichever end of it is nearer.
Matrix3 turnOntoX(const Point3& vector) {
  const Point3 axis = cross(vector, {vector.x > 0.0 ? 1.0 : -1.0, 0.0, 0.0});
  const double length = norm(axis);
  if (length < 1e-15) return {};
  return rotationFromVector((std::acos(std::abs(vector.x) / norm(vector)) / length) * axis);
}

/// The larger focal length times the scale, along the rows' axis for pixels that are not square.
double scaledFocal(const Camera& camera, double f_scale) {
  return std::max(camera.fx, camera.fy) * f_scale * camera.fy / camera.fx;
}

}  // namespace

IdealRectification idealRectification(const StereoRig& rig) {
  const Matrix3 half_back =
      rotationFromVector(-0.5 * vectorFromRotation(rotationFromAngles(rig.right_from_left_angles)));
  const Matrix3 onto_x = turnOntoX(half_back * rig.right_from_left_translation);
  return {onto_x * transposed(half_back), onto_x * half_back};
}

double rectifiedFocal(const StereoRig& rig, double f_scale) {
  if (rig.left.model == LensModel::kBrown && f_scale == 1.0) return 0.5 * (rig.left.fy + rig.right.fy);
  return std::min(scaledFocal(rig.left, f_scale), scaledFocal(rig.right, f_scale));
}

}  // namespace scene
