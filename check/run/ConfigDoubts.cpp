#include "check/run/ConfigDoubts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "camera/LensModel.h"
#include "check/explain/WarningOf.h"
#include "check/run/CamerasOf.h"
#include "platform/PlainNumber.h"

namespace polarline {
namespace {

constexpr std::array<const char*, 8> kSwitches = {"triangulate_residual_switch",
                                                  "triangulate_dis_switch",
                                                  "discalswitch",
                                                  "spaceRms_switch",
                                                  "dy_bias_switch",
                                                  "foursixmethod_swithch",
                                                  "oqc_switch",
                                                  "frame_work"};

/// A coefficient of `CameraCalib::intrinsics`.
struct Coefficient {
  const char* name;
  std::size_t place;
};

/// Those that the rectification by a model does not take.
std::initializer_list<Coefficient> leftOut(LensModel model) {
  static constexpr std::initializer_list<Coefficient> kOfBrownFive = {{"K4", 7}, {"K5", 8}, {"K6", 9}};
  static constexpr std::initializer_list<Coefficient> kOfFisheye = {{"K5", 8}, {"K6", 9}, {"P1", 10}, {"P2", 11}};
  if (model == LensModel::kBrownFive) return kOfBrownFive;
  if (model == LensModel::kFisheye) return kOfFisheye;
  return {};
}

}  // namespace

void warnOfNoEvaluation(const std::string& path, const PolarInput& polar, std::vector<Warning>& warnings) {
  if (std::ranges::any_of(kSwitches, [&](const char* name) { return polar.keys.contains(name); })) return;
  warnings.push_back(warningOf("no_evaluation", path + ": names no evaluation; the fit of the board (space_rms), which "
                                                       "is on by itself, is all that is measured"));
}

void warnOfLens(const std::string& path, const PolarInput& polar, const std::string& calibration_path,
                const StereoCalibParams& calib, std::vector<Warning>& warnings) {
  const auto model = lensModelOf(polar.config.type);
  if (!model) return;
  const std::string name = camerasOf(polar.config.type, calib).model;
  if (!polar.keys.contains("type"))
    warnings.push_back(warningOf("no_type", fmt::format("{}: has no type; the lens model {} is taken", path, name)));
  std::string unused;
  for (const Coefficient& each : leftOut(*model)) {
    if (calib.left.intrinsics.at(each.place) == 0.0 && calib.right.intrinsics.at(each.place) == 0.0) continue;
    unused += (unused.empty() ? "" : ", ") + std::string(each.name);
  }
  if (unused.empty()) return;
  warnings.push_back(warningOf("unused_coefficients", fmt::format("{}: has {}, which type {} ({}) does not take",
                                                                  calibration_path, unused, polar.config.type, name)));
}

bool turnsRowsAway(const PolarConfig& config, const StereoCalibParams& calib) {
  const auto& e = calib.extrinsics;
  const bool has_rows = config.dy_bias_switch != 0 || config.foursixmethod_swithch != 0;
  return has_rows && config.frame_work == 0 && config.x_y == 1 && std::abs(e[3]) > std::abs(e[4]);
}

void warnOfTurn(const std::string& path, const PolarInput& polar, const StereoCalibParams& calib,
                std::vector<Warning>& warnings) {
  if (!turnsRowsAway(polar.config, calib)) return;
  warnings.push_back(warningOf(
      "turned_rows", fmt::format("{}: x_y is 1, and the cameras stand side by side (TX {}, TY {})", path,
                                 plain::rounded(calib.extrinsics[3], 4), plain::rounded(calib.extrinsics[4], 4))));
}

}  // namespace polarline
