#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "camera/CalibratedCamera.h"

/// Where a rectified picture shows what the real one does, point by point and in double precision: the way of the
/// pictures without their interpolation.
class VirtualView {
 public:
  /// Of a pair that is not warped: each point stays where it is.
  VirtualView() = default;
  /// `K`: 3x3, of the camera that took the picture; its lens is that of `lens`. `R`, `P`: the 3x3 rotation into the
  /// common frame and the 3x4 projection there, as the rectification has them.
  VirtualView(const cv::Mat& K, CalibratedCamera lens, const cv::Mat& R, const cv::Mat& P);

  /// The same with the rectified picture of that many rows turned a quarter clockwise.
  VirtualView turned(int rows) const;

  /// Pixel of the real picture to that of the rectified one; none outside of the lens's field.
  std::optional<cv::Point2d> ofReal(const cv::Point2d& pixel) const;
  /// And back; none for a point behind the real camera.
  std::optional<cv::Point2d> toReal(const cv::Point2d& pixel_rectified) const;

 private:
  struct Warp {
    cv::Matx33d K;
    CalibratedCamera lens;
    cv::Matx33d virtual_from_ideal;  ///< Ideal normalised points to homogeneous virtual pixels.
  };
  std::optional<Warp> warp_;
  std::optional<int> turned_rows_;
};
