#include "camera/BrownModel.h"

#include "camera/FixedPointInverse.h"

BrownCoefficients brownCoefficientsOf(const CameraFloats& camera) {
  return {camera.k1, camera.k2, camera.k3, camera.k4, camera.k5, camera.k6, camera.p1, camera.p2};
}

cv::Point2d BrownDistort(const cv::Point2d& normalised_ideal, const BrownCoefficients& coefficients) {
  const auto& [K1, K2, K3, K4, K5, K6, P1, P2] = coefficients;
  const double x = normalised_ideal.x;
  const double y = normalised_ideal.y;
  const double r2 = x * x + y * y;
  const double r4 = r2 * r2;
  const double r6 = r2 * r4;
  const double f = (1.0 + K1 * r2 + K2 * r4 + K3 * r6) / (1.0 + K4 * r2 + K5 * r4 + K6 * r6);
  return {f * x + 2.0 * P1 * x * y + P2 * (r2 + 2.0 * x * x), f * y + 2.0 * P2 * x * y + P1 * (r2 + 2.0 * y * y)};
}

bool BrownUndistort(const cv::Point2d& normalised_raw, const BrownCoefficients& coefficients,
                    cv::Point2d& normalised_ideal) {
  const auto distortionAt = [&](const cv::Point2d& ideal) { return BrownDistort(ideal, coefficients) - ideal; };
  // NaN ends the iteration as if it had converged; the polynomial camera fails on it.
  const auto needsStep = [](double error) { return error > kInverseTolerance; };
  const InverseResult found = invertByFixedPoint(normalised_raw, distortionAt, needsStep);
  normalised_ideal = found.converged ? found.point : found.distortion;
  return found.converged;
}
