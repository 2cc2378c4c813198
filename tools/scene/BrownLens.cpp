#include "tools/scene/BrownLens.h"

namespace scene {

RawPoint distortBrown(const std::array<double, 8>& lens, Point2 ideal) {
  const auto [k1, k2, k3, k4, k5, k6, p1, p2] = lens;
  const double x = ideal.x;
  const double y = ideal.y;
  const double r2 = x * x + y * y;
  const double top = 1.0 + r2 * (k1 + r2 * (k2 + r2 * k3));
  const double bottom = 1.0 + r2 * (k4 + r2 * (k5 + r2 * k6));
  const double top_slope = k1 + r2 * (2.0 * k2 + r2 * 3.0 * k3);
  const double bottom_slope = k4 + r2 * (2.0 * k5 + r2 * 3.0 * k6);
  const double factor = top / bottom;
  const double slope = 2.0 * (top_slope - factor * bottom_slope) / bottom;  // d factor / d x = slope x

  RawPoint raw;
  raw.point.x = factor * x + 2.0 * p1 * x * y + p2 * (r2 + 2.0 * x * x);
  raw.point.y = factor * y + 2.0 * p2 * x * y + p1 * (r2 + 2.0 * y * y);
  raw.by_ideal.xx = factor + slope * x * x + 2.0 * p1 * y + 6.0 * p2 * x;
  raw.by_ideal.xy = slope * x * y + 2.0 * p1 * x + 2.0 * p2 * y;
  raw.by_ideal.yx = raw.by_ideal.xy;
  raw.by_ideal.yy = factor + slope * y * y + 2.0 * p2 * x + 6.0 * p1 * y;
  return raw;
}

}  // namespace scene
