#include "tools/scene/BoardSurface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using scene::Board;
using scene::BoardSurface;
using scene::Optics;

Optics plainOptics() {
  Optics optics;
  optics.texture = 0.0;
  return optics;
}

/// 35 x 37, step 20, rings of r 10 / 6.6 at (14, 14) and so on, solid ring 10 / 6.6 / 3.2 at (14, 16), dots of r 6.
const Board kBoard;

struct Probe {
  double x, y, grey;
};

class BoardSurfaceProbe : public testing::TestWithParam<Probe> {};

TEST_P(BoardSurfaceProbe, HasTheGrey) {
  const Probe& probe = GetParam();
  EXPECT_EQ(BoardSurface(kBoard, plainOptics()).greyAt({probe.x, probe.y}), probe.grey);
}

INSTANTIATE_TEST_SUITE_P(Places, BoardSurfaceProbe,
                         testing::Values(Probe{0, 0, 22},           // first dot
                                         Probe{5.99, 0, 22},        // just inside of it
                                         Probe{6.01, 0, 215},       // just outside
                                         Probe{280, 280, 215},      // hollow of a ring
                                         Probe{288, 280, 22},       // its band
                                         Probe{280, 320, 22},       // core of the solid ring
                                         Probe{285, 320, 215},      // its hollow
                                         Probe{288.5, 320, 22},     // its band
                                         Probe{-39.9, -39.9, 215},  // margin of two steps
                                         Probe{-40.1, 0, 100},      // beyond
                                         Probe{36 * 20 + 40.1, 0, 100}, Probe{36 * 20, 34 * 20, 22}));

TEST(BoardSurface, BigRingReachesIntoTheNeighboursCells) {
  Board board;
  board.kind = scene::BoardKind::kBigRings;  // ring of r 16 / 11 at (10, 11)
  const BoardSurface surface(board, plainOptics());
  EXPECT_EQ(surface.greyAt({200 + 15, 220}), 22.0);
  EXPECT_EQ(surface.greyAt({200 + 20, 220}), 215.0);  // the neighbour that is left out
  EXPECT_EQ(surface.greyAt({220, 240}), 22.0);        // the diagonal one is there
}

TEST(BoardSurface, UniformOnlyAwayFromEdges) {
  const BoardSurface surface(kBoard, plainOptics());
  EXPECT_TRUE(surface.uniformWithin({0, 0}, 5.9));
  EXPECT_FALSE(surface.uniformWithin({0, 0}, 6.1));
  EXPECT_TRUE(surface.uniformWithin({10, 10}, 8.0));  // nearest ink is sqrt(200) - 6 = 8.14 away
  EXPECT_FALSE(surface.uniformWithin({10, 10}, 8.2));
  EXPECT_FALSE(surface.uniformWithin({-39, 100}, 1.5));
  EXPECT_FALSE(surface.uniformWithin({-41, 100}, 1.5));
  EXPECT_TRUE(surface.uniformWithin({-42, 100}, 1.5));
}

TEST(BoardSurface, InkAboveThePaperMakesBrightDots) {
  Optics optics = plainOptics();
  optics.paper = 25;
  optics.ink = 215;
  EXPECT_EQ(BoardSurface(kBoard, optics).greyAt({0, 0}), 215.0);
}

TEST(BoardSurface, TextureStaysWithinItsHeight) {
  Optics optics;
  optics.texture = 5.0;
  const BoardSurface surface(kBoard, optics);
  double low = 1000, high = 0;
  for (int k = 0; k < 2000; ++k) {
    const double grey = surface.greyAt({-100.0 - 7.3 * k, 13.7 * k});
    low = std::min(low, grey);
    high = std::max(high, grey);
  }
  EXPECT_GE(low, 95.0);
  EXPECT_LE(high, 105.0);
  EXPECT_GT(high - low, 6.0);
}

TEST(BoardSurface, NotANumberHasAGreyToo) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(std::isnan(BoardSurface(kBoard, plainOptics()).greyAt({nan, nan})));
}

}  // namespace
