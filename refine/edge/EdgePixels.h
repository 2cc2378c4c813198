#pragma once

#include <vector>

#include "refine/edge/EdgeModel.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

struct EdgePixel {
  float x, y, grey;
};

/// A neighbour's outer edge, which hides a dot's own where it comes near.
struct Neighbour {
  Outline outline;
  double blur = 0.0;
};

/// The pixels that tell of a mark's edges, and what became of those right on them.
struct EdgePixels {
  std::vector<EdgePixel> pixels;
  int on_edge = 0;      ///< Right on an edge, used or not.
  int neighboured = 0;  ///< Of those, how many a neighbour's edge blurs into.
  int clipped = 0;      ///< How many are saturated or beyond the picture.
};

/// How far from an edge it still changes the grey by what counts, in standard deviations of its blur.
inline constexpr double kEdgeReach = 3.2;
/// Pixels this near, in the same, hold nearly all that is known of its place.
inline constexpr double kOnEdge = 1.5;

/// Collects into `result`, whose memory is used again.
void collectEdgePixels(const GreyPicture& picture, const EdgeModel& model, const std::vector<Neighbour>& neighbours,
                       EdgePixels& result);

}  // namespace refine
