#include "refine/edge/EdgeZones.h"

#include <algorithm>
#include <cmath>

namespace refine {
namespace {

/// Whole numbers below and above, of coordinates of pictures: `std::floor` is a call on processors of the first kind.
int below(double x) {
  constexpr int kFar = 1 << 20;
  return static_cast<int>(x + kFar) - kFar;
}
int above(double x) { return -below(-x); }

}  // namespace

EdgeZones::EdgeZones(const EdgeModel& model, double reach, double on_edge)
    : centre_(model.outline.centre), count_(kBorders * model.edges) {
  const std::array<double, kBorders> widths{reach, on_edge, -on_edge, -reach};
  for (std::size_t k = 0; k < count_; ++k)
    borders_[k] = borderOf(model, model.ratio[k / kBorders], widths[k % kBorders]);
  const double half = std::sqrt(borders_[0].yy);
  first_row_ = static_cast<int>(std::ceil(centre_.y - half));
  last_row_ = static_cast<int>(std::floor(centre_.y + half));
}

/// With S = M^2 the half axes k M + w have the shape k^2 S + 2 k w M + w^2, and M = (S + sqrt(det S)) / sqrt(trace S +
/// 2 sqrt(det S)) after Cayley and Hamilton.
EdgeZones::Border EdgeZones::borderOf(const EdgeModel& model, double ratio, double width) const {
  const Outline& outline = model.outline;
  if (!(ratio * outline.leastRadius() + width > 0.0)) return {};
  const double root = std::sqrt(outline.determinant());
  const double by_root = 2.0 * ratio * width / std::sqrt(outline.xx + outline.yy + 2.0 * root);
  const double scale = ratio * ratio + by_root, more = by_root * root + width * width;
  const double xx = scale * outline.xx + more, xy = scale * outline.xy, yy = scale * outline.yy + more;
  return {xy / yy, yy, (xx * yy - xy * xy) / (yy * yy)};
}

std::size_t EdgeZones::runsOf(int row, std::array<EdgeRun, kMostRuns>& runs) const {
  std::array<int, kBorders * EdgeModel::kMostEdges> left, right;
  const double dy = row - centre_.y;
  for (std::size_t k = 0; k < count_; ++k) {
    const Border& border = borders_[k];
    const double room = border.yy - dy * dy, middle = centre_.x + border.lean * dy;
    const double half = room > 0.0 ? std::sqrt(border.flat * room) : 0.0;
    left[k] = above(middle - half);
    right[k] = room > 0.0 ? below(middle + half) : left[k] - 1;
  }
  // Where an edge comes near to the next inner one, what is on that one is not beside this one.
  for (std::size_t k = kBorders - 1; k + 2 < count_; k += kBorders) {
    left[k] = std::min(left[k], left[k + 2]);
    right[k] = std::max(right[k], right[k + 2]);
  }
  std::size_t found = 0;
  for (std::size_t k = 1; k < count_; ++k) {
    // A row that passes an inner border has its middle anywhere.
    left[k] = std::clamp(left[k], left[k - 1], right[k - 1] + 1);
    right[k] = std::clamp(right[k], left[k] - 1, right[k - 1]);
    if (k % kBorders == 0) continue;  // Between two edges.
    const bool on_edge = k % kBorders == 2;
    runs[found++] = {left[k - 1], left[k] - 1, on_edge};
    runs[found++] = {right[k] + 1, right[k - 1], on_edge};
  }
  return found;
}

}  // namespace refine
