#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Follows first children from contour `index` to the last one. That one's index when it is round and has more than 30
/// points.
std::optional<int> InnermostContour(const ContourTree& outlines, int index, const EllipseDetectorParams& params);

/// Walks the outlines from contour 0 and replaces `edges` by an image in which each marker's innermost outline is
/// filled with white. An outline that is no marker's is replaced by its children, and these are drawn on a sheet of
/// their own; the sheet that was drawn on last is the result. Without a marker `edges` stays as it is.
void OutlineFillWalk(const ContourTree& outlines, const EllipseDetectorParams& params, cv::Mat& edges);

}  // namespace kestrune::morvenkit
