#include "camera/CalibratedCamera.h"

#include <algorithm>
#include <cmath>

#include "camera/BrownModel.h"

namespace {

/// Normalised. A lens's second derivative is about 1, so the slope is right to 1e-9; the single tables of a polynomial
/// lens make it 1e-3, which only slows the search.
constexpr double kSlopeStep = 1e-5;
constexpr int kSteps = 30;
/// A hundredth of what a single-precision pixel of a large image resolves.
constexpr double kSettled = 1e-13;
constexpr double kTolerance = 1e-7;
/// A fisheye's rays go on beyond 90 degrees, ideal normalised points do not.
constexpr double kWidestAngle = 1.5;

BrownCoefficients brownOf(const CameraCalib& camera, LensModel model) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera.intrinsics;
  if (model == LensModel::kBrownFive) return {k1, k2, k3, 0.0, 0.0, 0.0, p1, p2};
  return {k1, k2, k3, k4, k5, k6, p1, p2};
}

cv::Point2d fisheyeDistorted(const cv::Point2d& ideal, const CameraCalib& camera) {
  const double r = std::hypot(ideal.x, ideal.y);
  if (r == 0.0) return ideal;
  const double angle = std::atan(r);
  const double a2 = angle * angle;
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera.intrinsics;
  const double raw = angle * (1.0 + a2 * (k1 + a2 * (k2 + a2 * (k3 + a2 * k4))));
  return ideal * (raw / r);
}

double sumOfErrors(const cv::Point2d& error) { return std::abs(error.x) + std::abs(error.y); }

}  // namespace

CalibratedCamera::CalibratedCamera(const StereoCalibParams& calib, int camera_index, LensModel model)
    : model_(model), numbers_(*cameraOf(calib, camera_index)) {
  focal_ = {numbers_.intrinsics[0], numbers_.intrinsics[1]};
  centre_ = {numbers_.intrinsics[2], numbers_.intrinsics[3]};
  if (model == LensModel::kPoly) poly_.LoadCalib(calib, camera_index);
}

cv::Point2d CalibratedCamera::distorted(const cv::Point2d& ideal) const {
  if (model_ == LensModel::kFisheye) return fisheyeDistorted(ideal, numbers_);
  if (model_ != LensModel::kPoly) return BrownDistort(ideal, brownOf(numbers_, model_));
  cv::Point2d raw;
  poly_.AddDistortion(ideal, raw);
  return raw;
}

cv::Matx22d CalibratedCamera::slopeAt(const cv::Point2d& ideal) const {
  const cv::Point2d across = distorted({ideal.x + kSlopeStep, ideal.y}) - distorted({ideal.x - kSlopeStep, ideal.y});
  const cv::Point2d down = distorted({ideal.x, ideal.y + kSlopeStep}) - distorted({ideal.x, ideal.y - kSlopeStep});
  return cv::Matx22d(across.x, down.x, across.y, down.y) * (0.5 / kSlopeStep);
}

cv::Point2d CalibratedCamera::firstGuess(const cv::Point2d& raw) const {
  const double r = std::hypot(raw.x, raw.y);
  if (model_ != LensModel::kFisheye || r == 0.0) return raw;
  return raw * (std::tan(std::min(r, kWidestAngle)) / r);
}

std::optional<cv::Point2d> CalibratedCamera::undistorted(const cv::Point2d& raw) const {
  cv::Point2d ideal = firstGuess(raw);
  cv::Point2d error = distorted(ideal) - raw;
  for (int step = 0; step < kSteps && sumOfErrors(error) > kSettled; ++step) {
    const cv::Vec2d move = slopeAt(ideal).solve(cv::Vec2d(error.x, error.y), cv::DECOMP_LU);
    const cv::Point2d next(ideal.x - move[0], ideal.y - move[1]);
    const cv::Point2d next_error = distorted(next) - raw;
    // Near the solution the roundings of the polynomial tables make the error jump about.
    if (!(sumOfErrors(next_error) < sumOfErrors(error)) && sumOfErrors(error) <= kTolerance) break;
    ideal = next;
    error = next_error;
  }
  // A lens may come back to the same place from beyond its fold or from the other side.
  const bool is_beyond = cv::determinant(slopeAt(ideal)) <= 0.0 || ideal.dot(raw) < -kTolerance;
  if (!(sumOfErrors(error) <= kTolerance) || is_beyond) return std::nullopt;
  return ideal;
}

std::optional<cv::Point2d> CalibratedCamera::pixelOf(const cv::Vec3d& point_camera) const {
  if (!(point_camera[2] > 0.0)) return std::nullopt;
  const cv::Point2d raw = distorted({point_camera[0] / point_camera[2], point_camera[1] / point_camera[2]});
  return cv::Point2d(raw.x * focal_.x + centre_.x, raw.y * focal_.y + centre_.y);
}

std::optional<cv::Point2d> CalibratedCamera::idealOf(const cv::Point2d& pixel) const {
  return undistorted({(pixel.x - centre_.x) / focal_.x, (pixel.y - centre_.y) / focal_.y});
}

CalibratedCamera CalibratedCamera::cropped(const cv::Point2d& origin) const {
  CalibratedCamera camera = *this;
  camera.centre_ -= origin;  // The grid of a polynomial lens stays where it was over the normalised plane.
  return camera;
}
