#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "camera/PoseFit.h"

namespace refine {

/// `contourBias` all over a board: it grows with the square of the radius and changes slowly from place to place, so
/// that a polynomial of fifth order through some of the places tells it of all.
class BiasField {
 public:
  /// Through circles of this radius at some of the places, board unit. `radius` > 0.
  BiasField(const CalibratedCamera& camera, const CameraPose& pose, const std::vector<cv::Point3d>& places,
            double radius);
  static constexpr std::size_t kFewest = 60;

  /// Of a circle; none with fewer than `kFewest` places that an outline can be traced around, or all in a few lines.
  std::optional<cv::Point2d> biasOf(const cv::Point3d& board, double radius) const;

 private:
  using Terms = cv::Vec<double, 21>;
  Terms termsAt(const cv::Point3d& board) const;
  void spanOver(const std::vector<cv::Point3d>& places);

  cv::Point2d middle_;
  double unit_ = 1.0;  ///< Half the board's extent.
  bool is_known_ = false;
  Terms by_x_, by_y_;  ///< Of the bias by squared radius.
};

}  // namespace refine
