#pragma once

#include "camera/LensModel.h"
#include "polarline/calibration.h"

namespace calibrations {

inline bool hasDenominator(const polarline::Camera& camera) {
  return camera.k[3] != 0.0 || camera.k[4] != 0.0 || camera.k[5] != 0.0;
}

/// Brown's model with as few coefficients as both cameras can do with: five, unless one has K4, K5 or K6.
inline LensModel brownModelOf(const polarline::Camera& left, const polarline::Camera& right) {
  return hasDenominator(left) || hasDenominator(right) ? LensModel::kBrownEight : LensModel::kBrownFive;
}

}  // namespace calibrations
