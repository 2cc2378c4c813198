#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>

#include "input/PackedReader.h"
#include "input/PolyTables.h"

/// The polynomial tables of one camera as `MultiCalibrationEntry` holds them: grid width, grid height, then 80 bytes a
/// cell.
using TableBlock = std::array<std::uint8_t, 2016>;

/// Bytes in front of the first cell.
inline constexpr std::size_t kGridBytes = 2;

/// Bytes of one cell: its x coefficients, then its y coefficients.
inline constexpr std::size_t kCellBytes = 2 * kCoefficientsPerCell * sizeof(float);

/// Cells that a block has room for: 25.
inline constexpr std::size_t kMostBlockCells = (std::tuple_size_v<TableBlock> - kGridBytes) / kCellBytes;

/// Reads a block as it stands and the CRC-8 behind it. `polar_status::kSuccess`, `kNotSupported` when the file ends in
/// it, `kCrcMismatch`.
std::int32_t readPlainBlock(PackedReader& reader, TableBlock& block);

/// Reads a block of 24 cells that each have a CRC-8 of their own, and packs them. The same statuses; a cell that is
/// wrong before the file's end counts first.
std::int32_t readTabledBlock(PackedReader& reader, TableBlock& block);
