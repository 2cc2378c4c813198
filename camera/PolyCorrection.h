#pragma once

#include <opencv2/core.hpp>
#include <span>

#include "camera/Image.h"

/// What the polynomial lens adds to a normalised point: the negated sum of ten terms of the cell that the point lies
/// in. Outside of the image the polynomial of the nearest border cell is continued. `cell_bias` (in cells) moves the
/// choice of the cell, not the point.
///
/// Monomials are formed in single precision and the sum in double, then narrowed: the tables were made for these
/// roundings. Preconditions: `grid` has at least one cell, each table ten coefficients a cell, cells row by row. Any
/// point is safe; NaN takes cell 0.
cv::Point2d polyCorrection(const Image& grid, std::span<const float> table_x, std::span<const float> table_y,
                           const cv::Point2d& normalised, double cell_bias);
