#pragma once

#include <cstdint>
#include <map>
#include <optional>

namespace diagnose {

/// Standard deviation of row differences from dot to dot, pixels: of each against the mean of its four neighbours, so
/// that no misalignment, which is smooth over the board, counts. `rows`: signed differences by id. None with too few.
std::optional<double> rowNoise(const std::map<std::int32_t, double>& rows, int columns);

}  // namespace diagnose
