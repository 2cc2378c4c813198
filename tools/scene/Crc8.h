#pragma once

#include <cstddef>
#include <cstdint>

namespace scene {

/// CRC-8 with polynomial 0x31, initial value 0, neither reflected nor inverted, bit by bit.
inline std::uint8_t crc8(const std::uint8_t* data, std::size_t size) {
  unsigned crc = 0;
  for (std::size_t k = 0; k < size; ++k) {
    crc ^= data[k];
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 0x80u) != 0 ? ((crc << 1) ^ 0x31u) & 0xFFu : crc << 1;
  }
  return static_cast<std::uint8_t>(crc);
}

}  // namespace scene
