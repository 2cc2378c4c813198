#include "store/results/ReadDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "store/MadeStore.h"
#include "store/results/JsonCursor.h"

namespace {

using nlohmann::json;
using polarline::results::JsonFault;
using polarline::results::readDocument;
using ::testing::HasSubstr;

json made() { return json::parse(toJson(made_store::check({0.05, 0.2}))); }

TEST(ReadDocument, TakesWhatTheCheckWas) {
  const auto rows = readDocument(made().dump());
  EXPECT_EQ(rows.started, "2026-01-02T03:04:05Z");
  EXPECT_EQ(rows.id, std::string(64, 'a'));
  EXPECT_EQ(rows.verdict, "fail");
  EXPECT_EQ(rows.judged, 1);
  EXPECT_EQ(rows.status, "success");
  EXPECT_EQ(rows.status_code, 0);
  EXPECT_EQ(rows.pairs_run, 2);
  EXPECT_EQ(rows.pairs_finished, 2);
  EXPECT_EQ(rows.board_cols, 4);
  EXPECT_FALSE(rows.is_diagnosed);
  ASSERT_EQ(rows.limits.size(), 1U);
  EXPECT_EQ(rows.limits[0].text, "dy_means<=0.1");
  EXPECT_EQ(rows.limits[0].value, 0.2);
  EXPECT_EQ(rows.limits[0].pair, 1);
  EXPECT_FALSE(rows.limits[0].holds);
}

TEST(ReadDocument, TakesFiguresAndEntriesOfLists) {
  const auto rows = readDocument(made().dump());
  std::vector<std::string> figures;
  for (const auto& each : rows.figures)
    figures.push_back(std::to_string(each.pair) + each.figure + std::to_string(each.entry) + "=" +
                      json(each.value).dump());
  EXPECT_THAT(figures, ::testing::ElementsAre("0dy_means-1=0.05", "0tri_dis0=0.05", "0tri_dis1=-0.1", "1dy_means-1=0.2",
                                              "1tri_dis0=0.2", "1tri_dis1=-0.4"));
}

TEST(ReadDocument, LeavesOutWhatIsNotThePairsOwn) {
  json document = made();
  document["pairs"][0]["figures"]["dy_means"] = nullptr;
  document["pairs"][1]["figures"]["tri_dis"] = {nullptr, 1};
  EXPECT_EQ(readDocument(document.dump()).figures.size(), 4U);
}

TEST(ReadDocument, GivesFiguresTheirStandardErrors) {
  json document = made();
  document["pairs"][1]["uncertainty"]["dy_means"] = {{"sd", 0.01}, {"low95", 0.1}, {"high95", 0.3}};
  document["pairs"][1]["refined"] = {{"figures", {{"dy_means", 0.15}}},
                                     {"uncertainty", {{"dy_means", {{"sd", 0.002}, {"low95", 0}, {"high95", 1}}}}}};
  const auto rows = readDocument(document.dump());
  EXPECT_TRUE(std::isnan(rows.figures[0].sd));
  EXPECT_EQ(rows.figures[3].sd, 0.01);
  EXPECT_TRUE(std::isnan(rows.figures[4].sd)) << "a list has none";
  EXPECT_TRUE(rows.figures[6].is_refined);
  EXPECT_EQ(rows.figures[6].pair, 1);
  EXPECT_EQ(rows.figures[6].value, 0.15);
  EXPECT_EQ(rows.figures[6].sd, 0.002);
}

TEST(ReadDocument, TakesCausesWarningsAndReasons) {
  json document = made();
  document["diagnosis"] = {{"causes",
                            {{{"name", "rotation_x"},
                              {"value", 0.05},
                              {"sd", 0.01},
                              {"unit", "deg"},
                              {"share", 0.9},
                              {"text", "t"},
                              {"group", 2}}}},
                           {"text", "t"},
                           {"rows_before", 0.5},
                           {"rows_after", nullptr},
                           {"pattern_left", false}};
  document["warnings"] = {{{"code", "blurred"}, {"pair", 1}, {"text", "t"}, {"advice", "a"}}};
  document["pairs"][0]["reason"] = {{"code", -6}, {"text", "few"}, {"side", "left"}, {"step", "ellipses"}};
  const auto rows = readDocument(document.dump());
  EXPECT_TRUE(rows.is_diagnosed);
  EXPECT_EQ(rows.rows_before, 0.5);
  EXPECT_TRUE(std::isnan(rows.rows_after));
  ASSERT_EQ(rows.causes.size(), 1U);
  EXPECT_EQ(rows.causes[0].group, 2);
  EXPECT_EQ(rows.causes[0].unit, "deg");
  ASSERT_EQ(rows.warnings.size(), 1U);
  EXPECT_EQ(rows.warnings[0].pair, 1);
  EXPECT_EQ(rows.pairs[0].reason_code, -6);
  EXPECT_EQ(rows.pairs[0].reason_step, "ellipses");
  EXPECT_FALSE(rows.pairs[1].reason_code.has_value());
}

TEST(ReadDocument, PassesOverKeysThatAreNew) {
  json document = made();
  document["hereafter"] = {{"deep", {1, {{"er", true}}}}};
  document["pairs"][0]["hereafter"] = "x";
  EXPECT_EQ(readDocument(document.dump()).pairs.size(), 2U);
}

TEST(ReadDocument, SaysWhichKeyIsMissing) {
  for (const char* key :
       {"schema", "pairs", "started", "set", "status", "limits", "verdict", "diagnosis", "warnings"}) {
    json document = made();
    document.erase(key);
    try {
      readDocument(document.dump());
      ADD_FAILURE() << key;
    } catch (const JsonFault& fault) {
      EXPECT_THAT(fault.what(), HasSubstr(std::string(": ") + key + " is missing"));
    }
  }
}

TEST(ReadDocument, RefusesWhatIsNotOfTheSchema) {
  const std::vector<std::pair<json::json_pointer, json>> spoilt = {
      {json::json_pointer("/schema"), "polarline-check/2"},
      {json::json_pointer("/verdict"), "maybe"},
      {json::json_pointer("/started"), "yesterday"},
      {json::json_pointer("/pairs/1/index"), 0},
      {json::json_pointer("/pairs/0/index"), 0.5},
      {json::json_pointer("/pairs/0/state"), "lost"},
      {json::json_pointer("/pairs/0/figures/dy_means"), "1"},
      {json::json_pointer("/limits/0/holds"), 1},
      {json::json_pointer("/set/id"), 7}};
  for (const auto& [place, value] : spoilt) {
    json document = made();
    document[place] = value;
    EXPECT_THROW(readDocument(document.dump()), JsonFault) << place;
  }
}

TEST(ReadDocument, RefusesOneThatIsCutOffOrHasMoreBehindIt) {
  const std::string text = made().dump();
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, text.size() / 2, text.size() - 1})
    EXPECT_THROW(readDocument(text.substr(0, size)), JsonFault) << size;
  EXPECT_THROW(readDocument(text + "{}"), JsonFault);
  EXPECT_THROW(readDocument(text.substr(0, 500) + std::string(100, '\0') + text.substr(600)), JsonFault);
}

}  // namespace
