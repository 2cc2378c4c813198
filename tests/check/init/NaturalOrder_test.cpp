#include "check/init/NaturalOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

TEST(NaturalOrder, NumbersStandByTheirValue) {
  std::vector<std::string> names = {"l10.png", "l9.png", "l100.png", "l0.png", "a/2", "l010.png"};
  std::ranges::sort(names, init::naturallyBefore);
  EXPECT_EQ(names, (std::vector<std::string>{"a/2", "l0.png", "l9.png", "l010.png", "l10.png", "l100.png"}));
}

TEST(NaturalOrder, NumbersBeyondEveryIntegerHaveAnOrder) {
  const std::string nines(40, '9');
  EXPECT_TRUE(init::naturallyBefore("t" + nines, "t1" + std::string(40, '0')));
  EXPECT_FALSE(init::naturallyBefore("t1" + std::string(40, '0'), "t" + nines));
}

TEST(NaturalOrder, ANameIsNotBeforeItself) { EXPECT_FALSE(init::naturallyBefore("a07b", "a07b")); }

}  // namespace
