#include "polar/results/PairDistances.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(PairDistances, OfEachPointToTheOthersInOrder) {
  PairDistances distances({4, 7, 9});
  for (const float error : {1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F}) distances.add(error);
  std::vector<std::vector<std::int32_t>> ids(3);
  std::vector<std::vector<float>> errors(3);
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < 2; ++k) ids[i].push_back(distances.idOfOther(i, k));
    errors[i].assign(distances.errorsOf(i).begin(), distances.errorsOf(i).end());
  }
  EXPECT_EQ(ids, (std::vector<std::vector<std::int32_t>>{{7, 9}, {4, 9}, {4, 7}}));
  EXPECT_EQ(errors, (std::vector<std::vector<float>>{{1, 2}, {3, 4}, {5, 6}}));
}

TEST(PairDistances, ALonePointHasNone) { EXPECT_TRUE(PairDistances({4}).errorsOf(0).empty()); }

TEST(PairDistances, NoPointsHaveNone) { EXPECT_TRUE(PairDistances({}).ids().empty()); }

}  // namespace
