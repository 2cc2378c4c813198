#include "camera/CameraFloats.h"

namespace {

float narrowed(double value) { return static_cast<float>(value); }

}  // namespace

CameraFloats cameraFloatsOf(const CameraCalib& camera, LensModel model) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera.intrinsics;
  CameraFloats floats{narrowed(fx), narrowed(fy), narrowed(cx), narrowed(cy),
                      narrowed(k1), narrowed(k2), narrowed(k3), narrowed(k4)};
  if (model == LensModel::kBrownEight || model == LensModel::kPoly) {
    floats.k5 = narrowed(k5);
    floats.k6 = narrowed(k6);
  }
  if (model != LensModel::kFisheye) {
    floats.p1 = narrowed(p1);
    floats.p2 = narrowed(p2);
  }
  return floats;
}
