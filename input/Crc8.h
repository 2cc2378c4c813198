#pragma once

#include <cstdint>
#include <span>

/// CRC-8 of some bytes: polynomial 0x31, initial value 0, neither reflected nor inverted. Bytes followed by their own
/// CRC-8 have the CRC-8 0.
std::uint8_t crc8(std::span<const std::uint8_t> bytes);
