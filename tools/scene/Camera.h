#pragma once

#include <array>
#include <vector>

#include "tools/scene/Vectors.h"

namespace scene {

/// The lens models that the renderer knows.
enum class LensModel {
  kBrown,    ///< Radial and tangential distortion with a rational radial part (Brown 1966).
  kFisheye,  ///< Polynomial of the angle to the axis, four coefficients (Kannala and Brandt 2006).
  kPoly      ///< Grid of cells over the normalised image plane, two cubic polynomials a cell.
};

/// Coefficients of the polynomial model: ten for each cell, cells row by row, in the order 1, x, y, x2, xy, y2, x3,
/// x2y, xy2, y3. They are single precision, since the files carry them so.
struct PolyTable {
  int columns = 0;
  int rows = 0;
  std::vector<float> x;  ///< What is taken off the first coordinate.
  std::vector<float> y;  ///< What is taken off the second coordinate.

  bool operator==(const PolyTable&) const = default;
};

/// A camera: image size in pixels, focal lengths and principal point in pixels, lens. The centre of the upper left
/// pixel is (0, 0).
struct Camera {
  LensModel model = LensModel::kBrown;
  int width = 0;
  int height = 0;
  double fx = 1.0;
  double fy = 1.0;
  double cx = 0.0;
  double cy = 0.0;
  std::array<double, 8> lens{};  ///< Brown: K1 to K6, P1, P2. Fisheye: the first four. Poly: unused.
  PolyTable table;               ///< Poly only.

  bool operator==(const Camera&) const = default;
};

inline Point2 pixelFromRaw(const Camera& camera, Point2 raw) {
  return {camera.fx * raw.x + camera.cx, camera.fy * raw.y + camera.cy};
}

inline Point2 rawFromPixel(const Camera& camera, Point2 pixel) {
  return {(pixel.x - camera.cx) / camera.fx, (pixel.y - camera.cy) / camera.fy};
}

}  // namespace scene
