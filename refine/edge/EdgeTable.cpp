#include "refine/edge/EdgeTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace refine {
namespace {

/// No power of two, so that the columns of a matrix do not lie in the same places of the processor's cache.
constexpr Eigen::Index kFirstRows = 1040;
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

/// A model's outline and light as single numbers, the centre from the table's origin.
struct OutlineNumbers {
  float cx, cy, xx, xy, yy;
  float light, light_x, light_y;  ///< At the origin, and its change by pixel.
};

OutlineNumbers outlineNumbers(const EdgeModel& model, const cv::Point& origin) {
  const Outline& outline = model.outline;
  const auto number = [](double value) { return static_cast<float>(value); };
  return {number(outline.centre.x - origin.x),
          number(outline.centre.y - origin.y),
          number(outline.xx),
          number(outline.xy),
          number(outline.yy),
          number(1.0 - model.light.dot(model.light_origin - cv::Point2d(origin))),
          number(model.light.x),
          number(model.light.y)};
}

// The loops over pixels stand in functions of their own: that their columns are apart from each other is told by the
// parameters, and only then do compilers work on several pixels at once.

void placeAll(Eigen::Index n, const OutlineNumbers& of, const float* __restrict px, const float* __restrict py,
              float* __restrict nx, float* __restrict ny, float* __restrict reach, float* __restrict along,
              float* __restrict light) {
  const OutlineNumbers o = of;
  for (Eigen::Index i = 0; i < n; ++i) {
    const float dx = px[i] - o.cx, dy = py[i] - o.cy;
    const float mx = o.yy * dx - o.xy * dy, my = o.xx * dy - o.xy * dx;
    const float by_length = 1.0F / std::sqrt(mx * mx + my * my + 1e-20F);
    const float x = mx * by_length, y = my * by_length;
    nx[i] = x;
    ny[i] = y;
    reach[i] = std::sqrt(o.xx * x * x + 2.0F * o.xy * x * y + o.yy * y * y + 1e-12F);
    along[i] = x * dx + y * dy;
    light[i] = o.light + o.light_x * px[i] + o.light_y * py[i];
  }
}

/// Share of ink and its slope by the distance, of an edge at the distances `away`.
void blurAll(Eigen::Index n, float by_blur, const float* __restrict away, float* __restrict share,
             float* __restrict bell) {
  const float peak = by_blur * static_cast<float>(0.5 * std::numbers::inv_sqrtpi * std::numbers::sqrt2);
  for (Eigen::Index i = 0; i < n; ++i) {
    const float u = away[i] * by_blur, distance = std::abs(u);
    const float size = distance < kFlat ? distance : kFlat;
    const float exponential = expOf(-0.5F * size * size);
    const float tail = tailOf(size, exponential), rest = 1.0F - tail, slope = peak * exponential;
    share[i] = u > 0.0F ? tail : rest;
    bell[i] = distance < kFlat ? slope : 0.0F;
  }
}

}  // namespace

void EdgeTable::clear(const cv::Point& origin) {
  origin_ = origin;
  size_ = 0;
}

void EdgeTable::grow() {
  const Eigen::Index rows = std::max(2 * x_.size(), kFirstRows);
  for (Column* column : {&x_, &y_, &grey_}) column->conservativeResize(rows);
  for (Column* column : {&model_, &distance_, &nx_, &ny_, &reach_, &along_, &light_, &away_, &share_, &bell_, &covered_,
                         &by_along_, &by_reach_, &by_blur_})
    column->resize(rows);
  slopes_.resize(rows, Eigen::NoChange);
}

void EdgeTable::takeEvery(Eigen::Index n, const EdgeTable& other) {
  clear(other.origin_);
  while ((other.size_ + n - 1) / n + kSpare > x_.size()) grow();
  for (Eigen::Index i = 0; i < other.size_; i += n, ++size_) {
    x_.data()[size_] = other.x_.data()[i];
    y_.data()[size_] = other.y_.data()[i];
    grey_.data()[size_] = other.grey_.data()[i];
  }
}

cv::Point EdgeTable::pixel(Eigen::Index i) const {
  return origin_ + cv::Point(static_cast<int>(x_(i)), static_cast<int>(y_(i)));
}

void EdgeTable::placePixels(const EdgeModel& model) {
  placeAll(size_, outlineNumbers(model, origin_), x_.data(), y_.data(), nx_.data(), ny_.data(), reach_.data(),
           along_.data(), light_.data());
}

void EdgeTable::addEdge(const EdgeModel& model, std::size_t edge, const EdgeDeparture* beside) {
  const auto ox = static_cast<float>(model.offset[edge].x), oy = static_cast<float>(model.offset[edge].y);
  const auto ratio = static_cast<float>(model.ratio[edge]), by_blur = static_cast<float>(1.0 / model.blur);
  const float sign = edge % 2 == 0 ? 1.0F : -1.0F;
  const auto n = size_;
  const auto nx = nx_.head(n), ny = ny_.head(n), reach = reach_.head(n);
  auto away = away_.head(n), share = share_.head(n), bell = bell_.head(n), nearest = distance_.head(n);
  away = along_.head(n) - ox * nx - oy * ny - ratio * reach;
  blurAll(n, by_blur, away_.data(), share_.data(), bell_.data());
  if (beside != nullptr) beside->addDepartures(n, away_.data(), nx_.data(), ny_.data(), share_.data());
  bell *= sign;
  covered_.head(n) += sign * share;
  by_along_.head(n) -= bell;
  by_reach_.head(n) += ratio * bell;
  by_blur_.head(n) += by_blur * bell * away;
  if (edge == 0) {
    nearest = away;
    return;
  }
  nearest = (away.abs() < nearest.abs()).select(away, nearest);
  slopes_.col(static_cast<Eigen::Index>(7 + edge)).head(n).array() =
      static_cast<float>(model.ink - model.paper) * light_.head(n) * bell * reach;
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
  slopes_.middleRows(n, kSpare).setZero();
}

void EdgeTable::evaluate(const EdgeModel& model, const EdgeDeparture* beside) {
  placePixels(model);
  for (Column* column : {&covered_, &by_along_, &by_reach_, &by_blur_}) column->head(size_).setZero();
  for (std::size_t edge = 0; edge < model.edges; ++edge) addEdge(model, edge, beside);
  formSlopes(model);
}

}  // namespace refine
