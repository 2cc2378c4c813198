#include "camera/CalibratedPair.h"

#include <cmath>

cv::Matx33d rotationOf(double rx, double ry, double rz) {
  const cv::Matx33d Rx(1, 0, 0, 0, std::cos(rx), -std::sin(rx), 0, std::sin(rx), std::cos(rx));
  const cv::Matx33d Ry(std::cos(ry), 0, std::sin(ry), 0, 1, 0, -std::sin(ry), 0, std::cos(ry));
  const cv::Matx33d Rz(std::cos(rz), -std::sin(rz), 0, std::sin(rz), std::cos(rz), 0, 0, 0, 1);
  return Rz * Rx * Ry;
}

CalibratedPair::CalibratedPair(const StereoCalibParams& calib, LensModel model)
    : left(calib, 0, model),
      right(calib, 1, model),
      R(rotationOf(calib.extrinsics[0], calib.extrinsics[1], calib.extrinsics[2])),
      T(calib.extrinsics[3], calib.extrinsics[4], calib.extrinsics[5]) {}
