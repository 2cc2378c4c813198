#include "input/TableBlock.h"

#include <algorithm>
#include <span>
#include <tuple>

#include "PolarLinePrecision/Status.h"
#include "input/Crc8.h"

namespace {

/// Cells of a tabled block, each followed by its CRC-8, whatever the grid in front of them says.
constexpr std::size_t kTabledCells = 24;
constexpr std::size_t kTabledFiller = std::tuple_size_v<TableBlock> - kGridBytes - kTabledCells * (kCellBytes + 1);

/// Bytes and their CRC-8, into the place at `target`.
std::int32_t readChecked(PackedReader& reader, std::span<std::uint8_t> target) {
  const std::span<const std::uint8_t> bytes = reader.take(target.size());
  const std::uint8_t stored_crc = reader.byte();
  if (!reader) return polar_status::kNotSupported;
  if (crc8(bytes) != stored_crc) return polar_status::kCrcMismatch;
  std::ranges::copy(bytes, target.begin());
  return polar_status::kSuccess;
}

}  // namespace

std::int32_t readPlainBlock(PackedReader& reader, TableBlock& block) { return readChecked(reader, block); }

std::int32_t readTabledBlock(PackedReader& reader, TableBlock& block) {
  block[0] = reader.byte();
  block[1] = reader.byte();
  for (std::size_t cell = 0; cell < kTabledCells; ++cell) {
    const std::span<std::uint8_t> target = std::span(block).subspan(kGridBytes + cell * kCellBytes, kCellBytes);
    const std::int32_t status = readChecked(reader, target);
    if (status != polar_status::kSuccess) return status;
  }
  reader.skip(kTabledFiller);
  return reader ? polar_status::kSuccess : polar_status::kNotSupported;
}
