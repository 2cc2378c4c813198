#pragma once

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

/// The image of a circle on the board, traced through the lens: the moments of the area that it encloses, by Green's
/// theorem over the outline with the exact derivative, so that a few dozen points give all digits. Without lens the
/// figure is an ellipse and this is it. Precondition: the whole circle is in front of the camera.
ImagedEllipse imagedEllipse(const Camera& camera, const Pose& camera_from_board, const Point3& centre_board,
                            double radius);

/// The centre of a circle's image in an ideal camera (x / z, y / z), from the dual conic (Hartley and Zisserman 2003).
/// Other than the image of the circle's centre when the board is tilted.
Point2 idealEllipseCentre(const Pose& camera_from_board, const Point3& centre_board, double radius);

}  // namespace scene
