#include <gtest/gtest.h>

#include <cstdlib>

#include "polarline/detect.h"

namespace {

TEST(PointsCsv, HasALineADotWhoseNumbersReadBack) {
  polarline::Detection detection;
  detection.dots = {{0, 0, 0, 1.5, 0.1}, {24, 1, 1, 1.0 / 3.0, 1e-7}};
  const std::string csv = polarline::pointsCsv(detection);
  EXPECT_EQ(csv, "id,row,column,x,y\n0,0,0,1.5,0.1\n24,1,1,0.3333333333333333,1e-07\n");
  EXPECT_EQ(std::strtod("0.3333333333333333", nullptr), 1.0 / 3.0);
}

TEST(PointsCsv, OfNothingIsTheHeader) { EXPECT_EQ(polarline::pointsCsv({}), "id,row,column,x,y\n"); }

}  // namespace
