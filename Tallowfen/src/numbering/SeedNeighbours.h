#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// The markers of one detection and the seed block beside one of them, from which the numbering grows.
struct MarkerSeeds {
  std::vector<cv::Point2f> marker_image_points;  ///< Pixels.
  std::vector<cv::Point2f> marker_model_points;  ///< Board columns and rows times the layout's scale.
  std::vector<std::int32_t> seed_indices;        ///< Positions in the ellipse list of the 3 x 3 seed block, row by row.
  std::size_t fullest_block = 0;                 ///< Of the blocks that were tried, up to 9. Only told.
  std::size_t matches = 0;                       ///< Ellipses that a search found in the grid. Only told.
};

/// Looks for the first marker of `seeds.marker_model_points` (`kGridStep` units from dot to dot) whose 3 x 3 block of
/// cells holds exactly one ellipse each, numbers these nine and lists them in `seeds.seed_indices`, row by row. `grid`
/// is the place of each ellipse in the model, rounded to multiples of 5. Meant: ellipses of incomplete blocks tried
/// before keep the id that they got. With `sizes.solid_big` the dots that the big markers cover are first made up and
/// appended to `all`. False, with a line on standard error, when no block is complete.
bool SeedNeighbours(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<cv::Point>& grid,
                    std::vector<Ellipse>& all, MarkerSeeds& seeds);

/// Maps all ellipses to the model by the homography of the markers in `seeds` and looks for the seeds there.
bool seedFromMarkers(const RingTargetConfig& config, const MarkerSizes& sizes, std::vector<Ellipse>& all,
                     MarkerSeeds& seeds);

}  // namespace kestrune
