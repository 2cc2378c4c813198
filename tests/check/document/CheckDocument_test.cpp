#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "HandMadeCheck.h"
#include "check/figures/PairReading.h"
#include "polarline/check.h"
#include "support/DocumentCheck.h"
#include "support/Places.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

using Json = nlohmann::json;

/// A pair with every figure, as the schema wants it; `dy_means` and `tri_dis` have values.
PairCheck fullPair() {
  const PairEvaluator nothing(std::make_shared<const PolarConfig>());
  PairCheck pair = PairReading().read(true, 0, nothing);
  pair.index = 4;
  pair.left = "l \"1\".png";
  pair.right = "r\n\xFF.png";
  pair.found_left = 60;
  pair.found_right = 59;
  for (Figure& figure : pair.figures) {
    const std::string name = figure.name;
    if (name == "dy_means") figure.values = {static_cast<double>(0.1F)};
    if (name == "space_rms") figure.values = {0.1};
    if (name == "tri_dis") figure.values = {1.0, std::numeric_limits<double>::infinity()};
    figure.is_own = !figure.values.empty();
    figure.is_carried = name == "tri_rms";
  }
  pair.uncertainty = {{"dy_means", 0.25, 0.0, std::numeric_limits<double>::infinity()}};
  pair.quality.emplace();
  pair.quality->left.contrast = 0.5;
  pair.quality->left.dots = 60;
  pair.quality->coverage = 0.25;
  pair.points.id = {3, 7};
  pair.points.left_x = {0.1F, std::numeric_limits<float>::quiet_NaN()};
  return pair;
}

Check fullCheck() {
  Check check;
  check.started = "2024-05-06T07:08:09Z";
  check.seconds = 1.5;
  check.name = "set";
  check.id = std::string(64, 'a');
  check.inputs = {{"left/0", "p", ""}};
  check.status.code = 0;
  check.settings = {{"f_scale", "0.5"}, {"Cal_ID_DIS", "[[1, 2]]"}};
  check.board.step = 17.5;
  check.cameras.model = "brown5";
  check.cameras.left.coefficients = {1, 2, 3, 4, 5, 6, 7, 8};
  check.cameras.extrinsics = {1, 2, 3, 4, 5, 6};
  check.pairs = {fullPair()};
  check.summary = {{"tri_dis[0]", "board unit", 1, 1.0, std::numeric_limits<double>::quiet_NaN(), 1.0, 1.0, 4}};
  check.limits = {{"dy_means<=1", 0.1, 4, true, "dy_means is 0.1 in pair 4"},
                  {"dis_rms<=1", std::nullopt, -1, false, "pair 4 did not measure it"}};
  check.verdict = Verdict::kFail;
  check.diagnosis = Diagnosis{};
  check.diagnosis->causes = {{"rotation_x", 0.05, 0.002, "deg", 0.9, "looks down", 0},
                             {"row_offset", 0.5, 3.0, "px", 0.1, "lower", 1}};
  check.diagnosis->text = "all of it";
  check.diagnosis->rows_before = 0.5;
  check.diagnosis->rows_after = std::numeric_limits<double>::quiet_NaN();
  check.correction = {"corrected.json", 0.02, 0.03};
  check.warnings = {{"unknown_key", "text", "advice", -1}, {"picture_size", "text", "advice", 4}};
  return check;
}

TEST(CheckDocumentSchema, TakesAFullCheck) {
  const Json document = DocumentCheck::ofCheck().parsed(toJson(fullCheck()));
  EXPECT_EQ(document["schema"], "polarline-check/1");
  EXPECT_EQ(document["verdict"], "fail");
  EXPECT_EQ(document["summary"]["figures"]["tri_dis[0]"]["sd"], nullptr);
  EXPECT_EQ(document["limits"][0]["pair"], 4);
  EXPECT_EQ(document["limits"][1]["value"], nullptr);
  EXPECT_EQ(document["cameras"]["extrinsics"]["tz"], 6.0);
  EXPECT_EQ(document["settings"]["Cal_ID_DIS"], Json::parse("[[1, 2]]"));
  EXPECT_EQ(document["pairs"][0]["quality"]["left"]["contrast"], 0.5);
  EXPECT_EQ(document["pairs"][0]["quality"]["left"]["dots"], 60);
  EXPECT_EQ(document["pairs"][0]["quality"]["right"]["edge_width"], nullptr);
  EXPECT_EQ(document["pairs"][0]["quality"]["coverage"], 0.25);
  EXPECT_FALSE(document["warnings"][0].contains("pair"));
  EXPECT_EQ(document["warnings"][1]["pair"], 4);
}

