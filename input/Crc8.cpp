#include "input/Crc8.h"

#include <array>
#include <cstddef>

namespace {

constexpr unsigned kPolynomial = 0x31;

constexpr std::array<std::uint8_t, 256> makeTable() {
  std::array<std::uint8_t, 256> table{};
  for (unsigned index = 0; index < table.size(); ++index) {
    unsigned crc = index;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 0x80U) != 0 ? (crc << 1U) ^ kPolynomial : crc << 1U;
    table.at(index) = static_cast<std::uint8_t>(crc);
  }
  return table;
}

constexpr std::array<std::uint8_t, 256> kTable = makeTable();

}  // namespace

std::uint8_t crc8(std::span<const std::uint8_t> bytes) {
  std::uint8_t crc = 0;
  for (const std::uint8_t byte : bytes) crc = kTable.at(static_cast<std::size_t>(byte ^ crc));
  return crc;
}
