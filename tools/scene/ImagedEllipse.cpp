#include "tools/scene/ImagedEllipse.h"

#include <numbers>

#include "tools/scene/Lens.h"

namespace scene {
namespace {

constexpr int kOutlinePoints = 64;

/// Integrals over the enclosed area, of 1, x, y, xx, xy, yy.
struct Moments {
  double area = 0, x = 0, y = 0, xx = 0, xy = 0, yy = 0;

  void add(const OutlinePoint& p, double dt) {
    const double dx = p.along.x * dt;
    const double dy = p.along.y * dt;
    area += 0.5 * (p.at.x * dy - p.at.y * dx);
    x += 0.5 * p.at.x * p.at.x * dy;
    y -= 0.5 * p.at.y * p.at.y * dx;
    xx += p.at.x * p.at.x * p.at.x * dy / 3.0;
    yy -= p.at.y * p.at.y * p.at.y * dx / 3.0;
    xy += 0.5 * p.at.x * p.at.x * p.at.y * dy;
  }
};

ImagedEllipse ellipseOf(const Moments& m, Point2 reference) {
  const Point2 centre{m.x / m.area, m.y / m.area};
  const double xx = m.xx / m.area - centre.x * centre.x;
  const double yy = m.yy / m.area - centre.y * centre.y;
  const double xy = m.xy / m.area - centre.x * centre.y;
  const double middle = 0.5 * (xx + yy);
  const double spread = std::hypot(0.5 * (xx - yy), xy);
  // An ellipse's variance along a half axis a is a^2 / 4.
  return {reference + centre, 2.0 * std::sqrt(middle + spread), 2.0 * std::sqrt(middle - spread),
          0.5 * std::atan2(2.0 * xy, xx - yy), std::abs(m.area)};
}

}  // namespace

OutlinePoint outlinePoint(const Camera& camera, const Pose& camera_from_board, const Point3& centre_board,
                          double radius, double t) {
  const Point3 point =
      transformed(camera_from_board, centre_board + Point3{radius * std::cos(t), radius * std::sin(t), 0.0});
  const Point3 move = camera_from_board.rotation * Point3{-radius * std::sin(t), radius * std::cos(t), 0.0};
  const Point2 ideal{point.x / point.z, point.y / point.z};
  const Point2 ideal_along{(move.x - ideal.x * move.z) / point.z, (move.y - ideal.y * move.z) / point.z};
  const RawPoint raw = distort(camera, ideal);
  const Point2 raw_along = raw.by_ideal * ideal_along;
  return {pixelFromRaw(camera, raw.point), {camera.fx * raw_along.x, camera.fy * raw_along.y}};
}

ImagedEllipse ellipseWithin(const std::function<OutlinePoint(double)>& outline) {
  constexpr double kStep = 2.0 * std::numbers::pi / kOutlinePoints;
  // Moments are taken about a point nearby: about the image's corner their differences would lose digits.
  const Point2 reference = outline(0.0).at;
  Moments moments;
  for (int k = 0; k < kOutlinePoints; ++k) {
    OutlinePoint point = outline(k * kStep);
    point.at = point.at - reference;
    moments.add(point, kStep);
  }
  return ellipseOf(moments, reference);
}

ImagedEllipse imagedEllipse(const Camera& camera, const Pose& camera_from_board, const Point3& centre_board,
                            double radius) {
  return ellipseWithin([&](double t) { return outlinePoint(camera, camera_from_board, centre_board, radius, t); });
}

Point2 idealEllipseCentre(const Pose& camera_from_board, const Point3& centre_board, double radius) {
  // Columns: the images of the radius along x, along y, and of the centre; the circle is the unit one, its dual conic
  // diag(1, 1, -1).
  const Point3 u = radius * columnOf(camera_from_board.rotation, 0);
  const Point3 v = radius * columnOf(camera_from_board.rotation, 1);
  const Point3 c = transformed(camera_from_board, centre_board);
  const double w = u.z * u.z + v.z * v.z - c.z * c.z;
  return {(u.x * u.z + v.x * v.z - c.x * c.z) / w, (u.y * u.z + v.y * v.z - c.y * c.z) / w};
}

}  // namespace scene
