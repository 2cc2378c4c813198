#pragma once

#include <optional>

#include "tools/scene/Camera.h"

namespace scene {

/// A normalised point behind the lens and how it moves with the ideal one.
struct RawPoint {
  Point2 point;
  Matrix2 by_ideal;  ///< d raw / d ideal.
};

/// The lens: ideal normalised point (x / z, y / z of the camera frame) to the normalised point that the sensor sees.
RawPoint distort(const Camera& camera, Point2 ideal);

/// The inverse of `distort` by Newton's method, to 1e-12 (a target within a polynomial cell border's tiny step: to the
/// size of that step). `start` is a first guess. Empty when the method does not settle, that is outside of the lens's
/// field.
std::optional<Point2> undistort(const Camera& camera, Point2 raw, Point2 start);

/// The same, starting at the target.
inline std::optional<Point2> undistort(const Camera& camera, Point2 raw) { return undistort(camera, raw, raw); }

/// Where a point of the camera frame is seen, in pixels. Empty at or behind the camera's own plane.
std::optional<Point2> project(const Camera& camera, const Point3& point_camera);

}  // namespace scene
