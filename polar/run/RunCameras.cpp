#include "polar/run/RunCameras.h"

#include <optional>

#include "input/PolyTables.h"

namespace {

bool hasTables(const CameraCalib& camera) { return usableCells(camera.poly_nx, camera.poly_ny) > 0; }

void loadExtrinsics(PolarCore& core, const StereoCalibParams& calib) {
  for (std::size_t k = 0; k < 3; ++k) {
    core.rotation[k] = static_cast<float>(calib.extrinsics[k]);
    core.translation[k] = static_cast<float>(calib.extrinsics[k + 3]);
  }
}

}  // namespace

bool loadRunCameras(PolarCore& core, const StereoCalibParams& calib) {
  const std::optional<LensModel> model = core.lensModel();
  if (model) {
    loadExtrinsics(core, calib);
    if (*model == LensModel::kPoly) {
      if (!hasTables(calib.left) || !hasTables(calib.right)) return false;
      core.left_camera.LoadCalib(calib, 0);
      core.right_camera.LoadCalib(calib, 1);
    }
    core.left_dist = cameraFloatsOf(calib.left, *model);
    core.right_dist = cameraFloatsOf(calib.right, *model);
  }
  core.T = (cv::Mat_<double>(3, 1) << core.translation[0], core.translation[1], core.translation[2]);
  core.R = EulerToRotation(core.rotation);
  core.left = BuildCameraMatrices(model, core.left_dist);
  core.right = BuildCameraMatrices(model, core.right_dist);
  return true;
}

PairEvaluator makeEvaluator(const PolarCore& core) {
  PairEvaluator evaluator(core.config);
  evaluator.left_dist = core.left_dist;
  evaluator.right_dist = core.right_dist;
  evaluator.boardPoints = core.boardPoints;
  return evaluator;
}
