#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <optional>

#include "camera/CameraFloats.h"
#include "camera/LensModel.h"

/// 3x3 camera matrix and distortion row, doubles.
struct CameraMatrices {
  cv::Mat K;
  cv::Mat D;  ///< In OpenCV's order; empty for the polynomial model.
};

/// The matrices of one camera; both are empty without a model.
CameraMatrices BuildCameraMatrices(std::optional<LensModel> model, const CameraFloats& camera);

/// Rz Rx Ry of three angles in radians, 3x3 double, formed through quaternions. The order z, x, y is part of the camera
/// model.
cv::Mat EulerToRotation(const std::array<float, 3>& angles);
