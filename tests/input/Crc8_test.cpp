#include "input/Crc8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::uint8_t> bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

TEST(Crc8, OfNothingIsZero) { EXPECT_EQ(crc8({}), 0); }

// One set bit shifted out once leaves the polynomial: 0x80 -> 0x31 needs one step after seven shifts of 0x01.
TEST(Crc8, OfTheByteOneIsThePolynomial) { EXPECT_EQ(crc8(bytesOf("\x01")), 0x31); }

// Published check value of CRC-8 with polynomial 0x31, initial value 0, not reflected.
TEST(Crc8, OfTheCheckTextIsThePublishedValue) { EXPECT_EQ(crc8(bytesOf("123456789")), 0xA2); }

TEST(Crc8, OfBytesWithTheirOwnCrcIsZero) {
  std::vector<std::uint8_t> bytes = bytesOf("any text");
  bytes.push_back(crc8(bytes));
  EXPECT_EQ(crc8(bytes), 0);
}

TEST(Crc8, SeesEachSingleFlippedBit) {
  std::vector<std::uint8_t> bytes(300, 0x5A);
  const std::uint8_t intact = crc8(bytes);
  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    const auto mask = static_cast<std::uint8_t>(1U << bit % 8);
    bytes[bit / 8] ^= mask;
    EXPECT_NE(crc8(bytes), intact);
    bytes[bit / 8] ^= mask;
  }
}

}  // namespace
