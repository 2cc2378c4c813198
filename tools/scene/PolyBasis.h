#pragma once

#include <array>

#include "tools/scene/Vectors.h"

namespace scene {

/// A rectangle of the normalised image plane.
struct Box {
  double x0 = 0.0;
  double y0 = 0.0;
  double x1 = 0.0;
  double y1 = 0.0;

  [[nodiscard]] Point2 at(double share_x, double share_y) const {
    return {x0 + share_x * (x1 - x0), y0 + share_y * (y1 - y0)};
  }
};

/// Ten numbers, one a monomial of degree three and below, in the order 1, x, y, x2, xy, y2, x3, x2y, xy2, y3.
using Ten = std::array<double, 10>;

/// The monomials at a point, in coordinates that run from -1 to 1 over the box: a fit in them is well conditioned.
Ten localMonomials(const Box& box, Point2 point);

/// The coefficients over the monomials of the plain coordinates, given those over the box's local ones.
Ten globalCoefficients(const Box& box, const Ten& local);

}  // namespace scene
