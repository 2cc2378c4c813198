#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/markers/MarkerContext.h"
#include "Tallowfen/src/numbering/Numbering.h"

namespace kestrune {

/// From the classified ellipses of an image to the numbered points: takes the classes apart, recognises the markers and
/// numbers the dots from them. False, with a line on standard error, when the markers or the numbering fail; `numbered`
/// then holds only what the numbering left.
bool numberBoard(const RingTargetConfig& config, const MarkerContext& context, const std::vector<Ellipse>& ellipses,
                 const cv::Mat& mask, MarkerSizes& sizes, NumberedPoints& numbered);

}  // namespace kestrune
