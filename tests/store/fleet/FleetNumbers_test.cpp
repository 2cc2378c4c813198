#include "store/fleet/FleetNumbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <vector>

namespace {

using polarline::fleet::addColumns;
using polarline::fleet::FleetJson;
using polarline::fleet::shortNumber;

TEST(FleetNumbersShort, HaveSevenDigits) {
  EXPECT_EQ(shortNumber(0.123456789).dump(), "0.1234568");
  EXPECT_EQ(shortNumber(-123456789.0).dump(), "-123456800.0");
  EXPECT_EQ(shortNumber(0.1 + 0.2).dump(), "0.3");
  EXPECT_EQ(shortNumber(0.0).dump(), "0.0");
}

TEST(FleetNumbersShort, AreNullForWhatIsNone) {
  EXPECT_TRUE(shortNumber(std::numeric_limits<double>::quiet_NaN()).is_null());
  EXPECT_TRUE(shortNumber(std::numeric_limits<double>::infinity()).is_null());
  EXPECT_TRUE(shortNumber(std::optional<double>()).is_null());
  EXPECT_EQ(shortNumber(std::optional(2.5)), 2.5);
}

struct Row {
  int count;
  double value;
};

TEST(FleetNumbersColumns, AreAListAField) {
  FleetJson json;
  addColumns(json, std::vector<Row>{{1, 0.5}, {2, std::numeric_limits<double>::quiet_NaN()}}, "n", &Row::count, "value",
             &Row::value);
  EXPECT_EQ(json.dump(), R"({"n":[1,2],"value":[0.5,null]})");
  addColumns(json, std::vector<Row>{}, "none", &Row::count);
  EXPECT_EQ(json["none"].dump(), "[]");
}

}  // namespace
