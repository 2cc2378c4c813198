#pragma once

#include <functional>

#include "tools/scene/Camera.h"
#include "tools/scene/Pose.h"

namespace scene {

/// The image of a circle, described by the ellipse of the same area, centroid and second moments. Pixels; `angle` in
/// radians from the image's x axis to the longer axis.
struct ImagedEllipse {
  Point2 centre;
  double semi_a = 0.0;  ///< The longer half axis.
  double semi_b = 0.0;
  double angle = 0.0;
  double area = 0.0;
};

/// A point of a closed outline and its derivative along the outline's parameter, which runs from 0 to 2 pi.
struct OutlinePoint {
  Point2 at;
  Point2 along;
};

/// The ellipse of an outline's area: its moments by Green's theorem, with the exact derivative, so that a few dozen
/// points give all digits.
ImagedEllipse ellipseWithin(const std::function<OutlinePoint(double)>& outline);

/// A circle's outline in the image, pixels. Precondition: the point is in front of the camera.
OutlinePoint outlinePoint(const Camera& camera, const Pose& camera_from_board, const Point3& centre_board,
                          double radius, double t);

/// The image of a circle on the board, traced through the lens. Without lens the figure is an ellipse and this
/// is it. Precondition: the whole circle is in front of the camera.
ImagedEllipse imagedEllipse(const Camera& camera, const Pose& camera_from_board, const Point3& centre_board,
                            double radius);

/// The centre of a circle's image in an ideal camera (x / z, y / z), from the dual conic (Hartley and Zisserman 2003).
/// Other than the image of the circle's centre when the board is tilted.
Point2 idealEllipseCentre(const Pose& camera_from_board, const Point3& centre_board, double radius);

}  // namespace scene
