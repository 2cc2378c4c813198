#pragma once

#include <algorithm>
#include <cmath>
#include <opencv2/core.hpp>

namespace refine {

/// An ellipse told by its dual conic: the tangent line with the unit normal n lies n'c + sqrt(n' S n) from the origin,
/// where c is the centre and S the shape. The dual conic is C* = (S - c c', -c; -c', -1), and l' C* l = 0 for every
/// tangent line l (Hartley and Zisserman 2003, 2.2.3). Pixels.
struct Outline {
  cv::Point2d centre;
  double xx = 1.0, xy = 0.0, yy = 1.0;  ///< S, square pixels; of a circle its squared radius times the unit matrix.

  double determinant() const { return xx * yy - xy * xy; }
  /// Radius of the circle of the same area.
  double radius() const { return std::sqrt(std::sqrt(std::max(determinant(), 0.0))); }
  bool isEllipse() const { return xx > 0.0 && yy > 0.0 && determinant() > 0.0; }
  /// Its smaller half axis.
  double leastRadius() const {
    const double middle = 0.5 * (xx + yy);
    return std::sqrt(std::max(middle - std::hypot(0.5 * (xx - yy), xy), 0.0));
  }
  /// Half its extent along x and y.
  cv::Point2d halfBox() const { return {std::sqrt(xx), std::sqrt(yy)}; }
};

/// Where a point is, seen from an outline.
struct EdgePlace {
  double nx = 1.0, ny = 0.0;  ///< Unit normal of the ellipse through the point that is similar to the outline.
  double reach = 0.0;         ///< sqrt(n' S n): distance of the outline's tangent line from the centre.
  double along = 0.0;         ///< n'(x - c): distance of the point from the centre along the normal.

  /// Distance from the tangent line, outside positive. Off the outline it is short of the distance from the outline
  /// itself by the square of that only, and alike on both sides of the centre.
  double outside() const { return along - reach; }
};

inline EdgePlace edgePlace(const Outline& outline, double x, double y) {
  const double dx = x - outline.centre.x, dy = y - outline.centre.y;
  const double mx = outline.yy * dx - outline.xy * dy;
  const double my = outline.xx * dy - outline.xy * dx;
  const double length = std::sqrt(mx * mx + my * my);
  EdgePlace place;
  if (length > 0.0) {
    place.nx = mx / length;
    place.ny = my / length;
  }
  place.reach = std::sqrt(outline.xx * place.nx * place.nx + 2.0 * outline.xy * place.nx * place.ny +
                          outline.yy * place.ny * place.ny);
  place.along = place.nx * dx + place.ny * dy;
  return place;
}

/// The outline of a board's circle in a picture whose slope there is J (pixels by board units).
inline Outline outlineOfCircle(const cv::Point2d& centre, const cv::Matx22d& J, double radius) {
  const cv::Matx22d shape = J * J.t() * (radius * radius);
  return {centre, shape(0, 0), shape(0, 1), shape(1, 1)};
}

}  // namespace refine
