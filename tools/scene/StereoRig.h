#pragma once

#include <numbers>

#include "tools/scene/Camera.h"

namespace scene {

/// Turns about the three axes, in radians.
struct Angles {
  double rx = 0.0;
  double ry = 0.0;
  double rz = 0.0;
};

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

/// The rotation Rz Rx Ry: about y first, then x, then z, all about the fixed axes. The order is part of the camera
/// files' meaning.
Matrix3 rotationFromAngles(const Angles& angles);

/// The angles of such a rotation. Precondition: the turn about x is less than a quarter.
Angles anglesFromRotation(const Matrix3& rotation);

/// Two cameras. X_right = R X_left + T, with R from `right_from_left_angles` and T = `right_from_left_translation` in
/// millimetres.
struct StereoRig {
  Camera left;
  Camera right;
  Angles right_from_left_angles;
  Point3 right_from_left_translation;
};

/// A point of the left camera's frame in the right camera's frame.
Point3 rightFromLeft(const StereoRig& rig, const Point3& point_left);

}  // namespace scene
