#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "camera/CameraIntrinsicsBase.h"

/// The pinhole half of a camera: camera matrix, size and the conversions between pixels and normalised coordinates. The
/// lens is left to the derived class. Every conversion fails, its output untouched, unless fx, cx, fy and cy are all
/// positive.
///
/// Meant: the chained conversions mix the scaled and the unscaled camera. An ideal pixel belongs to the scaled camera,
/// a raw pixel to the unscaled one.
class PinholeCameraIntrinsics : public CameraIntrinsicsBase {
 public:
  bool SetParams(const std::vector<double>& params) override;
  bool SetModelParams(const std::vector<double>& params) override { return SetParams(params); }
  bool SetRawParams(const std::vector<double>& params) override { return SetParams(params); }
  bool NormalizedToPixel(const cv::Point2d& normalised, cv::Point2d& pixel) const override;
  bool PixelToNormalizedScaled(const cv::Point2d& pixel, cv::Point2d& normalised) const override;
  bool DistortPixel(const cv::Point2d& pixel_ideal, cv::Point2d& pixel_raw) const override;
  bool UndistortPixel(const cv::Point2d& pixel_raw, cv::Point2d& pixel_ideal) const override;
  bool BackProject(const cv::Point2d& pixel, double depth, cv::Vec3d& point) const override;
  /// Fails for a point that is not in front of the camera.
  bool Project(const cv::Vec3d& point, cv::Point2d& pixel) const override;
  virtual bool NormalizedToPixelScaled(const cv::Point2d& normalised, cv::Point2d& pixel) const;
  virtual bool PixelToNormalized(const cv::Point2d& pixel, cv::Point2d& normalised) const;

  // Nothing in the library reads the size, the matrix and the scale from outside: they tell what the camera holds.
  std::uint16_t width() const { return width_; }
  std::uint16_t height() const { return height_; }
  /// (fx, 0, cx; 0, fy, cy; 0, 0, 1), row by row.
  const std::array<double, 9>& K() const { return K_; }
  /// Focal scale of the ideal camera.
  double scale() const { return scale_; }

 protected:
  /// All zeros, scale 1.
  PinholeCameraIntrinsics() = default;
  /// Pixels throughout.
  PinholeCameraIntrinsics(std::uint16_t width, std::uint16_t height, double fx, double fy, double cx, double cy,
                          double scale);

  double fx() const { return K_[0]; }
  double cx() const { return K_[2]; }
  double fy() const { return K_[4]; }
  double cy() const { return K_[5]; }

 private:
  bool canConvert() const;

  std::uint16_t width_ = 0;
  std::uint16_t height_ = 0;
  std::array<double, 9> K_{};
  double scale_ = 1.0;
};

/// An image side given as a double: without its fraction, limited to 16 bits, 0 for NaN.
std::uint16_t toImageSide(double side);
