#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

#include "Tallowfen/src/RingTarget.h"
#include "tools/scene/Board.h"

/// A rendered board and what the library's detection says of it.
struct NumberedBoard {
  scene::Board board;
  cv::Mat image;                        ///< 8-bit grey.
  kestrune::RingTarget::Ellipses dots;  ///< With id and class, pixels of the image. Dots that a big marker covers,
                                        ///< which the library makes up, have no extent.
  std::int32_t middle = 0;              ///< Id of the board's middle dot.
};

/// Renders a board nearly from the front, without noise, and has the library find and number its dots. Throws
/// `std::runtime_error` unless every place of the board gets its number.
NumberedBoard numberedBoard(const scene::Board& board);

/// Where a place of the board's grid is seen in the image, also between and beyond the dots.
cv::Point2d pixelOfPlace(const scene::Board& board, double column, double row);
