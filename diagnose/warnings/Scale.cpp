#include "diagnose/warnings/Scale.h"

#include <algorithm>
#include <cmath>

namespace diagnose {
namespace {

constexpr std::size_t kLeastPoints = 8;

cv::Vec3d meanOf(const std::vector<cv::Vec3d>& points) {
  cv::Vec3d sum(0.0, 0.0, 0.0);
  for (const cv::Vec3d& point : points) sum += point;
  return sum / static_cast<double>(points.size());
}

}  // namespace

std::optional<cv::Vec3d> triangulated(const CalibratedPair& cameras, const cv::Point2d& left,
                                      const cv::Point2d& right) {
  const auto ideal_left = cameras.left.idealOf(left);
  const auto ideal_right = cameras.right.idealOf(right);
  if (!ideal_left || !ideal_right) return std::nullopt;
  const cv::Vec3d a(ideal_left->x, ideal_left->y, 1.0);
  const cv::Vec3d b = cameras.R.t() * cv::Vec3d(ideal_right->x, ideal_right->y, 1.0);
  const cv::Vec3d origin = -(cameras.R.t() * cameras.T);  // Of the right camera.
  const double aa = a.dot(a);
  const double ab = a.dot(b);
  const double bb = b.dot(b);
  const double det = aa * bb - ab * ab;
  if (!(det > 1e-12 * aa * bb)) return std::nullopt;
  const double along_a = (bb * a.dot(origin) - ab * b.dot(origin)) / det;
  const double along_b = (ab * a.dot(origin) - aa * b.dot(origin)) / det;
  return 0.5 * (along_a * a + origin + along_b * b);
}

std::optional<Slope> scaleOf(const std::vector<cv::Vec3d>& measured, const std::vector<cv::Vec3d>& truth) {
  if (measured.size() < kLeastPoints) return std::nullopt;
  const cv::Vec3d middle = meanOf(measured);
  const cv::Vec3d true_middle = meanOf(truth);
  cv::Matx33d covariance = cv::Matx33d::zeros();
  double true_square = 0.0;
  double square = 0.0;
  for (std::size_t k = 0; k < measured.size(); ++k) {
    const cv::Vec3d a = measured[k] - middle;
    const cv::Vec3d b = truth[k] - true_middle;
    covariance += a * b.t();
    true_square += b.dot(b);
    square += a.dot(a);
  }
  cv::Vec3d strength;
  cv::SVD::compute(covariance, strength);
  // The true points lie nearly in a plane, so the sign of the least value is of no account.
  const double scale = (strength[0] + strength[1] + strength[2]) / true_square;
  const double left_over = std::max(0.0, square - scale * scale * true_square);
  const double freedom = 3.0 * static_cast<double>(measured.size()) - 7.0;
  return Slope{scale, std::sqrt(left_over / freedom / true_square)};
}

}  // namespace diagnose
