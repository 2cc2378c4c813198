#include "tools/scene/RayRows.h"

#include <limits>
#include <utility>

#include "tools/scene/Lens.h"

namespace scene {
namespace {

constexpr Point2 kNone{std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};

bool known(Point2 p) { return !std::isnan(p.x); }

}  // namespace

RayRows::RayRows(const Camera& camera)
    : camera_(camera), last_(static_cast<std::size_t>(camera.width) + 2, kNone), before_last_(last_), current_(last_) {}

Point2 RayRows::guess(std::size_t index, Point2 raw) const {
  const Point2 above = last_[index];
  if (!known(above)) return raw;
  const Point2 higher = before_last_[index];
  return known(higher) ? 2.0 * above - higher : above;
}

const std::vector<Point2>& RayRows::next() {
  std::swap(before_last_, last_);
  std::swap(last_, current_);
  for (std::size_t index = 0; index < current_.size(); ++index) {
    const Point2 raw = rawFromPixel(camera_, {static_cast<double>(index) - 1.0, static_cast<double>(row_)});
    auto ideal = undistort(camera_, raw, guess(index, raw));
    if (!ideal) ideal = undistort(camera_, raw);
    current_[index] = ideal.value_or(kNone);
  }
  ++row_;
  return current_;
}

}  // namespace scene
