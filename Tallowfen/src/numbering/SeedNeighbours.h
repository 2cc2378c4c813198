#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/markers/MarkerContext.h"
#include "Tallowfen/src/numbering/Numbering.h"

namespace kestrune {

/// Looks for the first marker of `numbering.marker_model_points` (10 model units a grid step) whose 3 x 3 block of
/// cells holds exactly one ellipse each, and lists these nine in `numbering.seed_indices`, row by row. `grid` is the
/// place of each ellipse in the model, rounded to multiples of 5. Ellipses of incomplete blocks tried before keep the
/// id that they got. With `sizes.solid_big` the dots that the big markers cover are first made up and appended to
/// `all`. False, with a line on the error stream, when no block is complete.
bool SeedNeighbours(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<cv::Point>& grid,
                    std::vector<Ellipse>& all, Numbering& numbering);

/// Lays all ellipses on the model by the homography of the markers in `numbering` and looks for the seeds there.
bool seedFromMarkers(const RingTargetConfig& config, const MarkerSizes& sizes, std::vector<Ellipse>& all,
                     Numbering& numbering);

}  // namespace kestrune
