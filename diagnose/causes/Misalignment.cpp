#include "diagnose/causes/Misalignment.h"

#include <algorithm>
#include <array>

#include "camera/CalibratedPair.h"
#include "diagnose/causes/RowFrames.h"

namespace {

/// Places of x^3, x^2 y, x y^2 and y^3 among the coefficients of a cell.
constexpr std::size_t kXXX = 6;
constexpr std::size_t kXXY = 7;
constexpr std::size_t kXYY = 8;
constexpr std::size_t kYYY = 9;

void take(float& coefficient, double amount) {
  coefficient = static_cast<float>(static_cast<double>(coefficient) - amount);
}

/// The tables tell what is taken off a point; k1 adds (x, y) (x^2 + y^2).
void addToTables(CameraCalib& camera, double k1) {
  if (k1 == 0.0) return;
  for (std::size_t cell = 0; cell < kMostCells; ++cell) {
    const std::size_t first = cell * kCoefficientsPerCell;
    take(camera.poly_x[first + kXXX], k1);
    take(camera.poly_x[first + kXYY], k1);
    take(camera.poly_y[first + kXXY], k1);
    take(camera.poly_y[first + kYYY], k1);
  }
}

void moveRight(StereoCalibParams& calib, const CalibratedPair& cameras, const Misalignment& m) {
  const cv::Matx33d rectified_from_right = rowFrames(cameras.R, cameras.T).right;
  const cv::Matx33d turn =
      rotationOf(at(m, CauseKind::kRotationX), at(m, CauseKind::kRotationY), at(m, CauseKind::kRotationZ));
  const cv::Vec3d shift(0.0, at(m, CauseKind::kBaselineY), at(m, CauseKind::kBaselineZ));
  const cv::Vec3d angles = anglesOf(rectified_from_right.t() * turn * rectified_from_right * cameras.R);
  const cv::Vec3d T = rectified_from_right.t() * (turn * (rectified_from_right * cameras.T + shift));
  for (int k = 0; k < 3; ++k) {
    calib.extrinsics[static_cast<std::size_t>(k)] = angles[k];
    calib.extrinsics[static_cast<std::size_t>(k) + 3] = T[k];
  }
}

bool movesTheCamera(const Misalignment& m) {
  constexpr std::array kMoves{CauseKind::kRotationX, CauseKind::kRotationY, CauseKind::kRotationZ,
                              CauseKind::kBaselineY, CauseKind::kBaselineZ};
  return std::ranges::any_of(kMoves, [&m](CauseKind kind) { return at(m, kind) != 0.0; });
}

}  // namespace

StereoCalibParams misaligned(const StereoCalibParams& calib, LensModel model, const Misalignment& misalignment) {
  StereoCalibParams moved = calib;
  if (movesTheCamera(misalignment)) moveRight(moved, CalibratedPair(calib, model), misalignment);
  auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = moved.right.intrinsics;
  const double magnification = 1.0 + at(misalignment, CauseKind::kFocalRatio);
  fx *= magnification;
  fy *= magnification;
  cy += at(misalignment, CauseKind::kRowOffset);
  if (model == LensModel::kPoly) {
    addToTables(moved.right, at(misalignment, CauseKind::kK1));
  } else {
    k1 += at(misalignment, CauseKind::kK1);
  }
  return moved;
}
