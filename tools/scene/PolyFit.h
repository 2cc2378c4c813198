#pragma once

#include "tools/scene/Camera.h"

namespace scene {

/// A polynomial camera that stands for `lens`, a camera of another model: same size, focal lengths and principal point,
/// and a table of columns x rows cells. All cells are fitted at once by least squares, each over its surroundings and
/// the outer ones over all that the lens brings into the image, with the demand that neighbours meet at their border.
/// The polynomial camera is then exact in itself; it need not be the lens to the last digit. Precondition: columns,
/// rows at least 1 and columns x rows at most 25, what a calibration file can hold.
Camera fitPolyCamera(const Camera& lens, int columns, int rows);

/// A polynomial camera that has Brown's coefficients of the lens in `lens`, and in its table only the number of cells:
/// the same with the table fitted.
Camera fittedPolyCamera(Camera lens);

}  // namespace scene
