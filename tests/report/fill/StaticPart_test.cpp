#include "report/fill/StaticPart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

CheckView viewOf(const Check& check) { return made_document::view(check, {"set <1>", false, 0}); }

TEST(StaticPartOf, HasVerdictLimitsAndFigures) {
  Check check = made_document::check();
  check.summary = {made_document::summary("dy_means", 0.055, 0.001), made_document::summary("tri_rms", NAN, NAN)};
  check.refined_summary = {made_document::summary("dy_means", 0.011, NAN)};
  check.limits.push_back({"tri_rms<=1", std::nullopt, -1, false, "nobody measured it"});
  check.verdict = Verdict::kFail;
  const std::string html = staticPart({viewOf(check)});
  EXPECT_THAT(html, HasSubstr("<h1>set &lt;1&gt;</h1>"));
  EXPECT_THAT(html, HasSubstr("<strong>FAIL: 1 of 2 limits do not hold.</strong>"));
  EXPECT_THAT(html, HasSubstr("<tr><th scope=\"row\">dy_means&lt;=0.1</th><td>0.055</td><td>yes</td>"));
  EXPECT_THAT(html, HasSubstr("<tr><th scope=\"row\">tri_rms&lt;=1</th><td>–</td><td>no</td><td>nobody measured it"));
  EXPECT_THAT(html, HasSubstr("<tr><th scope=\"row\">dy_means</th><td>pixels</td><td>1</td><td>0.055</td>"
                              "<td>0.001</td>"));
  EXPECT_THAT(html, HasSubstr("<td>–</td>"));
  EXPECT_THAT(html, HasSubstr("Refined figures over all pairs"));
  EXPECT_THAT(html, HasSubstr("<td>0.011</td>"));
}

TEST(StaticPartOf, AFailedRunSaysWhy) {
  Check check;
  check.name = "set";
  check.verdict = Verdict::kError;
  check.status.text = "a <b> is missing";
  check.status.advice = "Bring it.";
  const std::string html = staticPart({viewOf(check)});
  EXPECT_THAT(html, HasSubstr("ERROR: a &lt;b&gt; is missing"));
  EXPECT_THAT(html, HasSubstr("Bring it."));
  EXPECT_THAT(html, HasSubstr("No limits were given."));
  EXPECT_THAT(html, Not(HasSubstr("<b>")));
}

TEST(StaticPartOf, TellsFisheyeLenses) {
  Check check = made_document::check();
  EXPECT_THAT(staticPart({viewOf(check)}), Not(HasSubstr("Fisheye")));
  check.cameras.type = 2;
  EXPECT_THAT(staticPart({viewOf(check)}), HasSubstr("judge by dy_means and dy_max.</p>"));
}

TEST(StaticPartOf, EachCheckHasItsSection) {
  const CheckView view = viewOf(made_document::check());
  const std::string one = staticPart({view});
  EXPECT_EQ(staticPart({view, view}), one + one);
}

}  // namespace
}  // namespace polarline
