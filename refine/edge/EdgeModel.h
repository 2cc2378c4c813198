#pragma once

#include <array>
#include <cstddef>
#include <opencv2/core.hpp>

#include "refine/outline/Outline.h"

namespace refine {

/// The picture of a mark: ink within the outline, in a ring paper again within the hole and ink within that one's core,
/// each edge blurred by a Gaussian, all of it in light that changes evenly.
struct EdgeModel {
  static constexpr std::size_t kMostEdges = 3;
  /// Centre (2), shape (3), paper, ink, blur, and the ratios of the inner edges.
  static constexpr std::size_t kMostUnknowns = 7 + kMostEdges;

  Outline outline;                               ///< Of the outer edge.
  double paper = 0.0, ink = 0.0;                 ///< Greys at the light's origin.
  double blur = 0.8;                             ///< Standard deviation of the edge, pixels.
  std::size_t edges = 1;                         ///< With the outer one.
  std::array<double, kMostEdges> ratio{1.0};     ///< Radius of each edge by that of the outer one.
  std::array<cv::Point2d, kMostEdges> offset{};  ///< Centre of each less that of the outer one, as perspective has it.
  cv::Point2d light, light_origin;               ///< Change of the light by pixel, as a share.

  std::size_t unknowns() const { return 7 + edges; }
};

}  // namespace refine
