#pragma once

#include <cstdint>
#include <vector>

#include "camera/Image.h"
#include "camera/PinholeCameraIntrinsics.h"
#include "input/PolyTables.h"

/// A pinhole camera whose lens is a grid of cubic polynomials over the normalised image plane, one pair a cell. Copies
/// own their tables. Without tables (`cells_x` 0) the camera has no distortion.
class PinholeCameraIntrinsicsPOL : public PinholeCameraIntrinsics {
 public:
  /// All zeros, scale 1, no tables.
  PinholeCameraIntrinsicsPOL() = default;
  /// Pixels throughout. A grid with a zero side or of more cells than the block holds gives a camera without tables.
  PinholeCameraIntrinsicsPOL(std::uint16_t width, std::uint16_t height, double fx, double fy, double cx, double cy,
                             double scale, const PolyTables& tables);

  /// Takes size, focal lengths, principal point and tables of one camera of the calibration, scale 1. Camera index 0 is
  /// left, 1 right; any other gives false and changes nothing.
  bool LoadCalib(StereoCalibParams calib, int camera_index) override;
  /// Always true.
  bool AddDistortion(const cv::Point2d& normalised_ideal, cv::Point2d& normalised_raw) const override;
  void AddDistortionToAll(const PointColumns& normalised) const override;
  /// Fixed-point inverse to 1e-6 in the sum of the absolute errors, with a second try for points that flip between two
  /// cells. On failure the output holds the last correction, not a point.
  bool RemoveDistortion(const cv::Point2d& normalised_raw, cv::Point2d& normalised_ideal) const override;

  // Nothing in the library reads the grid, the tables and the image from outside.
  std::uint8_t cells_x() const { return cells_x_; }
  std::uint8_t cells_y() const { return cells_y_; }
  bool hasTables() const { return cells_x_ != 0; }
  const std::vector<float>& table_x() const { return table_x_; }
  const std::vector<float>& table_y() const { return table_y_; }
  const Image& image() const { return image_; }

 private:
  cv::Point2d correction(const cv::Point2d& normalised, double cell_bias) const;

  std::uint8_t cells_x_ = 0;
  std::uint8_t cells_y_ = 0;
  std::vector<float> table_x_;
  std::vector<float> table_y_;
  Image image_;
};
