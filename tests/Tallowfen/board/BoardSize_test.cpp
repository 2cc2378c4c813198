#include "Tallowfen/src/board/BoardSize.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/core.hpp>

namespace {

using kestrune::dotCountOf;
using kestrune::RingTargetConfig;

RingTargetConfig board(std::uint16_t rows, std::uint16_t cols) {
  RingTargetConfig config;
  config.rows = rows;
  config.cols = cols;
  return config;
}

TEST(DotCount, IsRowsTimesColumns) {
  EXPECT_EQ(dotCountOf(board(71, 73)), 5183U);
  EXPECT_EQ(dotCountOf(board(0, 65535)), 0U);
  EXPECT_EQ(dotCountOf(board(65535, 256)), 16776960U) << "a long board is a board";
}

TEST(DotCount, TheLimitItselfIsAllowed) { EXPECT_EQ(dotCountOf(board(4096, 4096)), 16777216U); }

struct TooLarge {
  const char* name;
  std::uint16_t rows, cols;
  const char* count;
};

class DotCountBeyond : public testing::TestWithParam<TooLarge> {};

TEST_P(DotCountBeyond, IsRefusedWithTheCountAndTheLimit) {
  try {
    dotCountOf(board(GetParam().rows, GetParam().cols));
    FAIL() << "no exception";
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, cv::Error::StsOutOfRange);
    EXPECT_THAT(error.err, testing::HasSubstr(GetParam().count));
    EXPECT_THAT(error.err, testing::HasSubstr("16777216"));
  }
}

// The largest board does not fit into 32 bits with a sign.
INSTANTIATE_TEST_SUITE_P(Sizes, DotCountBeyond,
                         testing::Values(TooLarge{"OneDotMore", 65281, 257, "16777217"},
                                         TooLarge{"OneRowMore", 4097, 4096, "16781312"},
                                         TooLarge{"TwentyThousand", 20000, 20000, "400000000"},
                                         TooLarge{"Largest", 65535, 65535, "4294836225"}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
