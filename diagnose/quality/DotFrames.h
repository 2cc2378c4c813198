#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

namespace diagnose {

/// A numbered dot of a picture.
struct NumberedDot {
  std::int32_t id = 0;
  cv::Point2d pixel;
};

/// The grid that the ids count.
struct DotGrid {
  int rows = 0;
  int columns = 0;
  double row_step = 1.0;  ///< Distance of two rows in distances of two columns.
};

/// A dot and how its picture stretches the board around it: pixel offset = axes * board offset, in column steps.
struct DotFrame {
  cv::Point2d pixel;
  cv::Matx22d axes;
};

/// Of the dots that have a neighbour in their row and one in their column, in the order of the dots. Dots of ids beyond
/// the grid are left out.
std::vector<DotFrame> dotFrames(const std::vector<NumberedDot>& dots, const DotGrid& grid);

}  // namespace diagnose
