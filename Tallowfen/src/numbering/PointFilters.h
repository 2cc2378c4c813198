#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/numbering/Numbering.h"

namespace kestrune {

/// Keeps the numbered points whose id `detection_id` names, once for each time it does. Off unless `detection_switch`
/// is 1 and four ids or more are named.
void filterByIds(const RingTargetConfig& config, NumberedPoints& numbered);

/// Keeps the numbered points strictly inside the region xmin, xmax, ymin, ymax, told in fractions of the working
/// image's size. The points are in image pixels all the same: on a resized image the region is that much larger or
/// smaller. Off unless there are four values.
void filterByRegion(const std::vector<float>& region, cv::Size working_size, NumberedPoints& numbered);

}  // namespace kestrune
