#include <gtest/gtest.h>

#include "polarline/simulate.h"
#include "support/DocumentCheck.h"

namespace {

TEST(SimulateText, SaysWhatWasRendered) {
  EXPECT_EQ(polarline::simulatedText({"small", "small.json", "a folder", 1, 3}), "small: 1 pair in a folder\n");
  EXPECT_EQ(polarline::simulatedText({"big", "big", "b", 2, 3}), "big: 2 pairs in b\n");
}

TEST(SimulateText, SaysTheSameInJson) {
  const auto json = DocumentCheck::of("simulate")
                        .parsed(polarline::simulatedJson({"small", "small.json", "a\xff", 2, 18446744073709551615U}));
  EXPECT_EQ(json["scene"], "small.json");
  EXPECT_EQ(json["name"], "small");
  EXPECT_EQ(json["folder"], "a\xEF\xBF\xBD");
  EXPECT_EQ(json["pairs"], 2);
  EXPECT_EQ(json["seed"], 18446744073709551615U);
}

TEST(SimulateText, ListsEveryPreset) {
  const auto json = DocumentCheck::of("presets").parsed(polarline::presetsJson());
  const std::string text = polarline::presetsText();
  ASSERT_EQ(json["presets"].size(), polarline::presets().size());
  for (const auto& preset : polarline::presets()) EXPECT_NE(text.find(preset.name + " "), std::string::npos);
}

}  // namespace
