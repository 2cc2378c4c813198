#pragma once

#include "refine/edge/EdgeDeparture.h"

namespace refine {

/// The edges of a picture that a filter blurs behind its pixels: each pixel still tells how it was cut by the edge, so
/// that a smooth model is some thousandths of a pixel off, differently for each dot. The share of each pixel's square
/// that a disc covers, filtered by the sampled Gaussian. `blur`: standard deviation of the edges, the pixel's own width
/// in it; `radius`: of the marks; pixels.
EdgeDeparture sampledBlur(double blur, double radius);

}  // namespace refine
