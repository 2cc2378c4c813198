#include "report/fleet/Columns.h"

#include <gtest/gtest.h>

#include <cmath>

#include "polarline/errors.h"

namespace polarline {
namespace {

struct ColumnsOf : ::testing::Test {
  Json json = Json::parse(R"({"a":[0,2,1],"short":[1],"b":[0.5,null,-1],"text":["1","2","3"],"none":1})");
  Columns columns{Place(json, "f.json"), 3};

  template <typename Work>
  static std::string problemOf(Work work) {
    try {
      work();
    } catch (const InputError& error) {
      return error.what();
    }
    return "";
  }
};

TEST_F(ColumnsOf, AreReadAsWhatIsWanted) {
  EXPECT_EQ(columns.counts("a"), (std::vector<std::size_t>{0, 2, 1}));
  EXPECT_EQ(columns.indices("a", 3), (std::vector<std::size_t>{0, 2, 1}));
  const std::vector<double> numbers = columns.numbers("b");
  EXPECT_EQ(numbers[0], 0.5);
  EXPECT_TRUE(std::isnan(numbers[1]));
  EXPECT_EQ(numbers[2], -1.0);
  EXPECT_EQ(lengthOf(Place(json, "f.json"), "short"), 1U);
}

TEST_F(ColumnsOf, RefuseOthersWithKeyFoundAndWanted) {
  EXPECT_EQ(problemOf([&] { columns.indices("a", 2); }),
            "f.json: a: found 2 as entry 1, wanted a whole number from 0 and below 2");
  EXPECT_EQ(problemOf([&] { columns.counts("short"); }), "f.json: short: found 1 entries, wanted 3");
  EXPECT_EQ(problemOf([&] { columns.counts("b"); }),
            "f.json: b: found 0.5 as entry 0, wanted a whole number from 0 and below 2147483647");
  EXPECT_NE(problemOf([&] { columns.numbers("text"); }), "");
  EXPECT_NE(problemOf([&] { columns.numbers("none"); }), "");
  EXPECT_NE(problemOf([&] { columns.numbers("missing"); }), "");
}

}  // namespace
}  // namespace polarline
