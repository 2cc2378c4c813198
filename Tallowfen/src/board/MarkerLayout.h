#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// Markers of a ring board beside its one solid ring, and of a big dot board.
inline constexpr std::size_t kRingCount = 4;
inline constexpr std::size_t kBigDotCount = 4;

/// Which of the two ring rectangles the markers span: what the recognition of the markers hands to the numbering.
struct MarkerSizes {
  bool rings_small = false;    ///< The four rings span the inner rectangle.
  bool solid_big = false;      ///< The solid ring belongs to the outer rectangle.
  bool big_dot_board = false;  ///< Four big dots instead of rings. Not read: kept as a part of the record.
};

/// Where a ring board's markers stand, as (column, row) times `scale`: the solid ring, then the rings clockwise from
/// the upper left one.
std::vector<cv::Point2f> MarkerLayout(const RingTargetConfig& config, const MarkerSizes& sizes, float scale);

/// Where the four big dots of a board of type 3 stand, as (column * sx, row * sy), in cyclic order from the lower left
/// one. Land marks that are switched on take their place as they are, without a scale.
std::vector<cv::Point2f> BigDotLayout(const RingTargetConfig& config, int sx, int sy);

}  // namespace kestrune
