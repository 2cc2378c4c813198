#include "check/init/BaselineCheck.h"

#include <optional>

#include "camera/CalibratedPair.h"
#include "camera/PoseFit.h"
#include "diagnose/warnings/ShownBaseline.h"

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

CalibratedPair camerasOf(const polarline::Calibration& calibration) {
  StereoCalibParams calib;
  calib.left = calibOf(calibration.left);
  calib.right = calibOf(calibration.right);
  const bool is_fisheye = calibration.type == static_cast<int>(LensModel::kFisheye);
  return {calib, is_fisheye ? LensModel::kFisheye : LensModel::kBrownEight};
}

std::optional<CameraPose> boardPose(const CalibratedCamera& camera, const std::vector<polarline::BoardPoint>& board,
                                    const SeenBoard& seen) {
  std::vector<PosePoint> points;
  for (const auto& [id, pixel] : seen.dots) {
    if (id < 0 || static_cast<std::size_t>(id) >= board.size()) continue;
    const polarline::BoardPoint& point = board[static_cast<std::size_t>(id)];
    points.push_back({{point.x, point.y, point.z}, pixel});
  }
  return points.size() < kLeastDots ? std::nullopt : firstPose(camera, points);
}

}  // namespace

std::vector<polarline::Warning> judgeBaseline(const polarline::Calibration& calibration,
                                              const polarline::BoardDescription& board, const SeenBoard& left,
                                              const SeenBoard& right) {
  const std::vector<polarline::BoardPoint> points = polarline::boardPoints(board);
  const CalibratedPair cameras = camerasOf(calibration);
  const auto a = boardPose(cameras.left, points, left);
  const auto b = boardPose(cameras.right, points, right);
  if (!a || !b) return {};
  const cv::Vec3d told(calibration.tx, calibration.ty, calibration.tz);
  const cv::Vec3d shown = diagnose::shownBaseline(*a, *b);
  const auto found = diagnose::judgeBaseline(shown, told, 0);
  return found ? std::vector{*found} : std::vector<polarline::Warning>();
}

}  // namespace init
