#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Binarisation 1: thresholds (Otsu 1979) the surroundings of each round outline among the strongest edges by itself.
/// What is dark becomes white, unlike in binarisation 0, and everything away from an outline black.
cv::Mat OutlineThreshold(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
