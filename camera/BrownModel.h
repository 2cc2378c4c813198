#pragma once

#include <array>
#include <opencv2/core.hpp>

#include "camera/CameraFloats.h"

/// K1 to K6, P1, P2 of the rational lens model (Brown 1966, with the denominator of later practice).
using BrownCoefficients = std::array<double, 8>;

/// The coefficients of one camera, widened.
BrownCoefficients brownCoefficientsOf(const CameraFloats& camera);

/// Ideal normalised point to the distorted one.
cv::Point2d BrownDistort(const cv::Point2d& normalised_ideal, const BrownCoefficients& coefficients);

/// The inverse by fixed-point iteration, to 1e-6 in the sum of the absolute errors. False after 200 steps; the output
/// then holds the last distortion (distorted minus ideal point), not a point.
bool BrownUndistort(const cv::Point2d& normalised_raw, const BrownCoefficients& coefficients,
                    cv::Point2d& normalised_ideal);
