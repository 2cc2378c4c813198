#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune {

/// Puts the centres of four big dots (pixels) into cyclic order and tests their shape. The point farthest from their
/// mean comes first, the one across from it third. Of the other two the corner nearer to a right angle comes second;
/// the absolute cosine of its angle must be below 0.35. `ordered` is set on success only. Any other number of points,
/// and two corners of the same angle, fail.
bool OrderQuad(const std::vector<cv::Point2f>& points, std::vector<cv::Point2f>& ordered);

}  // namespace kestrune
