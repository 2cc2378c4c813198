#include "input/PackedReader.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>

namespace {

constexpr std::array<std::uint8_t, 8> kBytes = {0x01, 0x02, 0x03, 0x84, 'a', 0, 'b', 'c'};

TEST(PackedReader, ReadsLittleEndianIntegers) { EXPECT_EQ(PackedReader(kBytes).integer(), 0x84030201U); }

TEST(PackedReader, ReadsNumbersByTheirBits) {
  EXPECT_EQ(PackedReader(std::array<std::uint8_t, 4>{0, 0, 0xC0, 0xBF}).number(), -1.5F);
}

TEST(PackedReader, TextEndsAtItsNulAndTheFieldIsConsumed) {
  PackedReader reader(kBytes);
  reader.skip(4);
  EXPECT_EQ(reader.text(3), "a");
  EXPECT_EQ(reader.byte(), 'c');
  EXPECT_TRUE(reader);
}

TEST(PackedReader, TextWithoutNulIsTheWholeField) {
  PackedReader reader(kBytes);
  reader.skip(6);
  EXPECT_EQ(reader.text(2), "bc");
}

TEST(PackedReader, ReadingToTheVeryEndIsNoFailure) {
  PackedReader reader(kBytes);
  EXPECT_EQ(reader.take(8).size(), 8U);
  EXPECT_TRUE(reader);
}

TEST(PackedReader, AReadBeyondTheEndGivesZerosAndFailsForGood) {
  PackedReader reader(kBytes);
  reader.skip(5);
  EXPECT_EQ(reader.integer(), 0U);
  EXPECT_FALSE(reader);
  EXPECT_EQ(reader.byte(), 0);
  EXPECT_EQ(reader.text(1), "");
  EXPECT_TRUE(reader.take(1).empty());
}

}  // namespace
