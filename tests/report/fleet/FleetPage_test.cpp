#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MadeFleet.h"
#include "polarline/errors.h"
#include "polarline/report.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

nlohmann::json dataOf(const std::string& html) {
  const std::size_t element = html.find("id=\"polarline-data\"");
  const std::size_t begin = html.find('>', element) + 1;
  return nlohmann::json::parse(html.substr(begin, html.find("</script>", begin) - begin));
}

TEST(FleetPageOf, HoldsItsDataAndWhatNamesMean) {
  const nlohmann::json data = dataOf(fleetPage(made_fleet::document()));
  EXPECT_EQ(data["schema"], "polarline-fleet-page/1");
  EXPECT_EQ(data["fleet"], nlohmann::json::parse(made_fleet::kText));
  EXPECT_EQ(data["explanations"]["dy_means"]["unit"], "pixels");
  EXPECT_TRUE(data["explanations"].contains("rotation_x"));
}

TEST(FleetPageOf, BearsTheYieldOrTheTitleThatIsWanted) {
  EXPECT_THAT(fleetPage(made_fleet::document()), HasSubstr("<title>Fleet: results: Yield 50.00 %</title>"));
  EXPECT_THAT(fleetPage(made_fleet::document(), "Line <4>"), HasSubstr("<title>Line &lt;4&gt;</title>"));
}

TEST(FleetPageOf, HostileNamesEndNoElementAndFillNoMark) {
  auto data = made_fleet::json();
  data["title"] = "</script><script>@POLARLINE_DATA@";
  const std::string html = fleetPage(made_fleet::documentOf(data));
  EXPECT_EQ(dataOf(html)["fleet"]["title"], "</script><script>@POLARLINE_DATA@");
  EXPECT_THAT(html, HasSubstr("&lt;/script&gt;&lt;script&gt;@POLARLINE_DATA@"));
  EXPECT_THAT(html, Not(HasSubstr("<script>@POLARLINE_DATA@")));
}

TEST(FleetPageOf, IsTheSameForTheSameData) {
  EXPECT_EQ(fleetPage(made_fleet::document()), fleetPage(made_fleet::document()));
}

TEST(FleetPageOf, DoesNotLinkToPagesThatWereNotMade) {
  auto data = made_fleet::json();
  data["worst"].push_back(data["worst"][0]);
  data["worst"][0]["page"] = "pages/a.html";
  data["worst"][0]["document"] = "a";
  data["worst"][1]["page"] = "pages/b.html";
  data["worst"][1]["document"] = "b";
  const nlohmann::json shown = dataOf(fleetPage(made_fleet::documentOf(data), "", {"a", "c"}));
  data["worst"][0]["page"] = nullptr;
  EXPECT_EQ(shown["fleet"], nlohmann::json(data));
}

TEST(FleetPageOf, RefusesWhatIsNoFleet) {
  EXPECT_THROW(fleetPage({R"({"schema":"polarline-check/1"})", "c.json"}), InputError);
}

}  // namespace
}  // namespace polarline
