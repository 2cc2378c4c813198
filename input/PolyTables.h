#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Coefficients of one cell in one table, in the order 1, x, y, x^2, xy, y^2, x^3, x^2 y, x y^2, y^3.
inline constexpr std::size_t kCoefficientsPerCell = 10;

/// Cells that a table has room for.
inline constexpr std::size_t kMostCells = 50;

/// The x or the y coefficients of one camera, cells row by row.
using PolyTable = std::array<float, kMostCells * kCoefficientsPerCell>;

/// The polynomial tables of one camera as a calibration carries them.
struct PolyTables {
  std::uint8_t cells_x = 0;  ///< Cells across; 0: no tables.
  std::uint8_t cells_y = 0;  ///< Cells down; 0: no tables.
  PolyTable x{};
  PolyTable y{};
};
static_assert(sizeof(PolyTables) == 4004, "the block of a calibration record");

/// How many cells of a grid can be used: all of them, or none when there are more than `most`. A caller or a file may
/// claim a grid that its tables have no room for; such a grid counts as none.
constexpr std::size_t usableCells(std::uint8_t cells_x, std::uint8_t cells_y, std::size_t most = kMostCells) {
  const std::size_t cells = std::size_t{cells_x} * cells_y;
  return cells <= most ? cells : 0;
}
