#include "tools/scene/PresetRigs.h"

#include "tools/scene/PolyFit.h"
#include "tools/scene/Single.h"

namespace scene {
namespace {

void roundToSingle(Camera& camera) {
  for (double* value : {&camera.fx, &camera.fy, &camera.cx, &camera.cy}) *value = single(*value);
  for (double& value : camera.lens) value = single(value);
}

/// A camera without lens coefficients; the principal point is off the middle by shares of the width.
Camera bareCamera(const RigSize& size, double focal, double off_x, double off_y) {
  Camera camera;
  camera.width = size.width;
  camera.height = size.height;
  camera.fx = focal * size.width;
  camera.fy = focal * size.width * 1.0008;
  camera.cx = (0.5 + off_x) * size.width;
  camera.cy = 0.5 * size.height + off_y * size.width;
  return camera;
}

StereoRig rigOf(const RigSize& size, Camera left, Camera right) {
  roundToSingle(left);
  roundToSingle(right);
  return {
      left, right, {single(-0.005), single(0.015), single(0.004)}, {single(-size.baseline), single(0.4), single(-0.7)}};
}

}  // namespace

StereoRig brownRig(const RigSize& size) {
  Camera left = bareCamera(size, 1.2, 0.006, -0.004);
  Camera right = bareCamera(size, 1.203, -0.005, 0.003);
  left.lens = {-0.165, 0.092, -0.017, 0.021, 0.014, -0.006, 0.00034, -0.00023};
  right.lens = {-0.158, 0.087, -0.014, 0.018, 0.016, -0.007, -0.00019, 0.00028};
  return rigOf(size, left, right);
}

StereoRig fisheyeRig(const RigSize& size) {
  Camera left = bareCamera(size, 0.625, 0.006, -0.004);
  Camera right = bareCamera(size, 0.627, -0.005, 0.003);
  left.model = right.model = LensModel::kFisheye;
  left.lens = {0.036, -0.011, 0.0042, -0.0011};
  right.lens = {0.034, -0.012, 0.0039, -0.0012};
  return rigOf(size, left, right);
}

StereoRig polyLenses(const RigSize& size) {
  Camera left = bareCamera(size, 0.89, 0.006, -0.004);
  Camera right = bareCamera(size, 0.892, -0.005, 0.003);
  left.lens = {-0.27, 0.11, -0.025, 0.0, 0.0, 0.0, 0.0006, -0.0004};
  right.lens = {-0.262, 0.105, -0.022, 0.0, 0.0, 0.0, -0.0005, 0.0003};
  left.model = right.model = LensModel::kPoly;
  left.table.columns = right.table.columns = 6;
  left.table.rows = right.table.rows = 4;
  return rigOf(size, left, right);
}

StereoRig polyRig(const RigSize& size) {
  StereoRig rig = polyLenses(size);
  rig.left = fittedPolyCamera(rig.left);
  rig.right = fittedPolyCamera(rig.right);
  return rig;
}

StereoRig rectifiedRig(const RigSize& size) {
  Camera camera = bareCamera(size, 0.9, -0.004, 0.002);
  camera.fy = camera.fx;
  roundToSingle(camera);
  return {camera, camera, {}, {single(-size.baseline), 0.0, 0.0}};
}

}  // namespace scene
