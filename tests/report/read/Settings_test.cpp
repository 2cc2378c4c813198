#include "report/read/Settings.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

TEST(SettingsOf, ADocument) {
  const Json document = Json::parse(R"({"settings": {"f_scale": 1.5, "list": [1], "none": null}})");
  EXPECT_EQ(settingOf(document, "f_scale", 1.0), 1.5);
  EXPECT_EQ(settingOf(document, "crop"), 0.0);
  EXPECT_EQ(settingOf(document, "list", 2.0), 2.0);
  EXPECT_EQ(settingOf(document, "none", 2.0), 2.0);
}

}  // namespace
}  // namespace polarline
