#include "tools/scene/CalibrationNumbers.h"

#include <algorithm>

namespace scene {
namespace {

CameraNumbers cameraNumbers(const Camera& camera) {
  CameraNumbers numbers;
  numbers.height = camera.height;
  numbers.width = camera.width;
  numbers.intrinsics = intrinsicsOf(camera);
  numbers.poly_nx = camera.table.columns;
  numbers.poly_ny = camera.table.rows;
  std::copy(camera.table.x.begin(), camera.table.x.end(), numbers.poly_x.begin());
  std::copy(camera.table.y.begin(), camera.table.y.end(), numbers.poly_y.begin());
  return numbers;
}

}  // namespace

std::array<double, 12> intrinsicsOf(const Camera& camera) {
  constexpr std::size_t kPinholeNumbers = 4;
  std::array<double, 12> numbers = {camera.fx, camera.fy, camera.cx, camera.cy};
  static_assert(kPinholeNumbers + std::tuple_size_v<decltype(camera.lens)> == numbers.size());
  std::copy_backward(camera.lens.begin(), camera.lens.end(), numbers.end());
  return numbers;
}

CalibrationNumbers calibrationNumbers(const StereoRig& rig) {
  const Angles& a = rig.right_from_left_angles;
  const Point3& t = rig.right_from_left_translation;
  return {cameraNumbers(rig.left), cameraNumbers(rig.right), {a.rx, a.ry, a.rz, t.x, t.y, t.z}};
}

RectifiedNumbers rectifiedNumbers(const StereoRig& rig) {
  return {rig.left.fx, rig.right_from_left_translation.x, rig.left.cx, rig.left.cy, rig.left.cx - rig.right.cx};
}

}  // namespace scene
