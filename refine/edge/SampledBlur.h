#pragma once

#include <opencv2/core.hpp>

#include "refine/edge/EdgeModel.h"
#include "refine/edge/EdgeTable.h"

namespace refine {

/// Where a picture's blur comes from: of the lens, before the pixels see it, or of a filter behind them. The edges of
/// the first are smooth whatever the pixels; the second's still tell how each pixel was cut by the edge, and a smooth
/// model of them is some thousandths of a pixel off, differently for each dot.
enum class BlurOrigin { kLens, kFilter };

/// Memory of `takeOffSampling`.
struct SampledBlurMemory {
  cv::Mat covered, across, down;
};

/// Takes off each pixel of the table what a filter behind the pixels makes differ from a smooth edge of the same blur:
/// the share of each pixel's square that is covered, filtered by the sampled Gaussian, less the model. The model has
/// just been evaluated. Meant for models that are a few hundredths of a pixel off or better.
void takeOffSampling(const EdgeModel& model, EdgeTable& table, SampledBlurMemory& memory);

}  // namespace refine
