#include "check/document/OutcomePart.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace polarline {
namespace {

nlohmann::json jsonOf(const Check& check) {
  JsonText json(JsonText::Form::kShort);
  json.object();
  writeStatus(json, check.status);
  writeOutcome(json, check);
  json.end();
  return nlohmann::json::parse(json.take());
}

TEST(OutcomePart, TellsOnHowManyLimitsTheVerdictRests) {
  Check check;
  check.limits = {{"dy_means<=1", 0.1, 4, true, "why"}, {"dis_rms<=1", std::nullopt, -1, false, "why not"}};
  check.verdict = Verdict::kFail;
  EXPECT_EQ(jsonOf(check)["judged"], 2);
  EXPECT_EQ(jsonOf(check)["verdict"], "fail");
  EXPECT_TRUE(jsonOf(check)["limits"][1]["value"].is_null());
  EXPECT_TRUE(jsonOf(check)["limits"][1]["pair"].is_null());
  check.verdict = Verdict::kError;
  EXPECT_EQ(jsonOf(check)["judged"], 0);
  EXPECT_EQ(jsonOf(check)["verdict"], "error");
}

TEST(OutcomePart, LeavesOutWhatThereIsNot) {
  Check check;
  check.warnings = {{"unknown_key", "text", "advice", -1}};
  const nlohmann::json json = jsonOf(check);
  EXPECT_TRUE(json["status"]["code"].is_null());
  EXPECT_TRUE(json["diagnosis"].is_null());
  EXPECT_FALSE(json["warnings"][0].contains("pair"));
  EXPECT_FALSE(json["summary"].contains("refined"));
  check.diagnosis.emplace();
  EXPECT_FALSE(jsonOf(check)["diagnosis"].contains("correction"));
}

}  // namespace
}  // namespace polarline
