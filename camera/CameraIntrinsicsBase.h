#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "camera/PolyCorrectionRow.h"
#include "input/StereoCalibParams.h"

/// A camera: pixels, normalised image coordinates, rays. Normalised coordinates are (u - cx) / fx, (v - cy) / fy. Every
/// operation returns whether it succeeded; if not, the output is unchanged unless its comment says otherwise.
///
/// The runs need `LoadCalib`, `AddDistortion` and `RemoveDistortion` only. Nothing in the library calls the conversions
/// of pixels, `BackProject` and `Project`; they make the camera complete.
class CameraIntrinsicsBase {
 public:
  virtual ~CameraIntrinsicsBase() = default;

  /// Width, height, fx, fy, cx, cy; any other number of values gives false and changes nothing.
  virtual bool SetParams(const std::vector<double>& params) = 0;
  virtual bool SetModelParams(const std::vector<double>& params) = 0;  ///< The same as `SetParams`; never called.
  /// Camera index 0 is the left camera of the calibration, 1 the right one.
  virtual bool LoadCalib(StereoCalibParams calib, int camera_index) = 0;
  virtual bool SetRawParams(const std::vector<double>& params) = 0;  ///< The same as `SetParams`; never called.
  virtual bool NormalizedToPixel(const cv::Point2d& normalised, cv::Point2d& pixel) const = 0;
  virtual bool PixelToNormalizedScaled(const cv::Point2d& pixel, cv::Point2d& normalised) const = 0;
  /// Ideal normalised point to the raw one, which is where the lens images it.
  virtual bool AddDistortion(const cv::Point2d& normalised_ideal, cv::Point2d& normalised_raw) const = 0;
  /// The same of many points, each replaced by its raw one.
  virtual void AddDistortionToAll(const PointColumns& normalised) const;
  /// The inverse. What the output holds after a failure differs by model.
  virtual bool RemoveDistortion(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const = 0;
  virtual bool DistortPixel(const cv::Point2d& pixel_ideal, cv::Point2d& pixel_raw) const = 0;
  virtual bool UndistortPixel(const cv::Point2d& pixel_raw, cv::Point2d& pixel_ideal) const = 0;
  /// The point at a depth along a pixel's ray, camera frame.
  virtual bool BackProject(const cv::Point2d& pixel, double depth, cv::Vec3d& point) const = 0;
  virtual bool Project(const cv::Vec3d& point, cv::Point2d& pixel) const = 0;

 protected:
  CameraIntrinsicsBase() = default;
  CameraIntrinsicsBase(const CameraIntrinsicsBase&) = default;
  CameraIntrinsicsBase(CameraIntrinsicsBase&&) noexcept = default;
  CameraIntrinsicsBase& operator=(const CameraIntrinsicsBase&) = default;
  CameraIntrinsicsBase& operator=(CameraIntrinsicsBase&&) noexcept = default;
};
