#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <span>

#include "camera/Image.h"

/// Normalised points, their coordinates in columns of one length.
struct PointColumns {
  std::span<double> x, y;
};

/// Adds its `polyCorrection`, without a bias of the cell, to each point: to the bit what that gives one by one, several
/// times faster, as neighbours share their cell.
void addPolyCorrections(const Image& grid, std::span<const float> table_x, std::span<const float> table_y,
                        const PointColumns& points);
