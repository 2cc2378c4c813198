#include "report/view/NameTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MadeDocument.h"
#include "polarline/check.h"
#include "report/read/Json.h"

namespace polarline {
namespace {

TEST(NameTextsOf, ExplainFiguresCausesAndWarnings) {
  const Json texts = Json::parse(nameTexts());
  for (const std::string& figure : mainFigures()) EXPECT_TRUE(texts.contains(figure)) << figure;
  EXPECT_EQ(texts["dy_means"]["title"], "dy_means");
  EXPECT_EQ(texts["dy_means"]["unit"], "pixels");
  EXPECT_THAT(texts["dy_means"]["text"].get<std::string>(), ::testing::HasSubstr("row difference"));
  EXPECT_EQ(texts["rotation_x"]["title"], "Rotation x");
  EXPECT_EQ(texts["rotation_x"]["unit"], "degrees");
  EXPECT_EQ(texts["baseline_unit"]["title"], "Baseline unit");
  EXPECT_EQ(texts["baseline_unit"]["unit"], "");
  EXPECT_FALSE(texts.contains("-9"));
}

TEST(NameTextsOf, TheNamesThatAreWanted) {
  const Json texts = Json::parse(nameTexts({"dy_means", "rotation_x", "no such name"}));
  EXPECT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts["dy_means"], Json::parse(nameTexts())["dy_means"]);
  EXPECT_EQ(nameTexts({}), "{}");
}

TEST(NameTextsNames, AreThoseOfADocument) {
  Check check = made_document::check();
  check.limits[0].text = "|refined.tri_dis[0]|<=0.5";
  check.warnings = {{"too_dark", "", ""}};
  auto& refined = check.pairs[0].refined.emplace().figures = check.pairs[0].figures;
  refined[0].name = "tri_rms";
  check.diagnosis.emplace().causes = {{}};
  check.diagnosis->causes[0].name = "rotation_z";
  check.summary[0].name = "dy_max";
  const std::set<std::string> wanted = {"dy_means", "dy_max",  "refined",   "tri_dis",
                                        "too_dark", "tri_rms", "rotation_z"};
  EXPECT_EQ(namesIn(made_document::json(check)), wanted);
}

}  // namespace
}  // namespace polarline
