#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "input/PackedReader.h"

/// The polynomial tables of one camera as `MultiCalibrationEntry` holds them: grid width, grid height, then 80 bytes a
/// cell.
using TableBlock = std::array<std::uint8_t, 2016>;

/// Bytes of one cell: 10 floats of x, 10 floats of y.
inline constexpr std::size_t kCellBytes = 80;

/// Bytes in front of the first cell.
inline constexpr std::size_t kGridBytes = 2;

/// Reads a block as it stands and the CRC-8 behind it. `polar_status::kSuccess`, `kNotSupported` when the file ends in
/// it, `kCrcMismatch`.
std::int32_t readPlainBlock(PackedReader& reader, TableBlock& block);

/// Reads a block of 24 cells that each have a CRC-8 of their own, and packs them. The same statuses; a cell that is
/// wrong before the file's end counts first.
std::int32_t readTabledBlock(PackedReader& reader, TableBlock& block);
