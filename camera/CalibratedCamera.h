#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "camera/LensModel.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"
#include "input/StereoCalibParams.h"

/// One camera of a calibration with every number in double precision, for what stands beside the library's figures:
/// these have narrowings of their own and do not pass here. Only the polynomial lens narrows, as its tables are single.
class CalibratedCamera {
 public:
  CalibratedCamera(const StereoCalibParams& calib, int camera_index, LensModel model);

  /// Ideal normalised point (x / z, y / z) to the one that the lens images. Brown 1966; Kannala and Brandt 2006; the
  /// grid of polynomials.
  cv::Point2d distorted(const cv::Point2d& ideal) const;
  /// Its inverse by Newton's method, to 1e-7; none where the method does not settle, outside of the lens's field.
  std::optional<cv::Point2d> undistorted(const cv::Point2d& raw) const;

  /// Where a point of the camera frame is seen, in pixels; none at or behind the camera's own plane.
  std::optional<cv::Point2d> pixelOf(const cv::Vec3d& point_camera) const;
  /// The ideal normalised point that a pixel sees; none outside of the lens's field.
  std::optional<cv::Point2d> idealOf(const cv::Point2d& pixel) const;

  /// The same camera where its pictures are cut out: pixel (0, 0) of them is pixel `origin` of this one's.
  CalibratedCamera cropped(const cv::Point2d& origin) const;

  const cv::Point2d& focal() const { return focal_; }    ///< fx, fy, pixels.
  const cv::Point2d& centre() const { return centre_; }  ///< cx, cy, pixels.

 private:
  cv::Matx22d slopeAt(const cv::Point2d& ideal) const;
  cv::Point2d firstGuess(const cv::Point2d& raw) const;

  LensModel model_;
  cv::Point2d focal_, centre_;
  CameraCalib numbers_;
  PinholeCameraIntrinsicsPOL poly_;  ///< Of the polynomial model only.
};
