#pragma once

#include <optional>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// 4 pi area / perimeter^2: 1 for a circle, NaN for a single point.
double contourCircularity(const Contour& contour);

/// Whether a contour is shorter than 8.5 times `max_radius` and rounder than `min_circularity`, limits excluded.
bool isRoundContour(const Contour& contour, const EllipseDetectorParams& params);

/// First child of a contour when it has one that is round. Contour 0 is the first of the tree and nobody's child.
std::optional<int> roundChild(const ContourTree& tree, int index, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
