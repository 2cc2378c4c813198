#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "MorvenKit/CtrlPoint.h"

namespace kestrune::morvenkit {

/// A dot of the board's model.
struct BoardPoint {
  std::uint8_t point_class = kDot;  ///< A `PointClass`. Not read: kept as a part of the record, as are flag and radius.
  std::uint8_t flag = 0;            ///< Always 0. Not read.
  std::int32_t id = 0;              ///< row * columns + column.
  double radius = 0.0;              ///< Board unit. Not read.
  cv::Point3d position;             ///< Board frame, board unit.
};

/// A calibration target that can be configured and found in an image. The runs call `loadConfig`, `setBoardPoints`,
/// `detect`, `detectframework` and `boardModel`; the rest is kept for other users of a target.
class CalibTarget {
 public:
  CalibTarget() = default;
  CalibTarget(const CalibTarget&) = delete;
  CalibTarget& operator=(const CalibTarget&) = delete;
  virtual ~CalibTarget() = default;

  /// Reads the target from a path or from the text itself; false for an empty input, otherwise true. Throws
  /// `std::system_error`.
  virtual bool loadConfig(const std::string& config) = 0;
  /// Writes the target's geometry. Returns true; throws `std::system_error`.
  virtual bool saveConfig(const std::string& path) = 0;
  /// True positions of the board's points, by id. Fewer than 6: false, nothing changes.
  virtual bool setBoardPoints(const std::vector<cv::Point3f>& points) = 0;
  /// xmin, xmax, ymin, ymax as fractions of the working image. Any other number of values clears the region and gives
  /// false.
  virtual bool setDetectionRegion(const std::vector<float>& region) = 0;
  /// Finds and numbers the target's points in an 8-bit one-channel image. Both lists are cleared first.
  virtual bool detect(const cv::Mat& image, std::vector<CtrlPoint<double>>& points,
                      std::vector<CtrlPoint<double>>& unidentified, const cv::Mat& mask) = 0;
  /// Finds the points without numbering them.
  virtual bool detectframework(const cv::Mat& image, std::vector<CtrlPoint<double>>& points,
                               std::vector<CtrlPoint<double>>& unidentified, const cv::Mat& mask) = 0;
  /// Paints the last detection on a scaled copy of an image.
  virtual void draw(const cv::Mat& src, cv::Mat& dst, double scale) = 0;
  /// Does nothing.
  virtual void noOperation() = 0;
  /// The two-valued image of the last detection; the pixels are shared.
  virtual cv::Mat getBinaryImage() const = 0;

  /// Model of the board, built by the configuration, in the order of the ids.
  const std::vector<BoardPoint>& boardModel() const { return board_model_; }
  /// The ids of the model, in the same order.
  const std::vector<std::int32_t>& boardPointIds() const { return board_point_ids_; }

 protected:
  std::vector<std::int32_t> board_point_ids_;
  std::vector<BoardPoint> board_model_;
};

}  // namespace kestrune::morvenkit
