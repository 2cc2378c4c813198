#include "report/fleet/FleetStatic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MadeFleet.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

Fleet fleetOf(const nlohmann::ordered_json& data) { return readFleet(made_fleet::documentOf(data)); }

TEST(FleetStaticHeadline, TellsTheLastDayAndThoseBefore) {
  // 1 of 2 on the last day: 0.0945 to 0.9055 (Wilson); 3 of 3 before: from 0.4385.
  EXPECT_EQ(fleetHeadline(readFleet(made_fleet::document())),
            "Yield 50.00 % (95 % interval 9.45 to 90.55 %) of 2 judged sets on 2026-11-21; in the 28 days before "
            "100.00 % (95 % interval 43.85 to 100.00 %) of 3.");
}

TEST(FleetStaticHeadline, SaysWhereNothingWasJudged) {
  auto data = made_fleet::json();
  for (const char* key : {"passed", "failed"}) data["cells"][key] = {0, 0, 0, 0};
  data["period"] = "week";
  EXPECT_EQ(fleetHeadline(fleetOf(data)), "Of 1 sets in the week of 2026-11-21 none was judged.");
  EXPECT_EQ(fleetHeadline(fleetOf(made_fleet::emptyJson())), "The store is empty.");
}

TEST(FleetStaticPart, HasStationsFiguresAndWorstSets) {
  const std::string html = fleetStatic(readFleet(made_fleet::document()));
  EXPECT_THAT(html, HasSubstr("<h1>Fleet: results</h1>"));
  EXPECT_THAT(html, HasSubstr("<tr><th scope=\"row\">Station 1, K2</th><td>4</td><td>3</td><td>1</td><td>0</td><td>0"
                              "</td><td>75.00 %"));
  EXPECT_THAT(html, HasSubstr("<tr><th scope=\"row\">Station 2</th><td>1</td><td>0</td><td>0</td><td>1</td><td>0</td>"
                              "<td>–</td></tr>"));
  // 0.05 twice with 0.014, 0.09 twice with 0.03, 0.06, 0.04: mean 0.38 / 6, squares 0.014^2 + 0.03^2 + 0.002333.
  EXPECT_THAT(html, HasSubstr("<tr><th scope=\"row\">dy_means (max)</th><td>pixels</td><td>≤ 0.1</td><td>6</td>"
                              "<td>0.06333</td><td>0.02619</td></tr>"));
  EXPECT_THAT(html, HasSubstr("<th scope=\"row\">line &lt;4&gt;</th><td>Station 1, K2</td>"));
  EXPECT_THAT(html, HasSubstr("12 sets had no time"));
}

TEST(FleetStaticPart, TellsBoundsFromBothSidesAndThoseThatDiffer) {
  auto data = made_fleet::json();
  data["measures"][0]["lower"] = {0.01, 0.01, 0.01};
  data["measures"][0]["upper"] = {0.1, 0.2, nullptr};
  EXPECT_THAT(fleetStatic(fleetOf(data)), HasSubstr("<td>≥ 0.01, ≤ differs</td>"));
}

TEST(FleetStaticPart, OfAnEmptyStoreHasNoTable) {
  const std::string html = fleetStatic(fleetOf(made_fleet::emptyJson()));
  EXPECT_THAT(html, HasSubstr("The store is empty."));
  EXPECT_THAT(html, Not(HasSubstr("<table>")));
}

TEST(FleetStaticPart, TakesNoTextForMarkup) {
  auto data = made_fleet::json();
  data["title"] = "<b>t";
  data["keys"][0]["values"][0] = "<b>s";
  data["keys"][1]["values"][0] = "<b>m";
  data["measures"][0]["name"] = "<b>n";
  data["measures"][0]["unit"] = "<b>u";
  data["notes"][0] = "<b>o";
  data["worst"][0]["limit"] = "<b>l";
  data["worst"][0]["time"] = "<b>z";
  const std::string html = fleetStatic(fleetOf(data));
  EXPECT_THAT(html, Not(HasSubstr("<b>")));
  for (const char* text : {"t", "s", "m", "n", "u", "o", "l", "z"})
    EXPECT_THAT(html, HasSubstr(std::string("&lt;b&gt;") + text));
}

}  // namespace
}  // namespace polarline
