#pragma once

#include <opencv2/core.hpp>

#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

namespace kestrune {

/// What the recognition of ring markers looks at besides the ellipses.
struct MarkerContext {
  NearbyDots nearby;
  cv::Mat binary_image;  ///< Of the working scale, though it is addressed in image pixels.
};

/// Which of the two ring rectangles the markers span: what the marker recognition hands to the numbering.
struct MarkerSizes {
  bool rings_small = false;    ///< The four rings span the inner rectangle.
  bool solid_big = false;      ///< The solid ring belongs to the outer rectangle.
  bool big_dot_board = false;  ///< Four big dots instead of rings.
};

}  // namespace kestrune
