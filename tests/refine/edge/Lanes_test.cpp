#include "refine/edge/Lanes.h"

#include <gtest/gtest.h>

namespace {

TEST(LanesStored, AreTheFunctionsValuesInOrderAndNoMore) {
  std::array<float, refine::kLanes + 1> memory{};
  memory.back() = -1.0F;
  refine::store(refine::lanesOf([](std::size_t k) { return static_cast<float>(k) + 0.5F; }), memory.data());
  for (std::size_t k = 0; k < refine::kLanes; ++k) EXPECT_EQ(memory[k], static_cast<float>(k) + 0.5F);
  EXPECT_EQ(memory.back(), -1.0F);
}

}  // namespace
