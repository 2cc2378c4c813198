#include "polar/FitConicCentre.h"

#include <Eigen/Dense>
#include <cmath>
#include <limits>

namespace {

struct Spread {
  float mean = 0.0F;
  float deviation = 0.0F;
};

/// The deviation is the root of the mean square less the squared mean, 0 when that is not above 0.
Spread spreadOf(float sum, float square_sum, float count) {
  Spread spread;
  spread.mean = sum / count;
  const float variance = square_sum / count - spread.mean * spread.mean;
  spread.deviation = variance > 0.0F ? std::sqrt(variance) : 0.0F;
  return spread;
}

struct PlaneSpread {
  Spread x;
  Spread y;
};

PlaneSpread spreadOf(const std::vector<cv::Point2f>& points) {
  float sum_x = 0.0F;
  float sum_y = 0.0F;
  float square_x = 0.0F;
  float square_y = 0.0F;
  for (const cv::Point2f& point : points) {
    sum_x += point.x;
    sum_y += point.y;
    square_x += point.x * point.x;
    square_y += point.y * point.y;
  }
  const auto count = static_cast<float>(points.size());
  return {spreadOf(sum_x, square_x, count), spreadOf(sum_y, square_y, count)};
}

using Weights = Eigen::Matrix<float, 5, 1>;

/// w of x^2 + w0 xy + w1 y^2 + w2 x + w3 y + w4 = 0 in normalised coordinates.
Weights solveConic(const std::vector<cv::Point2f>& points, const PlaneSpread& spread) {
  const auto count = static_cast<Eigen::Index>(points.size());
  Eigen::Matrix<float, Eigen::Dynamic, 5> design(count, 5);
  Eigen::VectorXf right_side(count);
  for (Eigen::Index i = 0; i < count; ++i) {
    const cv::Point2f& point = points[static_cast<std::size_t>(i)];
    const float x = (point.x - spread.x.mean) / spread.x.deviation;
    const float y = (point.y - spread.y.mean) / spread.y.deviation;
    design.row(i) << x * y, y * y, x, y, 1.0F;
    right_side[i] = -(x * x);
  }
  const Eigen::Matrix<float, 5, 5> normal = design.transpose() * design;
  const Weights projected = design.transpose() * right_side;
  return normal.ldlt().solve(projected);
}

}  // namespace

int FitConicCentre(const std::vector<cv::Point2f>& points, cv::Point2f& centre) {
  if (points.size() < 5) return 0;
  const PlaneSpread spread = spreadOf(points);
  const Weights w = solveConic(points, spread);
  const float mx = spread.x.mean;
  const float my = spread.y.mean;
  const float sx = spread.x.deviation;
  const float sy = spread.y.deviation;
  const float a = 1.0F / (sx * sx);
  float b = w[0] / (sx * sy);
  float c = w[1] / (sy * sy);
  float d = -2.0F * mx * a - my * b + w[2] / sx;
  float e = -2.0F * my * c - mx * b + w[3] / sy;
  if (std::abs(a) < std::numeric_limits<float>::epsilon()) return 1;
  b /= a;
  c /= a;
  d /= a;
  e /= a;
  const float q = b * b - 4.0F * c;
  centre = {(2.0F * c * d - e * b) / q, (2.0F * e - d * b) / q};
  return 1;
}
