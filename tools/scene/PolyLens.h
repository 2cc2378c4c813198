#pragma once

#include <cstddef>

#include "tools/scene/Lens.h"

namespace scene {

/// The cells of a polynomial camera: they divide the image's own rectangle in normalised coordinates.
struct PolyCells {
  double x_min = 0.0;
  double y_min = 0.0;
  double cell_w = 1.0;
  double cell_h = 1.0;
};
PolyCells polyCells(const Camera& camera);

/// Index of the cell of a normalised point, row by row. A point outside of the image belongs to the nearest border
/// cell.
std::size_t polyCellIndex(const Camera& camera, Point2 ideal);

/// The polynomial model: each cell's two cubics, in coordinates of the whole image, are taken off the ideal point.
/// Evaluated in double throughout: rounding the monomials to single precision, as a measuring program may, moves a
/// point by some 1e-8, below what an image shows. Precondition: the table holds 10 coefficients a cell.
RawPoint distortPoly(const Camera& camera, Point2 ideal);

}  // namespace scene
