#pragma once

#include <opencv2/core.hpp>
#include <optional>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// Follows first children from contour `index` inwards. The index of the last one when that is round and has more than
/// 30 points.
std::optional<int> InnermostContour(const ContourTree& outlines, int index, const EllipseDetectorParams& params);

/// Goes over the outlines from contour 0 and replaces `edges` by an image in which each marker's innermost outline is
/// filled with white. In the place of an outline that cannot be a marker's come its children. Each such level has a
/// canvas of its own, and the one that was drawn on last is the result. Without a marker `edges` stays as it is.
void OutlineFillWalk(const ContourTree& outlines, const EllipseDetectorParams& params, cv::Mat& edges);

}  // namespace kestrune::morvenkit
