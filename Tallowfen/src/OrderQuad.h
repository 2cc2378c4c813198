#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune {

/// Puts the centres of four big dots (pixels) into cyclic order, starting with the one farthest from their mean, and
/// tests their shape: the corner that the fourth dot is shifted from must be the one whose angle is nearer to a right
/// angle. `ordered` is set on success only. Any other number of points, and points that coincide, fail.
bool OrderQuad(const std::vector<cv::Point2f>& points, std::vector<cv::Point2f>& ordered);

}  // namespace kestrune
