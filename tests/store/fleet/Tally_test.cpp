#include "store/fleet/Tally.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/fleet/FleetRows.h"

namespace {

using polarline::fleet::FleetSets;
using polarline::fleet::Tally;
using ::testing::ElementsAre;

/// Five sets; the first two are of cell 1, the next two of cell 0, the last is left out.
struct TallyOf : ::testing::Test {
  FleetRows rows;
  FleetSets sets = made();
  Tally tally{sets};

  FleetSets made() {
    for (int k = 0; k < 5; ++k) rows.set("2026-01-0" + std::to_string(k + 1) + "T00:00:00Z");
    FleetSets all(rows.database());
    int place = 0;
    for (const int cell : {1, 1, 0, 0, -1}) all.at(static_cast<std::size_t>(place++)).cell = cell;
    return all;
  }
  std::vector<std::string> rowsOf(const std::vector<std::string>& words) const {
    std::vector<std::string> all;
    for (const Tally::Row& row : tally.rows(words))
      all.push_back(std::to_string(row.cell) + " " + words[row.word] + " " + std::to_string(row.sets));
    return all;
  }
};

TEST_F(TallyOf, CountsASetOnceForAWord) {
  for (const char* word : {"blurred", "dark", "blurred"}) tally.add(0, word);
  tally.add(1, "blurred");
  tally.add(2, "dark");
  tally.add(4, "dark");
  std::size_t left_out = 9;
  const auto words = tally.words(10, left_out);
  EXPECT_THAT(words, ElementsAre("blurred", "dark"));
  EXPECT_EQ(left_out, 0U);
  EXPECT_THAT(rowsOf(words), ElementsAre("0 dark 1", "1 blurred 2", "1 dark 1"));
}

TEST_F(TallyOf, ListsTheWordsOfMostSetsFirstAndAsManyAsWanted) {
  tally.add(0, "z");
  tally.add(0, "a");
  tally.add(1, "m");
  tally.add(2, "m");
  std::size_t left_out = 0;
  const auto words = tally.words(2, left_out);
  EXPECT_THAT(words, ElementsAre("m", "a"));
  EXPECT_EQ(left_out, 1U);
  EXPECT_THAT(rowsOf(words), ElementsAre("0 m 1", "1 m 1", "1 a 1"));
}

TEST_F(TallyOf, OfSetsThatWereLeftOutIsNothing) {
  tally.add(4, "dark");
  std::size_t left_out = 0;
  EXPECT_THAT(tally.words(5, left_out), ::testing::IsEmpty());
}

}  // namespace
