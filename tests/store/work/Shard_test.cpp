#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "polarline/batch.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::size_t> linesOf(std::size_t count, const Shard& shard) {
  std::vector<BatchSet> sets(count);
  for (std::size_t k = 0; k < count; ++k) sets[k].line = k + 1;
  std::vector<std::size_t> lines;
  for (const BatchSet& set : setsOf(sets, shard)) lines.push_back(set.line);
  return lines;
}

/// "2/5" of an array's variables; the problem where it can't be told.
std::string partOf(const std::map<std::string, std::string>& variables) {
  try {
    const Shard shard = shardOfArray([&](const char* name) {
      const auto found = variables.find(name);
      return found == variables.end() ? std::string() : found->second;
    });
    return std::to_string(shard.number) + "/" + std::to_string(shard.of);
  } catch (const InputError& error) {
    return error.what();
  }
}

TEST(Shard, TakesEveryNth) {
  EXPECT_THAT(linesOf(7, {1, 3}), ElementsAre(1U, 4U, 7U));
  EXPECT_THAT(linesOf(7, {2, 3}), ElementsAre(2U, 5U));
  EXPECT_THAT(linesOf(7, {3, 3}), ElementsAre(3U, 6U));
  EXPECT_THAT(linesOf(3, {}), ElementsAre(1U, 2U, 3U));
  EXPECT_THAT(linesOf(2, {4, 4}), IsEmpty());
}

TEST(Shard, IsReadFromItsWords) {
  const Shard shard = parseShard("2/8");
  EXPECT_EQ(shard.number, 2U);
  EXPECT_EQ(shard.of, 8U);
  for (const char* text :
       {"", "2", "0/8", "9/8", "-1/8", "1/0", "1/2/3", "a/b", "1/", "/2", " 1/2", "1/2 ", "1/99999999999999999999"})
    EXPECT_THROW(parseShard(text), InputError) << text;
}

std::map<std::string, std::string> array(const char* id, const char* count, const char* min, const char* max,
                                         const char* step) {
  const std::string name = "SLURM_ARRAY_TASK_";
  return {{name + "ID", id}, {name + "COUNT", count}, {name + "MIN", min}, {name + "MAX", max}, {name + "STEP", step}};
}

TEST(Shard, OfATaskIsItsPlaceInTheArray) {
  EXPECT_EQ(partOf({}), "1/1");
  EXPECT_EQ(partOf(array("3", "8", "1", "8", "1")), "3/8");
  EXPECT_EQ(partOf(array("0", "4", "0", "3", "1")), "1/4");
  EXPECT_EQ(partOf(array("3", "4", "0", "3", "1")), "4/4");
  EXPECT_EQ(partOf(array("14", "4", "10", "16", "2")), "3/4");
  EXPECT_EQ(partOf(array("0", "3", "0", "8", "4")), "1/3");
  EXPECT_EQ(partOf(array("5", "1", "5", "5", "1")), "1/1");  // A task of an array that is started once more, alone.
  EXPECT_EQ(partOf({{"SLURM_ARRAY_TASK_ID", "2"}, {"SLURM_ARRAY_TASK_COUNT", "3"}}), "2/3");
}

TEST(Shard, OfAnArrayWithGapsIsRefused) {
  EXPECT_THAT(partOf(array("3", "3", "1", "7", "1")), HasSubstr("an array without gaps was wanted"));
  EXPECT_THAT(partOf(array("4", "4", "1", "7", "2")), HasSubstr("without gaps"));
  EXPECT_THAT(partOf(array("9", "8", "1", "8", "1")), HasSubstr("without gaps"));
  EXPECT_THAT(partOf(array("0", "8", "1", "8", "1")), HasSubstr("without gaps"));
  EXPECT_THAT(partOf(array("1", "8", "1", "8", "0")), HasSubstr("without gaps"));
  EXPECT_THAT(partOf(array("one", "8", "1", "8", "1")), HasSubstr("SLURM_ARRAY_TASK_ID: 'one' was found"));
}

}  // namespace
}  // namespace polarline
