#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/markers/SplitRingsBySize.h"
#include "Tallowfen/src/numbering/NumberedPoints.h"

namespace kestrune {

/// From the classified ellipses of an image to the numbered points: sorts them by class, recognises the markers and
/// numbers the dots from there. False, with a line on standard error, when the markers or the numbering fail;
/// `numbered` then holds what was numbered until then.
bool numberBoard(const RingTargetConfig& config, const MarkerContext& context, const std::vector<Ellipse>& ellipses,
                 const cv::Mat& mask, MarkerSizes& sizes, NumberedPoints& numbered);

}  // namespace kestrune
