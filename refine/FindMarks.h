#pragma once

#include <vector>

#include "camera/PoseFit.h"
#include "refine/DotWork.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

/// What the dots' marks look like: fills `edges`, `radii`, `outline` and `blur` of each. Whether ink is darker or
/// brighter than paper is told by the most of them. Places without a mark keep the state `kCovered`, marks without an
/// outline `kUnclear`, marks at the border `kClipped`.
void findMarks(const GreyPicture& picture, std::vector<DotWork>& dots);

/// Distance of neighbouring places in units of J: the median over some of the places.
double spacingOf(const std::vector<DotWork>& dots);

}  // namespace refine
