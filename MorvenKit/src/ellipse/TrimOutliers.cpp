#include "MorvenKit/src/ellipse/TrimOutliers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <opencv2/core/utility.hpp>

namespace kestrune::morvenkit {

namespace {

// Of normally distributed residuals 99.65 % lie within this multiple of their root mean square.
constexpr double kOutlierFactor = 2.92;
// Pixels. Points that scatter more than the pixels' own size are no ellipse.
constexpr float kLargestRms = 1.0F;

float distance(float dx, float dy) { return std::sqrt(dx * dx + dy * dy); }

/// On the stack where a dot has as many points as usual.
using Residuals = cv::AutoBuffer<float, 256>;

Residuals residuals(const Ellipse<double>& ellipse, const std::vector<cv::Point2f>& points) {
  const auto theta = static_cast<float>(ellipse.angle);
  const auto a = static_cast<float>(ellipse.semi_a), b = static_cast<float>(ellipse.semi_b);
  const auto cx = static_cast<float>(ellipse.x), cy = static_cast<float>(ellipse.y);
  const float cosine = std::cos(theta), sine = std::sin(theta);
  Residuals result(points.size());
  std::transform(points.begin(), points.end(), result.data(), [=](const cv::Point2f& point) {
    const float dx = point.x - cx, dy = point.y - cy;
    return radialResidual(cosine * dx + sine * dy, cosine * dy - sine * dx, a, b);
  });
  return result;
}

float rootMeanSquare(const Residuals& values) {
  float sum = 0.0F;
  for (std::size_t i = 0; i < values.size(); ++i) sum += values[i] * values[i];
  return std::sqrt(sum / static_cast<float>(values.size()));
}

}  // namespace

float radialResidual(float x, float y, float a, float b) {
  if (y == 0.0F) return std::abs(std::abs(x) - a);
  if (x == 0.0F) return std::abs(std::abs(y) - b);
  const float m = y / x;
  const float ma = m * a;
  const float d = std::sqrt(ma * ma + b * b);
  const float onX = a * b / d, onY = m * a * b / d;
  return distance(std::abs(x) - onX, std::abs(y) - std::abs(onY));  // Of the two crossings the one on the point's side.
}

double trimOutliers(const Ellipse<double>& ellipse, std::vector<cv::Point2f>& points) {
  if (points.empty()) return -1.0;
  const Residuals residual = residuals(ellipse, points);
  const float rms = rootMeanSquare(residual);
  if (rms > kLargestRms) return -1.0;
  if (rms < std::numeric_limits<float>::epsilon()) return 0.0;
  const double limit = static_cast<double>(rms) * kOutlierFactor;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (static_cast<double>(residual[i]) < limit) points[kept++] = points[i];
  }
  points.resize(kept);
  return static_cast<double>(rms);
}

}  // namespace kestrune::morvenkit
