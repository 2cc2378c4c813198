#pragma once

#include <cstddef>
#include <cstdint>

/// Status of one evaluation: 0, a value of `polar_status`, or a value that only the run sees.
using PairStatus = std::int32_t;
/// An evaluation whose measurement failed, whatever the measurement's own status was.
inline constexpr PairStatus kMeasurementFailed = 1;
/// A point of a configured group is missing in the cloud.
inline constexpr PairStatus kGroupPointMissing = 12;

/// With fewer shared points a raw pair is not evaluated. As many as the measurement wants of one image.
inline constexpr std::size_t kLeastSharedRaw = 6;
/// With fewer shared points a rectified pair is not evaluated.
inline constexpr std::size_t kLeastSharedRectified = 3;
/// With fewer known points a board is not compared with: a list of so few is not that of a board.
inline constexpr std::size_t kLeastBoardPoints = 31;
