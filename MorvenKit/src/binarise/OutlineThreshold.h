#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Binarisation 1: thresholds (Otsu 1979) the neighbourhood of every round outline among the strongest edges by itself.
/// White is dark here, and everything away from an outline is black.
cv::Mat OutlineThreshold(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