TEST(CheckDocumentDiagnosis, HasCausesInTheirGroupsAndTheCorrection) {
  const Json diagnosis = DocumentCheck::ofCheck().parsed(toJson(fullCheck()))["diagnosis"];
  EXPECT_EQ(diagnosis["causes"][0]["value"], 0.05);
  EXPECT_FALSE(diagnosis["causes"][0].contains("group"));
  EXPECT_EQ(diagnosis["causes"][1]["group"], 1);
  EXPECT_EQ(diagnosis["rows_before"], 0.5);
  EXPECT_EQ(diagnosis["rows_after"], nullptr);
  EXPECT_EQ(diagnosis["pattern_left"], false);
  EXPECT_EQ(diagnosis["correction"]["rows_seen"], 0.03);
  Check without = fullCheck();
  without.diagnosis.reset();
  EXPECT_EQ(DocumentCheck::ofCheck().parsed(toJson(without))["diagnosis"], nullptr);
}

TEST(CheckDocumentSchema, TakesACheckThatCameNowhere) {
  Check check = fullCheck();
  check = Check{};
  check.started = "2024-05-06T07:08:09Z";
  check.status.name = "input_unusable";
  const Json document = DocumentCheck::ofCheck().parsed(toJson(check));
  EXPECT_EQ(document["verdict"], "error");
  EXPECT_EQ(document["status"]["code"], nullptr);
  EXPECT_EQ(document["cameras"]["extrinsics"], nullptr);
}

TEST(CheckDocumentSchema, RefusesWhatItDoesNotKnow) {
  DocumentCheck& judge = DocumentCheck::ofCheck();
  const Json document = Json::parse(toJson(fullCheck()));
  for (const char* place : {"/extra", "/status/extra", "/pairs/0/extra", "/pairs/0/figures/extra", "/board/extra",
                            "/summary/figures/extra", "/warnings/0/extra", "/cameras/left/extra"}) {
    Json spoilt = document;
    spoilt[Json::json_pointer(place)] = 1;
    EXPECT_NE(judge.problem(spoilt), "") << place;
  }
  for (const char* place : {"/schema", "/status/retry", "/pairs/0/state", "/pairs/0/figures/dy_means", "/set/id",
                            "/limits/0/holds", "/summary/finished", "/pairs/0/points/dy", "/cameras/extrinsics/rx"}) {
    Json spoilt = document;
    const Json::json_pointer at(place);
    spoilt[at.parent_pointer()].erase(at.back());
    EXPECT_NE(judge.problem(spoilt), "") << place;
    spoilt = document;
    spoilt[at] = Json::array({"x"});
    EXPECT_NE(judge.problem(spoilt), "") << place;
  }
}

TEST(CheckDocumentSchema, KnowsEveryKeyOfADocument) {
  Json document = Json::parse(toJson(fullCheck()));
  EXPECT_EQ(DocumentCheck::ofCheck().problem(document), "");
  document["summary"]["new_key"] = 1;
  EXPECT_NE(DocumentCheck::ofCheck().problem(document), "");
}

TEST(CheckDocumentSchema, DescribesEveryKey) {
  const Json schema =
      Json::parse(TempFolder::contentOf(places::inProject("docs/schema/polarline-check-1.schema.json")));
  const std::function<void(const Json&, const std::string&)> walk = [&](const Json& at, const std::string& path) {
    if (at.is_object() && at.contains("properties") && at["properties"].is_object()) {
      EXPECT_FALSE(at.contains("additionalProperties")) << path << ": new keys may come";
      for (const auto& [key, member] : at["properties"].items())
        EXPECT_FALSE(member.value("description", "").empty()) << path << "." << key;
    }
    for (const auto& [key, member] : at.items()) {
      if (member.is_structured()) walk(member, path + "." + key);
    }
  };
  walk(schema, "");
}

TEST(CheckDocumentSchema, TakesTheExampleOfThePage) {
  const std::string page = TempFolder::contentOf(places::inProject("docs/formats/check_document.md"));
  const std::size_t begin = page.find("```json\n");
  ASSERT_NE(begin, std::string::npos);
  const std::size_t end = page.find("```", begin + 8);
  DocumentCheck::ofCheck().parsed(page.substr(begin + 8, end - begin - 8));
}

TEST(CheckDocumentFigures, AreOwnCarriedOrNull) {
  const Json pair = Json::parse(toJson(fullCheck()))["pairs"][0];
  EXPECT_EQ(pair["figures"]["space_rms"].get<double>(), 0.1);
  EXPECT_EQ(pair["figures"]["tri_rms"], nullptr);
  EXPECT_EQ(pair["figures"]["dis_rms"], nullptr);
  EXPECT_EQ(pair["carried"], Json::array({"tri_rms"}));
  EXPECT_EQ(pair["figures"]["tri_dis"], Json::parse("[1, null]"));
}

TEST(CheckDocumentFigures, TellHowCertainTheyAre) {
  Check check = fullCheck();
  check.summary[0].sd_mean = 0.5;
  const Json document = DocumentCheck::ofCheck().parsed(toJson(check));
  EXPECT_EQ(document["pairs"][0]["uncertainty"],
            Json::parse(R"({"dy_means": {"sd": 0.25, "low95": 0, "high95": null}})"));
  EXPECT_EQ(document["summary"]["figures"]["tri_dis[0]"]["sd_mean"], 0.5);
  EXPECT_EQ(document["summary"]["figures"]["tri_dis[0]"]["low95"], nullptr);
}

