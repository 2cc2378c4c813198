#pragma once

#include <array>
#include <cstddef>
#include <opencv2/core.hpp>

#include "refine/picture/GreyPicture.h"

namespace refine {

/// A circle around a dot's place along which the grey changes.
struct RadialEdge {
  double radius = 0.0;  ///< Board unit.
  double rise = 0.0;    ///< Grey just outside less grey just inside, over a pixel and a half.
};

/// The circles around one place, from the inside.
struct RadialEdges {
  static constexpr std::size_t kMost = 6;
  std::array<RadialEdge, kMost> edges;
  std::size_t count = 0;
};

/// Finds the circles in the mean of the grey over circles around a place: an edge of the mark itself is sharp there,
/// those of its neighbours are smeared. J: pixels by board units, so that a circle of the board stays one. `reach`:
/// largest radius, board unit. None where a circle of a pixel or more does not fit into the picture.
RadialEdges radialEdges(const GreyPicture& picture, const cv::Point2d& centre, const cv::Matx22d& J, double reach);

}  // namespace refine
