#include "tools/scene/RectifiedCentre.h"

#include <limits>

#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/Lens.h"

namespace scene {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Point2 solved(const Matrix2& m, Point2 v) {
  const double det = determinant(m);
  return {(m.yy * v.x - m.xy * v.y) / det, (m.xx * v.y - m.yx * v.x) / det};
}

/// A point of the picture and its derivative, with the given lens taken out.
OutlinePoint withoutLens(const Camera& given, const OutlinePoint& pixel) {
  const Point2 raw = rawFromPixel(given, pixel.at);
  const Point2 raw_along{pixel.along.x / given.fx, pixel.along.y / given.fy};
  const Point2 ideal = undistort(given, raw).value_or(Point2{kNan, kNan});
  return {ideal, solved(distort(given, ideal).by_ideal, raw_along)};
}

/// An ideal point and its derivative in the turned frame.
OutlinePoint turned(const Matrix3& turn, const OutlinePoint& ideal) {
  const Point3 ray = turn * Point3{ideal.at.x, ideal.at.y, 1.0};
  const Point3 move = turn * Point3{ideal.along.x, ideal.along.y, 0.0};
  const Point2 at{ray.x / ray.z, ray.y / ray.z};
  return {at, {(move.x - at.x * move.z) / ray.z, (move.y - at.y * move.z) / ray.z}};
}

}  // namespace

Point2 rectifiedCentre(const RectifiedView& view, const Pose& camera_from_board, const Point3& centre_board,
                       double radius) {
  if (view.camera == view.given) {  // The lens goes out as it came in: the exact formula holds.
    const Pose rectified{view.turn * camera_from_board.rotation, view.turn * camera_from_board.translation};
    return idealEllipseCentre(rectified, centre_board, radius);
  }
  const auto outline = [&](double t) {
    const OutlinePoint pixel = outlinePoint(view.camera, camera_from_board, centre_board, radius, t);
    return turned(view.turn, withoutLens(view.given, pixel));
  };
  return ellipseWithin(outline).centre;
}

}  // namespace scene
