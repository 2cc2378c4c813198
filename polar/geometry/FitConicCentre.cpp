#include "polar/geometry/FitConicCentre.h"

#include <Eigen/Cholesky>
#include <cmath>
#include <limits>

#include "MorvenKit/MeanStd.h"

namespace {

using Weights = Eigen::Matrix<float, 5, 1>;

/// w of x^2 + w0 xy + w1 y^2 + w2 x + w3 y + w4 = 0 in normalised coordinates.
Weights solveConic(const std::vector<cv::Point2f>& points, const kestrune::morvenkit::MeanStd& spread) {
  const auto count = static_cast<Eigen::Index>(points.size());
  Eigen::Matrix<float, Eigen::Dynamic, 5> design(count, 5);
  Eigen::VectorXf right_side(count);
  for (Eigen::Index i = 0; i < count; ++i) {
    const cv::Point2f& point = points[static_cast<std::size_t>(i)];
    const float x = (point.x - spread.mx) / spread.sx;
    const float y = (point.y - spread.my) / spread.sy;
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
  const kestrune::morvenkit::MeanStd spread = kestrune::morvenkit::calcMeanStd(points);
  const Weights w = solveConic(points, spread);
  const float mx = spread.mx;
  const float my = spread.my;
  const float sx = spread.sx;
  const float sy = spread.sy;
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
