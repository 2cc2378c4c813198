#include <gtest/gtest.h>

#include "RefusedWith.h"
#include "polarline/board.h"

namespace {

using polarline::BoardFormat;
using polarline::boardFormat;

TEST(BoardFormats, GoByTheEnding) {
  EXPECT_EQ(boardFormat("a.b/board.svg"), BoardFormat::kSvg);
  EXPECT_EQ(boardFormat("Board.PDF"), BoardFormat::kPdf);
  EXPECT_EQ(boardFormat("my board.\xFF.Png"), BoardFormat::kPng);
  EXPECT_EQ(boardFormat("-"), BoardFormat::kSvg);
}

TEST(BoardFormats, RefuseOthers) {
  expectRefused([] { boardFormat("board.jpg"); }, "board.jpg: wanted a name that ends in .svg, .pdf or .png");
  expectRefused([] { boardFormat("svg"); }, "svg: wanted");
}

}  // namespace
