#include "report/view/DetailOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace polarline {
namespace {

Json pairsOf(const std::vector<double>& dy, std::size_t given_up) {
  Json pairs = Json::array();
  for (std::size_t k = 0; k < dy.size(); ++k) {
    const bool is_given_up = k == given_up;
    Json pair;
    pair["state"] = is_given_up ? "given up" : "finished";
    pair["figures"]["dy_means"] = is_given_up ? Json() : Json(dy[k]);
    pairs.push_back(pair);
  }
  return pairs;
}

/// By turns: the worst, a pair given up, and 0, 4, 2, 6, ... of eight.
TEST(DetailOrderOf, TakesTheWorstTheGivenUpAndOthersEvenly) {
  const Json pairs = pairsOf({0.1, -0.9, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7}, 3);
  EXPECT_EQ(detailOrder(pairs, "dy_means"), (std::vector<std::size_t>{1, 3, 0, 7, 4, 6, 2, 5}));
}

TEST(DetailOrderOf, HasEveryPairOnce) {
  for (const std::size_t count : {0U, 1U, 2U, 7U, 33U}) {
    std::vector<std::size_t> order = detailOrder(pairsOf(std::vector<double>(count, 1.0), 5), "dy_means");
    ASSERT_EQ(order.size(), count);
    std::ranges::sort(order);
    for (std::size_t k = 0; k < count; ++k) EXPECT_EQ(order[k], k);
  }
}

TEST(DetailOrderOf, NoFigureIsEven) {
  EXPECT_EQ(detailOrder(pairsOf({1, 2, 3, 4}, 9), ""), (std::vector<std::size_t>{0, 2, 1, 3}));
}

}  // namespace
}  // namespace polarline
