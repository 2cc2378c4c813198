#pragma once

#include <opencv2/calib3d.hpp>
#include <opencv2/core.hpp>
#include <vector>

/// A pair of cameras as a test knows it, apart from all files, and what OpenCV says of where it images a point.
struct Rig {
  cv::Matx33d K_left{512.25, 0, 318.5, 0, 511.75, 242.125, 0, 0, 1};
  cv::Matx33d K_right{508.5, 0, 322.75, 0, 509.125, 237.25, 0, 0, 1};
  std::vector<double> D_left{-0.28, 0.07, 0.0011, -0.0007};  ///< In OpenCV's order.
  std::vector<double> D_right{-0.27, 0.06, -0.0005, 0.0009};
  bool isFisheye = false;
  cv::Vec3d turn{0.011, -0.023, 0.007};  ///< Right from left, axis times angle.
  cv::Vec3d T{-0.062, 0.0009, -0.0013};
  int width = 640;
  int height = 480;

  cv::Matx33d R() const {
    cv::Matx33d rotation;
    cv::Rodrigues(turn, rotation);
    return rotation;
  }

  /// Pixel of a point of the left camera's frame.
  cv::Point2d imaged(bool in_right, const cv::Point3d& point) const {
    const std::vector<cv::Point3d> points = {point};
    std::vector<cv::Point2d> pixels;
    const cv::Vec3d rotation = in_right ? turn : cv::Vec3d();
    const cv::Vec3d translation = in_right ? T : cv::Vec3d();
    const cv::Matx33d& K = in_right ? K_right : K_left;
    const std::vector<double>& D = in_right ? D_right : D_left;
    if (isFisheye) {
      cv::fisheye::projectPoints(points, pixels, rotation, translation, K, D);
    } else {
      cv::projectPoints(points, rotation, translation, K, D, pixels);
    }
    return pixels.front();
  }
};

inline Rig fisheyeRig() {
  Rig rig;
  rig.isFisheye = true;
  rig.D_left = {-0.013, 0.021, -0.012, 0.0025};
  rig.D_right = {-0.008, 0.011, -0.007, 0.0015};
  return rig;
}

inline Rig rationalRig() {
  Rig rig;
  rig.D_left = {0.3, -0.02, -0.0003, 0.0001, 0.016, 0.57, -0.06, 0.03};
  rig.D_right = {0.31, -0.03, 0.0002, -0.0004, 0.015, 0.58, -0.05, 0.02};
  return rig;
}
