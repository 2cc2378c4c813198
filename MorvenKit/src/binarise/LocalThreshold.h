#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Binarisation 0: sharpens and equalises the image (Zuiderveld 1994), then thresholds it tile by tile; what is bright
/// becomes white. Throws `cv::Exception` for an image below 100 x 100 pixels and for tiles that do not fit it.
cv::Mat LocalThreshold(const cv::Mat& grey, const EllipseDetectorParams& params);

}  // namespace kestrune::morvenkit
