#pragma once

#include "refine/edge/EdgeDeparture.h"

namespace refine {

/// The edges of a small disc that a lens blurs before the pixels see it: bent within the reach of the blur, they are
/// not those of a straight line, alike in all directions. The disc filtered by the Gaussian. `blur`: standard deviation
/// of the edges, the pixel's own width in it; `radius`: of the marks; pixels.
EdgeDeparture roundBlur(double blur, double radius);

}  // namespace refine
