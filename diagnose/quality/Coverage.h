#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "diagnose/quality/DotFrames.h"

namespace diagnose {

/// Corners of the outline around all dots, half a step beyond them, pixels. Empty for dots that span nothing.
std::vector<cv::Point2f> boardOutline(const std::vector<DotFrame>& frames);

/// What many pairs cover of one camera's picture.
class Coverage {
 public:
  void add(const std::vector<cv::Point2f>& outline, const cv::Size& picture);
  /// 0 to 1; of pictures that differ in size each counts by its own sides.
  double share() const;

 private:
  static constexpr int kCells = 128;  ///< To a side.
  cv::Mat cells_ = cv::Mat(kCells, kCells, CV_8U, cv::Scalar(0));
};

}  // namespace diagnose
