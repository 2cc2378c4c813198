#include "refine/edge/EdgeTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace refine {
namespace {

constexpr float kFlat = 5.0F;  ///< Beyond this the edge is over, in standard deviations.

/// exp(x) for -20 <= x <= 0, right to 2e-7 of itself: a power of two times a polynomial.
inline float expOf(float x) {
  const float scaled = x * std::numbers::log2e_v<float>;
  const auto whole = static_cast<std::int32_t>(scaled - 0.5F);
  const float rest = (scaled - static_cast<float>(whole)) * std::numbers::ln2_v<float>;
  const float power =
      1.0F +
      rest *
          (1.0F + rest * (0.5F + rest * (1.0F / 6 + rest * (1.0F / 24 + rest * (1.0F / 120 + rest * (1.0F / 720))))));
  return power * std::bit_cast<float>((whole + 127) << 23);
}

/// Upper tail of the normal distribution at |u| by exp(-u^2 / 2).
inline float tailOf(float u, float bell) {
  constexpr float kP = 0.3275911F * 0.70710678F;
  const float t = 1.0F / (1.0F + kP * u);
  constexpr float a1 = 0.254829592F, a2 = -0.284496736F, a3 = 1.421413741F, a4 = -1.453152027F, a5 = 1.061405429F;
  return 0.5F * bell * t * (a1 + t * (a2 + t * (a3 + t * (a4 + t * a5))));
}

}  // namespace

void EdgeTable::clear(const cv::Point& origin) {
  origin_ = origin;
  size_ = 0;
}

void EdgeTable::reserve(Eigen::Index rows) {
  for (Column* column : {&x_, &y_, &seen_, &grey_}) column->conservativeResize(rows);
  for (Column* column :
       {&model_, &distance_, &nx_, &ny_, &reach_, &along_, &light_, &covered_, &by_along_, &by_reach_, &by_blur_})
    column->resize(rows);
  slopes_.resize(rows, Eigen::NoChange);
}

void EdgeTable::add(int column, int row, float grey) {
  if (size_ == x_.size()) reserve(std::max<Eigen::Index>(2 * size_, 1024));
  x_(size_) = static_cast<float>(column - origin_.x);
  y_(size_) = static_cast<float>(row - origin_.y);
  seen_(size_) = grey_(size_) = grey;
  ++size_;
}

cv::Point EdgeTable::pixel(Eigen::Index i) const {
  return origin_ + cv::Point(static_cast<int>(x_(i)), static_cast<int>(y_(i)));
}

void EdgeTable::placePixels(const EdgeModel& model) {
  const Outline& outline = model.outline;
  const auto cx = static_cast<float>(outline.centre.x - origin_.x),
             cy = static_cast<float>(outline.centre.y - origin_.y);
  const auto xx = static_cast<float>(outline.xx), xy = static_cast<float>(outline.xy),
             yy = static_cast<float>(outline.yy);
  const auto lx = static_cast<float>(model.light.x), ly = static_cast<float>(model.light.y);
  const auto l0 = static_cast<float>(1.0 - model.light.dot(model.light_origin - cv::Point2d(origin_)));
  const float* const px = x_.data();
  const float* const py = y_.data();
  float* const nx = nx_.data();
  float* const ny = ny_.data();
  float* const reach = reach_.data();
  float* const along = along_.data();
  float* const light = light_.data();
  for (Eigen::Index i = 0; i < size_; ++i) {
    const float dx = px[i] - cx, dy = py[i] - cy;
    const float mx = yy * dx - xy * dy, my = xx * dy - xy * dx;
    const float by_length = 1.0F / std::sqrt(mx * mx + my * my + 1e-20F);
    nx[i] = mx * by_length;
    ny[i] = my * by_length;
    reach[i] = std::sqrt(xx * nx[i] * nx[i] + 2.0F * xy * nx[i] * ny[i] + yy * ny[i] * ny[i] + 1e-12F);
    along[i] = nx[i] * dx + ny[i] * dy;
    light[i] = l0 + lx * px[i] + ly * py[i];
  }
}

void EdgeTable::addEdge(const EdgeModel& model, std::size_t edge) {
  const auto ox = static_cast<float>(model.offset[edge].x), oy = static_cast<float>(model.offset[edge].y);
  const auto ratio = static_cast<float>(model.ratio[edge]);
  const auto by_blur = static_cast<float>(1.0 / model.blur);
  const float sign = edge % 2 == 0 ? 1.0F : -1.0F;
  const float peak = sign * by_blur * static_cast<float>(0.5 * std::numbers::inv_sqrtpi * std::numbers::sqrt2);
  const auto step = static_cast<float>(model.ink - model.paper);
  float* const by_ratio = edge > 0 ? slopes_.col(static_cast<Eigen::Index>(7 + edge)).data() : nullptr;
  for (Eigen::Index i = 0; i < size_; ++i) {
    const float t = along_[i] - nx_[i] * ox - ny_[i] * oy - ratio * reach_[i];
    const float u = t * by_blur;
    const float size = std::min(std::abs(u), kFlat);
    const float exponential = expOf(-0.5F * size * size);
    const float tail = tailOf(size, exponential);
    covered_[i] += sign * (u > 0.0F ? tail : 1.0F - tail);
    const float bell = size < kFlat ? peak * exponential : 0.0F;
    by_along_[i] -= bell;
    by_reach_[i] += bell * ratio;
    by_blur_[i] += bell * u;
    distance_[i] = std::abs(t) < std::abs(distance_[i]) ? t : distance_[i];
    if (by_ratio != nullptr) by_ratio[i] = light_[i] * step * bell * reach_[i];
  }
}

void EdgeTable::formSlopes(const EdgeModel& model) {
  const auto n = size_;
  const auto paper = static_cast<float>(model.paper), step = static_cast<float>(model.ink - model.paper);
  const auto light = light_.head(n), covered = covered_.head(n), nx = nx_.head(n), ny = ny_.head(n);
  model_.head(n) = light * (paper + step * covered);
  slopes_.col(0).head(n).array() = -step * light * by_along_.head(n) * nx;
  slopes_.col(1).head(n).array() = -step * light * by_along_.head(n) * ny;
  by_reach_.head(n) *= 0.5F * step * light / reach_.head(n);
  slopes_.col(2).head(n).array() = by_reach_.head(n) * nx * nx;
  slopes_.col(3).head(n).array() = by_reach_.head(n) * 2.0F * nx * ny;
  slopes_.col(4).head(n).array() = by_reach_.head(n) * ny * ny;
  slopes_.col(5).head(n).array() = light * (1.0F - covered);
  slopes_.col(6).head(n).array() = light * covered;
  slopes_.col(7).head(n).array() = step * light * by_blur_.head(n);
}

void EdgeTable::evaluate(const EdgeModel& model) {
  placePixels(model);
  for (Column* column : {&covered_, &by_along_, &by_reach_, &by_blur_}) column->head(size_).setZero();
  distance_.head(size_).setConstant(1e9F);
  for (std::size_t edge = 0; edge < model.edges; ++edge) addEdge(model, edge);
  formSlopes(model);
}

}  // namespace refine
