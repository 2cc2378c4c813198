#pragma once

#include <cstdint>
#include <map>
#include <optional>

namespace diagnose {

/// Standard deviation of row differences from dot to dot, pixels: of each against the mean of its four neighbours, so
/// that no misalignment, which is smooth over the board, counts. In a row of numbers such differences
/// are von Neumann's (1941); four neighbours of a grid in place of one are ours, as their mean leaves no slope over. By
/// the median, so that ghosts do not count (Hampel 1974). `rows`: signed differences by id. None with too few.
std::optional<double> rowNoise(const std::map<std::int32_t, double>& rows, int columns);

}  // namespace diagnose
