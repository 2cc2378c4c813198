#include "tools/scene/FisheyeLens.h"

namespace scene {

RawPoint distortFisheye(const std::array<double, 8>& lens, Point2 ideal) {
  const double r2 = ideal.x * ideal.x + ideal.y * ideal.y;
  const double r = std::sqrt(r2);
  if (r < 1e-9) return {ideal, {}};  // the factor is 1 - r2 / 3 + k1 r2 here, one to all digits
  const double theta = std::atan(r);
  const double t2 = theta * theta;
  const double raw_radius = theta * (1.0 + t2 * (lens[0] + t2 * (lens[1] + t2 * (lens[2] + t2 * lens[3]))));
  const double by_theta = 1.0 + t2 * (3.0 * lens[0] + t2 * (5.0 * lens[1] + t2 * (7.0 * lens[2] + t2 * 9.0 * lens[3])));
  const double factor = raw_radius / r;
  const double by_r = by_theta / (1.0 + r2);
  const double slope = (by_r - factor) / r2;  // d factor / d x = slope x

  RawPoint raw;
  raw.point = factor * ideal;
  raw.by_ideal.xx = factor + slope * ideal.x * ideal.x;
  raw.by_ideal.xy = slope * ideal.x * ideal.y;
  raw.by_ideal.yx = raw.by_ideal.xy;
  raw.by_ideal.yy = factor + slope * ideal.y * ideal.y;
  return raw;
}

}  // namespace scene
