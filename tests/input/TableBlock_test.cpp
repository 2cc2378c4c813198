#include "input/TableBlock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "input/CalibrationBytes.h"

namespace {

using namespace calibration_bytes;

struct Reading {
  std::int32_t status;
  TableBlock block;
};

template <typename Read>
Reading readBlock(Read read, const std::string& text) {
  const std::vector<std::uint8_t> bytes(text.begin(), text.end());
  PackedReader reader(bytes);
  Reading reading{};
  reading.status = read(reader, reading.block);
  return reading;
}

std::string flipped(std::string text, std::size_t offset) {
  text.at(offset) = static_cast<char>(text.at(offset) ^ 0x10);
  return text;
}

const std::string kPlain = plainBlock(brown()) + byteText(crcOf(plainBlock(brown())));
const std::string kTabled = tabledBlock(brown());

TEST(TableBlockPlain, IsTakenAsItStands) {
  const Reading reading = readBlock(readPlainBlock, kPlain);
  EXPECT_EQ(reading.status, polar_status::kSuccess);
  EXPECT_EQ(std::string(reading.block.begin(), reading.block.end()), kPlain.substr(0, 2016));
}

TEST(TableBlockPlain, AFlippedBitAnywhereIsSeen) {
  for (const std::size_t offset : {0U, 1U, 2U, 1001U, 2015U, 2016U}) {
    EXPECT_EQ(readBlock(readPlainBlock, flipped(kPlain, offset)).status, polar_status::kCrcMismatch) << offset;
  }
}

TEST(TableBlockPlain, AnEndInsideIsNotSupported) {
  for (const std::size_t size : {0U, 1U, 2015U, 2016U}) {
    EXPECT_EQ(readBlock(readPlainBlock, kPlain.substr(0, size)).status, polar_status::kNotSupported) << size;
  }
}

TEST(TableBlockTabled, PacksItsCells) {
  const Reading reading = readBlock(readTabledBlock, kTabled);
  ASSERT_EQ(reading.status, polar_status::kSuccess);
  EXPECT_EQ(reading.block[0], 6);
  EXPECT_EQ(reading.block[1], 4);
  for (std::size_t cell = 0; cell < 24; ++cell) {
    const auto start = reading.block.begin() + static_cast<std::ptrdiff_t>(2 + cell * 80);
    EXPECT_EQ(std::string(start, start + 80), cellText(brown(), cell)) << cell;
  }
  EXPECT_TRUE(std::all_of(reading.block.begin() + 1922, reading.block.end(), [](auto byte) { return byte == 0; }));
}

TEST(TableBlockTabled, EachCellHasItsCrc) {
  for (std::size_t cell = 0; cell < 24; ++cell) {
    EXPECT_EQ(readBlock(readTabledBlock, flipped(kTabled, 2 + cell * 81)).status, polar_status::kCrcMismatch) << cell;
    EXPECT_EQ(readBlock(readTabledBlock, flipped(kTabled, 2 + cell * 81 + 80)).status, polar_status::kCrcMismatch);
  }
}

TEST(TableBlockTabled, GridAndFillerAreInNoCell) {
  for (const std::size_t offset : {0U, 1U, 1946U, 2015U}) {
    EXPECT_EQ(readBlock(readTabledBlock, flipped(kTabled, offset)).status, polar_status::kSuccess) << offset;
  }
}

TEST(TableBlockTabled, AnEndInsideIsNotSupportedUnlessACellBeforeItIsWrong) {
  for (const std::size_t size : {0U, 1U, 82U, 1945U, 1946U, 2015U}) {
    EXPECT_EQ(readBlock(readTabledBlock, kTabled.substr(0, size)).status, polar_status::kNotSupported) << size;
  }
  EXPECT_EQ(readBlock(readTabledBlock, flipped(kTabled, 2).substr(0, 83)).status, polar_status::kCrcMismatch);
  EXPECT_EQ(readBlock(readTabledBlock, flipped(kTabled, 2).substr(0, 82)).status, polar_status::kNotSupported);
}

}  // namespace
