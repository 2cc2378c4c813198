#pragma once

#include <opencv2/core.hpp>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/ellipses/MeanSemiAxis.h"

namespace kestrune {

/// What the recognition of ring markers reads besides the ellipses.
struct MarkerContext {
  NearbyDots nearby;
  cv::Mat binary_image;  ///< Of the working scale. Meant: it is addressed in pixels of the image all the same.
};

/// Finds out which ring-like ellipses are the four rings and the solid ring of a ring board, which come in two sizes.
/// On success `lists.rings` and `lists.solids` hold them, the others have joined the dots, and `sizes` tells which
/// rectangles they span. Fails, with a line on standard error unless there was no ring at all, when no
/// combination of sizes has four rings and one solid ring; `rings` and `solids` stay then.
bool SplitRingsBySize(const MarkerContext& context, EllipsesByClass& lists, MarkerSizes& sizes);

}  // namespace kestrune
