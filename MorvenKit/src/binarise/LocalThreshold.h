#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Binarisation 0: sharpened and equalised (Zuiderveld 1994), then thresholded tile by tile. White is bright. Throws
/// `cv::Exception` for an image below 100 x 100 pixels and for tiles that do not fit it.
cv::Mat LocalThreshold(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
