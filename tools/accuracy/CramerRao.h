#pragma once

#include "tools/accuracy/Sight.h"
#include "tools/scene/BoardMarks.h"

namespace accuracy {

/// The least standard deviation along x and y that any unbiased measurement of a mark's centre can have in this
/// picture (Rao 1945; Cramer 1946): the energy of the grey's gradient against the noise, along all edges of the mark.
/// Worked out from the scene alone: outlines through the lens, the blurred profile of the edge, light and noise.
scene::Point2 cramerRaoBound(const Sight& sight, const scene::Mark& mark);

}  // namespace accuracy
