#pragma once

/// Residuals above this do not count in a figure, pixels: wrong matches, not misalignments. Not configurable.
inline constexpr double kLargestResidual = 5.0;

/// Dots of the fitted board that polynomial cameras show farther than this from their pixels do not count in `gt_rms`,
/// pixels: beyond their tables a cell shows points anywhere. Brown cameras have no such limit. Not configurable.
inline constexpr double kLargestProjectionError = 5.0;
