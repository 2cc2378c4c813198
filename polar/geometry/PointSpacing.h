#pragma once

#include <cstdint>
#include <vector>

#include "polar/results/PairRecords.h"

/// Spacings in one direction against the true step, board unit.
struct SpacingFigures {
  float mean_error = 0.0F;  ///< Absolute difference of the mean spacing and the step; NaN without spacings.
  float variance = 0.0F;    ///< Population variance about the list's own mean. Nothing in the library reads it.
  float min = 100.0F;       ///< Smallest absolute error; 100 without spacings, and at most: it is meant.
  float max = 0.0F;         ///< Largest absolute error; 0 without spacings.
};

struct PointSpacing {
  SpacingFigures row;
  SpacingFigures column;
  SpacingFigures all;  ///< Rows and columns together.
};

/// Fills `row_dist` and `col_dist` of every point: the distances to the entry behind it, if that has the next id, and
/// to the first entry whose id is larger by `pattern_cols`. A row's last point meets the first one of the next row:
/// columns are not looked at, which is meant.
void measureSpacing(std::vector<CloudPoint>& cloud, std::int32_t pattern_cols);

/// The figures of the measured distances, in single precision. A zero distance counts as none.
PointSpacing spacingFigures(const std::vector<CloudPoint>& cloud, float pattern_step);
