#include "report/fleet/ReadFleet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "MadeFleet.h"
#include "polarline/errors.h"
#include "support/DocumentCheck.h"

namespace polarline {
namespace {

using nlohmann::ordered_json;
using ::testing::HasSubstr;

TEST(ReadFleetOf, TakesWhatStandsWithoutAScript) {
  const Fleet fleet = readFleet(made_fleet::document());
  EXPECT_EQ(fleet.title, "results");
  EXPECT_EQ(fleet.sets, 7U);
  EXPECT_EQ(fleet.first_day, "2026-11-20");
  EXPECT_EQ(fleet.keys[1].values[1], std::nullopt);
  EXPECT_EQ(fleet.groups[2], (std::vector<std::size_t>{1, 1, 1}));
  EXPECT_EQ(fleet.cells.errors, (std::vector<std::size_t>{0, 0, 1, 0}));
  ASSERT_EQ(fleet.measures.size(), 1U);
  EXPECT_TRUE(std::isnan(fleet.measures[0].lower[0]));
  EXPECT_EQ(fleet.measures[0].upper[2], 0.1);
  EXPECT_EQ(fleet.worst[0].measured, 0.111);
  EXPECT_EQ(fleet.notes.size(), 1U);
}

TEST(ReadFleetOf, AnEmptyStoreHasNothing) {
  const Fleet fleet = readFleet(made_fleet::documentOf(made_fleet::emptyJson()));
  EXPECT_TRUE(fleet.cells.group.empty());
  EXPECT_EQ(fleet.first_day, "");
}

TEST(ReadFleetSchema, TakesWhatIsRead) {
  EXPECT_EQ(DocumentCheck::of("fleet").problem(made_fleet::json()), "");
  EXPECT_EQ(DocumentCheck::of("fleet").problem(made_fleet::emptyJson()), "");
}

struct Spoilt {
  const char* place;
  const char* value;
  const char* told;
};

class ReadFleetRefuses : public ::testing::TestWithParam<Spoilt> {};

TEST_P(ReadFleetRefuses, WithTheKey) {
  const auto& [place, value, told] = GetParam();
  ordered_json data = made_fleet::json();
  data[ordered_json::json_pointer(place)] = ordered_json::parse(value);
  try {
    readFleet(made_fleet::documentOf(data));
    FAIL() << place;
  } catch (const InputError& error) {
    EXPECT_THAT(error.what(), HasSubstr(std::string("f.json: ") + told));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ReadFleetRefuses,
    ::testing::Values(
        Spoilt{"/schema", R"("polarline-fleet/2")", "schema: found \"polarline-fleet/2\""},
        Spoilt{"/title", "1", "title: "}, Spoilt{"/sets", "-1", "sets: "}, Spoilt{"/period", R"("hour")", "period: "},
        Spoilt{"/keys/0/values", "[]", "keys[0].values: "}, Spoilt{"/keys/0/values/0", "3", "keys[0].values: "},
        Spoilt{"/keys", "[]", "keys: found fewer than two"}, Spoilt{"/groups", "{}", "groups: "},
        Spoilt{"/groups/0", "[0,0]", "groups: found a group that has not 3 entries"},
        Spoilt{"/groups/0/1", "2", "groups: found 2, which is no index"},
        Spoilt{"/cells/group/1", "3", "cells.group: found 3 as entry 1"},
        Spoilt{"/cells/failed", "[1]", "cells.failed: found 1 entries, wanted 4"},
        Spoilt{"/cells/pairs/0", "-3", "cells.pairs: "}, Spoilt{"/first_day", "null", "first_day: "},
        Spoilt{"/measures/0/value", R"("median")", "measures[0].value: "},
        Spoilt{"/measures/0/upper", "[1]", "measures[0].upper: found 1 entries, wanted 3"},
        Spoilt{"/measures/0/bins", "[]", "measures[0].bins: wanted 3 lists"},
        Spoilt{"/measures/0/bins/1", "[1]", "measures[0].bins: "}, Spoilt{"/measures/0/sd", "[]", "measures[0].sd: "},
        Spoilt{"/broken/limit/0", "2", "broken.limit: "}, Spoilt{"/broken/cell", "[9]", "broken.cell: "},
        Spoilt{"/causes/units", "[]", "causes.units: "}, Spoilt{"/causes/mean", "[1]", "causes.mean: "},
        Spoilt{"/causes/totals/cause", "[0,7]", "causes.totals.cause: "},
        Spoilt{"/warnings/code", "[1]", "warnings.code: "}, Spoilt{"/endings/sets", "[]", "endings.sets: "},
        Spoilt{"/courses/0/group", "3", "courses[0].group: "},
        Spoilt{"/courses/0/values/0", "[1]", "courses[0].values: wanted 1 lists of 4 numbers"},
        Spoilt{"/worst/0/group", "3", "worst[0].group: "},
        Spoilt{"/worst/0/verdict", R"("error")", "worst[0].verdict: "}, Spoilt{"/notes", "[1]", "notes: "},
        Spoilt{"/tool/name", "1", "tool.name: "}, Spoilt{"/other_keys/0/values", "-1", "other_keys[0].values: "}));

TEST(ReadFleetDocument, IsKnownByItsSchema) {
  EXPECT_TRUE(isFleetDocument(made_fleet::document()));
  EXPECT_TRUE(isFleetDocument({R"({ "schema" : "polarline-fleet/9" })", ""}));
  EXPECT_FALSE(isFleetDocument({R"({"schema":"polarline-check/1","set":"polarline-fleet/"})", ""}));
  EXPECT_FALSE(isFleetDocument({R"({"schema":)", ""}));
  EXPECT_FALSE(isFleetDocument({"", ""}));
  EXPECT_THROW(readFleet({"{", "f.json"}), InputError);
}

}  // namespace
}  // namespace polarline
