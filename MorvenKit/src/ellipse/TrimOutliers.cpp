#include "MorvenKit/src/ellipse/TrimOutliers.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <opencv2/core/hal/intrin.hpp>
#include <opencv2/core/utility.hpp>

namespace kestrune::morvenkit {

namespace {

// Of normally distributed residuals 99.65 % lie within this multiple of their root mean square.
constexpr double kOutlierFactor = 2.92;
// Pixels. Points that scatter more than the pixels' own size are no ellipse.
constexpr float kLargestRms = 1.0F;

float distance(float dx, float dy) { return std::sqrt(dx * dx + dy * dy); }

/// The semi-axes and where the ellipse stands, in single precision as the residuals are.
class Residual {
 public:
  explicit Residual(const Ellipse<double>& ellipse)
      : a_(static_cast<float>(ellipse.semi_a)),
        b_(static_cast<float>(ellipse.semi_b)),
        cx_(static_cast<float>(ellipse.x)),
        cy_(static_cast<float>(ellipse.y)),
        cosine_(std::cos(static_cast<float>(ellipse.angle))),
        sine_(std::sin(static_cast<float>(ellipse.angle))) {}

  float operator()(const cv::Point2f& point) const {
    const float dx = point.x - cx_, dy = point.y - cy_;
    return radialResidual(cosine_ * dx + sine_ * dy, cosine_ * dy - sine_ * dx, a_, b_);
  }

  /// Of four points at once, in the same steps. False where one of them is on an axis, whose steps are others.
  bool ofFour(const cv::Point2f* points, float* residuals) const {
    cv::v_float32x4 x, y;
    cv::v_load_deinterleave(&points->x, x, y);
    const cv::v_float32x4 dx = x - all(cx_), dy = y - all(cy_), none = cv::v_setzero_f32();
    x = all(cosine_) * dx + all(sine_) * dy;
    y = all(cosine_) * dy - all(sine_) * dx;
    if (cv::v_check_any((x == none) | (y == none))) return false;
    const cv::v_float32x4 ma = y / x * all(a_);
    const cv::v_float32x4 d = cv::v_sqrt(ma * ma + all(b_ * b_));
    const cv::v_float32x4 off_x = cv::v_abs(x) - all(a_ * b_) / d, off_y = cv::v_abs(y) - cv::v_abs(ma * all(b_) / d);
    cv::v_store(residuals, cv::v_sqrt(off_x * off_x + off_y * off_y));
    return true;
  }

 private:
  static cv::v_float32x4 all(float value) { return cv::v_setall_f32(value); }

  float a_, b_, cx_, cy_, cosine_, sine_;
};

/// On the stack where a dot has as many points as usual.
using Residuals = cv::AutoBuffer<float, 256>;

Residuals residuals(const Ellipse<double>& ellipse, const std::vector<cv::Point2f>& points) {
  const Residual residual(ellipse);
  Residuals result(points.size());
  std::size_t i = 0;
  for (; i + 4 <= points.size(); i += 4) {
    if (residual.ofFour(&points[i], &result[i])) continue;
    for (std::size_t k = i; k < i + 4; ++k) result[k] = residual(points[k]);
  }
  for (; i < points.size(); ++i) result[i] = residual(points[i]);
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
