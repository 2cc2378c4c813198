#pragma once

#include <cmath>
#include <opencv2/core.hpp>
#include <optional>

#include "PolyFit.h"
#include "camera/BrownModel.h"
#include "camera/CameraMatrices.h"
#include "camera/RectifyPair.h"

/// A pair of 320 x 240 cameras with strong lenses, the right one to the right of the left and turned a little towards
/// it.
namespace stereo {

inline const cv::Size kSize(320, 240);
inline constexpr CameraFloats kLeft = {300,    305,   158,   122,     -0.2F,  0.05F,
                                       -0.01F, 0.02F, 0.01F, -0.002F, 0.001F, -0.0005F};
inline constexpr CameraFloats kRight = {296,    301,   163,   118,     -0.18F,   0.04F,
                                        -0.02F, 0.01F, 0.02F, -0.001F, -0.0007F, 0.0008F};

inline StereoMatrices matrices(std::optional<LensModel> model) {
  const CameraMatrices left = BuildCameraMatrices(model, kLeft);
  const CameraMatrices right = BuildCameraMatrices(model, kRight);
  return {left.K,
          left.D,
          right.K,
          right.D,
          EulerToRotation({0.02F, 0.06F, -0.03F}),
          (cv::Mat_<double>(3, 1) << -100.0, 3.0, 5.0)};
}

/// The ideal normalised point through the lens of a model. Written from the models' formulas.
inline cv::Point2d raw(LensModel model, const CameraFloats& camera, const cv::Point2d& ideal) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera;
  if (model == LensModel::kBrownFive) return BrownDistort(ideal, {k1, k2, k3, 0, 0, 0, p1, p2});
  if (model == LensModel::kBrownEight) return BrownDistort(ideal, {k1, k2, k3, k4, k5, k6, p1, p2});
  if (model == LensModel::kPoly) return radialLens(k1, 0)(ideal);
  const double r = std::hypot(ideal.x, ideal.y);
  const double t = std::atan(r);
  const double bent = t * (1 + k1 * std::pow(t, 2) + k2 * std::pow(t, 4) + k3 * std::pow(t, 6) + k4 * std::pow(t, 8));
  return ideal * (bent / r);
}

/// The polynomial camera of a side, fitted to the lens above.
inline PinholeCameraIntrinsicsPOL polyCamera(const CameraFloats& camera) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera;
  const Image grid(kSize.width, kSize.height, fx, fy, cx, cy, 6, 4);
  return {static_cast<std::uint16_t>(kSize.width), static_cast<std::uint16_t>(kSize.height), fx, fy, cx, cy, 1.0,
          fitPolyTables(grid, radialLens(k1, 0))};
}

/// The cameras outlive the settings that refer to them.
struct Cameras {
  PinholeCameraIntrinsicsPOL left = polyCamera(kLeft);
  PinholeCameraIntrinsicsPOL right = polyCamera(kRight);

  RectificationSettings settings(float f_scale, std::int32_t x_y = 0) const { return {f_scale, x_y, left, right}; }
};

}  // namespace stereo
