#include "refine/edge/EdgeTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "platform/WideLoops.h"

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

/// Pixels side by side and what a model says of them.
struct Block {
  Lanes x, y;                         ///< From the table's origin.
  Lanes nx, ny, reach, along, light;  ///< Of the model's outline and light.
  Lanes away, share, bell;            ///< Of the edge at hand: signed distance, share of ink, its slope.
  Lanes nearest;                      ///< Of the distances so far.
  Lanes covered{};                    ///< Share of ink and its slopes.
  Lanes by_along{}, by_reach{}, by_blur{};
};

PLP_WIDE_LOOPS void placePixels(const OutlineNumbers& of, Block& b) {
  const OutlineNumbers o = of;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const float dx = b.x[i] - o.cx, dy = b.y[i] - o.cy;
    const float mx = o.yy * dx - o.xy * dy, my = o.xx * dy - o.xy * dx;
    const float by_length = 1.0F / std::sqrt(mx * mx + my * my + 1e-20F);
    const float x = mx * by_length, y = my * by_length;
    b.nx[i] = x;
    b.ny[i] = y;
    b.reach[i] = std::sqrt(o.xx * x * x + 2.0F * o.xy * x * y + o.yy * y * y + 1e-12F);
    b.along[i] = x * dx + y * dy;
    b.light[i] = o.light + o.light_x * b.x[i] + o.light_y * b.y[i];
  }
}

/// Share of ink and its slope by the distance, of the edge at hand.
PLP_WIDE_LOOPS void blurEdge(float by_blur, Block& b) {
  const float peak = by_blur * static_cast<float>(0.5 * std::numbers::inv_sqrtpi * std::numbers::sqrt2);
  for (std::size_t i = 0; i < kLanes; ++i) {
    const float u = b.away[i] * by_blur, distance = std::abs(u);
    const float size = distance < kFlat ? distance : kFlat;
    const float exponential = expOf(-0.5F * size * size);
    const float tail = tailOf(size, exponential), rest = 1.0F - tail, slope = peak * exponential;
    b.share[i] = u > 0.0F ? tail : rest;
    b.bell[i] = distance < kFlat ? slope : 0.0F;
  }
}

PLP_WIDE_LOOPS void addEdge(const EdgeModel& model, std::size_t edge, const EdgeDeparture* beside, Block& b) {
  const auto ox = static_cast<float>(model.offset[edge].x), oy = static_cast<float>(model.offset[edge].y);
  const auto ratio = static_cast<float>(model.ratio[edge]), by_blur = static_cast<float>(1.0 / model.blur);
  const float sign = edge % 2 == 0 ? 1.0F : -1.0F;
  for (std::size_t i = 0; i < kLanes; ++i) b.away[i] = b.along[i] - ox * b.nx[i] - oy * b.ny[i] - ratio * b.reach[i];
  blurEdge(by_blur, b);
  if (beside != nullptr) beside->addDepartures(b.away, b.nx, b.ny, b.share);
  for (std::size_t i = 0; i < kLanes; ++i) {
    const float bell = b.bell[i] * sign, away = b.away[i];
    b.bell[i] = bell;
    b.covered[i] += sign * b.share[i];
    b.by_along[i] -= bell;
    b.by_reach[i] += ratio * bell;
    b.by_blur[i] += by_blur * bell * away;
    b.nearest[i] = edge == 0 || std::abs(away) < std::abs(b.nearest[i]) ? away : b.nearest[i];
  }
}

/// The slopes by the unknowns that every model has, `stride` values apart.
PLP_WIDE_LOOPS void formSlopes(float step, const Block& b, float* slopes, Eigen::Index stride) {
  const auto put = [&](int unknown, const auto& value_of) {
    const Lanes values = lanesOf(value_of);
    store(values, slopes + unknown * stride);
  };
  const auto by_normal = lanesOf([&](std::size_t i) { return -step * b.light[i] * b.by_along[i]; });
  const auto by_shape = lanesOf([&](std::size_t i) { return b.by_reach[i] * (0.5F * step * b.light[i] / b.reach[i]); });
  put(0, [&](std::size_t i) { return by_normal[i] * b.nx[i]; });
  put(1, [&](std::size_t i) { return by_normal[i] * b.ny[i]; });
  put(2, [&](std::size_t i) { return by_shape[i] * b.nx[i] * b.nx[i]; });
  put(3, [&](std::size_t i) { return by_shape[i] * 2.0F * b.nx[i] * b.ny[i]; });
  put(4, [&](std::size_t i) { return by_shape[i] * b.ny[i] * b.ny[i]; });
  put(5, [&](std::size_t i) { return b.light[i] * (1.0F - b.covered[i]); });
  put(6, [&](std::size_t i) { return b.light[i] * b.covered[i]; });
  put(7, [&](std::size_t i) { return step * b.light[i] * b.by_blur[i]; });
}

}  // namespace

void EdgeTable::clear(const cv::Point& origin) {
  origin_ = origin;
  size_ = 0;
}

void EdgeTable::grow() {
  const Eigen::Index before = x_.size(), rows = std::max(2 * before, kFirstRows);
  for (Column* column : {&x_, &y_, &grey_}) {
    column->conservativeResize(rows);
    column->tail(rows - before).setZero();  // What is behind the pixels is worked on with them.
  }
  model_.resize(rows);
  distance_.resize(rows);
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

void EdgeTable::evaluate(const EdgeModel& model, const EdgeDeparture* beside) {
  const OutlineNumbers outline = outlineNumbers(model, origin_);
  const auto paper = static_cast<float>(model.paper), step = static_cast<float>(model.ink - model.paper);
  for (Eigen::Index at = 0; at < size_; at += kLanes) {
    Block block;
    std::copy_n(x_.data() + at, kLanes, block.x.begin());
    std::copy_n(y_.data() + at, kLanes, block.y.begin());
    placePixels(outline, block);
    for (std::size_t edge = 0; edge < model.edges; ++edge) {
      addEdge(model, edge, beside, block);
      if (edge == 0) continue;
      const Lanes by_ratio =
          lanesOf([&](std::size_t i) { return step * block.light[i] * block.bell[i] * block.reach[i]; });
      store(by_ratio, slopes_.col(static_cast<Eigen::Index>(7 + edge)).data() + at);
    }
    const Lanes grey = lanesOf([&](std::size_t i) { return block.light[i] * (paper + step * block.covered[i]); });
    store(grey, model_.data() + at);
    store(block.nearest, distance_.data() + at);
    formSlopes(step, block, slopes_.data() + at, slopes_.rows());
  }
  slopes_.middleRows(size_, 3).setZero();
}

}  // namespace refine
