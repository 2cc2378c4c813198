#pragma once

#include <opencv2/core.hpp>
#include <optional>
#include <string>

#include "polarline/detect.h"

namespace polarline {

/// Columns and rows of dots.
struct BoardExtent {
  int columns = 0;
  int rows = 0;

  bool operator==(const BoardExtent&) const = default;
};

/// The size of the board in one picture, whatever the target says of it.
struct ShownBoard {
  BoardExtent extent;
  bool is_whole = false;  ///< Each of its dots bears a number, in the middle of the described board's numbers.
};

/// Counted from dot to dot, outward from the middle of the described board, where the markers hold the numbers: further
/// out those of a board of another size belong to other dots, and two dots may have got one. None where there are too
/// few dots to count.
std::optional<ShownBoard> shownBoard(const Detection& detection);

/// Why the board that the target describes can't be the one in the two pictures of a pair; empty where it may be.
std::string sizeProblem(const Detection& left, const Detection& right);

/// The same of pictures, whose board is looked for with the target, a path or a text.
std::string sizeProblem(const cv::Mat& left, const cv::Mat& right, const std::string& target);

}  // namespace polarline
