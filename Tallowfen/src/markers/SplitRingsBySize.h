#pragma once

#include "Tallowfen/src/ellipses/EllipsesByClass.h"
#include "Tallowfen/src/markers/MarkerContext.h"

namespace kestrune {

/// Finds out which ring-like ellipses are the four rings and the solid ring of a ring board, which come in two sizes.
/// On success `lists.rings` and `lists.solids` hold them, the others have joined the dots, and `sizes` tells which
/// rectangles they span. Fails, with a line on standard error unless there was no ring at all, when no reading of the
/// sizes gives four rings and one solid ring; `rings` and `solids` stay then.
bool SplitRingsBySize(const MarkerContext& context, EllipsesByClass& lists, MarkerSizes& sizes);

}  // namespace kestrune
