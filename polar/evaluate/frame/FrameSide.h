#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/CtrlPoint.h"
#include "Tallowfen/src/RingTarget.h"

/// One image of a frame with the frame's points in it.
struct FrameSide {
  cv::Mat picture;  ///< BGR, with what was found drawn in.
  /// One entry a frame point, in order. A frame point that was not found has id -1, the centre (0, 0) and no edge.
  std::vector<kestrune::morvenkit::CtrlPoint<double>> points;
};

/// Where the frame's points should be in one image: an id and an expected pixel (x, y) each.
struct FrameExpectation {
  const std::vector<std::int32_t>& ids;
  const std::vector<std::vector<double>>& pixels;
};

/// Detects in one image, without numbering, and takes for each frame point the detected point near its expected pixel.
/// `std::out_of_range` when there are fewer pixels than ids, or a pixel of fewer than two numbers.
FrameSide findFramePoints(kestrune::RingTarget& target, const cv::Mat& image, const FrameExpectation& expectation);
