#include "report/measure/KnownCameras.h"

#include <algorithm>
#include <cmath>

namespace polarline {
namespace {

std::optional<LensModel> toldModel(const Json& cameras) {
  const Json& model = cameras["model"];
  if (model == "brown5") return LensModel::kBrownFive;
  if (model == "brown8") return LensModel::kBrownEight;
  if (model == "fisheye") return LensModel::kFisheye;
  return std::nullopt;
}

CameraCalib toldCamera(const Json& json) {
  CameraCalib camera;
  auto& n = camera.intrinsics;
  n[0] = numberOf(json["fx"]);
  n[1] = numberOf(json["fy"]);
  n[2] = numberOf(json["cx"]);
  n[3] = numberOf(json["cy"]);
  const Json& coefficients = json["coefficients"];
  for (std::size_t k = 0; k < std::min<std::size_t>(coefficients.size(), 8); ++k)
    n.at(4 + k) = numberOf(coefficients[k]);
  return camera;
}

}  // namespace

bool canBeRectified(const StereoCalibParams& calib) {
  const auto is_finite = [](double number) { return std::isfinite(number); };
  const auto& e = calib.extrinsics;
  return std::hypot(e[3], e[4], e[5]) > 0.0 && std::ranges::all_of(calib.left.intrinsics, is_finite) &&
         std::ranges::all_of(calib.right.intrinsics, is_finite) && std::ranges::all_of(calib.extrinsics, is_finite);
}

std::optional<KnownCameras> knownCameras(const Json& document) {
  const Json& told = document["cameras"];
  const std::optional<LensModel> model = toldModel(told);
  const auto extrinsics = told.find("extrinsics");
  if (!model || extrinsics == told.end() || !extrinsics->is_object()) return std::nullopt;
  KnownCameras cameras{*model, {}};
  cameras.calib.left = toldCamera(told["left"]);
  cameras.calib.right = toldCamera(told["right"]);
  std::size_t place = 0;
  for (const char* key : {"rx", "ry", "rz", "tx", "ty", "tz"})
    cameras.calib.extrinsics.at(place++) = numberOf((*extrinsics)[key]);
  return canBeRectified(cameras.calib) ? std::optional(cameras) : std::nullopt;
}

}  // namespace polarline
