#include "check/init/SeenCameras.h"

#include <vector>

namespace init {
namespace {

using polarline::Camera;

/// With fewer the pose is too rough to say anything.
constexpr std::size_t kLeastDots = 20;

CameraCalib calibOf(const Camera& camera) {
  const auto& k = camera.k;
  CameraCalib calib;
  calib.intrinsics = {camera.fx, camera.fy, camera.cx, camera.cy, k[0],      k[1],
                      k[2],      k[3],      k[4],      k[5],      camera.p1, camera.p2};
  return calib;
}

}  // namespace

CalibratedPair camerasOf(const polarline::Calibration& calibration) {
  StereoCalibParams calib;
  calib.left = calibOf(calibration.left);
  calib.right = calibOf(calibration.right);
  calib.extrinsics = {calibration.rx, calibration.ry, calibration.rz, calibration.tx, calibration.ty, calibration.tz};
  const bool is_fisheye = calibration.type == static_cast<int>(LensModel::kFisheye);
  return {calib, is_fisheye ? LensModel::kFisheye : LensModel::kBrownEight};
}

std::optional<CameraPose> boardPose(const CalibratedCamera& camera, const polarline::BoardDescription& board,
                                    const SeenBoard& seen) {
  const std::vector<polarline::BoardPoint> places = polarline::boardPoints(board);
  std::vector<PosePoint> points;
  for (const auto& [id, pixel] : seen.dots) {
    if (id < 0 || static_cast<std::size_t>(id) >= places.size()) continue;
    const polarline::BoardPoint& place = places[static_cast<std::size_t>(id)];
    points.push_back({{place.x, place.y, place.z}, pixel});
  }
  return points.size() < kLeastDots ? std::nullopt : firstPose(camera, points);
}

}  // namespace init
