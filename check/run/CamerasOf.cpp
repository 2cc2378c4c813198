#include "check/run/CamerasOf.h"

#include <fmt/format.h>

#include "camera/LensModel.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

CameraNumbers numbersOf(const CameraCalib& camera) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera.intrinsics;
  return {fx, fy, cx, cy, {k1, k2, k3, k4, k5, k6, p1, p2}};
}

const char* modelName(LensModel model) {
  switch (model) {
    case LensModel::kBrownFive:
      return "brown5";
    case LensModel::kBrownEight:
      return "brown8";
    case LensModel::kFisheye:
      return "fisheye";
    case LensModel::kPoly:
      return "poly";
  }
  return "";
}

}  // namespace

Cameras camerasOf(int type, const StereoCalibParams& calib) {
  const auto model = lensModelOf(type);
  if (!model)
    throw InputError("type of the polar configuration", fmt::format("{} was found; 0, 1, 2 or 3 was wanted", type));
  Cameras cameras;
  cameras.type = type;
  cameras.model = modelName(*model);
  cameras.left = numbersOf(calib.left);
  cameras.right = numbersOf(calib.right);
  cameras.extrinsics.assign(calib.extrinsics.begin(), calib.extrinsics.end());
  return cameras;
}

Cameras camerasOf(const RectifiedParams& rectified) {
  Cameras cameras;
  cameras.model = "rectified";
  cameras.left = cameras.right = {rectified.focal, rectified.focal, rectified.cx, rectified.cy, {}};
  return cameras;
}

}  // namespace polarline
