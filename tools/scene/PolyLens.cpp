#include "tools/scene/PolyLens.h"

#include <algorithm>

namespace scene {
namespace {

std::size_t clampedIndex(double position, int count) {
  if (!(position > 0.0)) return 0;  // also what is not a number
  return static_cast<std::size_t>(std::min(position, static_cast<double>(count - 1)));
}

struct Cubic {
  double value;
  double by_x;
  double by_y;
};

Cubic evaluate(const float* c, Point2 p) {
  const double x = p.x;
  const double y = p.y;
  const std::array<double, 10> k{c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8], c[9]};
  return {k[0] + k[1] * x + k[2] * y + k[3] * x * x + k[4] * x * y + k[5] * y * y + k[6] * x * x * x +
              k[7] * x * x * y + k[8] * x * y * y + k[9] * y * y * y,
          k[1] + 2.0 * k[3] * x + k[4] * y + 3.0 * k[6] * x * x + 2.0 * k[7] * x * y + k[8] * y * y,
          k[2] + k[4] * x + 2.0 * k[5] * y + k[7] * x * x + 2.0 * k[8] * x * y + 3.0 * k[9] * y * y};
}

}  // namespace

PolyCells polyCells(const Camera& camera) {
  const Point2 low{-camera.cx / camera.fx, -camera.cy / camera.fy};
  const Point2 high{(camera.width - camera.cx) / camera.fx, (camera.height - camera.cy) / camera.fy};
  return {low.x, low.y, (high.x - low.x) / camera.table.columns, (high.y - low.y) / camera.table.rows};
}

std::size_t polyCellIndex(const Camera& camera, Point2 ideal) {
  const PolyCells cells = polyCells(camera);
  const std::size_t column = clampedIndex((ideal.x - cells.x_min) / cells.cell_w, camera.table.columns);
  const std::size_t row = clampedIndex((ideal.y - cells.y_min) / cells.cell_h, camera.table.rows);
  return row * static_cast<std::size_t>(camera.table.columns) + column;
}

RawPoint distortPoly(const Camera& camera, Point2 ideal) {
  const std::size_t first = polyCellIndex(camera, ideal) * 10;
  const Cubic x = evaluate(&camera.table.x.at(first), ideal);
  const Cubic y = evaluate(&camera.table.y.at(first), ideal);
  return {{ideal.x - x.value, ideal.y - y.value}, {1.0 - x.by_x, -x.by_y, -y.by_x, 1.0 - y.by_y}};
}

}  // namespace scene
