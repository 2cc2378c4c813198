#include "check/init/FocalScale.h"

#include <algorithm>
#include <vector>

#include "camera/LensModel.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "camera/RectificationMaps.h"
#include "check/init/SeenCameras.h"

namespace init {
namespace {

using polarline::Camera;
using polarline::Size;

/// A twentieth of f_scale.
constexpr int kSteps = 20;
/// With less the middle of the pictures would lose half of its dots' radius and more.
constexpr int kLeastSteps = 8;
/// Of each side of the picture, for the dots' own size and pairs nearer to the rim.
constexpr double kRoom = 0.02;

cv::Mat matrixOf(const Camera& camera) {
  cv::Mat K = (cv::Mat_<double>(3, 3) << camera.fx, 0, camera.cx, 0, camera.fy, camera.cy, 0, 0, 1);
  return K;
}

cv::Mat coefficientsOf(const Camera& camera) {
  cv::Mat D = (cv::Mat_<double>(1, 4) << camera.k[0], camera.k[1], camera.k[2], camera.k[3]);
  return D;
}

Rectification rectified(const polarline::Calibration& calibration, const CalibratedPair& cameras, Size picture,
                        double f_scale) {
  const StereoMatrices matrices{matrixOf(calibration.left),  coefficientsOf(calibration.left),
                                matrixOf(calibration.right), coefficientsOf(calibration.right),
                                cv::Mat(cameras.R),          cv::Mat(cameras.T)};
  const PinholeCameraIntrinsicsPOL unused;
  return virtualPair({static_cast<float>(f_scale), 0, unused, unused}, matrices, {picture.width, picture.height},
                     LensModel::kFisheye);
}

/// Whether a rectified picture shows all dots of the picture as it was taken.
bool holds(const cv::Mat& R, const cv::Mat& P, const CalibratedCamera& camera, const SeenBoard& seen, Size picture) {
  const cv::Matx33d turn(R);
  const cv::Matx34d projection(P);
  return std::ranges::all_of(seen.dots, [&](const auto& dot) {
    const auto ideal = camera.idealOf(dot.second);
    if (!ideal) return false;
    const cv::Vec3d ray = turn * cv::Vec3d(ideal->x, ideal->y, 1.0);
    if (!(ray[2] > 0.0)) return false;
    const double u = projection(0, 0) * ray[0] / ray[2] + projection(0, 2);
    const double v = projection(1, 1) * ray[1] / ray[2] + projection(1, 2);
    const double room_u = kRoom * picture.width;
    const double room_v = kRoom * picture.height;
    return u > room_u && u < picture.width - room_u && v > room_v && v < picture.height - room_v;
  });
}

}  // namespace

FocalScale chooseFocalScale(const polarline::Calibration& calibration, Size picture, const SeenBoard& left,
                            const SeenBoard& right) {
  if (lensModelOf(calibration.type) != LensModel::kFisheye) return {};
  if (left.dots.empty() || right.dots.empty())
    return {1.0, "the board was not found in the first pair, whose dots would tell how much room they need"};
  const CalibratedPair cameras = camerasOf(calibration);
  for (int steps = kSteps; steps >= kLeastSteps; --steps) {
    const double f_scale = static_cast<double>(steps) / kSteps;
    const Rectification pair = rectified(calibration, cameras, picture, f_scale);
    if (holds(pair.R1, pair.P1, cameras.left, left, picture) && holds(pair.R2, pair.P2, cameras.right, right, picture))
      return {f_scale,
              "the largest in steps of 0.05, up to 1, with which the rectified pictures hold every dot of the first "
              "pair; the pixels of row differences are those of the rectified pictures"};
  }
  return {1.0, "no smaller one makes room for every dot of the first pair"};
}

}  // namespace init