TEST(CheckDocumentFigures, OfSinglePrecisionHaveNoMoreDigitsThanThat) {
  Check check = fullCheck();
  for (Figure& figure : check.pairs[0].figures) figure.is_single = std::string(figure.name) == "dy_means";
  EXPECT_THAT(toJson(check), ::testing::HasSubstr("\"dy_means\": 0.1,"));
  EXPECT_THAT(toJson(check), ::testing::HasSubstr("\"left_x\": [0.1, null]"));
}

/// A pair whose first dot was refined in both pictures, the second in the left one only.
PairCheck refinedPair() {
  PairCheck pair = fullPair();
  pair.refined.emplace();
  pair.refined->figures = pair.figures;
  for (Figure& figure : pair.refined->figures) {
    figure.is_carried = false;
    for (double& value : figure.values) value *= 0.5;
  }
  pair.refined->refined_left = 2;
  pair.refined->refined_right = 1;
  pair.refined->left_out = 3;
  pair.refined->uncertainty = {{"space_rms", 0.25, 0.0, 0.5}};
  RefinedPoints& points = pair.refined->points;
  points.id = {3, 7};
  points.left_x = {0.25F, 0.5F};
  points.left_sd_x = points.left_sd_y = {0.125F, 0.125F};
  points.right_sd_x = points.right_sd_y = {0.125F, std::numeric_limits<float>::quiet_NaN()};
  points.left_state = {DotState::kRefined, DotState::kRefined};
  points.right_state = {DotState::kRefined, DotState::kCovered};
  return pair;
}

TEST(CheckDocumentRefined, StandsBesideTheDetected) {
  Check check = fullCheck();
  check.pairs = {refinedPair()};
  check.refined_summary = {{"dy_means", "pixels", 1, 0.05, 0.0, 0.05, 0.05, 4}};
  const Json document = DocumentCheck::ofCheck().parsed(toJson(check));
  const Json without = Json::parse(toJson(fullCheck()));
  Json pair = document["pairs"][0];
  EXPECT_EQ(pair["refined"]["figures"]["space_rms"], 0.05);
  EXPECT_EQ(pair["refined"]["figures"].size(), pair["figures"].size());
  EXPECT_EQ(pair["refined"]["dots"], Json::parse(R"({"left": 2, "right": 1, "left_out": 3})"));
  EXPECT_EQ(pair["refined"]["uncertainty"], Json::parse(R"({"space_rms": {"sd": 0.25, "low95": 0.0, "high95": 0.5}})"));
  EXPECT_EQ(pair["refined"]["points"]["left_x"], Json::parse("[0.25, 0.5]"));
  EXPECT_EQ(pair["refined"]["points"]["right_sd_y"], Json::parse("[0.125, null]"));
  EXPECT_EQ(pair["refined"]["points"]["right_state"], Json::parse(R"(["refined", "covered"])"));
  EXPECT_EQ(pair["refined"]["problem"], "");
  pair.erase("refined");
  EXPECT_EQ(pair, without["pairs"][0]) << "nothing else changes";
  EXPECT_EQ(document["summary"]["refined"]["figures"]["dy_means"]["worst_pair"], 4);
  EXPECT_FALSE(without["summary"].contains("refined"));
}

TEST(CheckDocumentNames, OfAnyBytesAreText) {
  const Json pair = Json::parse(toJson(fullCheck()))["pairs"][0];
  EXPECT_EQ(pair["left"], "l \"1\".png");
  EXPECT_EQ(pair["right"], "r\n\xEF\xBF\xBD.png");
}

TEST(CheckDocumentPieces, AreTheWhole) {
  Check check = fullCheck();
  check.pairs.push_back(fullPair());
  check.pairs[1].finished = false;
  check.pairs[1].reason = {-6, "text", "left", "ellipses"};
  std::vector<std::string> pieces;
  CheckDocument document([&](const std::string& piece) { pieces.push_back(piece); });
  for (const PairCheck& pair : check.pairs) document.add(pair);
  EXPECT_EQ(pieces.size(), 2U);
  for (PairCheck& pair : check.pairs) pair.points = {};  // They are written already.
  document.finish(check);
  std::string text;
  for (const std::string& piece : pieces) text += piece;
  const Json whole = DocumentCheck::ofCheck().parsed(text);
  EXPECT_EQ(whole["pairs"][0]["points"]["id"], Json::parse("[3, 7]"));
  EXPECT_EQ(whole["pairs"][0]["reason"], nullptr);
  EXPECT_EQ(whole["pairs"][1]["state"], "given up");
  EXPECT_EQ(whole["pairs"][1]["reason"]["side"], "left");
  EXPECT_EQ(whole["summary"]["finished"], 1);
}

}  // namespace
}  // namespace polarline
