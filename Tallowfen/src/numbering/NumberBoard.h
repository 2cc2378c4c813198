#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/markers/SplitRingsBySize.h"
#include "Tallowfen/src/numbering/NumberedPoints.h"
#include "Tallowfen/src/trace/DetectionTrace.h"

namespace kestrune {

/// From the classified ellipses of an image to the numbered points: sorts them by class, recognises the markers and
/// numbers the dots from there. False, with a line on standard error, when the markers or the numbering fail;
/// `numbered` then holds what was numbered until then. `trace` gets the step at which it stopped and what it saw of
/// classes, markers and seeds; all else of it stays, and nothing of it is read.
bool numberBoard(const RingTargetConfig& config, const MarkerContext& context, const std::vector<Ellipse>& ellipses,
                 const cv::Mat& mask, MarkerSizes& sizes, NumberedPoints& numbered, DetectionTrace& trace);

}  // namespace kestrune
