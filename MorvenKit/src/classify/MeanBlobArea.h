#pragma once

#include <cstddef>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/classify/OutlineFits.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// In area mode, contours of fewer points are specks.
inline constexpr std::size_t kShortestBlob = 30;

/// Mean area, square pixels, of the blobs among all contours, by which big dots are told from dots. A blob's area is
/// that of its inner outline where it has one. NaN when there is no blob: every comparison with it fails. `fits`
/// are those of the tree.
float MeanBlobArea(const ContourTree& tree, OutlineFits& fits, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
