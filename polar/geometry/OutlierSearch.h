#pragma once

#include <cstddef>
#include <optional>
#include <vector>

/// Index of the value that stands out from all: the one of the largest whole part, when it is above the whole-number
/// mean by more than ten deviations. The coarse arithmetic is meant: mean and comparison drop their fractions, so that
/// small differences never count.
std::optional<std::size_t> findOutlier(const std::vector<double>& values);
