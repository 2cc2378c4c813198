#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "refine/RefineDots.h"
#include "refine/edge/EdgeFit.h"
#include "refine/outline/Outline.h"

namespace refine {

/// A dot on its way through the refinement.
struct DotWork {
  const DotPlace* place = nullptr;
  cv::Matx22d J = cv::Matx22d::eye();                 ///< Pixels by board units; without a pose, pixels by pixels.
  bool slope_known = false;                           ///< J is of the board's pose.
  std::size_t edges = 0;                              ///< Circles of the mark; 0: none was seen.
  std::array<double, EdgeModel::kMostEdges> radii{};  ///< Of these, the outer one first, in units of J.
  std::optional<Outline> outline;                     ///< Where the edge is expected.
  bool assumed = false;                               ///< That outline is what a plain dot's would be, not measured.
  double blur = 0.8;
  std::optional<EdgeFit> fit;
  polarline::DotState state = polarline::DotState::kUnclear;
  cv::Point2d bias;  ///< Of the ellipse's centre, as perspective and lens have it.

  bool refined() const { return state == polarline::DotState::kRefined; }
  const Outline& bestOutline() const { return fit ? fit->model.outline : *outline; }
  /// Radius of the outer edge in units of J.
  double boardRadius() const { return bestOutline().radius() / std::sqrt(std::abs(cv::determinant(J))); }
};

}  // namespace refine
