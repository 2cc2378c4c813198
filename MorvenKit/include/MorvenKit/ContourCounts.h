#pragma once

#include <cstddef>

namespace kestrune::morvenkit {

/// What became of the contours of one image. Contours within one that was refused as too short, or that was fitted, are
/// traced and not looked at, so the others may be fewer than `traced` together.
struct ContourCounts {
  std::size_t traced = 0;      ///< All borders of the two-valued image.
  std::size_t too_short = 0;   ///< Of too few points: specks.
  std::size_t not_round = 0;   ///< Too long, or not round enough.
  std::size_t not_fitted = 0;  ///< No ellipse of a mark's shape fits, or its centre is masked out.
  std::size_t inexact = 0;     ///< Fitted, but with too large a residual or over the image's edge.
  std::size_t accepted = 0;    ///< Became an ellipse of the result.
};

}  // namespace kestrune::morvenkit
