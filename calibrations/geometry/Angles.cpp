#include "calibrations/geometry/Angles.h"

#include <cmath>

namespace calibrations {

cv::Matx33d rotationOf(const Angles& angles) {
  const double sx = std::sin(angles.rx);
  const double cx = std::cos(angles.rx);
  const double sy = std::sin(angles.ry);
  const double cy = std::cos(angles.ry);
  const double sz = std::sin(angles.rz);
  const double cz = std::cos(angles.rz);
  const cv::Matx33d about_x(1, 0, 0, 0, cx, -sx, 0, sx, cx);
  const cv::Matx33d about_y(cy, 0, sy, 0, 1, 0, -sy, 0, cy);
  const cv::Matx33d about_z(cz, -sz, 0, sz, cz, 0, 0, 0, 1);
  return about_z * about_x * about_y;
}

Angles anglesOf(const cv::Matx33d& rotation) {
  constexpr double kPole = 1e-9;
  const double cosine = std::hypot(rotation(2, 0), rotation(2, 2));
  Angles angles;
  angles.rx = std::atan2(rotation(2, 1), cosine);
  if (cosine < kPole) {
    angles.rz = std::atan2(rotation(1, 0), rotation(0, 0));
  } else {  // The sum with 0 makes no negative zeros.
    angles.ry = std::atan2(-rotation(2, 0), rotation(2, 2)) + 0.0;
    angles.rz = std::atan2(-rotation(0, 1), rotation(1, 1)) + 0.0;
  }
  return angles;
}

}  // namespace calibrations
