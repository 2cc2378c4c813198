#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

/// Six distances among four chosen points against their true positions.
namespace four_points {

using Measured = std::array<cv::Point3f, 4>;
using Truth = std::array<std::vector<double>, 4>;  ///< x, y, z each.

/// The pairs in the order of the columns, indices from 0: 1-2, 1-3, 2-4, 3-4, 1-4, 2-3.
inline constexpr std::array<std::array<std::size_t, 2>, 6> kPairs = {{{0, 1}, {0, 2}, {1, 3}, {2, 3}, {0, 3}, {1, 2}}};

/// Index of the first point whose coordinate sum, truncated to an integer, is `missing_sum`; -1 when none is. A real
/// point whose sum truncates to that value counts as missing too: that is the accepted price of the test.
int firstMissing(const Measured& points, std::int32_t missing_sum);

/// Error text for a missing point, index from 0.
std::string missingText(int index);

/// Measured less true length of each pair, board unit.
std::array<float, 6> distanceErrors(const Measured& points, const Truth& truth);

/// For cameras with polynomial tables: an error above 100 (signed), and any error of a point at exactly the origin,
/// becomes 0.001.
void replaceImplausible(const Measured& points, std::array<float, 6>& errors);

/// The six errors, then the one of smallest and the one of largest absolute value, signs kept; among equals the first
/// wins.
std::array<float, 8> withExtremes(const std::array<float, 6>& errors);

}  // namespace four_points
