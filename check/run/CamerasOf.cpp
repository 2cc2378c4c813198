#include "check/run/CamerasOf.h"

#include <fmt/format.h>

#include "camera/LensModel.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

CameraNumbers numbersOf(const CameraCalib& camera) {
  const auto& n = camera.intrinsics;
  return {n[0], n[1], n[2], n[3], {n.begin() + 4, n.end()}};
}

const char* modelName(int type) {
  switch (type) {
    case 0:
      return "brown5";
    case 1:
      return "brown8";
    case 2:
      return "fisheye";
    case 3:
      return "poly";
    default:
      return "other";
  }
}

}  // namespace

Cameras camerasOf(int type, const StereoCalibParams& calib) {
  if (!lensModelOf(type))
    throw InputError("type of the polar configuration", fmt::format("{} was found; 0, 1, 2 or 3 was wanted", type));
  Cameras cameras;
  cameras.type = type;
  cameras.model = modelName(type);
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
