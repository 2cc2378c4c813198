#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The polynomial tables of one camera as a calibration carries them: ten coefficients a cell, cells row by row.
struct PolyTables {
  std::uint8_t cells_x = 0;  ///< Cells across; 0: no tables.
  std::uint8_t cells_y = 0;  ///< Cells down; 0: no tables.
  std::array<float, 500> x{};
  std::array<float, 500> y{};
};
static_assert(sizeof(PolyTables) == 4004, "the block of a calibration record");

/// Coefficients of one cell in one table, in the order 1, x, y, x^2, xy, y^2, x^3, x^2 y, x y^2, y^3.
inline constexpr std::size_t kCoefficientsPerCell = 10;
