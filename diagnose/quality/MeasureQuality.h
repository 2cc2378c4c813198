#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "diagnose/quality/DotFrames.h"
#include "polarline/quality.h"

namespace diagnose {

/// Measures a picture of 8 or 16 bits a channel as it came, around the dots that were found in it. Thread-safe.
polarline::PictureQuality measureQuality(const cv::Mat& picture, const std::vector<NumberedDot>& dots,
                                         const DotGrid& grid);

/// The same of both pictures of a pair.
polarline::PairQuality pairQuality(const polarline::PictureQuality& left, const polarline::PictureQuality& right);

}  // namespace diagnose
