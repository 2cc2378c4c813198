#include "report/view/PageText.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

CheckView viewOf(const Check& check, const std::string& title) {
  return made_document::view(check, {title, false, 1000000});
}

TEST(PageTextOf, OneCheckHasNoComparison) {
  const Json page = Json::parse(pageText({viewOf(made_document::check(), "a")}, "2026-01-02T03:04:05Z", "polarline x"));
  EXPECT_EQ(page["schema"], "polarline-page/1");
  EXPECT_EQ(page["made"], "2026-01-02T03:04:05Z");
  EXPECT_EQ(page["command"], "polarline x");
  EXPECT_EQ(page["tool"]["name"], "polarline");
  EXPECT_EQ(page["checks"].size(), 1U);
  EXPECT_TRUE(page["explanations"].contains("dy_means"));
  EXPECT_TRUE(page["comparison"].is_null());
}

TEST(PageTextOf, SeveralAreCompared) {
  Check after = made_document::check();
  after.summary = {made_document::summary("dy_means", 0.5, 0.01)};
  after.limits[0].holds = false;
  after.limits[0].value = 0.5;
  Check before = made_document::check();
  before.summary = {made_document::summary("dy_means", 0.055, 0.01)};
  const Json page = Json::parse(pageText({viewOf(before, "a"), viewOf(after, "b")}, "", ""));
  const Json& comparison = page["comparison"];
  EXPECT_EQ(comparison["text"], "b against a. More: dy_means (by 0.445 ± 0.014 pixels).");
  EXPECT_EQ(comparison["limits"].dump(), R"([{"text":"dy_means<=0.1","values":[0.055,0.5],"holds":[true,false]}])");
  const Json& figure = comparison["figures"][0];
  EXPECT_EQ(figure["figure"], "dy_means");
  EXPECT_EQ(figure["mean"], Json::parse("[0.055, 0.5]"));
  EXPECT_EQ(figure["difference"][1]["judged"], "more");
  EXPECT_EQ(figure["difference"][0]["judged"], "none");
  EXPECT_EQ(comparison["maps_text"], "");
}

TEST(PageTextOf, ChecksWithoutAMapSayWhy) {
  const Check check = made_document::check();
  Check rowless = check;
  for (float& dy : rowless.pairs[0].points.dy) dy = NAN;
  Check empty = check;
  empty.pairs.clear();
  empty.summary.clear();
  const CheckView small = made_document::view(check, {"d", false, 0});
  const Json page =
      Json::parse(pageText({viewOf(check, "a"), viewOf(rowless, "b"), viewOf(empty, "c"), small}, "", ""));
  EXPECT_EQ(
      page["comparison"]["maps_text"],
      "There is no map of check 2, b: its worst pair has no row differences. There is no map of check 3, c: no "
      "pair was finished. There is no map of check 4, d: its dots were left out to keep the file small; polarline "
      "report --budget takes more.");
}

}  // namespace
}  // namespace polarline
