#include "polar/run/RunCameras.h"

#include <algorithm>
#include <initializer_list>

namespace {

enum Intrinsic : std::size_t { kFx, kFy, kCx, kCy, kK1, kK2, kK3, kK4, kK5, kK6, kP1, kP2 };

// What a model has no use for stays zero: the evaluations always read all eight coefficients.
CameraFloats narrowed(const CameraCalib& camera, std::int32_t type) {
  const auto used = [type](std::size_t k) {
    if (k <= kK4) return true;
    if (k == kK5 || k == kK6) return type == 1 || type == 3;
    return type != 2;
  };
  CameraFloats floats{};
  for (std::size_t k = 0; k < floats.size(); ++k)
    if (used(k)) floats[k] = static_cast<float>(camera.intrinsics[k]);
  return floats;
}

// A caller may claim more cells than a table has room for; such a grid is none.
bool hasTables(const CameraCalib& camera) {
  constexpr std::size_t kCoefficientsPerCell = 10;
  const std::size_t cells = static_cast<std::size_t>(camera.poly_nx) * camera.poly_ny;
  return cells != 0 && cells * kCoefficientsPerCell <= camera.poly_x.size();
}

void loadExtrinsics(PolarCore& core, const StereoCalibParams& calib) {
  for (std::size_t k = 0; k < 3; ++k) {
    core.rotation[k] = static_cast<float>(calib.extrinsics[k]);
    core.translation[k] = static_cast<float>(calib.extrinsics[k + 3]);
  }
}

}  // namespace

bool loadRunCameras(PolarCore& core, const StereoCalibParams& calib) {
  const std::int32_t type = core.config->type;
  if (type >= 0 && type <= 3) {
    loadExtrinsics(core, calib);
    if (type == 3) {
      if (!hasTables(calib.left) || !hasTables(calib.right)) return false;
      core.left_camera.LoadCalib(calib, 0);
      core.right_camera.LoadCalib(calib, 1);
    }
    core.left_dist = narrowed(calib.left, type);
    core.right_dist = narrowed(calib.right, type);
  }
  core.T = (cv::Mat_<double>(3, 1) << core.translation[0], core.translation[1], core.translation[2]);
  core.R = EulerToRotation(core.rotation);
  core.left = BuildCameraMatrices(type, core.left_dist);
  core.right = BuildCameraMatrices(type, core.right_dist);
  return true;
}

PairEvaluator makeEvaluator(const PolarCore& core) {
  PairEvaluator evaluator(core.config);
  evaluator.left_dist = core.left_dist;
  evaluator.right_dist = core.right_dist;
  evaluator.boardPoints = core.boardPoints;
  return evaluator;
}
