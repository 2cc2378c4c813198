#include "store/fleet/NaturalOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

TEST(NaturalOrder, PutsNumbersByValueBeforeText) {
  const std::vector<std::string> wanted = {"-1", "02", "2", "2.5", "10", "", "B", "K2", "late"};
  std::vector<std::string> values = wanted;
  std::shuffle(values.begin(), values.end(), std::mt19937(1));
  std::sort(values.begin(), values.end(), polarline::fleet::isBefore);
  EXPECT_EQ(values, wanted);
}

}  // namespace
