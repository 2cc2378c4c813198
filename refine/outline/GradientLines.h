#pragma once

#include <optional>

#include "refine/outline/Outline.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

/// Pixels around an expected outline whose gradients are looked at.
struct GradientBand {
  double inner = 2.0, outer = 2.0;  ///< Distances from the outline, pixels.
  double sign = 1.0;                ///< 1: the grey rises outwards; -1: it falls.
};

/// An outline from gradients and how wide its edge is.
struct GradientOutline {
  Outline outline;
  double blur = 0.0;  ///< Standard deviation of the edge, pixels.
};

/// Fits the dual conic that the gradient lines in a band around `expected` touch: through each pixel the line across
/// its gradient, with the gradient's square as weight (Ouellet and Hebert 2009). Gradients that point away from the
/// expected normal by more than 45 degrees belong to something else. Repeated around what was found, until it rests.
std::optional<GradientOutline> outlineOfGradients(const GreyPicture& picture, const Outline& expected,
                                                  const GradientBand& band);

}  // namespace refine
