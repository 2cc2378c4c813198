#pragma once

#include <cstddef>

#include "Tallowfen/src/board/RingTargetConfig.h"

namespace kestrune {

/// Most dots that a board may have: far beyond any real one, and within what memory holds.
inline constexpr std::size_t kMostDots = std::size_t{1} << 24;

/// Dots of the board, rows times columns. Throws `cv::Exception`, which names the count and the limit, for more than
/// `kMostDots`: the keys carry no range, so that any mistyped number may come as a size.
std::size_t dotCountOf(const RingTargetConfig& config);

}  // namespace kestrune
