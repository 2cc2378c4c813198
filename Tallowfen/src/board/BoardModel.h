#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/CalibTarget.h"
#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// Class of a board place. The marker places of the 71 x 73 board are fixed; the table does not follow the
/// configuration.
std::uint8_t pointClassOfIndex(std::int32_t index);

/// Id of the dot in the board's middle; of the two middle rows or columns the first.
std::int32_t centreIndexOf(const RingTargetConfig& config);

/// The board's points by id, row by row: the ground truth when it holds exactly one point for each, otherwise the
/// regular grid at z = 0. Prints which of the two it is, and the first and last point. Board frame, board unit.
/// Throws `cv::Exception`, before it prints, for a board of too many dots (see BoardSize.h).
std::vector<morvenkit::BoardPoint> makeBoardModel(const RingTargetConfig& config,
                                                  const std::vector<cv::Point3f>& ground_truth);

}  // namespace kestrune
