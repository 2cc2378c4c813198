#pragma once

#include <opencv2/core.hpp>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

namespace kestrune {

/// What the recognition of ring markers looks at besides the ellipses.
struct MarkerContext {
  NearbyDots nearby;
  cv::Mat binary_image;  ///< Of the working scale, though it is addressed in image pixels.
};

}  // namespace kestrune
