#pragma once

#include <optional>
#include <vector>

#include "refine/DotWork.h"
#include "refine/edge/EdgeDeparture.h"
#include "refine/edge/EdgePixels.h"
#include "refine/edge/LightField.h"
#include "refine/edge/NoiseLevel.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

/// What is known of the whole picture before its marks are fitted.
struct PictureState {
  std::optional<NoiseLevel> noise;
  std::optional<EdgeDeparture> beside;  ///< What its edges have beside a smooth one.
  PixelChoice pixels = PixelChoice::kFlatToo;
  LightField light;
  double ink_by_paper = 1.0;  ///< Grey of the ink as a share of the paper's; 1: unknown.
  double blur = 0.0;          ///< Of the edges, pixels; 0: unknown.
};

/// Fits the edges of the marks at these indices that have an outline, each with its neighbours' edges left out, and
/// sets their states.
void fitMarks(const GreyPicture& picture, const PictureState& known, const std::vector<std::size_t>& which,
              std::vector<DotWork>& dots);

/// Noise, light and blur from fits of some of the marks, spread over the picture; these are left with their fits.
PictureState learnPicture(const GreyPicture& picture, std::vector<DotWork>& dots);

/// By how much the residuals on the edges exceed the noise, as a factor of the variance, at least 1: what the model of
/// the edge misses.
double misfitOf(const std::vector<DotWork>& dots);

}  // namespace refine
