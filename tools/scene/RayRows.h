#pragma once

#include <vector>

#include "tools/scene/Camera.h"

namespace scene {

/// The undistorted rays of an image, row after row from row -1 down, each with one pixel more on either side. Every ray
/// is solved exactly (to 1e-12) from a guess that the rows above give, which takes a step or two.
class RayRows {
 public:
  /// `camera` must outlive the object.
  explicit RayRows(const Camera& camera);

  /// The ideal normalised points of the pixel centres (-1, v) to (width, v), v one more with each call. Outside of the
  /// lens's field: not a number.
  const std::vector<Point2>& next();

 private:
  [[nodiscard]] Point2 guess(std::size_t index, Point2 raw) const;

  const Camera& camera_;
  int row_ = -1;
  std::vector<Point2> last_, before_last_, current_;
};

}  // namespace scene
