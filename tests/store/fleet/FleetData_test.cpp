#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "polarline/errors.h"
#include "store/MadeStore.h"
#include "support/DocumentCheck.h"
#include "support/Places.h"
#include "support/Unprivileged.h"

namespace {

using made_store::check;
using made_store::failed;
using made_store::name;
using nlohmann::json;

/// A small fleet whose numbers are worked out by hand: two stations over two days.
struct FleetData : ::testing::Test {
  made_store::Store store;
  made_store::Results results;

  void add(unsigned number, const std::vector<double>& dy_means, const std::string& station, const std::string& time,
           const std::string& shift = "early") const {
    store.add(name(number), check(dy_means),
              {{"serial", "A-" + std::to_string(number / 2)},
               {"station", station},
               {"model", "K2"},
               {"time", time},
               {"shift", shift}});
  }
  void addFleet() const {
    add(1, {0.02, 0.04}, "10", "2026-01-05T06:00:00Z");
    add(2, {0.06}, "10", "2026-01-05T07:00:00Z");
    add(3, {0.3, 0.1}, "10", "2026-01-06T06:00:00Z");
    add(4, {0.05}, "2", "2026-01-06T05:30:00Z");
    store.add(name(5), failed(),
              {{"station", "2"}, {"model", "K2"}, {"shift", "early"}, {"time", "2026-01-06T09:00:00Z"}});
  }
  json data(const polarline::FleetOptions& options = {"", "2026-02-01T00:00:00Z", ""}) const {
    results.merge(store);
    return DocumentCheck::of("fleet").parsed(polarline::fleetData(results.path(), options));
  }
};

TEST_F(FleetData, TellsTheWhole) {
  addFleet();
  const json fleet = data();
  EXPECT_EQ(fleet["schema"], "polarline-fleet/1");
  EXPECT_EQ(fleet["made"], "2026-02-01T00:00:00Z");
  EXPECT_EQ(fleet["title"], "results");
  EXPECT_EQ(fleet["sets"], 5);
  EXPECT_EQ(fleet["serials"], 3);  // A-0, A-1, A-2
  EXPECT_EQ(fleet["first"], "2026-01-05T06:00:00Z");
  EXPECT_EQ(fleet["last"], "2026-01-06T09:00:00Z");
  EXPECT_EQ(fleet["notes"], json::array());
}

TEST_F(FleetData, DividesByStationInNaturalOrderAndByDay) {
  addFleet();
  const json fleet = data();
  EXPECT_EQ(fleet["keys"],
            json::parse(R"([{"key": "station", "values": ["2", "10"]}, {"key": "model", "values": ["K2"]}])"));
  EXPECT_EQ(fleet["other_keys"], json::parse(R"([{"key": "shift", "values": 1}])"));
  EXPECT_EQ(fleet["groups"], json::parse("[[0, 0], [1, 0]]"));
  EXPECT_EQ(fleet["period"], "day");
  EXPECT_EQ(fleet["first_day"], "2026-01-05");
  EXPECT_EQ(fleet["cells"],
            json::parse(R"({"group": [1, 0, 1], "day": [0, 1, 1], "passed": [2, 1, 0], "failed": [0, 0, 1],
    "unjudged": [0, 0, 0], "errors": [0, 1, 0], "diagnosed": [0, 0, 0], "pairs": [3, 1, 2], "finished": [3, 1, 2]})"));
}

TEST_F(FleetData, FiltersByFurtherKeysThatHaveAFewValues) {
  add(1, {0.02}, "1", "2026-01-05T06:00:00Z", "early");
  add(2, {0.02}, "1", "2026-01-05T16:00:00Z", "late");
  store.add(name(3), check({0.02}), {{"station", "1"}, {"model", "K2"}, {"time", "2026-01-05"}});
  const json fleet = data();
  EXPECT_EQ(fleet["keys"][2], json::parse(R"({"key": "shift", "values": ["early", "late", null]})"));
  EXPECT_EQ(fleet["groups"], json::parse("[[0, 0, 0], [0, 0, 1], [0, 0, 2]]"));
}

TEST_F(FleetData, FollowsWhatLimitsJudge) {
  addFleet();
  const json measure = data()["measures"][0];
  EXPECT_EQ(measure["name"], "dy_means");
  EXPECT_EQ(measure["value"], "max");
  EXPECT_EQ(measure["unit"], "pixels");
  EXPECT_EQ(measure["lower"], json::parse("[null, null]"));
  EXPECT_EQ(measure["upper"], json::parse("[0.1, 0.1]"));
  EXPECT_EQ(measure["texts"], json::parse(R"(["dy_means<=0.1"])"));
  EXPECT_EQ(measure["changed"], false);
  EXPECT_EQ(measure["n"], json::parse("[2, 1, 1]"));
  EXPECT_EQ(measure["mean"], json::parse("[0.05, 0.05, 0.3]"));
  EXPECT_EQ(measure["sd"], json::parse("[0.01414214, 0.0, 0.0]"));  // 0.02 / sqrt 2
  int counted = 0;
  for (const json& group : measure["bins"]) {
    for (const json& bin : group) counted += bin.get<int>();
  }
  EXPECT_EQ(counted, 4);
}

TEST_F(FleetData, FollowsTheMainFiguresWithoutLimits) {
  polarline::Check without = check({0.02, 0.04});
  without.limits.clear();
  store.add(name(1), without);
  const json fleet = data();
  ASSERT_EQ(fleet["measures"].size(), 1U);
  EXPECT_EQ(fleet["measures"][0]["value"], "mean");
  EXPECT_EQ(fleet["measures"][0]["mean"], json::parse("[0.03]"));
  EXPECT_EQ(fleet["measures"][0]["upper"], json::parse("[null]"));
  EXPECT_EQ(fleet["cells"]["unjudged"], json::parse("[1]"));
}

TEST_F(FleetData, KnowsTheNewestBoundOfAGroupAndThatItChanged) {
  add(1, {0.05}, "1", "2026-01-05T06:00:00Z");
  polarline::Check tighter = check({0.05});
  tighter.limits[0].text = "dy_means<=0.08";
  store.add(name(2), tighter,
            {{"station", "1"}, {"model", "K2"}, {"time", "2026-01-06T06:00:00Z"}, {"shift", "early"}});
  add(3, {0.05}, "2", "2026-01-05T06:00:00Z");
  const json measure = data()["measures"][0];
  EXPECT_EQ(measure["upper"], json::parse("[0.08, 0.1]"));
  EXPECT_EQ(measure["changed"], true);
  EXPECT_EQ(measure["texts"], json::parse(R"(["dy_means<=0.1", "dy_means<=0.08"])"));
}

/// Limits, and which number of a set with the pairs 0.02 and -0.06 stands for them (tri_dis[1] is -2 dy_means).
struct Asked {
  std::vector<const char*> limits;
  const char* name;
  const char* value;
  double number;
};

class FleetDataMeasure : public FleetData, public ::testing::WithParamInterface<Asked> {};

TEST_P(FleetDataMeasure, IsWhatItsLimitsAskFor) {
  polarline::Check made = check({0.02, 0.06});
  made.limits.clear();
  for (const char* text : GetParam().limits) made.limits.push_back({text, 0.02, 0, true, "so"});
  made.verdict = polarline::Verdict::kPass;
  store.add(name(1), made);
  const json measure = data()["measures"][0];
  EXPECT_EQ(measure["name"], GetParam().name);
  EXPECT_EQ(measure["value"], GetParam().value);
  EXPECT_NEAR(measure["mean"][0].get<double>(), GetParam().number, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Limits, FleetDataMeasure,
                         ::testing::Values(Asked{{"dy_means<=0.1"}, "dy_means", "max", 0.06},
                                           Asked{{"dy_means>=0.01"}, "dy_means", "min", 0.02},
                                           Asked{{"dy_means<0.1", "dy_means>0.01"}, "dy_means", "mean", 0.04},
                                           Asked{{"|tri_dis[1]|<=0.5"}, "tri_dis[1]", "abs", 0.12},
                                           Asked{{"tri_dis<=0.5"}, "tri_dis", "max", 0.06},
                                           Asked{{"tri_dis>=-0.5"}, "tri_dis", "min", -0.12},
                                           Asked{{"|tri_dis|<=0.5"}, "tri_dis", "abs", 0.12},
                                           Asked{{"summary.dy_means.mean<=0.1"}, "dy_means", "mean", 0.04},
                                           Asked{{"summary.dy_means.sd<=0.1"}, "dy_means", "sd", 0.02828427}));

TEST_F(FleetData, CountsBrokenLimitsCausesWarningsAndEndings) {
  addFleet();
  polarline::Check told = check({0.3});
  told.diagnosis.emplace();
  told.diagnosis->text = "The right camera is pitched.";
  told.diagnosis->causes = {{"rotation_x", 0.04, 0.003, "deg", 0.9, "pitched", 0}};
  told.warnings = {{"blurred", "text", "advice", 0}, {"blurred", "text", "advice", 1}};
  store.add(name(6), told, {{"station", "2"}, {"model", "K2"}, {"shift", "early"}, {"time", "2026-01-06T10:00:00Z"}});
  told.diagnosis->causes[0].value = 0.06;
  told.diagnosis->causes[0].sd = 0.004;
  store.add(name(7), told, {{"station", "2"}, {"model", "K2"}, {"shift", "early"}, {"time", "2026-01-06T11:00:00Z"}});
  const json fleet = data();
  EXPECT_EQ(fleet["limits"], json::parse(R"(["dy_means<=0.1"])"));
  EXPECT_EQ(fleet["broken"], json::parse(R"({"cell": [1, 2], "limit": [0, 0], "sets": [2, 1]})"));
  // Root of the mean of 0.003 and 0.004 squared: 0.003535534; the sd of 0.04 and 0.06: 0.01414214.
  EXPECT_EQ(
      fleet["causes"],
      json::parse(R"({"names": ["rotation_x"], "units": ["deg"], "totals": {"group": [0], "cause": [0], "sets": [2]},
    "cell": [1], "cause": [0], "sets": [2], "mean": [0.05], "sd": [0.01414214], "error": [0.003535534]})"));
  EXPECT_EQ(fleet["warnings"], json::parse(R"({"codes": ["blurred"], "cell": [1], "code": [0], "sets": [2]})"));
  EXPECT_EQ(fleet["endings"],
            json::parse(R"({"names": ["CALIB_READ_FAILED"], "cell": [1], "name": [0], "sets": [1]})"));
}

TEST_F(FleetData, PutsTheNumbersInTheOrderOfTime) {
  addFleet();
  EXPECT_EQ(
      data()["courses"],
      json::parse(R"([{"group": 0, "each": 1, "waiting": 0, "begin": [1770], "minute": [1770], "values": [[0.05]]},
    {"group": 1, "each": 1, "waiting": 0, "begin": [360, 420, 1800], "minute": [360, 420, 1800], "values": [[0.04, 0.06, 0.3]]}])"));
}

TEST_F(FleetData, PoolsSetsWhereThereAreMany) {
  for (unsigned k = 0; k < 250; ++k) {
    const std::string minute = std::to_string(k % 60);
    add(2 * k,
        {k % 3 == 0   ? 0.03
         : k % 3 == 1 ? 0.06
                      : 0.09},
        "1", "2026-01-05T1" + std::to_string(k / 60) + ":" + (minute.size() < 2 ? "0" : "") + minute + ":00Z");
  }
  const json course = data()["courses"][0];
  EXPECT_EQ(course["each"], 3);  // 250 sets, at most 100 points.
  EXPECT_EQ(course["waiting"], 1);
  EXPECT_EQ(course["minute"].size(), 83U);
  EXPECT_EQ(course["minute"][0], 602);
  for (const json& point : course["values"][0]) EXPECT_NEAR(point.get<double>(), 0.06, 1e-7);
}

TEST_F(FleetData, PutsTheWorstSetFirst) {
  addFleet();
  const json worst = data({"Line 4", "", "pages"})["worst"];
  ASSERT_EQ(worst.size(), 4U);
  EXPECT_EQ(worst[0],
            json::parse(R"({"set": "set", "id": ")" + std::string(64, 'a') + R"(", "serial": "A-1", "group": 1,
    "time": "2026-01-06T06:00:00Z", "verdict": "fail", "limit": "dy_means<=0.1", "measured": 0.3, "times": 3.0,
    "document": ")" + name(3) +
                        R"(", "page": "pages/)" + name(3) + R"(.html"})"));
  EXPECT_EQ(worst[1]["times"], 0.6);
  EXPECT_EQ(worst[2]["times"], 0.5);
  EXPECT_EQ(worst[3]["times"], 0.4);
  const auto documents = polarline::worstDocuments(results.path());
  ASSERT_EQ(documents.size(), 4U);
  EXPECT_EQ(documents[0].name, name(3));
  EXPECT_EQ(documents[0].path, std::filesystem::canonical(store.file(name(3))).string());
}

TEST_F(FleetData, TellsNoPath) {
  addFleet();
  EXPECT_THAT(data().dump(), ::testing::Not(::testing::HasSubstr(store.path())));
}

TEST_F(FleetData, OfAnEmptyStoreIsEmpty) {
  const json fleet = data();
  EXPECT_EQ(fleet["sets"], 0);
  for (const char* none : {"first", "last", "first_day"}) EXPECT_TRUE(fleet[none].is_null()) << none;
  for (const char* empty : {"groups", "measures", "courses", "worst", "limits"})
    EXPECT_EQ(fleet[empty], json::array()) << empty;
  EXPECT_EQ(fleet["keys"],
            json::parse(R"([{"key": "station", "values": [null]}, {"key": "model", "values": [null]}])"));
}

TEST_F(FleetData, NotesWhatIsMissing) {
  store.add(name(1), check({0.05}));
  store.add(name(2), check({0.05}));
  store.write(name(3), "{");
  EXPECT_EQ(
      data()["notes"],
      json::parse(R"(["2 sets had no time; the begin of their check counts.", "1 document could not be read."])"));
}

TEST_F(FleetData, LooksIntoFilesForWhatTheyAre) {
  results.merge(store);
  EXPECT_TRUE(polarline::isResultsFile(results.path()));
  store.add(name(1), check({0.05}));
  EXPECT_FALSE(polarline::isResultsFile(store.file(name(1)).string()));
  EXPECT_FALSE(polarline::isResultsFile(store.path()));
  EXPECT_FALSE(polarline::isResultsFile(store.path() + "/none"));
}

TEST_F(FleetData, IsMadeOfResultsInAFolderThatCannotBeWritten) {
  addFleet();
  const json before = data();
  const std::filesystem::path folder = std::filesystem::path(results.path()).parent_path();
  std::filesystem::permissions(folder, static_cast<std::filesystem::perms>(0555));
  {
    const Unprivileged nobody;
    EXPECT_EQ(json::parse(polarline::fleetData(results.path(), {"", "2026-02-01T00:00:00Z", ""})), before);
    EXPECT_EQ(polarline::worstDocuments(results.path()).size(), 4U);
  }
  std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
}

/// Of everything that a fleet may say at once, as documents come from many workers.
TEST(FleetDataSchema, TakesALargeMadeFleet) {
  const TempFolder folder;
  const std::string store = folder.file("store");
  ASSERT_EQ(std::system((places::python() + " '" + places::inProject("scripts/fleet_documents") + "' '" + store +
                         "' --sets 300 --pairs 1 --dots 1")
                            .c_str()),
            0);
  const made_store::Results results;
  results.merge({store});
  const json fleet = DocumentCheck::of("fleet").parsed(polarline::fleetData(results.path()));
  EXPECT_EQ(fleet["sets"], 300);
  for (const char* part : {"causes", "warnings", "broken"}) EXPECT_FALSE(fleet[part]["cell"].empty()) << part;
}

TEST_F(FleetData, IsRefusedOfADocument) {
  store.add(name(1), check({0.05}));
  EXPECT_THROW(polarline::fleetData(store.file(name(1)).string()), polarline::InputError);
}

}  // namespace
