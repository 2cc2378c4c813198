#pragma once

#include <array>
#include <cstdint>
#include <opencv2/core.hpp>

/// fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2 of one camera, in single precision.
using CameraFloats = std::array<float, 12>;

/// 3x3 camera matrix and distortion row, doubles.
struct CameraMatrices {
  cv::Mat K;
  cv::Mat D;  ///< Order as OpenCV takes it; empty for `type` 3.
};

/// The matrices of one camera for a distortion model `type` 0 to 3; both stay empty for any other.
CameraMatrices BuildCameraMatrices(std::int32_t type, const CameraFloats& camera);

/// Rz Rx Ry of three angles in radians, 3x3 double, formed through quaternions. The order z, x, y is part of the camera
/// model.
cv::Mat EulerToRotation(const std::array<float, 3>& angles);
