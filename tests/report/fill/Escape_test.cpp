#include "report/fill/Escape.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace polarline {
namespace {

TEST(EscapeHtml, LeavesNoMarkup) {
  EXPECT_EQ(htmlOf("<b a=\"1\" c='2'>&amp;"), "&lt;b a=&quot;1&quot; c=&#39;2&#39;&gt;&amp;amp;");
  EXPECT_EQ(htmlOf("dy ± 0.1"), "dy ± 0.1");
}

TEST(EscapeHtml, ReplacesWhatIsNoUtf8) { EXPECT_EQ(htmlOf("a\xFF<\xC3"), "a\uFFFD&lt;\uFFFD"); }

TEST(EscapeScript, LeavesNothingThatEndsIt) {
  const std::string hostile = "</script><!--\xE2\x80\xA8\xE2\x80\xA9<script>\xE2\x82\xAC";
  const std::string text = scriptJson(nlohmann::json(hostile).dump());
  EXPECT_EQ(text, "\"\\u003c/script>\\u003c!--\\u2028\\u2029\\u003cscript>\xE2\x82\xAC\"");
  EXPECT_EQ(nlohmann::json::parse(text), hostile) << "and it reads back";
  EXPECT_EQ(scriptJson(""), "");
  EXPECT_EQ(scriptJson("\xE2"), "\xE2");
}

}  // namespace
}  // namespace polarline
