#pragma once

/// Residuals above this do not count in a figure, pixels: wrong matches, not misalignments. Not configurable.
inline constexpr double kLargestResidual = 5.0;
