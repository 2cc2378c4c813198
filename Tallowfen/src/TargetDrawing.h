#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Paints a detection on a scaled colour copy of an image: numbered ellipses in red with their ids, the others in cyan
/// with a dot. Throws `cv::Exception` for an image that is not 8-bit of one or three channels.
void drawTarget(const cv::Mat& src, cv::Mat& dst, double scale, const std::vector<Ellipse>& identified,
                const std::vector<Ellipse>& unidentified);

}  // namespace kestrune
