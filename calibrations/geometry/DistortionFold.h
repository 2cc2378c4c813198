#pragma once

#include <optional>

#include "polarline/calibration.h"

namespace calibrations {

/// Where a lens model stops being one: beyond that radius it images points nearer to the middle again.
struct Fold {
  double ideal = 0.0;   ///< Radius of the ideal point, or the angle from the axis for a fisheye; normalised.
  double imaged = 0.0;  ///< Radius at which it is imaged: the largest there is.
  double corner = 0.0;  ///< Radius of the farthest corner of the image, normalised.
};

/// The fold of the radial part of a camera's distortion, when it lies inside the image. None without an image size.
std::optional<Fold> foldInside(const polarline::Camera& camera, bool is_fisheye);

}  // namespace calibrations
