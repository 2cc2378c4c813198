#pragma once

#include <optional>
#include <string>

#include "check/picture/SeenPicture.h"
#include "polarline/detect.h"

/// Columns and rows that the markers' rectangle spans, both ends counted: `inner_width` and `inner_height` of the board
/// in the picture.
struct MarkerSpan {
  int columns = 0;
  int rows = 0;

  bool operator==(const MarkerSpan&) const = default;
};

/// Counted in the picture, without any numbering: the dots between the markers. None where the sides don't agree, and
/// for big rings, which cover dots.
std::optional<MarkerSpan> countedSpan(const SeenPicture& seen);

/// "the markers of the picture span 5 columns and 3 rows (inner=5x3), by inner_width and inner_height they should span
/// 7 and 3"; empty where they agree or nothing is known.
std::string spanProblem(const kestrune::RingTargetConfig& config, const std::optional<MarkerSpan>& span);

/// Warns of numbers that run the other way round, and of markers whose numbers are not those of the target.
void warnOfNumbering(const SeenPicture& seen, polarline::Detection& detection);
