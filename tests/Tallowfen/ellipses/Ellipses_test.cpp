#include "Tallowfen/src/ellipses/Ellipses.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "HandMadeEllipses.h"

namespace {

using kestrune::boardIndexOf;
using kestrune::idOf;
using kestrune::layerOf;

TEST(EllipsesPointId, HoldsTheIndexBelowTheLayer) {
  EXPECT_EQ(idOf(0, 2591), 2591);
  EXPECT_EQ(idOf(3, 2591), 3 * 65536 + 2591);
  EXPECT_EQ(boardIndexOf(3 * 65536 + 2591), 2591);
  EXPECT_EQ(layerOf(3 * 65536 + 2591), 3);
}

TEST(EllipsesPointId, IndexIsCutToSixteenBits) {
  EXPECT_EQ(idOf(1, 65536 + 7), 65536 + 7);
  EXPECT_EQ(idOf(1, -1), 65536 + 65535);
}

TEST(EllipsesPointId, LayerHasEightBits) { EXPECT_EQ(layerOf(0x1234'5678), 0x34); }

// Many, as a sort that keeps no order keeps it in a short list all the same.
TEST(EllipsesLargestFirst, EqualOnesKeepTheirOrder) {
  handmade::List list;
  for (int i = 0; i < 99; ++i) list.push_back(handmade::ellipse(i, 0, i % 3));
  kestrune::sortLargestFirst(list);
  for (int i = 0; i < 99; ++i) {
    const kestrune::Ellipse& ellipse = list[static_cast<std::size_t>(i)];
    EXPECT_EQ(ellipse.semi_a, 2 - i / 33) << i;
    EXPECT_EQ(ellipse.x, i % 33 * 3 + 2 - i / 33) << i;
  }
}

}  // namespace
