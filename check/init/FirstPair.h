#pragma once

#include <map>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace init {

/// What the detector sees in one picture.
struct SeenBoard {
  std::map<int, cv::Point2d> dots;  ///< Centre of each numbered dot by id, pixels.
  /// Radius of plain dots, pixels: of the smallest twentieth of the numbered ones; where the board was not found, of
  /// most round spots, if there are enough of them to be its dots. 0: not known.
  double dot_radius = 0.0;
};

/// Detects the board of a target configuration (the text itself) in a picture as stored, as a run does.
SeenBoard seenBoard(const cv::Mat& picture, const std::string& target, int expected_dots);

}  // namespace init
