#pragma once

#include <vector>

#include "refine/edge/EdgeModel.h"
#include "refine/edge/EdgeTable.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

/// A neighbour's outer edge, which hides a dot's own where it comes near.
struct Neighbour {
  Outline outline;
  double blur = 0.0;
};

/// What became of the pixels right on a mark's edges.
struct EdgeCounts {
  int on_edge = 0;      ///< Right on an edge, used or not.
  int neighboured = 0;  ///< Of those, how many a neighbour's edge blurs into.
  int clipped = 0;      ///< How many are saturated or beyond the picture.
};

/// How far from an edge it still changes the grey by what counts, in standard deviations of its blur.
inline constexpr double kEdgeReach = 2.6;
/// Pixels this near, in the same, hold nearly all that is known of its place.
inline constexpr double kOnEdge = 1.5;

/// How many of the pixels are taken. Flat paper and ink tell their greys and the noise, but nothing of the centre, so
/// that some of them do.
enum class PixelChoice { kFlatToo, kWhatTells };

/// Of a mark every so many-th row of the picture is taken, counted from the picture's first: the edge of a large one
/// tells more than is asked for, and rows that nobody reads need not be fetched from memory.
int takenRows(const Outline& outline, double blur);

/// Puts the pixels around a mark's edges into the table, without those that a neighbour's edge changes.
EdgeCounts collectEdgePixels(const GreyPicture& picture, const EdgeModel& model,
                             const std::vector<Neighbour>& neighbours, PixelChoice choice, EdgeTable& table);

}  // namespace refine
