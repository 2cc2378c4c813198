#include "check/set/ChosenPairs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "polarline/errors.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using Chosen = std::optional<std::pair<std::size_t, std::size_t>>;

std::vector<std::size_t> linesOf(const Chosen& chosen) {
  std::vector<std::size_t> lines;
  for (const ListedPair& pair : chosenPairs({{2, "", "", ""}, {3, "", "", ""}, {4, "", "", ""}}, chosen))
    lines.push_back(pair.line);
  return lines;
}

std::string problemOf(const Chosen& chosen) {
  try {
    linesOf(chosen);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(ChosenPairs, AreThoseFromTheFirstToTheLast) {
  EXPECT_THAT(linesOf(std::nullopt), ElementsAre(2U, 3U, 4U));
  EXPECT_THAT(linesOf(Chosen({0, 0})), ElementsAre(2U));
  EXPECT_THAT(linesOf(Chosen({1, 2})), ElementsAre(3U, 4U));
}

TEST(ChosenPairs, AreInTheList) {
  EXPECT_EQ(problemOf(Chosen({1, 3})), "pairs 1-3: the list has the pairs 0-2");
  EXPECT_EQ(problemOf(Chosen({2, 1})), "pairs 2-1: the first lies behind the last; 1-2 was wanted for these");
}

}  // namespace
}  // namespace polarline
