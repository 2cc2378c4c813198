#pragma once

#include <array>
#include <opencv2/core.hpp>

#include "Tallowfen/src/RingTarget.h"

/// A camera of a pair as OpenCV takes it: 3x3 matrix, 8x1 coefficients k1, k2, p1, p2, k3 to k6, doubles.
struct PoseCamera {
  cv::Mat K;
  cv::Mat coefficients;
};

/// Pose of the board against a camera: X_camera = R X_board + t.
struct BoardPose {
  cv::Matx33d R;
  /// Components of the rotation vector in degrees (no Euler angles), then the distance of the board's middle dot, board
  /// unit.
  std::array<float, 4> report{};
};

/// Estimates the pose from the detected centres as they are. Throws what OpenCV throws for too few points, and
/// `std::out_of_range` for an id that the board lacks.
BoardPose estimateBoardPose(const kestrune::RingTarget& target, const kestrune::RingTarget::Points& points,
                            const PoseCamera& camera);
