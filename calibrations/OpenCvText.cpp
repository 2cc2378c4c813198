#include <fmt/format.h>
#include <fmt/ranges.h>

#include <optional>
#include <vector>

#include "calibrations/geometry/Angles.h"
#include "camera/LensModel.h"
#include "polarline/calibration.h"

namespace polarline {
namespace {

std::string matrix(const char* name, std::size_t rows, const std::vector<double>& values) {
  return fmt::format("{}: !!opencv-matrix\n   rows: {}\n   cols: {}\n   dt: d\n   data: [ {} ]\n", name, rows,
                     values.size() / rows, fmt::join(values, ", "));
}

std::string cameraMatrix(const char* name, const Camera& camera) {
  return matrix(name, 3, {camera.fx, 0, camera.cx, 0, camera.fy, camera.cy, 0, 0, 1});
}

std::string coefficients(const char* name, const Camera& camera, std::optional<LensModel> model) {
  const auto& k = camera.k;
  if (model == LensModel::kFisheye) return matrix(name, 1, {k[0], k[1], k[2], k[3]});
  if (model == LensModel::kBrownFive) return matrix(name, 1, {k[0], k[1], camera.p1, camera.p2, k[2]});
  return matrix(name, 1, {k[0], k[1], camera.p1, camera.p2, k[2], k[3], k[4], k[5]});
}

}  // namespace

std::string openCvText(const Calibration& calibration) {
  const auto model = lensModelOf(calibration.type);
  std::string text = "%YAML:1.0\n---\n";
  const auto [width, height] = calibration.left.size;
  if (width > 0) text += fmt::format("image_width: {}\nimage_height: {}\n", width, height);
  text += fmt::format("polarline_model: {}\n", model == LensModel::kFisheye ? "fisheye" : "brown");
  text += cameraMatrix("M1", calibration.left) + coefficients("D1", calibration.left, model);
  text += cameraMatrix("M2", calibration.right) + coefficients("D2", calibration.right, model);
  const cv::Matx33d rotation = calibrations::rotationOf({calibration.rx, calibration.ry, calibration.rz});
  text += matrix("R", 3, {rotation.val, rotation.val + 9});
  text += matrix("T", 3, {calibration.tx, calibration.ty, calibration.tz});
  // R holds them but for their last digit.
  return text + matrix("polarline_angles", 3, {calibration.rx, calibration.ry, calibration.rz});
}

}  // namespace polarline
