#pragma once

#include <opencv2/core.hpp>

#include "MorvenKit/EllipseDetector.h"

namespace kestrune::morvenkit {

/// Fills with white each round dark blob of `binary` whose outline leaves the grey image and still fits an ellipse. Two
/// images of one size have no such blob.
void fillBlobs(const cv::Mat& grey, const EllipseDetectorParams& params, cv::Mat& binary);

}  // namespace kestrune::morvenkit
