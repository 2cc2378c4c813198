#include "calibrations/formats/CameraNode.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "calibrations/document/Shown.h"

namespace calibrations {
namespace {

/// Sides are 16 bits wide in the library.
constexpr double kLongestSide = 65535;
constexpr double kShortestFocal = 1e-3;

void requireFocal(const char* name, double value, const Node& node) {
  if (value < kShortestFocal)
    node.refuse(fmt::format("found the focal length {} = {}; one above 0 was wanted", name, value));
}

void requireNone(const std::vector<double>& coefficients, std::size_t first, std::size_t end, const char* what,
                 const Node& node) {
  std::string list;
  bool isNone = true;
  for (std::size_t k = first; k < std::min(end, coefficients.size()); ++k) {
    list += fmt::format("{}{}", list.empty() ? "" : ", ", coefficients[k]);
    isNone = isNone && coefficients[k] == 0.0;
  }
  if (!isNone) node.refuse(fmt::format("has {} = [{}]; our calibration has no member for them", what, list));
}

bool isSide(double side) { return side >= 0.0 && side <= kLongestSide && side == std::floor(side); }

}  // namespace

void setPinhole(polarline::Camera& camera, const std::vector<double>& values, const Node& node) {
  camera.fx = values.at(0);
  camera.fy = values.at(1);
  camera.cx = values.at(2);
  camera.cy = values.at(3);
  requireFocal("fx", camera.fx, node);
  requireFocal("fy", camera.fy, node);
}

void setMatrix(polarline::Camera& camera, const Node& node) {
  const std::vector<double> m = node.matrix(3, 3);
  if (m[1] != 0.0) node.refuse(fmt::format("has a skew of {} pixels; our calibration has no member for it", m[1]));
  if (m[3] != 0.0 || m[6] != 0.0 || m[7] != 0.0 || m[8] != 1.0) {
    node.refuse(fmt::format("found [.. .. ..; {} .. ..; {} {} {}]; [fx 0 cx; 0 fy cy; 0 0 1] was wanted", m[3], m[6],
                            m[7], m[8]));
  }
  setPinhole(camera, {m[0], m[4], m[2], m[5]}, node);
}

void setBrown(SourceCamera& camera, const std::vector<double>& coefficients, const Node& node) {
  constexpr std::array<std::size_t, 6> kCounts = {0, 4, 5, 8, 12, 14};
  if (std::ranges::find(kCounts, coefficients.size()) == kCounts.end()) {
    node.refuse(fmt::format("found {} coefficients; 0, 4, 5, 8, 12 or 14 were wanted", coefficients.size()));
  }
  requireNone(coefficients, 8, 12, "thin-prism terms s1..s4", node);
  requireNone(coefficients, 12, 14, "tilt terms tx, ty", node);
  std::vector<double> d = coefficients;
  d.resize(8, 0.0);
  camera.lens = Lens::kBrown;
  camera.camera.k = {d[0], d[1], d[4], d[5], d[6], d[7]};
  camera.camera.p1 = d[2];
  camera.camera.p2 = d[3];
}

void setFisheye(SourceCamera& camera, const std::vector<double>& coefficients, const Node& node) {
  if (coefficients.size() != 4) {
    node.refuse(fmt::format("found {} coefficients; the 4 of a fisheye were wanted", coefficients.size()));
  }
  camera.lens = Lens::kFisheye;
  camera.camera.k = {coefficients[0], coefficients[1], coefficients[2], coefficients[3], 0.0, 0.0};
}

polarline::Size sizeOf(double width, double height, const Node& node) {
  if (!isSide(width) || !isSide(height)) {
    node.refuse(
        fmt::format("found an image of {} x {}; whole sides up to {} were wanted", width, height, kLongestSide));
  }
  if (width == 0.0 || height == 0.0) return {};
  return {static_cast<int>(width), static_cast<int>(height)};
}

polarline::Size sizeOf(const Node& node) {
  const std::vector<double> sides = node.numbers(2);
  return sizeOf(sides[0], sides[1], node);
}

void refuseModel(const Node& node, const std::string& model) {
  node.refuse(
      "the camera model " + shown(model) +
      " has no exact counterpart among Brown (K1 to K6, P1, P2) and the equidistant fisheye (K1 to K4); calibrate "
      "again with one of these");
}

}  // namespace calibrations
