#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/markers/MarkerContext.h"

namespace kestrune {

/// Where a ring board's markers stand, as (column, row) times `scale`: the solid ring, then the rings clockwise from
/// the upper left one.
std::vector<cv::Point2f> MarkerLayout(const RingTargetConfig& config, const MarkerSizes& sizes, float scale);

/// Where the four big dots of a board of type 3 stand, as (column * sx, row * sy), in cyclic order from the lower left
/// one. Configured land marks are taken as they are, without a scale.
std::vector<cv::Point2f> BigDotLayout(const RingTargetConfig& config, int sx, int sy);

}  // namespace kestrune
