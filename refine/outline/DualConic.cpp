#include "refine/outline/DualConic.h"

namespace refine {

void DualConicFit::addLine(double x, double y, double nx, double ny, double weight) {
  const double along = nx * (x - origin_.x) + ny * (y - origin_.y);
  const cv::Vec<double, 5> row(nx * nx, 2.0 * nx * ny, ny * ny, 2.0 * along * nx, 2.0 * along * ny);
  for (int i = 0; i < 5; ++i) {
    for (int j = i; j < 5; ++j) normal_(i, j) += weight * row[i] * row[j];
    right_[i] += weight * row[i] * along * along;
  }
}

std::optional<Outline> DualConicFit::outline() const {
  cv::Matx<double, 5, 5> full = normal_;
  for (int i = 0; i < 5; ++i) {
    for (int j = 0; j < i; ++j) full(i, j) = full(j, i);
  }
  bool solved = false;
  const cv::Matx<double, 5, 5> inverse = full.inv(cv::DECOMP_CHOLESKY, &solved);
  if (!solved) return std::nullopt;
  const cv::Vec<double, 5> p = inverse * right_;
  const Outline outline{
      {p[3] + origin_.x, p[4] + origin_.y}, p[0] + p[3] * p[3], p[1] + p[3] * p[4], p[2] + p[4] * p[4]};
  if (!outline.isEllipse()) return std::nullopt;
  return outline;
}

}  // namespace refine
