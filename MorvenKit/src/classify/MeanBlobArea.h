#pragma once

#include <cstddef>
#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// In area mode, contours of fewer points are specks.
inline constexpr std::size_t kShortestBlob = 30;

/// Mean area, square pixels, of the blobs among all contours, by which big dots are told from dots. A blob's area is
/// that of its inner outline where it has one. NaN when there is no blob: every comparison with it fails.
float MeanBlobArea(const ContourTree& tree, const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
