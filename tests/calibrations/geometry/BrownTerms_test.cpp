#include "calibrations/geometry/BrownTerms.h"

#include <gtest/gtest.h>

namespace {

using polarline::Camera;

TEST(BrownTerms, AreFiveUnlessACameraHasADenominator) {
  const Camera plain{{}, 0, 0, 0, 0, {-0.1, 0.2, 0.03, 0, 0, 0}, 0.001, 0.002};
  EXPECT_EQ(calibrations::brownModelOf(plain, plain), LensModel::kBrownFive);
  for (const std::size_t term : {3U, 4U, 5U}) {
    Camera more = plain;
    more.k.at(term) = -1e-9;
    EXPECT_EQ(calibrations::brownModelOf(more, plain), LensModel::kBrownEight) << term;
    EXPECT_EQ(calibrations::brownModelOf(plain, more), LensModel::kBrownEight) << term;
  }
}

}  // namespace
