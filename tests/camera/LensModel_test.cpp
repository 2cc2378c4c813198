#include "camera/LensModel.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(LensModelOf, KnowsTheFourValuesOfType) {
  EXPECT_EQ(lensModelOf(0), LensModel::kBrownFive);
  EXPECT_EQ(lensModelOf(1), LensModel::kBrownEight);
  EXPECT_EQ(lensModelOf(2), LensModel::kFisheye);
  EXPECT_EQ(lensModelOf(3), LensModel::kPoly);
}

TEST(LensModelOf, AnyOtherValueIsNone) {
  for (const std::int32_t type :
       {-1, 4, 5, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(lensModelOf(type), std::nullopt) << type;
  }
}

}  // namespace
