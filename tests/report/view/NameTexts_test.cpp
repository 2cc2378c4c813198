#include "report/view/NameTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace polarline
