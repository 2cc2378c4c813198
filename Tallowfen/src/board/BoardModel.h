#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/CalibTarget.h"
#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// Most dots that a board may have: far beyond any real one, and within what memory holds.
inline constexpr std::size_t kMostDots = std::size_t{1} << 24;

/// Dots of the board, rows times columns. Throws `cv::Exception`, which names the count and the limit, for more than
/// `kMostDots`: no key of the configuration has a range, so any mistyped number may come as a size.
std::size_t dotCountOf(const RingTargetConfig& config);

/// Class of the dot with this id. Meant: the markers are those of the 71 x 73 board, whatever board is configured.
std::uint8_t pointClassOfIndex(std::int32_t index);

/// Id of the dot in the board's middle; of two middle rows or columns the first counts.
std::int32_t centreIndexOf(const RingTargetConfig& config);

/// The board's points by id, row by row: the ground truth when it holds exactly one point for each, otherwise the
/// regular grid at z = 0. Prints which of the two it is, and the first and last point. Board frame, board unit.
/// Throws the exception of `dotCountOf` before it prints anything.
std::vector<morvenkit::BoardPoint> makeBoardModel(const RingTargetConfig& config,
                                                  const std::vector<cv::Point3f>& ground_truth);

}  // namespace kestrune
