#include "report/measure/CausePattern.h"

#include <algorithm>
#include <cmath>

#include "report/measure/Crop.h"

namespace polarline {
namespace {

/// Of a polynomial lens the document has no tables.
std::optional<LensModel> knownModel(const Json& document) {
  const Json& model = document["cameras"]["model"];
  if (model == "brown5") return LensModel::kBrownFive;
  if (model == "brown8") return LensModel::kBrownEight;
  if (model == "fisheye") return LensModel::kFisheye;
  return std::nullopt;
}

CameraCalib cameraOf(const Json& json) {
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

StereoCalibParams calibrationOf(const Json& cameras) {
  StereoCalibParams calib;
  calib.left = cameraOf(cameras["left"]);
  calib.right = cameraOf(cameras["right"]);
  const Json& extrinsics = cameras["extrinsics"];
  std::size_t place = 0;
  for (const char* key : {"rx", "ry", "rz", "tx", "ty", "tz"}) calib.extrinsics.at(place++) = numberOf(extrinsics[key]);
  return calib;
}

bool canBeRectified(const StereoCalibParams& calib) {
  const auto is_finite = [](double number) { return std::isfinite(number); };
  const auto& e = calib.extrinsics;
  return std::hypot(e[3], e[4], e[5]) > 0.0 && std::ranges::all_of(calib.left.intrinsics, is_finite) &&
         std::ranges::all_of(calib.right.intrinsics, is_finite) && std::ranges::all_of(calib.extrinsics, is_finite);
}

std::vector<Cause> causesOf(const Json& document) {
  std::vector<Cause> causes;
  const auto diagnosis = document.find("diagnosis");
  if (diagnosis == document.end() || !diagnosis->is_object()) return causes;
  for (const Json& each : (*diagnosis)["causes"]) {
    Cause cause;
    cause.name = each["name"].get<std::string>();
    cause.value = numberOf(each["value"]);
    if (std::isfinite(cause.value)) causes.push_back(cause);
  }
  return causes;
}

double settingOf(const Json& document, const char* key, double otherwise) {
  const auto found = document["settings"].find(key);
  return found != document["settings"].end() && found->is_number() ? found->get<double>() : otherwise;
}

}  // namespace

CausePattern::CausePattern(const Json& document) : corner_(partLookedAt(document).tl()) {
  const std::optional<LensModel> model = knownModel(document);
  const std::vector<Cause> causes = causesOf(document);
  // Turned pictures have their rows along the other axis.
  const bool is_turned = settingOf(document, "x_y", 0.0) != 0.0;
  if (!model || causes.empty() || is_turned || !document["cameras"]["extrinsics"].is_object()) return;
  const StereoCalibParams calib = calibrationOf(document["cameras"]);
  const double f_scale = settingOf(document, "f_scale", 1.0);
  if (!canBeRectified(calib)) return;
  try {
    pattern_.emplace(calib, *model, f_scale, misalignmentOf(causes));
  } catch (const cv::Exception&) {
    pattern_.reset();  // Cameras that stand as no cameras can.
  }
}

std::vector<double> CausePattern::of(const DotLists& dots) const {
  std::vector<double> rows;
  if (!pattern_ || dots.left_x.empty() || dots.left_y.empty() || dots.right_x.empty() || dots.right_y.empty())
    return rows;
  rows.reserve(dots.id.size());
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    rows.push_back(pattern_->at(corner_ + cv::Point2d(dots.left_x[k], dots.left_y[k]),
                                corner_ + cv::Point2d(dots.right_x[k], dots.right_y[k])));
  }
  return rows;
}

}  // namespace polarline
