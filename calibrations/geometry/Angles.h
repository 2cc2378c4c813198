#pragma once

#include <opencv2/core.hpp>

namespace calibrations {

/// A rotation as the calibration holds it: R = Rz(rz) Rx(rx) Ry(ry), radians.
struct Angles {
  double rx = 0.0;
  double ry = 0.0;
  double rz = 0.0;
};

cv::Matx33d rotationOf(const Angles& angles);

/// The inverse. rx is within a quarter turn; where it is one (hypot(R20, R22) below 1e-9) only the sum or the
/// difference of the other two is told, and ry is 0.
Angles anglesOf(const cv::Matx33d& rotation);

}  // namespace calibrations
