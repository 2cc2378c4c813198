#pragma once

#include <optional>
#include <vector>

#include "refine/DotWork.h"
#include "refine/edge/LightField.h"
#include "refine/edge/NoiseLevel.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

/// What is known of the whole picture before its marks are fitted.
struct PictureState {
  std::optional<NoiseLevel> noise;
  LightField light;
};

/// Fits the edges of every mark that has an outline, each with its neighbours' edges left out, and sets its state.
/// `only_rings`: those with inner edges; the others stay as they are.
void fitMarks(const GreyPicture& picture, const PictureState& known, bool only_rings, std::vector<DotWork>& dots);

/// Noise and light from what the fits left and found.
PictureState pictureStateOf(const GreyPicture& picture, const std::vector<DotWork>& dots);

/// By how much the residuals on the edges exceed the noise, as a factor of the variance, at least 1: what the model of
/// the edge misses.
double misfitOf(const std::vector<DotWork>& dots);

}  // namespace refine
