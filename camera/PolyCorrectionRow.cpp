#include "camera/PolyCorrectionRow.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "input/PolyTables.h"
#include "platform/WideLoops.h"

// The loops over a block have no branch, so that the compiler makes them work on several points at once.

namespace {

constexpr std::size_t kBlock = 64;
using Coefficients = std::array<double, kCoefficientsPerCell>;

Coefficients widenedCell(std::span<const float> table, std::size_t cell) {
  Coefficients wide{};
  const std::span<const float> narrow = table.subspan(cell * kCoefficientsPerCell, kCoefficientsPerCell);
  std::copy(narrow.begin(), narrow.end(), wide.begin());
  return wide;
}

/// The cell's place along one axis. NaN takes the first cell.
PLP_WIDE_LOOPS void placesAlong(std::span<const double> coordinates, double start, double cell_size,
                                std::uint64_t cells, std::array<std::int32_t, kBlock>& places) {
  const auto last = static_cast<double>(cells - 1);
  for (std::size_t k = 0; k < coordinates.size(); ++k) {
    const double position = (coordinates[k] - start) / cell_size;
    const double at_least = position >= 0.0 ? position : 0.0;
    places[k] = static_cast<std::int32_t>(at_least <= last ? at_least : last);
  }
}

/// The terms of `polyCorrection` in its order and with its roundings.
PLP_WIDE_LOOPS void addCorrections(const Coefficients& c, const Coefficients& d, std::span<double> xs,
                                   std::span<double> ys) {
  for (std::size_t k = 0; k < xs.size(); ++k) {
    const auto x = static_cast<float>(xs[k]);
    const auto y = static_cast<float>(ys[k]);
    const float x2 = x * x;
    const float y2 = y * y;
    const double wide_x = x, wide_y = y, wide_x2 = x2, wide_y2 = y2;
    const double y3 = y2 * y, xy2 = y2 * x, x2y = x2 * y, x3 = x2 * x, xy = y * x;
    const double sum_x = wide_x * c[1] + c[0] + wide_y * c[2] + wide_x2 * c[3] + xy * c[4] + wide_y2 * c[5] +
                         x3 * c[6] + x2y * c[7] + xy2 * c[8] + y3 * c[9];
    const double sum_y = wide_x * d[1] + d[0] + wide_y * d[2] + wide_x2 * d[3] + xy * d[4] + wide_y2 * d[5] +
                         x3 * d[6] + x2y * d[7] + xy2 * d[8] + y3 * d[9];
    xs[k] -= static_cast<double>(static_cast<float>(sum_x));
    ys[k] -= static_cast<double>(static_cast<float>(sum_y));
  }
}

}  // namespace

void addPolyCorrections(const Image& grid, std::span<const float> table_x, std::span<const float> table_y,
                        const PointColumns& points) {
  std::array<std::int32_t, kBlock> columns{};
  std::array<std::int32_t, kBlock> rows{};
  for (std::size_t first = 0; first < points.x.size(); first += kBlock) {
    const std::size_t count = std::min(kBlock, points.x.size() - first);
    const std::span<double> x = points.x.subspan(first, count);
    const std::span<double> y = points.y.subspan(first, count);
    placesAlong(x, grid.x_min, grid.cell_w, grid.columns, columns);
    placesAlong(y, grid.y_min, grid.cell_h, grid.rows, rows);
    for (std::size_t from = 0, to = 0; from < count; from = to) {
      while (to < count && columns[to] == columns[from] && rows[to] == rows[from]) ++to;
      const std::size_t cell =
          static_cast<std::size_t>(rows[from]) * grid.columns + static_cast<std::size_t>(columns[from]);
      addCorrections(widenedCell(table_x, cell), widenedCell(table_y, cell), x.subspan(from, to - from),
                     y.subspan(from, to - from));
    }
  }
}
